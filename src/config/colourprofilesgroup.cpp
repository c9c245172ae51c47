#include "config/colourprofilesgroup.h"

#include "app/appsettings.h"

#include <QCheckBox>
#include <QVBoxLayout>

CColourProfilesGroup::CColourProfilesGroup(CAppSettings *settings, QWidget *parent)
    : QGroupBoxBold(tr("Colour Profiles"), parent), m_settings(settings)
{
    auto *column = new QVBoxLayout(this);
    m_convert = new QCheckBox(tr("Convert images with an embedded colour profile to sRGB"), this);
    m_convert->setChecked(m_settings->convertToSrgb);
    column->addWidget(m_convert);
}

bool CColourProfilesGroup::applyChanges()
{
    const bool changed = m_settings->convertToSrgb != m_convert->isChecked();
    m_settings->convertToSrgb = m_convert->isChecked();
    return changed;
}
