#include "app/appsettings.h"
#include "data/datamodel.h"
#include "tables/datacolourtable.h"

#include "support/fixturefile.h"
#include "support/guitestfixture.h"

#include <QSignalSpy>
#include <QtTest>

#include <memory>

// The model on its own: what each cell shows, what writes it accepts, and
// the marker columns after loads, adds and sorts.
class TestDataModel : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();

    void emptyDataSetHasElevenHeadersAndNoRows();
    void headerTexts_data();
    void headerTexts();
    void headersOnlyForHorizontalDisplay();
    void orangeShowsSwatchNameFf8000();
    void nameAndLabShowFourDecimals();
    void rgbFollowsTheDisplayFormat_data();
    void rgbFollowsTheDisplayFormat();
    void lastColumnShowsNothing();
    void onlyDisplayRoleHasData();
    void rowsOutsideTheDataSetHaveNoData();
    void setDataAlwaysReturnsFalseAndEmitsNothing();
    void setDataStoresButtonStates();
    void setDataIgnoresOtherColumnsAndRoles();
    void loadedFiveColoursReadZeroMarkersAndIgnoreWrites();
    void addAfterLoadShowsItsMarkerOnRowZero();
    void sortResetsAMarkerSetBefore();
    void removingBeyondTheEndChangesNothing();
    void deleteRecordRemovesTheRowAndMarksModified();
    void appendEntryAddsARow();
    void setModifiedEmitsLayoutThenDataChangedForTheWholeTable();
    void setTableResetsTheModel();

private:
    QString writeFiveColours();
    static void addColours(CDataColourTable &table, int count);

    GuiTestFixture m_fixture;
    CAppSettings *m_settings = nullptr;
};

void TestDataModel::initTestCase()
{
    QVERIFY(m_fixture.isValid());
    m_settings = new CAppSettings;
}

void TestDataModel::cleanupTestCase()
{
    delete m_settings;
}

void TestDataModel::init()
{
    m_fixture.reset();
    m_settings->rgbFormat = 0;
}

QString TestDataModel::writeFiveColours()
{
    const QString path = m_fixture.filePath(QStringLiteral("five.txt"));
    FixtureFile::write(path, "# five\n0.1, 0.2, 0.3, One\n0.2, 0.3, 0.4, Two\n"
                             "0.3, 0.4, 0.5, Three\n0.4, 0.5, 0.6, Four\n0.5, 0.6, 0.7, Five\n");
    return path;
}

void TestDataModel::addColours(CDataColourTable &table, int count)
{
    for (int i = 0; i < count; ++i)
        table.add(std::make_unique<CColourTableEntry>(QStringLiteral("C%1").arg(i), 0.1 * i,
                                                      0.05 * i, 0.5));
}

void TestDataModel::emptyDataSetHasElevenHeadersAndNoRows()
{
    CDataColourTable table;
    CDataModel model(m_settings, &table);
    QCOMPARE(model.columnCount(), 11);
    QCOMPARE(model.rowCount(), 0);
    for (int section = 0; section < 11; ++section)
        QVERIFY(model.headerData(section, Qt::Horizontal, Qt::DisplayRole).isValid());
    QVERIFY(!model.headerData(11, Qt::Horizontal, Qt::DisplayRole).isValid());
}

void TestDataModel::headerTexts_data()
{
    QTest::addColumn<int>("section");
    QTest::addColumn<QString>("text");
    const QStringList texts = {" ",  "Colour Name", "Red", "Green", "Blue", "L*",
                               "a*", "b*",          "Edit", "Delete", " "};
    for (int i = 0; i < texts.size(); ++i)
        QTest::addRow("column %d", i) << i << texts.at(i);
}

void TestDataModel::headerTexts()
{
    QFETCH(int, section);
    QFETCH(QString, text);
    CDataColourTable table;
    CDataModel model(m_settings, &table);
    QCOMPARE(model.headerData(section, Qt::Horizontal, Qt::DisplayRole).toString(), text);
}

