#pragma once

#include <QWidget>

struct PickSpread;
class QLabel;

// Two short notes under the sample on the sampling page: "Mixed colours"
// when the last pick straddled different colours (its tool tip gives the
// numbers), and which colour profile the shown image was converted from.
// Both keep their space while hidden, so the panel does not jump.
class CPickNotes : public QWidget
{
    Q_OBJECT

public:
    explicit CPickNotes(QWidget *parent = nullptr);

    // Shows the mixed note when the spread says so, hides it otherwise.
    void showSpread(const PickSpread &spread);
    void clearSpread();
    // The profile an image was converted from; empty hides the note.
    void showProfile(const QString &profileName);

    QLabel *mixedLabel() const { return m_mixed; }
    QLabel *profileLabel() const { return m_profile; }

private:
    QLabel *m_mixed = nullptr;
    QLabel *m_profile = nullptr;
};
