#include "data/datasetexport.h"
#include "palette/asepalette.h"
#include "palette/gplpalette.h"
#include "palette/jsonpalette.h"
#include "tables/datacolourtable.h"

#include "support/fixturefile.h"
#include "support/modalsequence.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

class TestDataSetExport : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    CDataColourTable m_table;
    QString path(const QString &name) const { return m_dir.filePath(name); }
    // Chooses a file name in the dialog after picking one of its file types.
    static ModalAnswerer::Action chooseWithType(const QString &file, const QString &type);

private slots:
    void initTestCase();
    void filterOffersTheFourPaletteFormats();
    void gplSuffixWritesAGimpPalette();
    void nameWithoutSuffixTakesTheChosenFileType_data();
    void nameWithoutSuffixTakesTheChosenFileType();
    void cancelledExportWritesNothing();
    void failedExportShowsTheWriteErrorAndWritesNothing();
    void outOfRangeColoursAreReportedAfterTheExport();
};

ModalAnswerer::Action TestDataSetExport::chooseWithType(const QString &file, const QString &type)
{
    return [file, type](QWidget *dialog) {
        if (auto *fileDialog = qobject_cast<QFileDialog *>(dialog))
            fileDialog->selectNameFilter(type);
        DialogActions::chooseFile(file)(dialog);
    };
}

void TestDataSetExport::initTestCase()
{
    QStandardPaths::setTestModeEnabled(true);
    QVERIFY(m_dir.isValid());
    m_table.add(std::make_unique<CColourTableEntry>(QStringLiteral("Limegreen"), 50 / 255.0,
                                                    205 / 255.0, 50 / 255.0));
    m_table.add(
        std::make_unique<CColourTableEntry>(QStringLiteral("Navy blue"), 0.0, 0.0, 128 / 255.0));
}

void TestDataSetExport::filterOffersTheFourPaletteFormats()
{
    QCOMPARE(CDataSetExport::fileFilter(),
             QStringLiteral("GIMP Palette (*.gpl);;Adobe Swatch Exchange (*.ase);;"
                            "CSS Custom Properties (*.css);;JSON (*.json)"));
}

void TestDataSetExport::gplSuffixWritesAGimpPalette()
{
    QWidget parent;
    QString caption;
    ModalSequence answers({{QString(), DialogActions::chooseFile(path("set.gpl"), nullptr, &caption)}});
    QCOMPARE(CDataSetExport::run(&parent, m_table, m_dir.path()), path("set.gpl"));
    QCOMPARE(answers.answeredCount(), 1);
    QCOMPARE(caption, QStringLiteral("Export Data Set"));
    QCOMPARE(FixtureFile::read(path("set.gpl")),
             QByteArray("GIMP Palette\nName: set\nColumns: 0\n#\n"
                        " 50 205  50\tLimegreen\n  0   0 128\tNavy blue\n"));
}

void TestDataSetExport::nameWithoutSuffixTakesTheChosenFileType_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("suffix");
    QTest::newRow("ase") << "Adobe Swatch Exchange (*.ase)" << "ase";
    QTest::newRow("css") << "CSS Custom Properties (*.css)" << "css";
    QTest::newRow("json") << "JSON (*.json)" << "json";
}

void TestDataSetExport::nameWithoutSuffixTakesTheChosenFileType()
{
    QFETCH(QString, type);
    QFETCH(QString, suffix);
    QWidget parent;
    const QString base = path("typed-" + suffix);
    ModalSequence answers({{QString(), chooseWithType(base, type)}});
    QCOMPARE(CDataSetExport::run(&parent, m_table, m_dir.path()), base + "." + suffix);
    const QByteArray bytes = FixtureFile::read(base + "." + suffix);
    const CPaletteReadResult r =
        CPaletteFile::parse(bytes, CPaletteFile::formatForName(suffix));
    QVERIFY(r.isOk());
    QCOMPARE(r.palette().colours.size(), 2);
    QCOMPARE(CPalette::hex(r.palette().colours.at(1).rgb), QStringLiteral("#000080"));
}

void TestDataSetExport::cancelledExportWritesNothing()
{
    QWidget parent;
    ModalSequence answers({{QStringLiteral("Cancel"), ModalAnswerer::Action()}});
    QCOMPARE(CDataSetExport::run(&parent, m_table, path("cancel")), QString());
    QCOMPARE(answers.answeredCount(), 1);
    QVERIFY(!QFileInfo::exists(path("cancel")));
}

void TestDataSetExport::failedExportShowsTheWriteErrorAndWritesNothing()
{
    // A file stands where the folder of the export would have to be.
    QVERIFY(FixtureFile::write(path("plain"), "not a folder"));
    const QString target = path("plain/set.json");
    QWidget parent;
    ModalSequence answers({{QString(), DialogActions::chooseFile(target)},
                           {QStringLiteral("OK"), ModalAnswerer::Action()}});
    QCOMPARE(CDataSetExport::run(&parent, m_table, m_dir.path()), QString());
    QCOMPARE(answers.answeredCount(), 2);
    QCOMPARE(answers.title(1), QStringLiteral("Vellora"));
    QCOMPARE(answers.text(1), QStringLiteral("Error, writing to file: %1.").arg(target));
    QCOMPARE(FixtureFile::read(path("plain")), QByteArray("not a folder"));
}

void TestDataSetExport::outOfRangeColoursAreReportedAfterTheExport()
{
    CDataColourTable odd;
    odd.add(std::make_unique<CColourTableEntry>(QStringLiteral("Odd"), 1.2, -0.1, 0.5));
    QWidget parent;
    ModalAnswerer answer(QStringLiteral("OK"));
    QVERIFY(CDataSetExport::write(&parent, odd, path("odd.ase"), CPaletteFile::Ase));
    QVERIFY(answer.wasAnswered());
    QCOMPARE(answer.text(), QStringLiteral("The data set was exported to:\n%1\n\n"
                                           "\"Odd\": components outside 0 to 1 are written as 0 or 1.")
                                .arg(path("odd.ase")));
    const CPaletteReadResult r = CAsePalette::read(FixtureFile::read(path("odd.ase")));
    QVERIFY(r.isOk());
    QCOMPARE(CPalette::hex(r.palette().colours.at(0).rgb), QStringLiteral("#ff0080"));
}

QTEST_MAIN(TestDataSetExport)
#include "tst_datasetexport.moc"