void TestDataModel::headersOnlyForHorizontalDisplay()
{
    CDataColourTable table;
    addColours(table, 2);
    CDataModel model(m_settings, &table);
    QVERIFY(!model.headerData(1, Qt::Vertical, Qt::DisplayRole).isValid());
    QVERIFY(!model.headerData(1, Qt::Horizontal, Qt::ToolTipRole).isValid());
}

void TestDataModel::orangeShowsSwatchNameFf8000()
{
    CDataColourTable table;
    table.add(std::make_unique<CColourTableEntry>(QStringLiteral("Orange"), 1.0, 0.5, 0.0));
    CDataModel model(m_settings, &table);
    QCOMPARE(model.data(model.index(0, CDataModel::ColSwatch)).toString(),
             QStringLiteral("#ff8000"));
}

void TestDataModel::nameAndLabShowFourDecimals()
{
    CDataColourTable table;
    table.add(std::make_unique<CColourTableEntry>(QStringLiteral("White"), 1.0, 1.0, 1.0));
    table.add(std::make_unique<CColourTableEntry>(QStringLiteral("Red"), 1.0, 0.0, 0.0));
    CDataModel model(m_settings, &table);
    QCOMPARE(model.data(model.index(0, CDataModel::ColName)).toString(), QStringLiteral("White"));
    QCOMPARE(model.data(model.index(0, CDataModel::ColL)).toString(), QStringLiteral("100.0000"));
    // sRGB red under D65 with this program's matrix.
    QCOMPARE(model.data(model.index(1, CDataModel::ColL)).toString(), QStringLiteral("53.2329"));
    QCOMPARE(model.data(model.index(1, CDataModel::ColA)).toString(), QStringLiteral("80.1093"));
    QCOMPARE(model.data(model.index(1, CDataModel::ColB)).toString(), QStringLiteral("67.2201"));
    QCOMPARE(model.data(model.index(1, CDataModel::ColB)).toString().section('.', 1).size(), 4);
}

void TestDataModel::rgbFollowsTheDisplayFormat_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("integer") << 0 << QStringList{"255", "127", "0"};
    QTest::newRow("decimal, four places") << 1 << QStringList{"1.0000", "0.5000", "0.1235"};
    QTest::newRow("hex") << 2 << QStringList{"0xff", "0x7f", "0x00"};
}

void TestDataModel::rgbFollowsTheDisplayFormat()
{
    QFETCH(int, format);
    QFETCH(QStringList, texts);
    m_settings->rgbFormat = format;
    CDataColourTable table;
    const double blue = format == 1 ? 0.123456 : 0.0;
    table.add(std::make_unique<CColourTableEntry>(QStringLiteral("X"), 1.0, 0.5, blue));
    CDataModel model(m_settings, &table);
    QCOMPARE(model.data(model.index(0, CDataModel::ColRed)).toString(), texts.at(0));
    QCOMPARE(model.data(model.index(0, CDataModel::ColGreen)).toString(), texts.at(1));
    QCOMPARE(model.data(model.index(0, CDataModel::ColBlue)).toString(), texts.at(2));
}

void TestDataModel::lastColumnShowsNothing()
{
    CDataColourTable table;
    addColours(table, 1);
    CDataModel model(m_settings, &table);
    QVERIFY(!model.data(model.index(0, CDataModel::ColFiller)).isValid());
}

void TestDataModel::onlyDisplayRoleHasData()
{
    CDataColourTable table;
    addColours(table, 1);
    CDataModel model(m_settings, &table);
    const QModelIndex name = model.index(0, CDataModel::ColName);
    QVERIFY(model.data(name, Qt::DisplayRole).isValid());
    QVERIFY(!model.data(name, Qt::EditRole).isValid());
    QVERIFY(!model.data(name, Qt::DecorationRole).isValid());
    QVERIFY(!model.data(name, Qt::ToolTipRole).isValid());
}

