#pragma once

#include <QImage>
#include <QObject>
#include <QString>

class CMainWindow;

// Opens image files for the main window: asks for a file when none is given,
// reads it, remembers the folder and the recent files.
class CImageSource : public QObject
{
    Q_OBJECT

public:
    explicit CImageSource(CMainWindow *parent);

    // Command 1 only; path empty = ask with the "Open Image" dialog.
    bool open(int command, const QString &path = QString());

    QString path() const { return m_path; }
    bool isLoaded() const { return m_loaded; }
    const QImage &image() const { return m_image; }

    // The filter of the "Open Image" dialog.
    static QString fileFilter();

private:
    bool openPath(const QString &path);
    QString askForFile() const;
    bool readFile();
    void reportUnreadable();

    CMainWindow *m_parent = nullptr;
    QString m_path;
    bool m_loaded = false;
    QImage m_image;
};
