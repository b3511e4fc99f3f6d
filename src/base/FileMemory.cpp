// Files on the host for native runs and the core tests: UTF-16 paths with backslashes land below
// a settable root, through std::filesystem so both builds handle any name.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>

#include "base/File.h"
#include "base/FileMemory.h"

namespace file {

namespace {

std::filesystem::path gRoot = ".";

std::filesystem::path ToHost(const char16_t* path) {
    std::u16string relative;
    for (const char16_t* p = path; p != nullptr && *p != 0; ++p) {
        char16_t c = *p == u'\\' ? u'/' : *p;
        if (c == u'/' && (relative.empty() || relative.back() == u'/'))
            continue;
        relative += c;
    }
    return gRoot / std::filesystem::path(relative);
}

}  // namespace

void SetRoot(const std::string& root) {
    gRoot = std::filesystem::path(std::u8string(root.begin(), root.end()));
}

std::string HostPath(const char16_t* path) {
    std::u8string text = ToHost(path).u8string();
    return std::string(text.begin(), text.end());
}

bool Exists(const char16_t* path) {
    std::error_code error;
    return std::filesystem::exists(ToHost(path), error);
}

bool ReadAll(const char16_t* path, std::vector<uint8_t>& out) {
    std::ifstream in(ToHost(path), std::ios::binary);
    if (!in)
        return false;
    out.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    return !in.bad();
}

bool Stamp(const char16_t* path, uint64_t& writeTime, uint64_t& size) {
    std::error_code error;
    std::filesystem::path host = ToHost(path);
    auto time = std::filesystem::last_write_time(host, error);
    if (error)
        return false;
    auto bytes = std::filesystem::file_size(host, error);
    if (error)
        return false;
    writeTime = static_cast<uint64_t>(time.time_since_epoch().count());
    size = static_cast<uint64_t>(bytes);
    return true;
}

Appender::Appender(const char16_t* path) : handle_(nullptr) {
    auto* stream = new std::ofstream(ToHost(path), std::ios::binary | std::ios::app);
    if (*stream) {
        handle_ = stream;
    } else {
        delete stream;
    }
}

Appender::~Appender() {
    delete static_cast<std::ofstream*>(handle_);
}

bool Appender::Write(const void* bytes, size_t n) {
    auto* stream = static_cast<std::ofstream*>(handle_);
    if (stream == nullptr)
        return false;
    stream->write(static_cast<const char*>(bytes), static_cast<std::streamsize>(n));
    return static_cast<bool>(*stream);
}

}  // namespace file
