#pragma once

#include "tables/colourtable.h"

// A table of the Colour Match Library: a ".clrtable" file in the library
// folder. It keeps the base list operations.
class CLibColourTable : public CColourTable
{
public:
    CLibColourTable() = default;
    ~CLibColourTable() override;
};
