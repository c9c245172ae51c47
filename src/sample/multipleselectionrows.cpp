#include "sample/multipleselectionrows.h"

#include "app/appsettings.h"
#include "sample/imagewidget.h"
#include "sample/multipleselect.h"

#include <QLabel>
#include <QToolButton>

CMultipleSelectionRows::CMultipleSelectionRows(const CAppSettings *settings,
                                               const QVector<CMultipleSelect *> &rows,
                                               QLabel *maximumNotice, QToolButton *clearButton,
                                               CImageWidget *picture, QObject *parent)
    : QObject(parent), m_settings(settings), m_rows(rows), m_maximumNotice(maximumNotice),
      m_clearButton(clearButton), m_picture(picture)
{
}

bool CMultipleSelectionRows::add(const RgbColour &colour, const QRect &rect)
{
    if (!m_selection.add(colour, rect)) {
        m_maximumNotice->show();
        redrawMarks();
        return false;
    }
    showRows(m_selection.count() - 1);
    m_clearButton->setEnabled(true);
    redrawMarks();
    return true;
}

bool CMultipleSelectionRows::removeAt(int position)
{
    if (!m_selection.removeAt(position))
        return false;
    showRows(position);
    if (m_selection.isEmpty())
        m_clearButton->setEnabled(false);
    m_maximumNotice->hide();
    redrawMarks();
    return true;
}

void CMultipleSelectionRows::clear()
{
    m_selection.clear();
    showRows(0);
    m_clearButton->setEnabled(false);
    m_maximumNotice->hide();
}

void CMultipleSelectionRows::showRows(int from)
{
    const int rgbFormat = CAppSettings::rgbFormatOf(m_settings);
    for (int position = from; position < m_rows.size(); ++position) {
        CMultipleSelect *row = m_rows.at(position);
        const bool used = position < m_selection.count();
        if (used) {
            row->setRect(m_selection.at(position).rect);
            row->setColour(m_selection.at(position).colour, rgbFormat);
        }
        row->setInUse(used);
    }
}

void CMultipleSelectionRows::redrawMarks() { m_picture->drawSelectionMarks(m_rows); }
