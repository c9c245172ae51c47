#pragma once

#include "colour/rgbcolour.h"

#include <QDialog>

class QLabel;
class QPushButton;

// "Explain this match…": a small window that says in words how the matched
// sample differs from one library entry, with the weighted lightness,
// saturation (chroma) and hue differences and the rotation term that make
// up its ΔE.
class CDlgExplainMatch : public QDialog
{
    Q_OBJECT

public:
    CDlgExplainMatch(const RgbColour &sample, const QString &name, const RgbColour &entry,
                     QWidget *parent = nullptr);

    QLabel *sentenceLabel() const { return m_sentence; }
    // Lightness, chroma, hue, rotation, ΔE in that order.
    QLabel *termLabel(int index) const;
    QPushButton *closeButton() const { return m_close; }

private:
    void addTermRow(class QGridLayout *grid, const QString &caption, double value);

    QLabel *m_sentence = nullptr;
    QVector<QLabel *> m_terms;
    QPushButton *m_close = nullptr;
};
