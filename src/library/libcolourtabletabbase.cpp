#include "library/libcolourtabletabbase.h"

CLibColourTableTabBase::CLibColourTableTabBase(const QString &helpAnchor, QWidget *parent)
    : QWidget(parent), m_helpAnchor(helpAnchor)
{
}
