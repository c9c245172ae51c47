#include "tables/libcolourtable.h"

CLibColourTable::~CLibColourTable() = default;
