#include "modalanswerer.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QTimer>

namespace {
const int kPollMs = 20;

QString plain(QString text)
{
    return text.remove(QLatin1Char('&')).trimmed();
}
} // namespace

ModalAnswerer::ModalAnswerer(const QString &button, Action action, int timeoutMs)
    : m_button(button), m_action(std::move(action)), m_remainingPolls(timeoutMs / kPollMs)
{
    QTimer::singleShot(kPollMs, this, &ModalAnswerer::poll);
}

ModalAnswerer::~ModalAnswerer() = default;

QAbstractButton *ModalAnswerer::findButton(QWidget *dialog, const QString &name)
{
    const QString wanted = plain(name);
    if (auto *box = qobject_cast<QMessageBox *>(dialog)) {
        for (QAbstractButton *b : box->buttons()) {
            const QMessageBox::StandardButton sb = box->standardButton(b);
            if (plain(b->text()).compare(wanted, Qt::CaseInsensitive) == 0)
                return b;
            if ((sb == QMessageBox::Yes && wanted == "Yes") || (sb == QMessageBox::No && wanted == "No")
                || (sb == QMessageBox::Cancel && wanted == "Cancel") || (sb == QMessageBox::Ok && wanted == "OK")
                || (sb == QMessageBox::Save && wanted == "Save"))
                return b;
        }
    }
    for (QAbstractButton *b : dialog->findChildren<QAbstractButton *>()) {
        if (b->isVisible() && plain(b->text()).compare(wanted, Qt::CaseInsensitive) == 0)
            return b;
    }
    return nullptr;
}

void ModalAnswerer::poll()
{
    QWidget *dialog = QApplication::activeModalWidget();
    if (!dialog) {
        if (--m_remainingPolls > 0)
            QTimer::singleShot(kPollMs, this, &ModalAnswerer::poll);
        return;
    }
    m_title = dialog->windowTitle();
    m_className = QString::fromLatin1(dialog->metaObject()->className());
    if (auto *box = qobject_cast<QMessageBox *>(dialog))
        m_text = box->text();
    if (m_action)
        m_action(dialog);
    m_answered = true;
    if (m_button.isEmpty())
        return;
    if (QAbstractButton *b = findButton(dialog, m_button)) {
        b->click();
    } else if (auto *d = qobject_cast<QDialog *>(dialog)) {
        // The named button does not exist: close the dialog so that the test
        // fails on its assertions instead of hanging.
        m_title += QStringLiteral(" [no button '%1']").arg(m_button);
        d->reject();
    }
}
