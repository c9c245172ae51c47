#include "support/modalsequence.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTest>

ModalSequence::ModalSequence(const QList<Step> &steps) : m_steps(steps)
{
    start(0);
}

ModalSequence::~ModalSequence() = default;

void ModalSequence::start(int index)
{
    if (index >= m_steps.size())
        return;
    const Step step = m_steps.at(index);
    // The next answerer starts before this step's button is pressed, so it
    // is already waiting when that press opens a nested dialog.
    auto action = [this, index, step](QWidget *dialog) {
        start(index + 1);
        if (step.action)
            step.action(dialog);
    };
    m_answerers.push_back(std::make_unique<ModalAnswerer>(step.button, action));
}

int ModalSequence::answeredCount() const
{
    int count = 0;
    for (const auto &answerer : m_answerers)
        count += answerer->wasAnswered() ? 1 : 0;
    return count;
}

const ModalAnswerer *ModalSequence::step(int index) const
{
    return index >= 0 && index < int(m_answerers.size()) ? m_answerers.at(index).get() : nullptr;
}

QString ModalSequence::text(int index) const
{
    return step(index) ? step(index)->text() : QString();
}

QString ModalSequence::title(int index) const
{
    return step(index) ? step(index)->title() : QString();
}

QString ModalSequence::dialogClass(int index) const
{
    return step(index) ? step(index)->dialogClass() : QString();
}

namespace DialogActions {

ModalAnswerer::Action chooseFile(const QString &path, QString *shownFolder, QString *caption)
{
    return [path, shownFolder, caption](QWidget *dialog) {
        auto *fileDialog = qobject_cast<QFileDialog *>(dialog);
        if (!fileDialog)
            return;
        if (shownFolder)
            *shownFolder = fileDialog->directory().absolutePath();
        if (caption)
            *caption = fileDialog->windowTitle();
        // The name goes into the file name field as a user would type it;
        // a whole path there is taken as it stands.
        auto *nameEdit = fileDialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        if (nameEdit)
            nameEdit->setText(path);
        else
            fileDialog->selectFile(path);
        static_cast<QDialog *>(fileDialog)->accept(); // QFileDialog::accept is protected
    };
}

ModalAnswerer::Action typeText(const QString &text)
{
    return [text](QWidget *dialog) {
        auto *edit = dialog->findChild<QLineEdit *>();
        if (!edit)
            return;
        edit->clear();
        QTest::keyClicks(edit, text);
    };
}

void clickRadio(QRadioButton *button)
{
    QStyleOptionButton option;
    option.initFrom(button);
    const QRect indicator =
        button->style()->subElementRect(QStyle::SE_RadioButtonIndicator, &option, button);
    QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, indicator.center());
}

} // namespace DialogActions
