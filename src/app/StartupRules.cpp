#include "app/StartupRules.h"

#include "base/Chars.h"

Str SkinFolderFor(const char16_t* modulePath) {
    Str path(modulePath);
    if (path.IsEmpty())
        return path;
    int cut = -1;
    for (int i = 0; i < path.Length(); ++i) {
        if (path[i] == u'\\')
            cut = i;
    }
    Str folder = path.Left(cut < 0 ? 0 : cut);
    folder.Append(kSkinFolderName);
    return folder;
}

const char16_t* ResourceLibraryName(bool hiRes) {
    return hiRes ? kResourceLibraryHiRes : kResourceLibrary;
}

const char16_t* CommandLineArguments(const char16_t* fullCommandLine) {
    if (fullCommandLine == nullptr)
        return u"";
    const char16_t* p = fullCommandLine;
    if (*p == u'"') {
        ++p;
        while (*p != 0 && *p != u'"')
            ++p;
        if (*p == u'"')
            ++p;
    } else {
        while (*p != 0 && *p != u' ' && *p != u'\t')
            ++p;
    }
    if (*p == u' ' || *p == u'\t')
        ++p;
    return p;
}

bool IsPreloadCommandLine(const char16_t* commandLine) {
    return commandLine != nullptr && chars::Compare(commandLine, kPreloadCommandLine) == 0;
}
