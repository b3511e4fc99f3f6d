#pragma once
// Where the program's art and texts come from, fixed by start-up for the whole run: the skin
// folder beside the program file and the resource library chosen for the screen.

#include "base/Module.h"
#include "base/Str.h"

struct ResourcePlace {
    Str skinFolder;                  ///< "<program folder>\DialdeckSkin", or empty
    ModuleHandle library = nullptr;  ///< the resource library (a data file), or none
};

/// The process-wide record; empty until start-up fills it.
ResourcePlace& TheResourcePlace();
