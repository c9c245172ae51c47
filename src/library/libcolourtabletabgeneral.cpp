#include "library/libcolourtabletabgeneral.h"

#include "common/appcontext.h"
#include "app/appsettings.h"
#include "common/tablemessages.h"
#include "library/librarywritemessages.h"
#include "help/qgroupboxbold.h"
#include "help/textinputdlg.h"
#include "library/dlgedittable.h"
#include "tables/colourlibrary.h"
#include "tables/libcolourtable.h"

#include <QComboBox>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalMapper>
#include <QVBoxLayout>

namespace {

const int kChooserMinChars = 12;
const int kButtonRowSpacing = 11;

QString tableFileIn(const QString &folder, const QString &name)
{
    return folder + QLatin1Char('/') + name + QStringLiteral(".clrtable");
}

} // namespace

CLibColourTableTabGeneral::CLibColourTableTabGeneral(CAppSettings *settings,
                                                     const QString &helpAnchor, QWidget *parent)
    : CLibColourTableTabBase(helpAnchor, parent), m_settings(settings)
{
    m_mapper = new QSignalMapper(this);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(buildNewGroup());
    layout->addWidget(buildEditGroup());
    layout->addStretch();
    connect(m_mapper, &QSignalMapper::mappedInt, this, &CLibColourTableTabGeneral::processButton);
    fillLibraryCombo();
}

QPushButton *CLibColourTableTabGeneral::makeButton(int id, const QString &text, QWidget *parent)
{
    auto *button = new QPushButton(text, parent);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, m_mapper, qOverload<>(&QSignalMapper::map));
    m_mapper->setMapping(button, id);
    m_buttons[id] = button;
    return button;
}

QWidget *CLibColourTableTabGeneral::buildNewGroup()
{
    auto *box = new QGroupBoxBold(tr("New Table"), this);
    auto *row = new QHBoxLayout(box);
    row->addWidget(makeButton(New, tr("&New"), box));
    row->addStretch();
    return box;
}

QWidget *CLibColourTableTabGeneral::buildEditGroup()
{
    auto *box = new QGroupBoxBold(tr("Edit Table"), this);
    auto *column = new QVBoxLayout(box);
    auto *chooserRow = new QHBoxLayout;
    chooserRow->addWidget(new QLabel(tr("Choose Table:"), box));
    m_tableCombo = new QComboBox(box);
    m_tableCombo->setMinimumWidth(kChooserMinChars * fontMetrics().averageCharWidth());
    chooserRow->addWidget(m_tableCombo);
    chooserRow->addStretch();
    column->addLayout(chooserRow);
    column->addSpacing(kButtonRowSpacing);
    auto *buttonRow = new QHBoxLayout;
    buttonRow->addWidget(makeButton(Edit, tr("&Edit"), box));
    buttonRow->addWidget(makeButton(Copy, tr("&Copy"), box));
    buttonRow->addWidget(makeButton(Rename, tr("&Rename"), box));
    buttonRow->addWidget(makeButton(Delete, tr("&Delete"), box));
    buttonRow->addStretch();
    column->addLayout(buttonRow);
    return box;
}

void CLibColourTableTabGeneral::fillLibraryCombo()
{
    CTableMessages::fillLibraryCombo(m_settings->libraryDir, m_tableCombo);
}

void CLibColourTableTabGeneral::processButton(int id)
{
    const QString path = m_tableCombo->currentData().toString();
    const QString name = path.isEmpty() ? QString() : QFileInfo(path).completeBaseName();
    bool done = false;
    switch (id) {
    case New:
        done = newTable();
        break;
    case Edit:
        done = editTable(name, path);
        break;
    case Copy:
        done = copyTable(name, path);
        break;
    case Rename:
        done = renameTable(name, path);
        break;
    case Delete:
        done = deleteTable(name, path);
        break;
    default:
        return;
    }
    if (done) {
        fillLibraryCombo();
        setChanged();
    }
}

