#pragma once

#include "config/dlgtabpage.h"

#include <QSslConfiguration>

class QCheckBox;
class QComboBox;
class QPushButton;
class QRadioButton;
class QVBoxLayout;

// Number of matches shown, the RGB display format, the tip of the day and
// the check for a newer version.
class CDlgTabPageGeneral : public CDlgTabPage
{
    Q_OBJECT

public:
    // `updateAddress` is the update service the "&Check" button asks.
    CDlgTabPageGeneral(CAppSettings *settings, const QString &updateAddress,
                       QWidget *parent = nullptr);

    // Stores what differs from the settings; true when anything did.
    bool applyChanges() override;

    // Which authorities the update check trusts (the system's by default).
    void setUpdateSslConfiguration(const QSslConfiguration &configuration);

    QComboBox *matchCountCombo() const { return m_matchCount; }
    QRadioButton *integerButton() const { return m_integer; }
    QRadioButton *decimalButton() const { return m_decimal; }
    QRadioButton *hexButton() const { return m_hex; }
    QCheckBox *startTipCheck() const { return m_startTip; }
    QPushButton *checkButton() const { return m_check; }

public slots:
    void checkForUpdates();

private:
    void addMatchCountGroup(QVBoxLayout *layout);
    void addFormatGroup(QVBoxLayout *layout);
    void addStartTipGroup(QVBoxLayout *layout);
    void addUpdateGroup(QVBoxLayout *layout);
    int chosenFormat() const;

    QComboBox *m_matchCount = nullptr;
    QRadioButton *m_integer = nullptr;
    QRadioButton *m_decimal = nullptr;
    QRadioButton *m_hex = nullptr;
    QCheckBox *m_startTip = nullptr;
    QPushButton *m_check = nullptr;
    QString m_updateAddress;
    QSslConfiguration m_updateSsl;
    bool m_customSsl = false;
};
