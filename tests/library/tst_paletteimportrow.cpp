#include "common/appcontext.h"
#include "app/appsettings.h"
#include "library/libcolourtabletabimport.h"

#include "support/fixturefile.h"
#include "support/modalsequence.h"
#include "support/librarytesthome.h"

#include <QDir>
#include <QPushButton>
#include <QtEndian>
#include <QtTest>

#include <memory>

using Step = ModalSequence::Step;

// The second row of the "Import" page: GIMP palettes, swatch exchange files
// and style sheets become library tables through the same steps as the
// companion's lists (file dialog, all or nothing, name prompt, overwrite
// question, changed flag).
class TestPaletteImportRow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void rowOfThreeButtonsSitsUnderTheQuillonRow();
    void gimpPaletteBecomesASortedTableUnderTheNote();
    void swatchFileWithCmykReportsTheConversionThenImports();
    void styleSheetCustomPropertiesAreImported();
    void malformedFileNamesTheLineAndWritesNothing_data();
    void malformedFileNamesTheLineAndWritesNothing();
    void paletteWithoutColoursIsNoRecords();
    void cancelledFileDialogChangesNothing();
    void cancelledNamePromptWritesNothing();
    void existingTableAsksAndNoWritesNothing();

private:
    QString writeSource(const QString &name, const QByteArray &content);
    QString lib(const QString &file) const { return m_library + QLatin1Char('/') + file; }
    static QByteArray cmykSwatchFile();

    std::unique_ptr<LibraryTestHome> m_home;
    CAppSettings *m_settings = nullptr;
    QString m_library;
    QString m_sources;
    std::unique_ptr<CLibColourTableTabImport> m_page;
};

void TestPaletteImportRow::initTestCase()
{
    m_home = std::make_unique<LibraryTestHome>();
    QVERIFY(m_home->isValid());
    m_settings = m_home->settings();
    m_sources = m_home->makeFolder(QStringLiteral("Palettes"));
    QVERIFY(!m_sources.isEmpty());
}

void TestPaletteImportRow::cleanupTestCase()
{
    m_page.reset();
    m_home.reset();
}

void TestPaletteImportRow::init()
{
    m_library = m_home->emptyLibrary();
    QVERIFY(!m_library.isEmpty());
    m_page = std::make_unique<CLibColourTableTabImport>(m_settings,
                                                        QStringLiteral("library.html#libMaintTabB"));
    m_page->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_page.get()));
}

void TestPaletteImportRow::cleanup()
{
    m_page.reset();
}

QString TestPaletteImportRow::writeSource(const QString &name, const QByteArray &content)
{
    const QString file = m_sources + QLatin1Char('/') + name;
    return FixtureFile::write(file, content) ? file : QString();
}

// One CMYK swatch "Press" (C 0, M 0.5, Y 1, K 0.5) and one RGB swatch
// "Alpha", written byte by byte.
QByteArray TestPaletteImportRow::cmykSwatchFile()
{
    const auto u16 = [](QByteArray &b, quint16 v) { b.append(char(v >> 8)).append(char(v)); };
    const auto u32 = [&u16](QByteArray &b, quint32 v) { u16(b, quint16(v >> 16)); u16(b, quint16(v)); };
    const auto block = [&](QByteArray &out, const QString &name, const char *model,
                           const QVector<quint32> &floats) {
        QByteArray body;
        u16(body, quint16(name.size() + 1));
        for (const QChar c : name)
            u16(body, c.unicode());
        u16(body, 0);
        body.append(model, 4);
        for (quint32 f : floats)
            u32(body, f);
        u16(body, 2);
        u16(out, 1);
        u32(out, quint32(body.size()));
        out += body;
    };
    QByteArray out("ASEF");
    u16(out, 1);
    u16(out, 0);
    u32(out, 2);
    block(out, QStringLiteral("Press"), "CMYK", {0x00000000, 0x3F000000, 0x3F800000, 0x3F000000});
    block(out, QStringLiteral("Alpha"), "RGB ", {0x3F800000, 0x00000000, 0x00000000});
    return out;
}

