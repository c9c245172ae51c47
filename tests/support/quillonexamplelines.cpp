#include "support/quillonexamplelines.h"

#include <QtTest>

namespace QuillonExampleLines {

void addAcceptedRows()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("entry");
    QTest::newRow("escaped slash and trailing equals")
        << QByteArray("0.5/0.25/1/Lilac \\/ blue=") << "0.5000, 0.2500, 1.0000, Lilac / blue";
    QTest::newRow("trailing comment dropped")
        << QByteArray("1/0/0/Red # primary") << "1.0000, 0.0000, 0.0000, Red";
    QTest::newRow("two blanks become one")
        << QByteArray("1/0/0/Deep  Red") << "1.0000, 0.0000, 0.0000, Deep Red";
    QTest::newRow("empty name") << QByteArray("1/0/0/") << "1.0000, 0.0000, 0.0000, ";
    QTest::newRow("out of range kept as it stands")
        << QByteArray("255/0/0/Red") << "255.0000, 0.0000, 0.0000, Red";
}

void addRefusedRows()
{
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("no third slash") << QByteArray("1/0/0");
    QTest::newRow("decimal comma") << QByteArray("1,5/0/0/x");
}

} // namespace QuillonExampleLines
