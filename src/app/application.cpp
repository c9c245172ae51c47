#include "app/application.h"

CApplication::CApplication(int &argc, char **argv) : QApplication(argc, argv) {}

CApplication::~CApplication() = default;
