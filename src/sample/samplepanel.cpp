#include "sample/samplepanel.h"

#include "app/maintabbedwindow.h"
#include "colour/colourformat.h"
#include "sample/colourcontextmenu.h"
#include "sample/widesttexts.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

namespace {

const int kSwatchWidth = 34;
const int kSwatchHeight = 51;
const int kDecimals = 2;

} // namespace

CSamplePanel::CSamplePanel(QWidget *parent) : QWidget(parent)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    m_caption = new QLabel(tr("RGB=Red,Green,Blue"), this);
    m_caption->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    QSizePolicy policy = m_caption->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_caption->setSizePolicy(policy);
    layout->addWidget(m_caption);
    layout->addWidget(buildSwatch());
    layout->addWidget(buildGrid());
}

QWidget *CSamplePanel::buildSwatch()
{
    auto *row = new QWidget(this);
    auto *rowLayout = new QHBoxLayout(row);
    rowLayout->setContentsMargins(0, 0, 0, 0);
    m_swatchFrame = new QWidget(row);
    m_swatchFrame->setFixedSize(kSwatchWidth, kSwatchHeight);
    auto *frameLayout = new QHBoxLayout(m_swatchFrame);
    frameLayout->setContentsMargins(0, 0, 0, 0);
    m_swatch = new QLabel(m_swatchFrame);
    frameLayout->addWidget(m_swatch);
    m_swatchFrame->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_swatchFrame, &QWidget::customContextMenuRequested, this,
            &CSamplePanel::showSwatchMenu);
    rowLayout->addStretch();
    rowLayout->addWidget(m_swatchFrame);
    rowLayout->addStretch();
    return row;
}

QWidget *CSamplePanel::buildGrid()
{
    static const char *const captions[] = {QT_TR_NOOP("R:"),  QT_TR_NOOP("G:"),
                                           QT_TR_NOOP("B:"),  QT_TR_NOOP("L*:"),
                                           QT_TR_NOOP("a*:"), QT_TR_NOOP("b*:")};
    auto *grid = new QWidget(this);
    auto *layout = new QGridLayout(grid);
    layout->setContentsMargins(0, 0, 0, 0);
    const QString widest = CWidestTexts::sampleValue(grid->fontMetrics());
    for (int i = 0; i < 6; ++i) {
        QLabel *caption = CMainTabbedWindow::createCaptionLabel(tr(captions[i]), grid);
        QLabel *value = CMainTabbedWindow::createValueLabel(grid);
        reserveWidth(value, widest);
        const int column = i < 3 ? 0 : 2;
        layout->addWidget(caption, i % 3, column);
        layout->addWidget(value, i % 3, column + 1);
        m_captions.append(caption);
        m_values.append(value);
    }
    return grid;
}

// A value keeps from the start the width of the widest value it can come
// to show, so that no pick widens the panel.
void CSamplePanel::reserveWidth(QLabel *value, const QString &widest)
{
    const QString shown = value->text();
    value->setText(widest);
    value->setMinimumWidth(std::max(value->minimumWidth(), value->sizeHint().width()));
    value->setText(shown);
}

void CSamplePanel::showColour(const RgbColour &colour, int rgbFormat)
{
    m_swatchFrame->setStyleSheet(QStringLiteral("border:1px solid black"));
    refreshRgb(colour, rgbFormat);
    const QStringList lab = formatLab(colour.red, colour.green, colour.blue, kDecimals);
    for (int i = 0; i < 3; ++i)
        m_values.at(i + 3)->setText(lab.at(i));
    setShown(true);
    m_swatch->setStyleSheet(QStringLiteral("background-color:%1;")
                                .arg(colourName(colour.red, colour.green, colour.blue)));
    emit colourShown(colour);
}

void CSamplePanel::showEmpty()
{
    m_hasColour = false;
    m_swatchFrame->setStyleSheet(QStringLiteral("border:1px transparent"));
    setShown(false);
    m_swatch->setStyleSheet(QStringLiteral("background:transparent;"));
    emit colourCleared();
}

void CSamplePanel::addNote(QWidget *note)
{
    layout()->addWidget(note);
}

void CSamplePanel::refreshRgb(const RgbColour &colour, int rgbFormat)
{
    m_colour = colour;
    m_rgbFormat = rgbFormat;
    m_hasColour = true;
    const QStringList rgb =
        formatRgb(colour.red, colour.green, colour.blue, kDecimals, false, rgbFormat);
    for (int i = 0; i < 3; ++i)
        m_values.at(i)->setText(rgb.at(i));
}

void CSamplePanel::setShown(bool shown)
{
    m_caption->setVisible(shown);
    for (int i = 0; i < m_values.size(); ++i) {
        m_captions.at(i)->setVisible(shown);
        m_values.at(i)->setVisible(shown);
    }
}

CColourContextMenu *CSamplePanel::buildSwatchMenu()
{
    if (!m_hasColour)
        return nullptr;
    auto *menu = new CColourContextMenu(this);
    menu->addSampleActions(m_colour, m_rgbFormat);
    emit swatchMenuAboutToShow(menu);
    return menu;
}

void CSamplePanel::showSwatchMenu(const QPoint &pos)
{
    CColourContextMenu *menu = buildSwatchMenu();
    if (!menu)
        return;
    menu->exec(m_swatchFrame->mapToGlobal(pos));
    menu->deleteLater();
}
