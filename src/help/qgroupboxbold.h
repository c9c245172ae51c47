#pragma once

#include <QGroupBox>

// A group box with a bold title. The widgets put inside it keep the normal
// weight, so that only the title stands out.
class QGroupBoxBold : public QGroupBox
{
    Q_OBJECT

public:
    QGroupBoxBold(const QString &title, QWidget *parent = nullptr);

protected:
    void childEvent(QChildEvent *event) override;
};
