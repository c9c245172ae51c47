#pragma once

#include "colour/rgbcolour.h"

#include <QDialog>
#include <QString>

class CAppSettings;
class CLibColourTable;
class QLabel;
class QLineEdit;
class QPushButton;

// Asks for the name under which a sampled colour is stored in a library
// table. A blank name or one the table already holds (exactly, case
// included) is refused and the dialog stays open.
class CDlgLibColourTableAdd : public QDialog
{
    Q_OBJECT

public:
    CDlgLibColourTableAdd(QWidget *parent, const QString &tablePath, const CLibColourTable *table,
                          const RgbColour &colour, CAppSettings *settings);

    // The cleaned name of the last attempt; the one to store once accepted.
    QString name() const { return m_name; }

    QLineEdit *nameEdit() const { return m_nameEdit; }
    QLabel *swatchLabel() const { return m_swatch; }
    QLabel *rgbLabel() const { return m_rgbLabel; }
    QLabel *labLabel() const { return m_labLabel; }
    QPushButton *okButton() const { return m_okButton; }
    QPushButton *cancelButton() const { return m_cancelButton; }
    QPushButton *helpButton() const { return m_helpButton; }

public slots:
    void accept() override;
    void displayHelp();

signals:
    void displayHelpSignal(const QString &page);

private:
    QLayout *buildColourRow(CAppSettings *settings);
    QLayout *buildNameRow();
    QLayout *buildButtonRow();
    void refuse(const QString &text);

    QString m_tablePath;
    const CLibColourTable *m_table = nullptr;
    RgbColour m_colour;
    QString m_name;
    QLineEdit *m_nameEdit = nullptr;
    QLabel *m_swatch = nullptr;
    QLabel *m_rgbLabel = nullptr;
    QLabel *m_labLabel = nullptr;
    QPushButton *m_helpButton = nullptr;
    QPushButton *m_okButton = nullptr;
    QPushButton *m_cancelButton = nullptr;
};
