#include "sample/picknotes.h"

#include "colour/pickspread.h"

#include <QLabel>
#include <QVBoxLayout>

namespace {

QLabel *noteLabel(QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    label->setWordWrap(true);
    QSizePolicy policy = label->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    label->setSizePolicy(policy);
    label->hide();
    return label;
}

} // namespace

CPickNotes::CPickNotes(QWidget *parent) : QWidget(parent)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    m_mixed = noteLabel(this);
    m_mixed->setText(tr("Mixed colours"));
    m_profile = noteLabel(this);
    layout->addWidget(m_mixed);
    layout->addWidget(m_profile);
}

void CPickNotes::showSpread(const PickSpread &spread)
{
    m_mixed->setToolTip(tr("%1 pixels\nMean \u0394E from the average: %2\n"
                           "95% of the pixels within \u0394E %3 of it")
                            .arg(spread.pixels)
                            .arg(spread.mean, 0, 'f', 2)
                            .arg(spread.p95, 0, 'f', 2));
    m_mixed->setVisible(spread.mixed());
}

void CPickNotes::clearSpread()
{
    m_mixed->setToolTip(QString());
    m_mixed->hide();
}

void CPickNotes::showProfile(const QString &profileName)
{
    m_profile->setText(profileName.isEmpty() ? QString()
                                             : tr("Converted from %1 to sRGB").arg(profileName));
    m_profile->setVisible(!profileName.isEmpty());
}
