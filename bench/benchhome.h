#pragma once

#include <QString>
#include <QTemporaryDir>

// What every benchmark of the widgets sets up before its QApplication: the
// offscreen platform (no display needed), a temporary home with its own
// settings, data and documents folders (no trace in the user's own), Qt's
// test mode for standard paths, and a message handler that drops the
// offscreen platform's notes on what it cannot do, which are not results.
class BenchHome
{
public:
    BenchHome();
    ~BenchHome();

    BenchHome(const BenchHome &) = delete;
    BenchHome &operator=(const BenchHome &) = delete;

    QString path() const { return m_home.path(); }
    // The documents folder inside the home.
    QString documents() const;

private:
    QTemporaryDir m_home;
};
