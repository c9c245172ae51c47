#pragma once

#include <QIcon>
#include <QPoint>
#include <QStyle>
#include <QStyledItemDelegate>

// Paints the swatch column as a solid colour and the rename and delete
// columns as push buttons that follow the pointer; turns a press on those
// buttons into editRecordSignal / deleteRecordSignal.
class CDataGridDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit CDataGridDelegate(QObject *parent = nullptr);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    bool editorEvent(QEvent *event, QAbstractItemModel *model, const QStyleOptionViewItem &option,
                     const QModelIndex &index) override;

    // The part of a cell that the swatch or the button covers.
    static QRect innerRect(const QRect &cellRect);
    // The style state of a button cell: enabled, plus hover or pressed when
    // the last pointer position lies on it.
    QStyle::State buttonState(const QModelIndex &index, const QRect &buttonRect) const;
    QPoint lastMousePosition() const { return m_lastMousePosition; }

signals:
    void editRecordSignal(const QModelIndex &index);
    void deleteRecordSignal(const QModelIndex &index);

private:
    void paintSwatch(QPainter *painter, const QStyleOptionViewItem &option,
                     const QModelIndex &index) const;
    void paintButton(QPainter *painter, const QStyleOptionViewItem &option,
                     const QModelIndex &index) const;
    static void repaintView(const QStyleOptionViewItem &option);

    QPoint m_lastMousePosition;
    QIcon m_editIcon;
    QIcon m_deleteIcon;
};
