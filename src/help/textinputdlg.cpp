#include "help/textinputdlg.h"

#include "common/appcontext.h"
#include "help/elidedlabel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

namespace {
const int kMaxNameLength = 32;
const int kIndentChars = 3;
const int kCaptionMinChars = 42;
} // namespace

CTextInputDlg::CTextInputDlg(const QString &title, const QString &captionLabel,
                             const QString &captionValue, const QString &fieldLabel,
                             const QString &prompt, QWidget *parent, const QString &helpAnchor,
                             bool preFill)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      m_prompt(prompt), m_helpAnchor(helpAnchor)
{
    setWindowTitle(title);
    setWindowModality(Qt::WindowModal);
    setMinimumSize(250, 200);

    auto *layout = new QVBoxLayout(this);
    if (!captionLabel.isEmpty() || !captionValue.isEmpty())
        addCaptionBlock(layout, captionLabel, captionValue);
    layout->addSpacing(2 * fontMetrics().capHeight());
    addFieldBlock(layout, fieldLabel);
    if (preFill)
        m_lineEdit->setText(captionValue);
    layout->addSpacing(4 * fontMetrics().capHeight());
    layout->addStretch();
    addButtonRow(layout);
}

void CTextInputDlg::addCaptionBlock(QVBoxLayout *layout, const QString &label, const QString &value)
{
    const int charWidth = fontMetrics().averageCharWidth();
    layout->addWidget(new QLabel(label, this));
    auto *row = new QHBoxLayout;
    row->addSpacing(kIndentChars * charWidth);
    m_captionValue = new CElidedLabel(value, this);
    m_captionValue->setElideMode(Qt::ElideMiddle);
    m_captionValue->setMinimumWidth(kCaptionMinChars * charWidth);
    m_captionValue->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    row->addWidget(m_captionValue);
    layout->addLayout(row);
}

void CTextInputDlg::addFieldBlock(QVBoxLayout *layout, const QString &label)
{
    const int charWidth = fontMetrics().averageCharWidth();
    layout->addWidget(new QLabel(label, this));
    auto *row = new QHBoxLayout;
    row->addSpacing(kIndentChars * charWidth);
    m_lineEdit = new QLineEdit(this);
    m_lineEdit->setMaxLength(kMaxNameLength);
    m_lineEdit->setMinimumWidth(kMaxNameLength * charWidth);
    row->addWidget(m_lineEdit);
    row->addStretch();
    layout->addLayout(row);
}

void CTextInputDlg::addButtonRow(QVBoxLayout *layout)
{
    auto *row = new QHBoxLayout;
    if (!m_helpAnchor.isEmpty()) {
        m_helpButton = new QPushButton(tr("&Help"), this);
        m_helpButton->setAutoDefault(false);
        connect(m_helpButton, &QPushButton::clicked, this, &CTextInputDlg::requestHelp);
        auto *f1 = new QShortcut(QKeySequence(Qt::Key_F1), this);
        connect(f1, &QShortcut::activated, this, &CTextInputDlg::requestHelp);
        row->addWidget(m_helpButton);
    }
    row->addStretch();
    auto *ok = new QPushButton(tr("&OK"), this);
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &CTextInputDlg::accept);
    auto *cancel = new QPushButton(tr("&Cancel"), this);
    connect(cancel, &QPushButton::clicked, this, &CTextInputDlg::reject);
    row->addWidget(ok);
    row->addWidget(cancel);
    layout->addLayout(row);
}

void CTextInputDlg::requestHelp()
{
    emit displayHelpSignal(m_helpAnchor);
}

void CTextInputDlg::accept()
{
    // Only blankness is checked here: length is limited by the editor, and
    // characters and uniqueness are the caller's business.
    m_text = m_lineEdit->text().trimmed();
    if (m_text.isEmpty()) {
        QMessageBox::critical(this, AppContext::productName(), m_prompt, QMessageBox::Ok);
        return;
    }
    QDialog::accept();
}
