#pragma once

#include <QDialog>

class CElidedLabel;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

// The single-line name prompt (new, copy, rename and import of tables,
// renaming entries). `title` is the whole window title, e.g.
// "Vellora - New Colour Table". The caption block (captionLabel above an
// elided captionValue) is shown when either is given. With `preFill` the
// line edit starts with captionValue. `prompt` is shown when the name is
// left blank. With a help anchor the dialog has a "&Help" button (and F1)
// emitting displayHelpSignal(anchor).
class CTextInputDlg : public QDialog
{
    Q_OBJECT

public:
    CTextInputDlg(const QString &title, const QString &captionLabel, const QString &captionValue,
                  const QString &fieldLabel, const QString &prompt, QWidget *parent = nullptr,
                  const QString &helpAnchor = QString(), bool preFill = false);

    // The trimmed text of an accepted dialog.
    QString text() const { return m_text; }

    QLineEdit *lineEdit() const { return m_lineEdit; }
    CElidedLabel *captionValueLabel() const { return m_captionValue; }
    QPushButton *helpButton() const { return m_helpButton; }

public slots:
    void accept() override;

signals:
    void displayHelpSignal(const QString &page);

private slots:
    void requestHelp();

private:
    void addCaptionBlock(QVBoxLayout *layout, const QString &label, const QString &value);
    void addFieldBlock(QVBoxLayout *layout, const QString &label);
    void addButtonRow(QVBoxLayout *layout);

    QString m_text;
    QString m_prompt;
    QString m_helpAnchor;
    CElidedLabel *m_captionValue = nullptr;
    QLineEdit *m_lineEdit = nullptr;
    QPushButton *m_helpButton = nullptr;
};
