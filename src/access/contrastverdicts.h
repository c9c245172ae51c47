#pragma once

#include "colour/rgbcolour.h"

#include <QVector>
#include <QWidget>

class QLabel;

// The figures of a pair: the WCAG ratio (two decimals, truncated), the five
// success criteria each with a pass or fail mark, and the APCA Lc with the
// guidance for its level.
class CContrastVerdicts : public QWidget
{
    Q_OBJECT

public:
    explicit CContrastVerdicts(QWidget *parent = nullptr);

    void showPair(const RgbColour &text, const RgbColour &background);

    QLabel *ratioLabel() const { return m_ratio; }
    // In WcagContrast::Criterion order; the text starts with "Pass" or "Fail".
    QLabel *verdictLabel(int criterion) const { return m_verdicts.value(criterion); }
    QLabel *lcLabel() const { return m_lc; }
    QLabel *guidanceLabel() const { return m_guidance; }

private:
    QLabel *m_ratio = nullptr;
    QVector<QLabel *> m_verdicts;
    QLabel *m_lc = nullptr;
    QLabel *m_guidance = nullptr;
};
