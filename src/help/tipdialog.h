#pragma once

#include <QDialog>
#include <QPointer>
#include <QStringList>

class CAppSettings;
class QCheckBox;
class QPushButton;
class QTextEdit;

// "Tip Of The Day": one short hint at a time from tips.txt beside the
// executable, the next one at each start, with a box to stop it showing.
class CTipDialog : public QDialog
{
    Q_OBJECT

public:
    // Reads the tips from `tipsPath` (defaultTipsPath() when empty).
    explicit CTipDialog(CAppSettings *settings, QWidget *parent = nullptr,
                        const QString &tipsPath = QString());

    // <executable folder>/tips.txt
    static QString defaultTipsPath();
    // Tips are paragraphs: blank lines end them, the lines of one tip are
    // trimmed and joined with single blanks.
    static QStringList parseTips(const QString &text);
    // The file's tips, read as UTF-8; empty when it is missing or unreadable.
    static QStringList readTips(const QString &path);

    // Shows the dialog modally unless the settings say not to at start-up.
    // The dialog is made on the first call and kept. Returns whether it ran.
    static bool showAtStartup(QWidget *parent, const QString &applicationName,
                              CAppSettings *settings, const QString &tipsPath = QString());
    static CTipDialog *instance();

    QStringList tips() const { return m_tips; }
    QTextEdit *tipView() const { return m_tipView; }
    QCheckBox *startupCheckBox() const { return m_showAtStartup; }
    QPushButton *nextButton() const { return m_nextButton; }
    QPushButton *closeButton() const { return m_closeButton; }

public slots:
    void displayNextTip();
    void finished();

private:
    void buildLayout();

    static QPointer<CTipDialog> s_instance;

    CAppSettings *m_settings;
    QStringList m_tips;
    QTextEdit *m_tipView = nullptr;
    QCheckBox *m_showAtStartup = nullptr;
    QPushButton *m_nextButton = nullptr;
    QPushButton *m_closeButton = nullptr;
};
