#pragma once
// Native file seam: where UTF-16 paths land on the host file system.

#include <string>

namespace file {

/// Maps "\a\b.txt" to root + "/a/b.txt" and "a\b" to root + "/a/b". Default root: ".".
void SetRoot(const std::string& root);
std::string HostPath(const char16_t* path);

}  // namespace file
