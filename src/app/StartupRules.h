#pragma once
// The start-up's decisions that are plain text rules: where the skin folder is, which resource
// library suits the screen, and which command line means a preloaded start.

#include "base/Str.h"

/// The skin folder's name beside the program file.
constexpr char16_t kSkinFolderName[] = u"\\DialdeckSkin";
/// The resource libraries, at normal and at high resolution.
constexpr char16_t kResourceLibrary[] = u"DialdeckRes.dll";
constexpr char16_t kResourceLibraryHiRes[] = u"DialdeckResVga.dll";
/// The command line of a preloaded (hidden, resident) start.
constexpr char16_t kPreloadCommandLine[] = u"pre";

/// The skin folder for the program file at modulePath: the path cut at its last backslash (the
/// whole path dropped when it has none) followed by "\DialdeckSkin"; empty when modulePath is
/// null or empty (the program's path could not be read).
Str SkinFolderFor(const char16_t* modulePath);
/// "DialdeckResVga.dll" for a high-resolution screen, else "DialdeckRes.dll".
const char16_t* ResourceLibraryName(bool hiRes);
/// The arguments of a full command line, as the device hands them to the program: what follows
/// the program's name (quoted or not) and the one blank or tab that separates it. Further blanks
/// belong to the arguments. Never null.
const char16_t* CommandLineArguments(const char16_t* fullCommandLine);
/// True exactly when the command line is "pre": whole text, case-sensitive, no trimming.
bool IsPreloadCommandLine(const char16_t* commandLine);
