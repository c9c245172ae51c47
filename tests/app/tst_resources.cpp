#include "common/appcontext.h"

#include <QIcon>
#include <QPixmap>
#include <QtTest>

// Every image the program names must be compiled in under that very name.
class TestResources : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void everyImageLoads_data();
    void everyImageLoads();
    void widgetImagesResolveThroughThePrefix_data();
    void widgetImagesResolveThroughThePrefix();
    void applicationIconHasThreeSizes();
};

void TestResources::initTestCase()
{
    AppContext::initResources();
}

void TestResources::everyImageLoads_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QSize>("size");

    for (int side : {48, 32, 16}) {
        const QString path = QStringLiteral(":/resources/icons/VelloraIcon%1x%1.png").arg(side);
        QTest::newRow(qPrintable(path)) << path << QSize(side, side);
    }
    const QString widgets = QStringLiteral(":/resources/widgets/");
    for (const char *name : {"recent", "open_img", "configure", "exit", "help", "about",
                             "zoom_out", "zoom_in", "zoom_actual"}) {
        const QString path = widgets + "toolbar/btn_toolbar_" + name + ".png";
        QTest::newRow(qPrintable(path)) << path << QSize(56, 42);
    }
    for (const char *name : {"pick", "pick_drag", "pick_single", "multi_done", "maintain", "match",
                             "add_data", "add_lib", "new_data", "open_data", "save_data",
                             "save_data_mod", "save_as_data", "table"}) {
        const QString path = widgets + "sm_toolbar/btn_toolbar_" + name + ".png";
        QTest::newRow(qPrintable(path)) << path << QSize(46, 34);
    }
    QTest::newRow("multi_clear") << widgets + "sm_toolbar/btn_toolbar_multi_clear.png" << QSize(16, 16);
    QTest::newRow("gridEdit") << widgets + "other/gridEdit.png" << QSize(16, 16);
    QTest::newRow("gridDelete") << widgets + "other/gridDelete.png" << QSize(16, 16);
    // The help window names its icons as folder + "/name": a doubled slash.
    for (const char *name : {"home", "back", "forward", "print", "close"}) {
        const QString path = widgets + "help//btn_help_" + name + ".png";
        QTest::newRow(qPrintable(path)) << path << QSize(50, 38);
    }
    // The tip dialog writes its picture without a slash after the colon.
    QTest::newRow("light bulb") << QStringLiteral(":resources/LightBulb.png") << QSize(64, 64);
}

void TestResources::everyImageLoads()
{
    QFETCH(QString, path);
    QFETCH(QSize, size);
    const QPixmap pixmap(path);
    QVERIFY2(!pixmap.isNull(), qPrintable(path));
    QCOMPARE(pixmap.size(), size);
}

void TestResources::widgetImagesResolveThroughThePrefix_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("toolbar") << "toolbar/btn_toolbar_open_img.png";
    QTest::newRow("sm_toolbar") << "sm_toolbar/btn_toolbar_save_data_mod.png";
    QTest::newRow("other") << "other/gridDelete.png";
}

void TestResources::widgetImagesResolveThroughThePrefix()
{
    QFETCH(QString, name);
    QCOMPARE(AppContext::widgetPrefix(), QStringLiteral(":/resources/widgets/"));
    const QIcon icon = AppContext::widgetIcon(name);
    QVERIFY(!icon.isNull());
    QVERIFY(!icon.pixmap(16, 16).isNull());
    QVERIFY(icon.pixmap(16, 16).toImage() != QImage());
}

void TestResources::applicationIconHasThreeSizes()
{
    QIcon icon(QStringLiteral(":/resources/icons/VelloraIcon48x48.png"));
    icon.addFile(QStringLiteral(":/resources/icons/VelloraIcon32x32.png"), QSize(), QIcon::Normal, QIcon::Off);
    icon.addFile(QStringLiteral(":/resources/icons/VelloraIcon16x16.png"), QSize(), QIcon::Normal, QIcon::Off);
    const QList<QSize> sizes = icon.availableSizes();
    QVERIFY(sizes.contains(QSize(48, 48)));
    QVERIFY(sizes.contains(QSize(32, 32)));
    QVERIFY(sizes.contains(QSize(16, 16)));
}

QTEST_MAIN(TestResources)
#include "tst_resources.moc"
