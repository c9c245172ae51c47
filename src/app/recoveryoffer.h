#pragma once

#include <QCoreApplication>
#include <QString>

class CChartDataWindow;
class CRecoveryCopy;
class QWidget;

// At start-up, before the tip of the day: offers the data sets left unsaved
// by a Vellora that is no longer running, newest first. Yes shows the set on
// the data page (its copy stays until it is saved or discarded) and ends the
// round: the others wait for the next start. No removes that copy. A copy
// that cannot be read is set aside, not deleted, and the user is told where.
class CRecoveryOffer
{
    Q_DECLARE_TR_FUNCTIONS(CRecoveryOffer)

public:
    // True when a set was recovered.
    static bool offerAtStartup(QWidget *parent, CChartDataWindow *page);

    // "…the unsaved data set of <date and time>, <N> colours…"
    static QString question(const CRecoveryCopy &copy);

private:
    static bool offer(QWidget *parent, CChartDataWindow *page, const QString &path);
    static void reportUnreadable(QWidget *parent, const QString &asidePath);
};
