#pragma once

#include <QDialog>
#include <QString>

class CLibColourTable;
class QPushButton;
class QTableWidget;
class QTextEdit;

// Edits one library table in place: its note (the file's comment lines) and
// its entries, which can be renamed or removed. OK writes the table back to
// its file when anything changed; Cancel asks before dropping changes.
class CDlgEditTable : public QDialog
{
    Q_OBJECT

public:
    CDlgEditTable(QWidget *parent, const QString &tableName, const QString &tablePath,
                  CLibColourTable *table);

    bool isChanged() const { return m_changed; }

    QTextEdit *noteEdit() const { return m_noteEdit; }
    QTableWidget *grid() const { return m_grid; }
    QPushButton *okButton() const { return m_okButton; }
    QPushButton *cancelButton() const { return m_cancelButton; }
    QPushButton *helpButton() const { return m_helpButton; }

public slots:
    void accept() override;
    void reject() override;
    void displayHelp();
    void renameEntry(int row);
    void deleteEntry(int row);

signals:
    void displayHelpSignal(const QString &page);

private:
    QLayout *buildNoteRow();
    void buildGrid();
    QLayout *buildButtonRow();
    void loadNote();
    QString noteFromEditor() const;
    void fillGrid();
    void addRow(int row);

    CLibColourTable *m_table = nullptr;
    QString m_tableName;
    QString m_tablePath;
    bool m_changed = false;
    QTextEdit *m_noteEdit = nullptr;
    QTableWidget *m_grid = nullptr;
    QPushButton *m_helpButton = nullptr;
    QPushButton *m_okButton = nullptr;
    QPushButton *m_cancelButton = nullptr;
};
