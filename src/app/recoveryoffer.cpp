#include "app/recoveryoffer.h"

#include "common/appcontext.h"
#include "data/chartdatawindow.h"
#include "data/datasetrecovery.h"
#include "tables/recoverycopy.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QMessageBox>

bool CRecoveryOffer::offerAtStartup(QWidget *parent, CChartDataWindow *page)
{
    const QStringList copies = CDataSetRecovery::leftCopies();
    for (const QString &path : copies) {
        if (offer(parent, page, path))
            return true;
    }
    return false;
}

QString CRecoveryOffer::question(const CRecoveryCopy &copy)
{
    const QString when =
        QLocale().toString(copy.savedAt.toLocalTime(), QLocale::ShortFormat);
    const int count = copy.dataSet.rows.size();
    const QString colours = count == 1 ? tr("1 colour") : tr("%1 colours").arg(count);
    QString text = tr("%1 was not closed normally.\nRecover the unsaved data set of %2, %3?")
                       .arg(AppContext::productName(), when, colours);
    if (!copy.dataSet.filePath.isEmpty())
        text += QLatin1Char('\n')
                + tr("It was last saved as %1.")
                      .arg(QDir::toNativeSeparators(copy.dataSet.filePath));
    return text;
}

bool CRecoveryOffer::offer(QWidget *parent, CChartDataWindow *page, const QString &path)
{
    CRecoveryCopy copy;
    const CRecoveryCopy::ReadStatus status = CRecoveryCopy::read(path, &copy);
    if (status == CRecoveryCopy::CannotOpen)
        return false; // gone meanwhile, or another instance took it
    if (status == CRecoveryCopy::Unreadable) {
        reportUnreadable(parent, CDataSetRecovery::setAside(path));
        return false;
    }
    QMessageBox box(QMessageBox::Question, AppContext::productName(), question(copy),
                    QMessageBox::Yes | QMessageBox::No, parent);
    box.setDefaultButton(QMessageBox::Yes);
    const bool recover = box.exec() == QMessageBox::Yes;
    if (recover)
        page->showRecovered(copy.dataSet); // the page writes its own copy first
    CDataSetRecovery::removeLeftCopy(path);
    return recover;
}

void CRecoveryOffer::reportUnreadable(QWidget *parent, const QString &asidePath)
{
    const QString text =
        asidePath.isEmpty()
            ? tr("A recovery copy of an unsaved data set could not be read, nor set aside.")
            : tr("A recovery copy of an unsaved data set could not be read. It has been "
                 "kept as:\n%1")
                  .arg(QDir::toNativeSeparators(asidePath));
    QMessageBox::warning(parent, AppContext::productName(), text);
}
