#pragma once

#include <QImage>
#include <QObject>
#include <QString>

// Takes one picture of the whole desktop for "Pick from Screen". How depends
// on the desktop: X11 lets a program read the screen, a Wayland compositor
// only hands a picture out through the desktop portal, after asking the user
// if it likes. Tests use a picture held in memory. Every backend answers a
// start() with exactly one of captured or failed, possibly before start()
// returns; a failure message is a whole sentence for a message box.
class CScreenCapture : public QObject
{
    Q_OBJECT

public:
    explicit CScreenCapture(QObject *parent = nullptr);
    ~CScreenCapture() override;

    virtual void start() = 0;

    // The sentence every failure message starts from, `reason` filled in.
    static QString failureText(const QString &reason);

signals:
    // The desktop at device pixels, every screen where it stands.
    void captured(const QImage &image);
    void failed(const QString &message);
};
