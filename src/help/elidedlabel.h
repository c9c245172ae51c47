#pragma once

#include <QLabel>

// A label that shortens its text with an ellipsis when it does not fit,
// keeping the full text as its text().
class CElidedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit CElidedLabel(QWidget *parent = nullptr);
    CElidedLabel(const QString &text, QWidget *parent = nullptr);

    Qt::TextElideMode elideMode() const { return m_elideMode; }
    void setElideMode(Qt::TextElideMode mode);

    // The text as painted at the current width.
    QString displayedText() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    bool needsEliding() const;

    Qt::TextElideMode m_elideMode = Qt::ElideNone;
};
