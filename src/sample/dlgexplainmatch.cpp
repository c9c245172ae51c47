#include "sample/dlgexplainmatch.h"

#include "common/appcontext.h"
#include "colour/colourconversion.h"
#include "colour/matchexplanation.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

CDlgExplainMatch::CDlgExplainMatch(const RgbColour &sample, const QString &name,
                                   const RgbColour &entry, QWidget *parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint
                          | Qt::WindowCloseButtonHint)
{
    setWindowTitle(AppContext::productName() + tr(" - Explain Match"));
    const LabColour sampleLab = rgbToLab(sample);
    const LabColour entryLab = rgbToLab(entry);
    // Scored as matching scores it: the entry first, the sample second.
    const DeltaE2000Terms terms =
        deltaE2000Terms(float(entryLab.L), float(entryLab.a), float(entryLab.b),
                        float(sampleLab.L), float(sampleLab.a), float(sampleLab.b));

    auto *layout = new QVBoxLayout(this);
    m_sentence = new QLabel(CMatchExplanation::sentence(terms, name), this);
    m_sentence->setWordWrap(true);
    layout->addWidget(m_sentence);

    auto *grid = new QGridLayout;
    addTermRow(grid, tr("Lightness (\u0394L'/S_L):"), terms.lightness);
    addTermRow(grid, tr("Saturation (\u0394C'/S_C):"), terms.chroma);
    addTermRow(grid, tr("Hue (\u0394H'/S_H):"), terms.hue);
    addTermRow(grid, tr("Rotation (R_T \u00d7 C \u00d7 H):"),
               terms.rotation * terms.chroma * terms.hue);
    addTermRow(grid, tr("\u0394E:"), terms.deltaE);
    layout->addLayout(grid);

    auto *row = new QHBoxLayout;
    row->addStretch();
    m_close = new QPushButton(tr("&Close"), this);
    m_close->setDefault(true);
    connect(m_close, &QPushButton::clicked, this, &QDialog::accept);
    row->addWidget(m_close);
    layout->addLayout(row);
}

void CDlgExplainMatch::addTermRow(QGridLayout *grid, const QString &caption, double value)
{
    const int row = grid->rowCount();
    grid->addWidget(new QLabel(caption, this), row, 0);
    auto *number = new QLabel(QString::number(value, 'f', 4), this);
    number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    grid->addWidget(number, row, 1);
    m_terms.append(number);
}

QLabel *CDlgExplainMatch::termLabel(int index) const
{
    return m_terms.value(index, nullptr);
}
