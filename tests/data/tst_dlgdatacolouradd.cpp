#include <QtTest>
class Placeholder : public QObject { Q_OBJECT };
QTEST_MAIN(Placeholder)
#include "tst_dlgdatacolouradd.moc"
