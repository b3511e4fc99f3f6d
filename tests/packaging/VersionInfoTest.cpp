// Every shipped binary carries the project's version in its version resource: the numbers in the
// fixed part and the texts a person sees in the file's properties.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

struct Shipped {
    const wchar_t* file;
    DWORD fileType;
};

constexpr Shipped kShipped[] = {
    {L"Dialdeck.exe", VFT_APP},
    {L"DialdeckRes.dll", VFT_DLL},
    {L"DialdeckResVga.dll", VFT_DLL},
    {L"OrvalisPimServ.dll", VFT_DLL},
};

std::wstring Widen(const char* text) {
    std::wstring out;
    for (const char* c = text; *c != '\0'; ++c)
        out += static_cast<wchar_t>(*c);
    return out;
}

/// The whole version resource of the file; empty when it has none.
std::vector<BYTE> VersionBlock(const std::wstring& path) {
    DWORD ignored = 0;
    const DWORD size = GetFileVersionInfoSizeW(path.c_str(), &ignored);
    std::vector<BYTE> block(size);
    if (size == 0 || !GetFileVersionInfoW(path.c_str(), 0, size, block.data()))
        block.clear();
    return block;
}

/// A text of the US English, Unicode string table; empty when missing.
std::wstring Text(std::vector<BYTE>& block, const wchar_t* name) {
    void* value = nullptr;
    UINT length = 0;
    const std::wstring query = std::wstring(L"\\StringFileInfo\\040904B0\\") + name;
    if (!VerQueryValueW(block.data(), query.c_str(), &value, &length) || length == 0)
        return {};
    return std::wstring(static_cast<const wchar_t*>(value));
}

class VersionInfo : public ::testing::TestWithParam<Shipped> {};

TEST_P(VersionInfo, HoldsTheProjectVersion) {
    const Shipped& shipped = GetParam();
    std::vector<BYTE> block = VersionBlock(std::wstring(DD_BIN_DIR L"/") + shipped.file);
    ASSERT_FALSE(block.empty()) << "no version resource";
    void* value = nullptr;
    UINT length = 0;
    ASSERT_TRUE(VerQueryValueW(block.data(), L"\\", &value, &length));
    ASSERT_GE(length, sizeof(VS_FIXEDFILEINFO));
    const auto* fixed = static_cast<const VS_FIXEDFILEINFO*>(value);
    EXPECT_EQ(fixed->dwSignature, 0xFEEF04BDu);
    EXPECT_EQ(fixed->dwFileVersionMS, DWORD{DD_VERSION_MAJOR} << 16 | DD_VERSION_MINOR);
    EXPECT_EQ(fixed->dwFileVersionLS, DWORD{DD_VERSION_PATCH} << 16);
    EXPECT_EQ(fixed->dwProductVersionMS, fixed->dwFileVersionMS);
    EXPECT_EQ(fixed->dwProductVersionLS, fixed->dwFileVersionLS);
    EXPECT_EQ(fixed->dwFileType, shipped.fileType);

    EXPECT_EQ(Text(block, L"FileVersion"), Widen(DD_VERSION_TEXT));
    EXPECT_EQ(Text(block, L"ProductVersion"), Widen(DD_VERSION_TEXT));
    EXPECT_EQ(Text(block, L"ProductName"), L"Dialdeck");
    EXPECT_EQ(Text(block, L"CompanyName"), Widen(DD_PUBLISHER));
    EXPECT_EQ(Text(block, L"OriginalFilename"), shipped.file);
    EXPECT_FALSE(Text(block, L"FileDescription").empty());
}

INSTANTIATE_TEST_SUITE_P(Binaries, VersionInfo, ::testing::ValuesIn(kShipped));

}  // namespace
