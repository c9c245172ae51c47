#include "data/datagriddelegate.h"

#include "common/appcontext.h"
#include "data/datamodel.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionButton>

namespace {
const int kInset = 2;
} // namespace

CDataGridDelegate::CDataGridDelegate(QObject *parent)
    : QStyledItemDelegate(parent),
      m_editIcon(AppContext::widgetIcon(QStringLiteral("other/gridEdit.png"))),
      m_deleteIcon(AppContext::widgetIcon(QStringLiteral("other/gridDelete.png")))
{
}

QRect CDataGridDelegate::innerRect(const QRect &cellRect)
{
    return cellRect.adjusted(kInset, kInset, -kInset, -kInset);
}

void CDataGridDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const
{
    switch (index.column()) {
    case CDataModel::ColSwatch:
        paintSwatch(painter, option, index);
        break;
    case CDataModel::ColEdit:
    case CDataModel::ColDelete:
        paintButton(painter, option, index);
        break;
    default:
        QStyledItemDelegate::paint(painter, option, index);
        break;
    }
}

void CDataGridDelegate::paintSwatch(QPainter *painter, const QStyleOptionViewItem &option,
                                    const QModelIndex &index) const
{
    QColor colour;
    colour.setNamedColor(index.data(Qt::DisplayRole).toString());
    painter->fillRect(innerRect(option.rect), QBrush(colour, Qt::SolidPattern));
}

void CDataGridDelegate::paintButton(QPainter *painter, const QStyleOptionViewItem &option,
                                    const QModelIndex &index) const
{
    QStyleOptionButton button;
    button.rect = innerRect(option.rect);
    button.icon = index.column() == CDataModel::ColEdit ? m_editIcon : m_deleteIcon;
    const int side = qMax(0, qMin(button.rect.width(), button.rect.height()) - 2 * kInset);
    button.iconSize = QSize(side, side);
    button.state = buttonState(index, button.rect);
    QStyle *style = option.widget ? option.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_PushButton, &button, painter, option.widget);
}

QStyle::State CDataGridDelegate::buttonState(const QModelIndex &index,
                                             const QRect &buttonRect) const
{
    QStyle::State state = QStyle::State_Enabled;
    if (!buttonRect.contains(m_lastMousePosition))
        return state;
    const int value = index.data(Qt::DisplayRole).toInt();
    if (value == CDataModel::ButtonHover)
        state |= QStyle::State_MouseOver;
    else if (value == CDataModel::ButtonPressed)
        state |= QStyle::State_Sunken;
    return state;
}

bool CDataGridDelegate::editorEvent(QEvent *event, QAbstractItemModel *model,
                                    const QStyleOptionViewItem &option, const QModelIndex &index)
{
    const QEvent::Type type = event->type();
    if (type != QEvent::MouseMove && type != QEvent::MouseButtonPress
        && type != QEvent::MouseButtonRelease && type != QEvent::MouseButtonDblClick)
        return QStyledItemDelegate::editorEvent(event, model, option, index);

    m_lastMousePosition = static_cast<QMouseEvent *>(event)->pos();
    const bool inside = option.rect.contains(m_lastMousePosition);
    model->setData(index, CDataModel::ButtonNormal, Qt::EditRole);
    bool handled = false;
    if (inside && type == QEvent::MouseMove) {
        model->setData(index, CDataModel::ButtonHover, Qt::EditRole);
    } else if (inside && type == QEvent::MouseButtonPress
               && (index.column() == CDataModel::ColEdit
                   || index.column() == CDataModel::ColDelete)) {
        // The pressed look first: the rename prompt runs inside the signal,
        // and a deleted row takes its state away with it.
        model->setData(index, CDataModel::ButtonPressed, Qt::EditRole);
        repaintView(option);
        const QModelIndex target = index;
        if (target.column() == CDataModel::ColEdit)
            emit editRecordSignal(target);
        else
            emit deleteRecordSignal(target);
        handled = true;
    }
    repaintView(option);
    return handled || QStyledItemDelegate::editorEvent(event, model, option, index);
}

// The model reports no change for button states, so the view is told here.
void CDataGridDelegate::repaintView(const QStyleOptionViewItem &option)
{
    if (auto *view = qobject_cast<const QAbstractItemView *>(option.widget))
        view->viewport()->update();
}
