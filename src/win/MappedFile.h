#pragma once
// A read-only view of a whole file, every part of it closed by the destructor.

#include <windows.h>

#include <cstddef>
#include <cstdint>

class MappedFile {
  public:
    /// Maps the file at path; Bytes() is null when it cannot be opened or mapped.
    explicit MappedFile(const wchar_t* path);
    ~MappedFile();
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;

    const uint8_t* Bytes() const { return static_cast<const uint8_t*>(view_); }
    /// The file's size; 0 when it is not mapped or too large to tell.
    size_t Size() const { return view_ == nullptr || size_ == INVALID_FILE_SIZE ? 0 : size_; }

  private:
    HANDLE file_ = INVALID_HANDLE_VALUE;
    HANDLE mapping_ = nullptr;
    void* view_ = nullptr;
    DWORD size_ = 0;
};
