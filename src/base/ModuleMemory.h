#pragma once
// Test hooks of the in-memory module seam: fake modules with file names and string tables.

#include <cstdint>
#include <string>
#include <vector>

#include "base/Module.h"

namespace module_memory {

/// Forgets every string and file name; the program module keeps its handle.
void Reset();
/// A module handle that is not the program's (for a fake resource library).
ModuleHandle MakeModule();
void SetFileName(ModuleHandle module, const char16_t* name);
void SetString(ModuleHandle module, uint32_t id, const char16_t* text);
/// Buffer sizes (in characters) of every LoadResourceText call since Reset.
std::vector<int> LoadBufferSizes();

}  // namespace module_memory
