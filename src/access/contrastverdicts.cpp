#include "access/contrastverdicts.h"

#include "colour/apcacontrast.h"
#include "colour/wcagcontrast.h"

#include <QFormLayout>
#include <QLabel>

CContrastVerdicts::CContrastVerdicts(QWidget *parent) : QWidget(parent)
{
    auto *form = new QFormLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    m_ratio = new QLabel(this);
    QFont big = m_ratio->font();
    big.setPointSizeF(big.pointSizeF() * 1.6);
    big.setBold(true);
    m_ratio->setFont(big);
    form->addRow(tr("Contrast ratio:"), m_ratio);
    for (int c = 0; c < WcagContrast::CriterionCount; ++c) {
        auto *label = new QLabel(this);
        m_verdicts << label;
        form->addRow(WcagContrast::criterionName(WcagContrast::Criterion(c)) + QLatin1Char(':'),
                     label);
    }
    m_lc = new QLabel(this);
    form->addRow(tr("APCA (WCAG 3 draft):"), m_lc);
    m_guidance = new QLabel(this);
    m_guidance->setWordWrap(true);
    form->addRow(QString(), m_guidance);
}

void CContrastVerdicts::showPair(const RgbColour &text, const RgbColour &background)
{
    const double ratio = WcagContrast::ratio(text, background);
    m_ratio->setText(WcagContrast::ratioText(ratio) + QStringLiteral(":1"));
    for (int c = 0; c < WcagContrast::CriterionCount; ++c) {
        const auto criterion = WcagContrast::Criterion(c);
        const bool pass = WcagContrast::passes(ratio, criterion);
        const QString threshold = QString::number(WcagContrast::threshold(criterion)) + QStringLiteral(":1");
        // A mark and a word: the verdict never rests on colour alone.
        m_verdicts.at(c)->setText(pass ? tr("Pass \u2714 (needs %1)").arg(threshold)
                                       : tr("Fail \u2718 (needs %1)").arg(threshold));
        m_verdicts.at(c)->setStyleSheet(pass ? QStringLiteral("color: #1a7f37;")
                                             : QStringLiteral("color: #b42318;"));
    }
    const double lc = ApcaContrast::lightnessContrast(text, background);
    m_lc->setText(ApcaContrast::lcText(lc));
    m_guidance->setText(ApcaContrast::guidance(lc));
}
