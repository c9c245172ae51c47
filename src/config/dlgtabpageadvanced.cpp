#include "config/dlgtabpageadvanced.h"

#include "app/appsettings.h"
#include "help/qgroupboxbold.h"

#include <QRadioButton>
#include <QVBoxLayout>

CDlgTabPageAdvanced::CDlgTabPageAdvanced(CAppSettings *settings, QWidget *parent)
    : CDlgTabPage(settings, QStringLiteral("config.html#configAdvanced"), parent)
{
    auto *outer = new QVBoxLayout(this);
    m_layout = new QVBoxLayout;
    outer->addLayout(m_layout);
    outer->addStretch();
    addUnitsGroup();
    addAveragingGroup();
}

void CDlgTabPageAdvanced::addUnitsGroup()
{
    auto *group = new QGroupBoxBold(tr("Colour Match Units"), this);
    auto *column = new QVBoxLayout(group);
    m_percent = new QRadioButton(tr("Percent"), group);
    m_deltaE = new QRadioButton(tr("ΔE (Delta E)"), group);
    m_percent->setChecked(settings()->rgbDifference);
    m_deltaE->setChecked(!settings()->rgbDifference);
    column->addWidget(m_percent);
    column->addWidget(m_deltaE);
    m_layout->addWidget(group);
}

void CDlgTabPageAdvanced::addAveragingGroup()
{
    auto *group = new QGroupBoxBold(tr("Colour Averaging"), this);
    auto *column = new QVBoxLayout(group);
    m_rgbAverage = new QRadioButton(tr("RGB (red,green,blue)"), group);
    m_labAverage = new QRadioButton(tr(" CIE L*a*b*"), group);
    m_rgbAverage->setChecked(settings()->rgbAverage);
    m_labAverage->setChecked(!settings()->rgbAverage);
    column->addWidget(m_rgbAverage);
    column->addWidget(m_labAverage);
    m_layout->addWidget(group);
}

bool CDlgTabPageAdvanced::applyChanges()
{
    CAppSettings *s = settings();
    const bool changed =
        s->rgbAverage != m_rgbAverage->isChecked() || s->rgbDifference != m_percent->isChecked();
    s->rgbAverage = m_rgbAverage->isChecked();
    s->rgbDifference = m_percent->isChecked();
    return changed;
}
