#pragma once
// The file seam: the few file operations the core needs. Paths are UTF-16 with backslashes; on
// native builds they are mapped below a settable root (FileRoot.h) so tests own their files.

#include <cstddef>
#include <cstdint>
#include <vector>

namespace file {

/// True when the path names an existing file or folder.
bool Exists(const char16_t* path);
/// Reads the whole file; false when it cannot be opened or read.
bool ReadAll(const char16_t* path, std::vector<uint8_t>& out);
/// Last-write stamp and size of a file, for change detection; false when absent.
bool Stamp(const char16_t* path, uint64_t& writeTime, uint64_t& size);

/// A file opened for appending (created when absent, shared for reading and writing).
class Appender {
  public:
    explicit Appender(const char16_t* path);
    ~Appender();
    Appender(const Appender&) = delete;
    Appender& operator=(const Appender&) = delete;
    bool IsOpen() const { return handle_ != nullptr; }
    bool Write(const void* bytes, size_t n);

  private:
    void* handle_;
};

}  // namespace file