bool CLibColourTableTabGeneral::newTable()
{
    CTextInputDlg input(AppContext::productName() + tr(" - New Colour Table"), QString(),
                        QString(), tr("Table Name:"),
                        tr("Please enter the name of the new colour table."), this);
    if (input.exec() != QDialog::Accepted)
        return false;
    const QString name = input.text();
    const QString path = libraryTablePath(m_settings->libraryDir, name);
    // A name that cannot be a file of its own fails as a write would.
    if (!isUsableTableName(name)) {
        CTableMessages::showWriteError(this, path);
        return false;
    }
    CLibColourTable table;
    if (!CLibraryWriteMessages::saveNew(this, table, path))
        return false;
    QMessageBox::information(this, AppContext::productName(),
                             tr("Added new colour table:\"%1\".").arg(name), QMessageBox::Ok);
    return true;
}

bool CLibColourTableTabGeneral::editTable(const QString &name, const QString &path)
{
    CLibColourTable table;
    if (!CTableMessages::loadWithMessages(this, table, name, path))
        return false;
    table.sort();
    CDlgEditTable dialog(this, name, path, &table);
    connect(&dialog, &CDlgEditTable::displayHelpSignal, this,
            &CLibColourTableTabGeneral::displayHelpSignal);
    return dialog.exec() == QDialog::Accepted && dialog.isChanged();
}

bool CLibColourTableTabGeneral::copyTable(const QString &name, const QString &path)
{
    if (!QFileInfo(path).isFile()) {
        showCannotAccess(name);
        return false;
    }
    CTextInputDlg input(AppContext::productName() + tr(" - Copy Colour Table"), tr("Copying:"),
                        name, tr("Destination:"),
                        tr("Please enter the name of the new colour table."), this);
    if (input.exec() != QDialog::Accepted)
        return false;
    const QString typed = input.text();
    const QString destination = tableFileIn(QFileInfo(path).absolutePath(), typed);
    if (QFileInfo::exists(destination)) {
        // The refusal names the table being copied, not the typed name.
        critical(tr("The \"%1\" colour table already exists. Please chose a different name to "
                    "copy to.")
                     .arg(name));
        return false;
    }
    if (!isUsableTableName(typed) || !QFile::copy(path, destination)) {
        critical(tr("Error copying colour table \"%1\" to \"%2\". This may be due to the "
                    "destination folder being write-protected.")
                     .arg(name, typed));
        return false;
    }
    return true;
}

bool CLibColourTableTabGeneral::renameTable(const QString &name, const QString &path)
{
    if (!QFileInfo::exists(path)) {
        showCannotAccess(name);
        return false;
    }
    CTextInputDlg input(AppContext::productName() + tr(" - Rename Colour Table"), tr("Rename:"),
                        name, tr("New Name:"), tr("Please enter the new name for the colour table."),
                        this, QString(), true);
    if (input.exec() != QDialog::Accepted)
        return false;
    const QString typed = input.text();
    const QString destination = tableFileIn(QFileInfo(path).absolutePath(), typed);
    if (!isUsableTableName(typed) || !QFile::rename(path, destination)) {
        critical(tr("Error renaming colour table \"%1\" to \"%2\". This may be due to the file or "
                    "folder being write-protected.")
                     .arg(name, typed));
        return false;
    }
    return true;
}

bool CLibColourTableTabGeneral::deleteTable(const QString &name, const QString &path)
{
    if (!QFileInfo::exists(path)) {
        showCannotAccess(name);
        return false;
    }
    const QMessageBox::StandardButton answer = QMessageBox::question(
        this, AppContext::productName(),
        tr("Are you sure that you want to permanently delete the \"%1\" colour table?").arg(name),
        QMessageBox::Yes | QMessageBox::No);
    if (answer != QMessageBox::Yes)
        return false;
    if (!QFile::remove(path)) {
        critical(tr("Error deleting colour table \"%1\". This may be due to the file or folder "
                    "being write-protected.")
                     .arg(name));
        return false;
    }
    return true;
}

void CLibColourTableTabGeneral::showCannotAccess(const QString &name)
{
    critical(tr("The \"%1\" colour table cannot be accessed.").arg(name));
}

void CLibColourTableTabGeneral::critical(const QString &text)
{
    QMessageBox::critical(this, AppContext::productName(), text, QMessageBox::Ok);
}
