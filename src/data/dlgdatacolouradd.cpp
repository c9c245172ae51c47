#include "data/dlgdatacolouradd.h"

#include "common/appcontext.h"
#include "app/appsettings.h"
#include "colour/colourformat.h"
#include "help/helpanchors.h"
#include "tables/datacolourtable.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QVBoxLayout>

namespace {

const int kDialogDecimals = 2;


} // namespace

CDlgDataColourAdd::CDlgDataColourAdd(QWidget *parent, const CAppSettings *settings,
                                     const CDataColourTable *table, double red, double green,
                                     double blue)
    : QDialog(parent, Qt::Dialog | Qt::WindowTitleHint), m_settings(settings), m_table(table), m_red(red),
      m_green(green), m_blue(blue)
{
    setWindowTitle(AppContext::productName() + tr(" - Add Colour Data"));
    setWindowModality(Qt::WindowModal);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(buildColourPanel());
    layout->addLayout(buildNamePanel());
    layout->addWidget(buildDestinationGroup());
    layout->addStretch();
    layout->addLayout(buildButtonRow());
    setInitialDestination();
    m_nameEdit->setFocus();
}

QLayout *CDlgDataColourAdd::buildColourPanel()
{
    auto *frame = new QWidget(this);
    frame->setStyleSheet(QStringLiteral("border:1px solid black"));
    m_swatch = new QLabel(frame);
    m_swatch->setFixedSize(34, 51);
    m_swatch->setStyleSheet(
        QStringLiteral("background-color:%1;").arg(colourName(m_red, m_green, m_blue)));
    auto *frameLayout = new QVBoxLayout(frame);
    frameLayout->setContentsMargins(1, 1, 1, 1);
    frameLayout->addWidget(m_swatch);

    const QStringList rgb = formatRgb(m_red, m_green, m_blue, kDialogDecimals, false, CAppSettings::rgbFormatOf(m_settings));
    const QStringList lab = formatLab(m_red, m_green, m_blue, kDialogDecimals);
    auto *texts = new QVBoxLayout;
    texts->addWidget(new QLabel(tr("R:%1, G:%2, B:%3").arg(rgb.at(0), rgb.at(1), rgb.at(2)), this));
    texts->addWidget(new QLabel(tr("L:%1, a:%2, b:%3").arg(lab.at(0), lab.at(1), lab.at(2)), this));

    auto *panel = new QHBoxLayout;
    panel->addWidget(frame);
    panel->addLayout(texts);
    panel->addStretch();
    return panel;
}

QLayout *CDlgDataColourAdd::buildNamePanel()
{
    auto *grid = new QGridLayout;
    grid->addWidget(new QLabel(tr("Colour Name:"), this), 0, 0);
    m_nameEdit = new QLineEdit(this);
    grid->addWidget(m_nameEdit, 0, 1);
    grid->addWidget(new QLabel(tr("Data File:"), this), 1, 0);
    m_dataFileLabel = new QLabel(this);
    grid->addWidget(m_dataFileLabel, 1, 1);
    grid->setColumnStretch(1, 1);
    return grid;
}

QWidget *CDlgDataColourAdd::buildDestinationGroup()
{
    auto *box = new QGroupBox(this);
    box->setFlat(true);
    m_currentRadio = new QRadioButton(tr("Add to current data file"), box);
    m_openRadio = new QRadioButton(tr("Open and add to an existing file"), box);
    m_newRadio = new QRadioButton(tr("Add to a new file"), box);
    m_group = new QButtonGroup(this);
    m_group->setExclusive(true);
    m_group->addButton(m_currentRadio, AddToCurrent);
    m_group->addButton(m_openRadio, OpenAndAdd);
    m_group->addButton(m_newRadio, AddToNew);
    auto *column = new QVBoxLayout(box);
    column->addWidget(m_currentRadio);
    column->addWidget(m_openRadio);
    column->addWidget(m_newRadio);
    column->addStretch();
    return box;
}

QLayout *CDlgDataColourAdd::buildButtonRow()
{
    m_okButton = new QPushButton(tr("&OK"), this);
    m_okButton->setDefault(true);
    m_helpButton = new QPushButton(tr("&Help"), this);
    m_helpButton->setAutoDefault(false);
    m_cancelButton = new QPushButton(tr("&Cancel"), this);
    m_cancelButton->setAutoDefault(false);
    connect(m_okButton, &QPushButton::clicked, this, &CDlgDataColourAdd::accept);
    connect(m_helpButton, &QPushButton::clicked, this, &CDlgDataColourAdd::displayHelp);
    connect(m_cancelButton, &QPushButton::clicked, this, &CDlgDataColourAdd::reject);
    auto *helpKey = new QShortcut(QKeySequence(QKeySequence::HelpContents), this);
    connect(helpKey, &QShortcut::activated, this, &CDlgDataColourAdd::displayHelp);

    auto *row = new QHBoxLayout;
    row->addWidget(m_helpButton);
    row->addStretch();
    row->addWidget(m_okButton);
    row->addWidget(m_cancelButton);
    return row;
}

// A set counts as present when it has a file, or was started by New.
void CDlgDataColourAdd::setInitialDestination()
{
    if (!m_table->filePath().isEmpty()) {
        m_currentRadio->setChecked(true);
        m_dataFileLabel->setText(m_table->filePath());
    } else if (m_table->isUntitled()) {
        m_currentRadio->setChecked(true);
        m_currentRadio->setText(tr("Add to untitled file"));
        m_dataFileLabel->setText(tr("Untitled data file"));
    } else {
        m_dataFileLabel->setText(tr("None"));
        m_openRadio->setChecked(true);
        m_currentRadio->setEnabled(false);
    }
}

QRadioButton *CDlgDataColourAdd::choiceButton(Choice choice) const
{
    return qobject_cast<QRadioButton *>(m_group->button(choice));
}

void CDlgDataColourAdd::displayHelp()
{
    emit displayHelpSignal(QLatin1String(HelpAnchors::kDataAddColour));
}

void CDlgDataColourAdd::accept()
{
    const QString name = m_nameEdit->text().trimmed();
    if (name.isEmpty()) {
        QMessageBox::critical(this, AppContext::productName(), tr("Please enter a colour name"),
                              QMessageBox::Ok);
        return;
    }
    if (m_currentRadio->isChecked() && m_table->containsName(name)
        && !confirmDuplicateName(name))
        return;
    m_name = name;
    m_choice = static_cast<Choice>(m_group->checkedId());
    QDialog::accept();
}

bool CDlgDataColourAdd::confirmDuplicateName(const QString &name)
{
    const QMessageBox::StandardButton answer = QMessageBox::question(
        this, AppContext::productName(),
        tr("The data set already contains a colour called:<br />\"%1\"<br />Are you sure that "
           "you would like to use the same name?")
            .arg(name),
        QMessageBox::Yes | QMessageBox::No);
    return answer == QMessageBox::Yes;
}
