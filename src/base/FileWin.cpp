#include <windows.h>

#include <algorithm>

#include "base/File.h"
#include "win/WideCast.h"

namespace file {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE;

// Owns a file handle for one function.
class FileHandle {
  public:
    explicit FileHandle(HANDLE handle) : handle_(handle) {}
    ~FileHandle() {
        if (IsOpen())
            CloseHandle(handle_);
    }
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;
    bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return handle_; }

  private:
    HANDLE handle_;
};

uint64_t Join(DWORD high, DWORD low) {
    return (static_cast<uint64_t>(high) << 32) | low;
}

}  // namespace

bool Exists(const char16_t* path) {
    return path != nullptr && GetFileAttributesW(W(path)) != INVALID_FILE_ATTRIBUTES;
}

bool ReadAll(const char16_t* path, std::vector<uint8_t>& out) {
    out.clear();
    if (path == nullptr)
        return false;
    FileHandle file(CreateFileW(W(path), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.IsOpen())
        return false;
    LARGE_INTEGER size;
    if (!GetFileSizeEx(file.get(), &size) || size.QuadPart < 0)
        return false;
    out.resize(static_cast<size_t>(size.QuadPart));
    size_t done = 0;
    while (done < out.size()) {
        DWORD chunk = static_cast<DWORD>(std::min<size_t>(out.size() - done, 1u << 30));
        DWORD read = 0;
        if (!ReadFile(file.get(), out.data() + done, chunk, &read, nullptr) || read == 0) {
            out.clear();
            return false;
        }
        done += read;
    }
    return true;
}

bool Stamp(const char16_t* path, uint64_t& writeTime, uint64_t& size) {
    WIN32_FILE_ATTRIBUTE_DATA data;
    if (path == nullptr || !GetFileAttributesExW(W(path), GetFileExInfoStandard, &data)) {
        return false;
    }
    if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        return false;
    writeTime = Join(data.ftLastWriteTime.dwHighDateTime, data.ftLastWriteTime.dwLowDateTime);
    size = Join(data.nFileSizeHigh, data.nFileSizeLow);
    return true;
}

Appender::Appender(const char16_t* path) : handle_(nullptr) {
    if (path == nullptr)
        return;
    HANDLE file = CreateFileW(W(path), GENERIC_WRITE, kShareAll, nullptr, OPEN_ALWAYS,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return;
    LARGE_INTEGER zero{};
    SetFilePointerEx(file, zero, nullptr, FILE_END);
    handle_ = file;
}

Appender::~Appender() {
    if (handle_ != nullptr)
        CloseHandle(handle_);
}

bool Appender::Write(const void* bytes, size_t n) {
    if (handle_ == nullptr)
        return false;
    const auto* p = static_cast<const uint8_t*>(bytes);
    while (n > 0) {
        DWORD chunk = static_cast<DWORD>(std::min<size_t>(n, 1u << 30));
        DWORD written = 0;
        if (!WriteFile(handle_, p, chunk, &written, nullptr) || written == 0)
            return false;
        p += written;
        n -= written;
    }
    return true;
}

}  // namespace file
