#pragma once

#include <QString>
#include <QTemporaryDir>

// A private home for one test: QStandardPaths test mode (so the real user's
// settings and documents are never touched), with HOME and the XDG folders
// pointed into a temporary directory. Documents resolve to <home>/Documents.
class TempHome
{
public:
    TempHome();
    ~TempHome();

    bool isValid() const { return m_dir.isValid(); }
    QString path() const { return m_dir.path(); }
    QString documents() const; // the documents location QStandardPaths reports
    // Removes every settings key of organisation "Tessaline", app "Vellora".
    static void clearSettings();

private:
    QTemporaryDir m_dir;
    QByteArray m_oldHome;
};
