#pragma once

#include <QAbstractTableModel>
#include <QStringList>

#include <memory>

class CAppSettings;
class CColourTableEntry;
class CDataColourTable;
class CDataSetSnapshot;
class QUndoStack;

// The data set as a table: swatch, name, RGB, L*a*b*, and the states of the
// rename and delete buttons drawn by CDataGridDelegate. Read-only for views:
// the only writes are the button states, which never report a change (the
// delegate repaints the view itself).
class CDataModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column {
        ColSwatch = 0,
        ColName = 1,
        ColRed = 2,
        ColGreen = 3,
        ColBlue = 4,
        ColL = 5,
        ColA = 6,
        ColB = 7,
        ColEdit = 8,
        ColDelete = 9,
        ColFiller = 10,
        ColumnCount = 11
    };
    // Button states kept per row in the data set's marker lists.
    enum ButtonState { ButtonNormal = 0, ButtonHover = 1, ButtonPressed = 2 };

    // `settings` may be null (integer RGB then); the table is not owned.
    CDataModel(const CAppSettings *settings, CDataColourTable *table, QObject *parent = nullptr);
    // The window the rename prompt opens over.
    void setDialogParent(QWidget *parent) { m_dialogParent = parent; }

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

    CDataColourTable *table() const { return m_table; }
    // Points the model at another table (or the same one after it was
    // emptied or reloaded) and resets the views.
    void setTable(CDataColourTable *table);
    // Appends an entry to the data set (the table takes it) as a new row.
    void appendEntry(std::unique_ptr<CColourTableEntry> entry);

    // With a history, deleting and renaming a row go through it as undoable
    // changes; without one they happen directly. Not owned.
    void setUndoStack(QUndoStack *stack) { m_undoStack = stack; }
    QUndoStack *undoStack() const { return m_undoStack; }

    // The single steps the history replays, each announced to the views
    // (no modified flag: the caller sets it).
    void insertEntryAt(int row, std::unique_ptr<CColourTableEntry> entry);
    std::unique_ptr<CColourTableEntry> takeEntryAt(int row);
    void renameEntry(int row, const QString &name);
    void resetTo(const CDataSetSnapshot &snapshot);

    bool isModified() const { return m_modified; }
    // Stores the flag, announces it (the page swaps its Save icon), repaints
    // every row and asks for the window title to be recomposed.
    void setModified(bool modified);

signals:
    void modifiedChanged(bool modified);
    void titleChanged();

public slots:
    // Renames the row's entry through the text prompt.
    void editRecord(const QModelIndex &index);
    // Removes the row's entry at once, without a question.
    void deleteRecord(const QModelIndex &index);

private:
    bool isDataRow(const QModelIndex &index) const;
    QVariant displayText(int row, int column) const;

    int rgbFormat() const;

    const CAppSettings *m_settings = nullptr;
    QWidget *m_dialogParent = nullptr;
    CDataColourTable *m_table = nullptr;
    QUndoStack *m_undoStack = nullptr;
    QStringList m_headers;
    bool m_modified = false;
};
