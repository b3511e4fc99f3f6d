#pragma once
// The module seam: the program's own module, module file names and string resources.

#include <cstdint>

using ModuleHandle = void*;

/// The program's own module (the executable).
ModuleHandle ProgramModule();
/// Full file name of a module into buf (cap characters); 0 when it cannot be read.
int ModuleFileName(ModuleHandle module, char16_t* buf, int cap);
/// Loads string resource id into buf (cap characters, terminated); returns the characters loaded
/// (cut to cap - 1), 0 when the module has no such string.
int LoadResourceText(ModuleHandle module, uint32_t id, char16_t* buf, int cap);
