#pragma once

#include <QImage>
#include <QObject>
#include <QString>

class CAppSettings;
class QWidget;

// Opens image files for the main window: asks for a file when none is given,
// reads it and remembers its folder. Each file opened is announced, so that
// its owner can put it on the recent list.
class CImageSource : public QObject
{
    Q_OBJECT

public:
    // The file dialog and the warnings open over `parent`.
    CImageSource(CAppSettings *settings, QWidget *parent);

    // Command 1 only; path empty = ask with the "Open Image" dialog.
    bool open(int command, const QString &path = QString());

    QString path() const { return m_path; }
    bool isLoaded() const { return m_loaded; }
    const QImage &image() const { return m_image; }

    // The filter of the "Open Image" dialog.
    static QString fileFilter();

signals:
    // A file was read successfully.
    void fileOpened(const QString &path);

private:
    bool openPath(const QString &path);
    QString askForFile() const;
    bool readFile();
    void reportUnreadable();

    CAppSettings *m_settings = nullptr;
    QWidget *m_parent = nullptr;
    QString m_path;
    bool m_loaded = false;
    QImage m_image;
};
