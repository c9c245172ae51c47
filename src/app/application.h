#pragma once

#include <QApplication>

// The application object: a QApplication with a meta-object class of its own.
class CApplication : public QApplication
{
    Q_OBJECT

public:
    CApplication(int &argc, char **argv);
    ~CApplication() override;
};
