#include "win/MappedFile.h"

MappedFile::MappedFile(const wchar_t* path) {
    file_ = CreateFileW(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                        FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file_ == INVALID_HANDLE_VALUE)
        return;
    mapping_ = CreateFileMappingW(file_, nullptr, PAGE_READONLY, 0, 0, nullptr);
    if (mapping_ == nullptr)
        return;
    view_ = MapViewOfFile(mapping_, FILE_MAP_READ, 0, 0, 0);
    if (view_ != nullptr)
        size_ = GetFileSize(file_, nullptr);
}

MappedFile::~MappedFile() {
    if (view_ != nullptr)
        UnmapViewOfFile(view_);
    if (mapping_ != nullptr)
        CloseHandle(mapping_);
    if (file_ != INVALID_HANDLE_VALUE)
        CloseHandle(file_);
}
