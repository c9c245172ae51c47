#include "access/contrastwindow.h"

#include "access/contrastverdicts.h"
#include "common/appcontext.h"
#include "palette/palette.h"

#include <QComboBox>
#include <QEvent>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <utility>

namespace {

const int kSwatchSize = 48;

void paintSwatch(QLabel *swatch, const RgbColour &colour)
{
    swatch->setStyleSheet(QStringLiteral("background-color: %1; border: 1px solid #808080;")
                              .arg(CPalette::hex(colour)));
}

ContrastColour named(const RgbColour &colour, const QString &name)
{
    return {colour, name, QString()};
}

} // namespace

CContrastWindow::CContrastWindow(QWidget *parent) : QWidget(parent, Qt::Window)
{
    setWindowTitle(AppContext::productName() + tr(" - Contrast"));
    setAttribute(Qt::WA_DeleteOnClose, false);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(buildSwatches());
    layout->addWidget(buildList());
    m_verdicts = new CContrastVerdicts(this);
    layout->addWidget(m_verdicts);
    layout->addWidget(buildPreview());
    m_text = named({0.0, 0.0, 0.0}, tr("Black"));
    m_background = named({1.0, 1.0, 1.0}, tr("White"));
    refreshCandidates();
    showPair();
}

QWidget *CContrastWindow::buildSwatches()
{
    auto *box = new QWidget(this);
    auto *grid = new QGridLayout(box);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(new QLabel(tr("Text colour"), box), 0, 0);
    grid->addWidget(new QLabel(tr("Background colour"), box), 0, 2);
    m_textSwatch = new QLabel(box);
    m_backgroundSwatch = new QLabel(box);
    for (QLabel *swatch : {m_textSwatch, m_backgroundSwatch})
        swatch->setFixedSize(2 * kSwatchSize, kSwatchSize);
    grid->addWidget(m_textSwatch, 1, 0);
    grid->addWidget(m_backgroundSwatch, 1, 2);
    m_swap = new QPushButton(tr("&Swap"), box);
    m_swap->setToolTip(tr("Use the text colour as the background and the background as the text"));
    connect(m_swap, &QPushButton::clicked, this, &CContrastWindow::swap);
    grid->addWidget(m_swap, 1, 1);
    m_textName = new QLabel(box);
    m_backgroundName = new QLabel(box);
    for (QLabel *name : {m_textName, m_backgroundName})
        name->setTextInteractionFlags(Qt::TextSelectableByMouse);
    grid->addWidget(m_textName, 2, 0);
    grid->addWidget(m_backgroundName, 2, 2);
    return box;
}

QWidget *CContrastWindow::buildList()
{
    auto *row = new QWidget(this);
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    auto *caption = new QLabel(tr("&Background from:"), row);
    m_list = new QComboBox(row);
    m_list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_list->setMinimumContentsLength(24);
    caption->setBuddy(m_list);
    connect(m_list, QOverload<int>::of(&QComboBox::activated), this,
            &CContrastWindow::chooseBackground);
    layout->addWidget(caption);
    layout->addWidget(m_list, 1);
    return row;
}

QWidget *CContrastWindow::buildPreview()
{
    m_preview = new QFrame(this);
    m_preview->setObjectName(QStringLiteral("contrastPreview"));
    auto *layout = new QVBoxLayout(m_preview);
    const QString sample = tr("The quick brown fox jumps over the lazy dog");
    m_normalText = new QLabel(tr("Normal text: ") + sample, m_preview);
    m_largeText = new QLabel(tr("Large text: ") + sample, m_preview);
    m_normalText->setWordWrap(true);
    m_largeText->setWordWrap(true);
    // WCAG's large text: 18 point, or 14 point bold.
    QFont large = m_largeText->font();
    large.setPointSize(18);
    m_largeText->setFont(large);
    QFont normal = m_normalText->font();
    normal.setPointSize(12);
    m_normalText->setFont(normal);
    layout->addWidget(m_normalText);
    layout->addWidget(m_largeText);
    return m_preview;
}

void CContrastWindow::setPair(const ContrastColour &text, const ContrastColour &background)
{
    m_text = text;
    m_background = background;
    showPair();
}

void CContrastWindow::setCandidatesProvider(Provider provider)
{
    m_provider = std::move(provider);
    refreshCandidates();
}

void CContrastWindow::refreshCandidates()
{
    const int kept = m_list->currentIndex();
    const QString keptText = m_list->currentText();
    m_candidates = {named({1.0, 1.0, 1.0}, tr("White")), named({0.0, 0.0, 0.0}, tr("Black"))};
    if (m_provider)
        m_candidates += m_provider();
    const QSignalBlocker blocker(m_list);
    m_list->clear();
    m_list->addItem(tr("Next pick on the page"));
    for (const ContrastColour &candidate : qAsConst(m_candidates)) {
        const QString source =
            candidate.source.isEmpty() ? QString() : candidate.source + QStringLiteral(": ");
        m_list->addItem(source + describe(candidate));
    }
    // The chosen entry stays chosen while it is still offered; one that has
    // gone leaves the list blank rather than start following the picks.
    m_list->setCurrentIndex(kept <= kNextPickIndex ? kNextPickIndex : m_list->findText(keptText));
}

void CContrastWindow::chooseBackground(int index)
{
    if (index <= kNextPickIndex || index - 1 >= m_candidates.size())
        return;
    m_background = m_candidates.at(index - 1);
    showPair();
}

void CContrastWindow::takePick(const RgbColour &colour)
{
    if (m_list->currentIndex() != kNextPickIndex)
        return;
    m_background = {colour, QString(), tr("Pick")};
    showPair();
}

void CContrastWindow::swap()
{
    std::swap(m_text, m_background);
    showPair();
}

QString CContrastWindow::describe(const ContrastColour &colour)
{
    const QString hex = CPalette::hex(colour.colour);
    return colour.name.isEmpty() ? hex : QStringLiteral("%1 (%2)").arg(colour.name, hex);
}

void CContrastWindow::showPair()
{
    paintSwatch(m_textSwatch, m_text.colour);
    paintSwatch(m_backgroundSwatch, m_background.colour);
    m_textName->setText(describe(m_text));
    m_backgroundName->setText(describe(m_background));
    m_verdicts->showPair(m_text.colour, m_background.colour);
    m_preview->setStyleSheet(QStringLiteral("QFrame#contrastPreview { background-color: %1; }"
                                            "QLabel { color: %2; background: transparent; }")
                                 .arg(CPalette::hex(m_background.colour),
                                      CPalette::hex(m_text.colour)));
}

bool CContrastWindow::event(QEvent *event)
{
    if (event->type() == QEvent::WindowActivate || event->type() == QEvent::Show)
        refreshCandidates();
    return QWidget::event(event);
}
