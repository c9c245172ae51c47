#include "support/guitestfixture.h"

#include "common/appcontext.h"

#include <QDir>

GuiTestFixture::GuiTestFixture()
{
    AppContext::initResources();
}

bool GuiTestFixture::isValid() const
{
    return m_home.isValid() && m_folder.isValid();
}

void GuiTestFixture::reset()
{
    TempHome::clearSettings();
}

QString GuiTestFixture::filePath(const QString &name) const
{
    return QDir(m_folder.path()).filePath(name);
}