void TestPaletteImportRow::rowOfThreeButtonsSitsUnderTheQuillonRow()
{
    QCOMPARE(m_page->gimpButton()->text(), QStringLiteral("&GIMP Palette"));
    QCOMPARE(m_page->aseButton()->text(), QStringLiteral("&Adobe Swatches"));
    QCOMPARE(m_page->cssButton()->text(), QStringLiteral("&CSS Colours"));
    QCOMPARE(m_page->quillonButton()->text(), QStringLiteral("&Quillon Table"));
    const int row = m_page->gimpButton()->y();
    QVERIFY(row > m_page->quillonButton()->y());
    QCOMPARE(m_page->aseButton()->y(), row);
    QCOMPARE(m_page->cssButton()->y(), row);
    QVERIFY(m_page->gimpButton()->x() < m_page->aseButton()->x());
    QVERIFY(m_page->aseButton()->x() < m_page->cssButton()->x());
    QCOMPARE(m_page->gimpButton()->x(), m_page->quillonButton()->x());
}

void TestPaletteImportRow::gimpPaletteBecomesASortedTableUnderTheNote()
{
    const QString file = writeSource("sky.gpl", "GIMP Palette\nName: Sky\n#\n"
                                                "255 255 255 white\n 30 144 255\tDodger Blue\n");
    QString caption;
    ModalSequence answers({Step{QString(), DialogActions::chooseFile(file, nullptr, &caption)},
                           Step{"OK", DialogActions::typeText("Sky")}});
    QTest::mouseClick(m_page->gimpButton(), Qt::LeftButton);
    QCOMPARE(answers.answeredCount(), 2);
    QCOMPARE(caption, QStringLiteral("Select the file to import"));
    QCOMPARE(answers.title(1), QStringLiteral("Vellora - Import Colour Table"));
    QStringList lines = QString::fromUtf8(FixtureFile::read(lib("Sky.clrtable"))).split('\n');
    QVERIFY(lines.size() > 2);
    QVERIFY(QRegularExpression(QStringLiteral("^#\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d$"))
                .match(lines.takeAt(1))
                .hasMatch());
    QCOMPARE(lines, QStringList({"#Imported from sky.gpl", "", "", "0.1176, 0.5647, 1.0000, Dodger Blue",
                                 "1.0000, 1.0000, 1.0000, white", ""}));
    QVERIFY(m_page->isChanged());
}

void TestPaletteImportRow::swatchFileWithCmykReportsTheConversionThenImports()
{
    const QString file = writeSource("press.ase", cmykSwatchFile());
    ModalSequence answers({Step{QString(), DialogActions::chooseFile(file)},
                           Step{"OK", ModalAnswerer::Action()},
                           Step{"OK", DialogActions::typeText("Press")}});
    QTest::mouseClick(m_page->aseButton(), Qt::LeftButton);
    QCOMPARE(answers.answeredCount(), 3);
    QCOMPARE(answers.title(1), QStringLiteral("Vellora"));
    QVERIFY(answers.text(1).startsWith(
        QStringLiteral("While reading:\n%1\nsome colours were converted:\n\n\"Press\" is a CMYK colour")
            .arg(QDir::toNativeSeparators(file))));
    const QByteArray table = FixtureFile::read(lib("Press.clrtable"));
    QVERIFY(table.endsWith("1.0000, 0.0000, 0.0000, Alpha\n0.5000, 0.2500, 0.0000, Press\n"));
    QVERIFY(m_page->isChanged());
}

void TestPaletteImportRow::styleSheetCustomPropertiesAreImported()
{
    const QString file = writeSource("brand.css", ":root {\n  --brand-blue: #1e90ff;\n"
                                                  "  --accent: rgb(255, 128, 0);\n}\n");
    ModalSequence answers({Step{QString(), DialogActions::chooseFile(file)},
                           Step{"OK", DialogActions::typeText("Brand")}});
    QTest::mouseClick(m_page->cssButton(), Qt::LeftButton);
    QCOMPARE(answers.answeredCount(), 2);
    QVERIFY(FixtureFile::read(lib("Brand.clrtable"))
                .endsWith("1.0000, 0.5020, 0.0000, accent\n0.1176, 0.5647, 1.0000, brand-blue\n"));
}

