#pragma once
// A fresh folder on the Windows temp drive for one test, removed afterwards. Optionally the
// process works inside it for the test, so root-relative paths ("\error.log") land on its drive.

#include <windows.h>

#include <filesystem>
#include <string>

class WinTempFolder {
  public:
    explicit WinTempFolder(bool workInside = false) {
        path_ = std::filesystem::temp_directory_path() /
                (L"dd-platform-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
                 std::to_wstring(counter_++));
        std::filesystem::create_directories(path_);
        if (workInside) {
            wchar_t previous[MAX_PATH] = {};
            GetCurrentDirectoryW(MAX_PATH, previous);
            previous_ = previous;
            SetCurrentDirectoryW(path_.c_str());
        }
    }
    ~WinTempFolder() {
        if (!previous_.empty())
            SetCurrentDirectoryW(previous_.c_str());
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    WinTempFolder(const WinTempFolder&) = delete;
    WinTempFolder& operator=(const WinTempFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }
    /// The full path of a name inside the folder, as UTF-16 text.
    std::u16string File(const wchar_t* name) const {
        std::wstring full = (path_ / name).wstring();
        return std::u16string(full.begin(), full.end());
    }

  private:
    std::filesystem::path path_;
    std::wstring previous_;
    static inline int counter_ = 0;
};
