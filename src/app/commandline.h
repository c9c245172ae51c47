#pragma once

#include <QString>
#include <QStringList>

// What the program was asked to do on its command line: start (with a
// picture to open, or none), print its help or its version, or refuse an
// option it does not know. The arguments come without the program's name;
// the toolkit's own options (-platform xcb, -style fusion...) are let
// through for QApplication, so that the whole line is checked before the
// toolkit starts and a refusal needs no display.
//
//   vellora [PICTURE]      PICTURE: a path (relative to the current folder)
//                          or a file:// URL, as file managers pass it
//   vellora --help | --version
class CCommandLine
{
public:
    enum Action { Start, ShowHelp, ShowVersion, Refuse };

    explicit CCommandLine(const QStringList &arguments);

    Action action() const { return m_action; }
    // The picture to open as an absolute local path; empty when none.
    QString picture() const { return m_picture; }
    // What to print: the help or the version on standard output, the
    // one-line usage message on standard error; empty for Start.
    QString message() const { return m_message; }
    // The exit status when the program does not start: 0, or 1 for Refuse.
    int exitStatus() const { return m_action == Refuse ? 1 : 0; }

    static QString helpText();
    static QString versionText();

private:
    void refuse(const QString &why);
    void takePicture(const QString &word);
    bool takeOption(const QString &word);
    static QString localPath(const QString &word);

    Action m_action = Start;
    QString m_picture;
    QString m_message;
};
