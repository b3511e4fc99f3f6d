#pragma once
// A fresh folder for one test's files, removed afterwards; the native file seam is rooted there.

#include <filesystem>
#include <random>
#include <string>

#include "base/FileMemory.h"

class TempDir {
  public:
    TempDir() {
        // Tests run side by side in separate processes: a folder is ours only when we made it.
        std::random_device entropy;
        do {
            path_ =
                std::filesystem::temp_directory_path() / ("dd-test-" + std::to_string(entropy()));
        } while (!std::filesystem::create_directory(path_));
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
};