void TestPaletteImportRow::malformedFileNamesTheLineAndWritesNothing_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("start");
    QTest::newRow("gpl bad channel") << 0 << "bad.gpl"
                                     << QByteArray("GIMP Palette\n0 0 0 a\n\n0 300 0 b\n")
                                     << "Error in line 4\nwhile processing:\n";
    QTest::newRow("not a gimp palette") << 0 << "prose.gpl" << QByteArray("hello\n")
                                        << "The file:\n";
    QTest::newRow("truncated swatches") << 1 << "short.ase"
                                        << QByteArray("ASEF\0\1\0\0\0\0\0\2", 12)
                                        << "Error in block 1\nwhile processing:\n";
    QTest::newRow("css bad colour") << 2 << "bad.css" << QByteArray("a {\n color: #12345;\n}\n")
                                    << "Error in line 2\nwhile processing:\n";
}

void TestPaletteImportRow::malformedFileNamesTheLineAndWritesNothing()
{
    QFETCH(int, button);
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QFETCH(QString, start);
    const QString file = writeSource(name, content);
    ModalSequence answers({Step{QString(), DialogActions::chooseFile(file)},
                           Step{"OK", ModalAnswerer::Action()}});
    QPushButton *buttons[] = {m_page->gimpButton(), m_page->aseButton(), m_page->cssButton()};
    QTest::mouseClick(buttons[button], Qt::LeftButton);
    QCOMPARE(answers.answeredCount(), 2);
    QCOMPARE(answers.title(1), QStringLiteral("Vellora"));
    QVERIFY2(answers.text(1).startsWith(start), qPrintable(answers.text(1)));
    QVERIFY(answers.text(1).contains(file));
    QVERIFY(QDir(m_library).isEmpty());
    QVERIFY(!m_page->isChanged());
}

void TestPaletteImportRow::paletteWithoutColoursIsNoRecords()
{
    const QString file = writeSource("empty.gpl", "GIMP Palette\nName: none\n# only a comment\n");
    ModalSequence answers({Step{QString(), DialogActions::chooseFile(file)},
                           Step{"OK", ModalAnswerer::Action()}});
    QTest::mouseClick(m_page->gimpButton(), Qt::LeftButton);
    QCOMPARE(answers.answeredCount(), 2);
    QCOMPARE(answers.text(1),
             QStringLiteral("Error while processing:\n%1\nNo records found").arg(file));
    QVERIFY(QDir(m_library).isEmpty());
}

void TestPaletteImportRow::cancelledFileDialogChangesNothing()
{
    ModalSequence answers({Step{"Cancel", ModalAnswerer::Action()}});
    QTest::mouseClick(m_page->cssButton(), Qt::LeftButton);
    QCOMPARE(answers.answeredCount(), 1);
    QVERIFY(QDir(m_library).isEmpty());
    QVERIFY(!m_page->isChanged());
}

void TestPaletteImportRow::cancelledNamePromptWritesNothing()
{
    const QString file = writeSource("c.gpl", "GIMP Palette\n1 2 3 x\n");
    ModalSequence answers({Step{QString(), DialogActions::chooseFile(file)},
                           Step{"Cancel", ModalAnswerer::Action()}});
    QTest::mouseClick(m_page->gimpButton(), Qt::LeftButton);
    QCOMPARE(answers.answeredCount(), 2);
    QVERIFY(QDir(m_library).isEmpty());
    QVERIFY(!m_page->isChanged());
}

void TestPaletteImportRow::existingTableAsksAndNoWritesNothing()
{
    QVERIFY(FixtureFile::write(lib("Sky.clrtable"), "0.5, 0.5, 0.5, old\n"));
    const QString file = writeSource("again.gpl", "GIMP Palette\n1 2 3 x\n");
    ModalSequence answers({Step{QString(), DialogActions::chooseFile(file)},
                           Step{"OK", DialogActions::typeText("Sky")},
                           Step{"No", ModalAnswerer::Action()}});
    QTest::mouseClick(m_page->gimpButton(), Qt::LeftButton);
    QCOMPARE(answers.answeredCount(), 3);
    QCOMPARE(answers.text(2), QStringLiteral("The file:\n%1\nalready exists.\nWould you like to "
                                             "overwrite it?")
                                  .arg(lib("Sky.clrtable")));
    QCOMPARE(FixtureFile::read(lib("Sky.clrtable")), QByteArray("0.5, 0.5, 0.5, old\n"));
    QVERIFY(!m_page->isChanged());
}

QTEST_MAIN(TestPaletteImportRow)
#include "tst_paletteimportrow.moc"