void TestDataModel::rowsOutsideTheDataSetHaveNoData()
{
    CDataColourTable table;
    addColours(table, 2);
    CDataModel model(m_settings, &table);
    QVERIFY(!model.data(model.index(2, CDataModel::ColName)).isValid());
    QVERIFY(!model.data(QModelIndex()).isValid());
    QVERIFY(!model.data(model.index(-1, 1)).isValid());
    // A valid index kept from before its row went away.
    const QModelIndex last = model.index(1, CDataModel::ColName);
    model.deleteRecord(model.index(0, 0));
    QVERIFY(!model.data(last).isValid());
}

void TestDataModel::setDataAlwaysReturnsFalseAndEmitsNothing()
{
    CDataColourTable table;
    addColours(table, 2);
    CDataModel model(m_settings, &table);
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    QVERIFY(!model.setData(model.index(1, CDataModel::ColEdit), 2, Qt::EditRole));
    QVERIFY(!model.setData(model.index(1, CDataModel::ColDelete), 1, Qt::EditRole));
    QVERIFY(!model.setData(model.index(1, CDataModel::ColName), "New", Qt::EditRole));
    QCOMPARE(changed.count(), 0);
}

void TestDataModel::setDataStoresButtonStates()
{
    CDataColourTable table;
    addColours(table, 3);
    CDataModel model(m_settings, &table);
    model.setData(model.index(1, CDataModel::ColEdit), 2, Qt::EditRole);
    model.setData(model.index(2, CDataModel::ColDelete), 1, Qt::EditRole);
    QCOMPARE(model.data(model.index(1, CDataModel::ColEdit)).toInt(), 2);
    QCOMPARE(model.data(model.index(2, CDataModel::ColDelete)).toInt(), 1);
    QCOMPARE(model.data(model.index(0, CDataModel::ColEdit)).toInt(), 0);
    QCOMPARE(table.markerA(1), 2);
    QCOMPARE(table.markerB(2), 1);
}

void TestDataModel::setDataIgnoresOtherColumnsAndRoles()
{
    CDataColourTable table;
    addColours(table, 2);
    CDataModel model(m_settings, &table);
    model.setData(model.index(0, CDataModel::ColEdit), 2, Qt::DisplayRole);
    model.setData(model.index(0, CDataModel::ColName), QStringLiteral("Other"), Qt::EditRole);
    model.setData(model.index(5, CDataModel::ColEdit), 2, Qt::EditRole);
    QCOMPARE(table.markerA(0), 0);
    QCOMPARE(table.at(0)->name, QStringLiteral("C0"));
    QCOMPARE(table.markerAList(), (QList<int>{0, 0}));
}

void TestDataModel::loadedFiveColoursReadZeroMarkersAndIgnoreWrites()
{
    CDataColourTable table;
    QCOMPARE(table.load(writeFiveColours()).status, int(CColourTable::Loaded));
    CDataModel model(m_settings, &table);
    QCOMPARE(model.rowCount(), 5);
    QVERIFY(table.markerAList().isEmpty());
    QVERIFY(table.markerBList().isEmpty());
    for (int row = 0; row < 5; ++row) {
        QCOMPARE(model.data(model.index(row, CDataModel::ColEdit)).toInt(), 0);
        model.setData(model.index(row, CDataModel::ColEdit), 2, Qt::EditRole);
        QCOMPARE(model.data(model.index(row, CDataModel::ColEdit)).toInt(), 0);
    }
    QVERIFY(table.markerAList().isEmpty());
}

void TestDataModel::addAfterLoadShowsItsMarkerOnRowZero()
{
    CDataColourTable table;
    QCOMPARE(table.load(writeFiveColours()).status, int(CColourTable::Loaded));
    CDataModel model(m_settings, &table);
    model.appendEntry(std::make_unique<CColourTableEntry>(QStringLiteral("Six"), 0.6, 0.7, 0.8));
    QCOMPARE(model.rowCount(), 6);
    QCOMPARE(table.markerAList().size(), 1);
    QCOMPARE(table.markerBList().size(), 1);
    model.setData(model.index(0, CDataModel::ColEdit), 1, Qt::EditRole);
    QCOMPARE(model.data(model.index(0, CDataModel::ColEdit)).toInt(), 1);
    // The added entry's own row reads beyond the marker lists.
    model.setData(model.index(5, CDataModel::ColEdit), 2, Qt::EditRole);
    QCOMPARE(model.data(model.index(5, CDataModel::ColEdit)).toInt(), 0);
}

