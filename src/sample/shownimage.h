#pragma once

#include <QCoreApplication>
#include <QImage>
#include <QString>

class CAppSettings;

// Where the sampling page's picture came from, and the picture as the page
// shows it: a file (named in the window title by its name and folder) or a
// pasted picture (named "Pasted image"), converted to sRGB first when the
// user asked for it, so that every pick reads the colours the picture shows.
class CShownImage
{
    Q_DECLARE_TR_FUNCTIONS(CShownImage)

public:
    // `settings` may be null: pictures are then shown as they are.
    explicit CShownImage(const CAppSettings *settings) : m_settings(settings) {}

    // A picture from `path`; an empty path is no picture at all.
    void setFile(const QString &path);
    // A picture without a file.
    void setPasted();
    // A picture without a file, taken from the screen ("Screen capture").
    void setScreenCapture();

    QString path() const { return m_path; }
    bool isPasted() const { return m_pasted; }
    // The page's part of the window title: "name - folder - ",
    // "Pasted image - ", "Screen capture - ", or empty without a picture.
    QString title() const;
    // The picture to show: converted to sRGB when the settings ask for it
    // and it carries another profile, whose name goes to `profileName`
    // (empty when nothing was converted).
    QImage prepared(const QImage &image, QString *profileName) const;

private:
    const CAppSettings *m_settings = nullptr;
    QString m_path;
    bool m_pasted = false;
    bool m_captured = false;
};
