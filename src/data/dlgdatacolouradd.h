#pragma once

#include <QDialog>

class CAppSettings;
class CDataColourTable;
class QButtonGroup;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QVBoxLayout;

// Asks for the name of a picked colour and where it goes: the current data
// set, an existing file opened first, or a new data set.
class CDlgDataColourAdd : public QDialog
{
    Q_OBJECT

public:
    enum Choice { AddToCurrent = 0, OpenAndAdd = 1, AddToNew = 2 };

    CDlgDataColourAdd(QWidget *parent, const CAppSettings *settings, const CDataColourTable *table,
                      double red, double green, double blue);

    // The trimmed name and the destination of an accepted dialog.
    QString name() const { return m_name; }
    Choice choice() const { return m_choice; }

    QLineEdit *nameEdit() const { return m_nameEdit; }
    QLabel *dataFileLabel() const { return m_dataFileLabel; }
    QLabel *swatchLabel() const { return m_swatch; }
    QRadioButton *choiceButton(Choice choice) const;
    QPushButton *okButton() const { return m_okButton; }
    QPushButton *helpButton() const { return m_helpButton; }
    QPushButton *cancelButton() const { return m_cancelButton; }

signals:
    void displayHelpSignal(const QString &page);

public slots:
    void displayHelp();
    void accept() override;

private:
    QLayout *buildColourPanel();
    QLayout *buildNamePanel();
    QWidget *buildDestinationGroup();
    QLayout *buildButtonRow();
    void setInitialDestination();
    bool confirmDuplicateName(const QString &name);

    const CAppSettings *m_settings = nullptr;
    const CDataColourTable *m_table = nullptr;
    double m_red = 0.0;
    double m_green = 0.0;
    double m_blue = 0.0;
    QString m_name;
    Choice m_choice = AddToCurrent;
    QButtonGroup *m_group = nullptr;
    QRadioButton *m_currentRadio = nullptr;
    QRadioButton *m_openRadio = nullptr;
    QRadioButton *m_newRadio = nullptr;
    QLineEdit *m_nameEdit = nullptr;
    QLabel *m_dataFileLabel = nullptr;
    QLabel *m_swatch = nullptr;
    QPushButton *m_okButton = nullptr;
    QPushButton *m_helpButton = nullptr;
    QPushButton *m_cancelButton = nullptr;
};
