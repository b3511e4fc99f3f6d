// Native files: UTF-16 paths with backslashes land below a settable root on the host.
#include <sys/stat.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include "base/File.h"
#include "base/FileMemory.h"

namespace file {

namespace {

std::string gRoot = ".";

void AppendUtf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (c >> 18));
        out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

}  // namespace

void SetRoot(const std::string& root) {
    gRoot = root;
}

std::string HostPath(const char16_t* path) {
    std::string out = gRoot + "/";
    for (const char16_t* p = path; p != nullptr && *p != 0; ++p) {
        char32_t c = *p;
        if (c >= 0xD800 && c <= 0xDBFF && p[1] >= 0xDC00 && p[1] <= 0xDFFF) {
            c = 0x10000 + ((c - 0xD800) << 10) + (p[1] - 0xDC00);
            ++p;
        }
        if (c == u'\\')
            c = u'/';
        if (c == u'/' && out.back() == '/')
            continue;
        AppendUtf8(out, c);
    }
    return out;
}

bool Exists(const char16_t* path) {
    struct stat info {};
    return stat(HostPath(path).c_str(), &info) == 0;
}

bool ReadAll(const char16_t* path, std::vector<uint8_t>& out) {
    std::ifstream in(HostPath(path), std::ios::binary);
    if (!in)
        return false;
    out.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    return !in.bad();
}

bool Stamp(const char16_t* path, uint64_t& writeTime, uint64_t& size) {
    struct stat info {};
    if (stat(HostPath(path).c_str(), &info) != 0)
        return false;
    writeTime = static_cast<uint64_t>(info.st_mtim.tv_sec) * 1000000000ull +
                static_cast<uint64_t>(info.st_mtim.tv_nsec);
    size = static_cast<uint64_t>(info.st_size);
    return true;
}

Appender::Appender(const char16_t* path) : handle_(std::fopen(HostPath(path).c_str(), "ab")) {}

Appender::~Appender() {
    if (handle_ != nullptr)
        std::fclose(static_cast<FILE*>(handle_));
}

bool Appender::Write(const void* bytes, size_t n) {
    return handle_ != nullptr && std::fwrite(bytes, 1, n, static_cast<FILE*>(handle_)) == n;
}

}  // namespace file