void TestDataModel::sortResetsAMarkerSetBefore()
{
    CDataColourTable table;
    addColours(table, 4);
    CDataModel model(m_settings, &table);
    model.setData(model.index(2, CDataModel::ColDelete), 1, Qt::EditRole);
    QCOMPARE(model.data(model.index(2, CDataModel::ColDelete)).toInt(), 1);
    table.sort();
    for (int row = 0; row < 4; ++row)
        QCOMPARE(model.data(model.index(row, CDataModel::ColDelete)).toInt(), 0);
}

void TestDataModel::removingBeyondTheEndChangesNothing()
{
    CDataColourTable table;
    addColours(table, 5);
    CDataModel model(m_settings, &table);
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    model.deleteRecord(model.index(5, CDataModel::ColDelete));
    model.deleteRecord(QModelIndex());
    QCOMPARE(model.rowCount(), 5);
    QCOMPARE(table.markerAList().size(), 5);
    QCOMPARE(removed.count(), 0);
    QVERIFY(!model.isModified());
}

void TestDataModel::deleteRecordRemovesTheRowAndMarksModified()
{
    CDataColourTable table;
    addColours(table, 3);
    CDataModel model(m_settings, &table);
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    model.deleteRecord(model.index(1, CDataModel::ColDelete));
    QCOMPARE(removed.count(), 1);
    QCOMPARE(model.rowCount(), 2);
    QCOMPARE(model.data(model.index(1, CDataModel::ColName)).toString(), QStringLiteral("C2"));
    QCOMPARE(table.markerAList().size(), 2);
    QVERIFY(model.isModified());
}

void TestDataModel::appendEntryAddsARow()
{
    CDataColourTable table;
    CDataModel model(m_settings, &table);
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    model.appendEntry(std::make_unique<CColourTableEntry>(QStringLiteral("New"), 0.2, 0.4, 0.6));
    QCOMPARE(inserted.count(), 1);
    QCOMPARE(model.rowCount(), 1);
    QCOMPARE(model.data(model.index(0, CDataModel::ColName)).toString(), QStringLiteral("New"));
}

void TestDataModel::setModifiedEmitsLayoutThenDataChangedForTheWholeTable()
{
    CDataColourTable table;
    addColours(table, 3);
    CDataModel model(m_settings, &table);
    QStringList order;
    QModelIndex topLeft;
    QModelIndex bottomRight;
    connect(&model, &QAbstractItemModel::layoutChanged, this, [&]() { order << "layout"; });
    connect(&model, &QAbstractItemModel::dataChanged, this,
            [&](const QModelIndex &a, const QModelIndex &b) {
                order << "data";
                topLeft = a;
                bottomRight = b;
            });
    model.setModified(true);
    QVERIFY(model.isModified());
    QCOMPARE(order, (QStringList{"layout", "data"}));
    QCOMPARE(topLeft, model.index(0, 0));
    QCOMPARE(bottomRight, model.index(2, 10));
    model.setModified(false);
    QVERIFY(!model.isModified());
}

void TestDataModel::setTableResetsTheModel()
{
    CDataColourTable first;
    addColours(first, 2);
    CDataColourTable second;
    addColours(second, 4);
    CDataModel model(m_settings, &first);
    QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
    model.setTable(&second);
    QCOMPARE(reset.count(), 1);
    QCOMPARE(model.rowCount(), 4);
    QCOMPARE(model.table(), &second);
}

QTEST_MAIN(TestDataModel)
#include "tst_datamodel.moc"
