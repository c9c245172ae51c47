#include "help/dlgabout.h"

#include "common/appcontext.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

CDlgAbout::CDlgAbout(QWidget *parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint)
{
    setWindowTitle(tr("About ") + AppContext::productName());
    setWindowModality(Qt::WindowModal);

    auto *grid = new QGridLayout(this);
    m_nameLabel = new QLabel(QStringLiteral("<b>") + AppContext::productName()
                                 + QStringLiteral("</b>"),
                             this);
    m_nameLabel->setAlignment(Qt::AlignCenter);
    m_versionLabel = new QLabel(QStringLiteral("<b>")
                                    + versionText(AppContext::versionMajor(),
                                                  AppContext::versionMinor())
                                    + QStringLiteral("</b>"),
                                this);
    m_versionLabel->setAlignment(Qt::AlignCenter);
    m_noticeLabel = new QLabel(tr("<p align=\"center\">Copyright &copy; Tessaline.<br />"
                                  "All rights reserved.</p>"),
                               this);
    m_noticeLabel->setTextFormat(Qt::RichText);
    grid->addWidget(m_nameLabel, 0, 0, 1, 3);
    grid->addWidget(m_versionLabel, 1, 0, 1, 3);
    grid->addWidget(m_noticeLabel, 2, 0, 1, 3);

    auto *row = new QHBoxLayout;
    row->addStretch();
    auto *ok = new QPushButton(tr("&OK"), this);
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    row->addWidget(ok);
    grid->addLayout(row, 3, 0, 1, 3);
}

QString CDlgAbout::versionText(int major, int minor)
{
    return QStringLiteral("v") + QString::number(major) + QStringLiteral(".")
        + QString::number(minor) + QStringLiteral(".0");
}
