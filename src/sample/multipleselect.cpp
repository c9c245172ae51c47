#include "sample/multipleselect.h"

#include "common/appcontext.h"
#include "common/commandmapping.h"
#include "sample/colourtexts.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalMapper>
#include <QToolButton>

namespace {

const int kSwatchSide = 16;

int channelByte(double channel)
{
    return static_cast<int>(255.0 * channel);
}

QWidget *framedSwatch(QLabel **swatch, QWidget *parent)
{
    auto *frame = new QWidget(parent);
    frame->setFixedSize(kSwatchSide, kSwatchSide);
    frame->setStyleSheet(QStringLiteral("border:1px solid black"));
    auto *layout = new QHBoxLayout(frame);
    layout->setContentsMargins(0, 0, 0, 0);
    *swatch = new QLabel(frame);
    layout->addWidget(*swatch);
    return frame;
}

} // namespace

CMultipleSelect::CMultipleSelect(int position, QWidget *parent, QSignalMapper *clearMapper)
    : QObject(parent)
{
    m_row = new QWidget(parent);
    auto *layout = new QHBoxLayout(m_row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new QLabel(tr("%1:").arg(position + 1), m_row));
    layout->addWidget(framedSwatch(&m_swatch, m_row));

    auto *action = new QAction(
        AppContext::widgetIcon(QStringLiteral("sm_toolbar/btn_toolbar_multi_clear.png")),
        QString(), m_row);
    m_clearButton = new QToolButton(m_row);
    m_clearButton->setFixedSize(kSwatchSide, kSwatchSide);
    m_clearButton->setIconSize(QSize(kSwatchSide, kSwatchSide));
    m_clearButton->setAutoRaise(true);
    m_clearButton->setDefaultAction(action);
    mapCommand(action, clearMapper, position);
    layout->addWidget(m_clearButton);
    layout->addStretch();
    m_row->hide();
}

CMultipleSelect::~CMultipleSelect() = default;

void CMultipleSelect::setInUse(bool inUse)
{
    m_inUse = inUse;
    m_row->setVisible(inUse);
}

void CMultipleSelect::setColour(const RgbColour &colour, int rgbFormat)
{
    m_colour = colour;
    m_swatch->setToolTip(CColourTexts::rgbLine(colour, rgbFormat) + QStringLiteral("<br />")
                         + CColourTexts::labLine(colour));
    m_swatch->setStyleSheet(
        QStringLiteral("QLabel {background-color:rgb(%1,%2,%3);} QToolTip {border:2px solid "
                       "Goldenrod; background-color:LemonChiffon; padding:3px;}")
            .arg(channelByte(colour.red))
            .arg(channelByte(colour.green))
            .arg(channelByte(colour.blue)));
}

void CMultipleSelect::copyFrom(const CMultipleSelect &other, int rgbFormat)
{
    setColour(other.m_colour, rgbFormat);
    m_rect = other.m_rect;
}
