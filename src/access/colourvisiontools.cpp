#include "access/colourvisiontools.h"

#include "app/appsettings.h"
#include "common/commandid.h"
#include "palette/palette.h"
#include "sample/colourimagewindow.h"
#include "sample/imagewidget.h"
#include "sample/libraryselector.h"
#include "sample/samplepanel.h"
#include "tables/libcolourtable.h"

#include <QActionGroup>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>

#include <cmath>

CColourVisionTools::CColourVisionTools(CAppSettings *settings, CColourImageWindow *page,
                                       QObject *parent)
    : QObject(parent), m_settings(settings), m_page(page)
{
    ColourVision::Type type = ColourVision::Normal;
    double severity = ColourVision::kMaximumSeverity;
    if (settings) {
        ColourVision::fromKey(settings->colourVision, &type);
        severity = settings->colourVisionSeverity;
    }
    m_vision = std::make_shared<const ColourVision>(type, severity);
    if (!page)
        return;
    m_label = new QLabel(page->samplePanel());
    m_label->setObjectName(QStringLiteral("simulatedSampleLabel"));
    m_label->setWordWrap(true);
    m_label->hide();
    page->samplePanel()->addNote(m_label);
    CImageWidget *widget = page->imageWidget();
    widget->installEventFilter(this);
    connect(page->samplePanel(), &CSamplePanel::colourShown, this, &CColourVisionTools::refreshLabel);
    connect(page->samplePanel(), &CSamplePanel::colourCleared, this,
            &CColourVisionTools::refreshLabel);
    widget->setColourVision(m_vision);
}

void CColourVisionTools::setVision(ColourVision::Type type, double severity)
{
    m_vision = std::make_shared<const ColourVision>(type, severity);
    if (m_settings) {
        m_settings->colourVision = ColourVision::key(m_vision->type());
        m_settings->colourVisionSeverity = m_vision->severity();
    }
    if (m_page)
        m_page->imageWidget()->setColourVision(m_vision);
    refreshLabel();
}

QMenu *CColourVisionTools::buildMenu(QWidget *parent)
{
    auto *menu = new QMenu(parent);
    QMenu *vision = menu->addMenu(tr("Colour Vision"));
    auto *group = new QActionGroup(menu);
    for (int t = ColourVision::Normal; t <= ColourVision::Achromatopsia; ++t)
        addChoice(vision, ColourVision::title(ColourVision::Type(t)), ColourVision::Type(t), 1.0);
    vision->addSeparator();
    for (int t = ColourVision::Protanomaly; t < ColourVision::TypeCount; ++t) {
        QMenu *severities = vision->addMenu(ColourVision::title(ColourVision::Type(t)));
        for (int tenths = 1; tenths <= 10; ++tenths) {
            addChoice(severities, tr("Severity %1").arg(QString::number(tenths / 10.0, 'f', 1)),
                      ColourVision::Type(t), tenths / 10.0);
        }
    }
    for (QAction *action : menu->findChildren<QAction *>()) {
        if (action->isCheckable())
            group->addAction(action);
    }
    return menu;
}

void CColourVisionTools::addChoice(QMenu *menu, const QString &text, ColourVision::Type type,
                                   double severity)
{
    QAction *action = menu->addAction(text);
    action->setCheckable(true);
    const bool current = m_vision->type() == type &&
                         (!ColourVision::hasSeverity(type) ||
                          std::abs(m_vision->severity() - severity) < 0.05);
    action->setChecked(current);
    connect(action, &QAction::triggered, this,
            [this, type, severity]() { setVision(type, severity); });
}

bool CColourVisionTools::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::ContextMenu || !m_page || watched != m_page->imageWidget())
        return QObject::eventFilter(watched, event);
    // In rubber-band mode the right button's release reads the band: the
    // menu comes from the keyboard (Menu key, Shift+F10) there, never from
    // a right click, so that release still reaches the picture.
    const auto *menuEvent = static_cast<QContextMenuEvent *>(event);
    if (menuEvent->reason() == QContextMenuEvent::Mouse && m_page->pickMode() == CmdPickRubberBand)
        return QObject::eventFilter(watched, event);
    showMenu(menuEvent->pos());
    return true;
}

void CColourVisionTools::showMenu(const QPoint &pos)
{
    if (!m_page)
        return;
    QMenu *menu = buildMenu(m_page->imageWidget());
    menu->exec(m_page->imageWidget()->mapToGlobal(pos));
    menu->deleteLater();
}

void CColourVisionTools::refreshLabel()
{
    if (!m_label || !m_page)
        return;
    const CSamplePanel *panel = m_page->samplePanel();
    if (m_vision->isNormal() || !panel->hasColour()) {
        m_label->hide();
        return;
    }
    const RgbColour seen = m_vision->simulate(panel->colour());
    QString text = tr("Seen with %1: %2").arg(m_vision->description().toLower(), CPalette::hex(seen));
    if (m_page->libraryTable().count() > 0) {
        const QVector<CMatchResult> best = m_page->librarySelector()->matcher().bestRows(seen, 1);
        if (!best.isEmpty())
            text += tr(", nearest %1").arg(best.first().name);
    }
    m_label->setText(text);
    m_label->show();
}
