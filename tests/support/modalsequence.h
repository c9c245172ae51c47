#pragma once

#include "support/modalanswerer.h"

#include <QList>
#include <QString>

class QRadioButton;

#include <memory>
#include <vector>

// Answers several modal dialogs one after the other: the answerer of a step
// starts when the step before it is answered, so a message box that leads
// to a file dialog (or returns to the dialog that opened it) gets each of
// its answers in turn.
class ModalSequence
{
public:
    struct Step
    {
        QString button;
        ModalAnswerer::Action action;
    };

    explicit ModalSequence(const QList<Step> &steps);
    ~ModalSequence();

    int answeredCount() const;
    const ModalAnswerer *step(int index) const;
    QString text(int index) const;
    QString title(int index) const;
    QString dialogClass(int index) const;

private:
    void start(int index);

    QList<Step> m_steps;
    std::vector<std::unique_ptr<ModalAnswerer>> m_answerers;
};

// Ready-made actions for the steps of a sequence.
namespace DialogActions {

// Chooses `path` in a file dialog and accepts it; records the folder the
// dialog showed and its caption when asked to.
ModalAnswerer::Action chooseFile(const QString &path, QString *shownFolder = nullptr,
                                 QString *caption = nullptr);
// Types `text` into the dialog's first line edit (after clearing it).
ModalAnswerer::Action typeText(const QString &text);

// Clicks a radio button on its indicator, where a user aims: the middle of
// a wide radio button can lie beyond its clickable text.
void clickRadio(QRadioButton *button);

} // namespace DialogActions
