#pragma once
// A fresh folder for one test's files, removed afterwards; the native file seam is rooted there.

#include <filesystem>
#include <string>

#include "base/FileMemory.h"

class TempDir {
  public:
    TempDir() {
        path_ = std::filesystem::temp_directory_path() /
                ("dd-test-" + std::to_string(reinterpret_cast<uintptr_t>(this)) + "-" +
                 std::to_string(counter_++));
        std::filesystem::create_directories(path_);
        file::SetRoot(path_.string());
    }
    ~TempDir() {
        file::SetRoot(".");
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;
    const std::filesystem::path& Path() const { return path_; }

  private:
    std::filesystem::path path_;
    static inline int counter_ = 0;
};
