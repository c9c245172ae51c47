#include "config/dlgtabpage.h"

CDlgTabPage::CDlgTabPage(CAppSettings *settings, const QString &helpAnchor, QWidget *parent)
    : QWidget(parent), m_settings(settings), m_helpAnchor(helpAnchor)
{
}
