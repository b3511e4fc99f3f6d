#pragma once
// ErrorLog: appends one dated line per failure to the program's log file.
// Line: "yyyy.MM.dd HH:mm:ss - " message "\t\t" source ": " function " (" line ")\r\n",
// each piece converted on its own to the ANSI code page into as many bytes as it has characters
// (a character needing more bytes is cut short, deliberately).

#include "base/Module.h"

/// Appends the line to the file at path; a file that cannot be opened loses the line silently.
void ErrorLog(const char16_t* path, const char16_t* message, const char16_t* source,
              const char16_t* function, int line);

/// The log's path: the log module's full file name + ".log" when a log module is set and its
/// name can be read; otherwise "\error.log". Start-up never sets the module.
const char16_t* ErrorLogPath();
void SetErrorLogModule(ModuleHandle module);

/// ErrorLog(ErrorLogPath(), ...).
void LogError(const char16_t* message, const char16_t* source, const char16_t* function, int line);
