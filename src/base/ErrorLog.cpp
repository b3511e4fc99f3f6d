#include "base/ErrorLog.h"

#include <vector>

#include "base/Chars.h"
#include "base/File.h"
#include "base/Locale.h"
#include "base/Str.h"

namespace {

ModuleHandle gLogModule = nullptr;
char16_t gLogPath[280 + 5];

// Each piece goes to the ANSI code page on its own, into as many bytes as it has characters.
void WritePiece(file::Appender& out, const char16_t* piece) {
    int n = static_cast<int>(chars::Length(piece));
    if (n == 0)
        return;
    std::vector<char> bytes(static_cast<size_t>(n), 0);
    locale_text::ToAnsi(piece, n, bytes.data(), n);
    out.Write(bytes.data(), bytes.size());
}

}  // namespace

void ErrorLog(const char16_t* path, const char16_t* message, const char16_t* source,
              const char16_t* function, int line) {
    char16_t stamp[260];
    locale_text::FormatLogStamp(stamp, 260);
    file::Appender out(path);
    if (!out.IsOpen())
        return;
    char16_t number[16];
    Str digits;
    digits.Format(u"%d", line);
    chars::CopyN(number, 16, digits);
    const char16_t* pieces[] = {stamp,    message, u"\t\t", source, u": ",
                                function, u" (",   number,  u")",   u"\r\n"};
    for (const char16_t* piece : pieces)
        WritePiece(out, piece);
}

const char16_t* ErrorLogPath() {
    if (gLogModule != nullptr && ModuleFileName(gLogModule, gLogPath, 280) > 0) {
        size_t n = chars::Length(gLogPath);
        chars::CopyN(gLogPath + n, sizeof(gLogPath) / sizeof(gLogPath[0]) - n, u".log");
        return gLogPath;
    }
    return u"\\error.log";
}

void SetErrorLogModule(ModuleHandle module) {
    gLogModule = module;
}

void LogError(const char16_t* message, const char16_t* source, const char16_t* function, int line) {
    ErrorLog(ErrorLogPath(), message, source, function, line);
}
