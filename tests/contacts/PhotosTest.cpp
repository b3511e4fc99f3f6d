// Photos decoded by the imaging component under the real platform: sizes, depths and pixels.
#include "contacts/Photos.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "base/PhotoFit.h"

namespace {

using Bytes = std::vector<uint8_t>;

struct Rgb {
    uint8_t r, g, b;
};

constexpr Rgb kRed{220, 20, 20};
constexpr Rgb kGreen{20, 200, 20};
constexpr Rgb kBlue{20, 20, 220};
constexpr Rgb kWhite{255, 255, 255};

/// An image of four quadrants: red top left, green top right, blue bottom left, white bottom
/// right.
Rgb Quadrant(int x, int y, int width, int height) {
    bool right = x >= width / 2;
    bool bottom = y >= height / 2;
    return bottom ? (right ? kWhite : kBlue) : (right ? kGreen : kRed);
}

/// A 24-bit bottom-up BMP file written by hand.
Bytes MakeBmp(int width, int height) {
    int stride = (width * 3 + 3) & ~3;
    Bytes file(54 + static_cast<size_t>(stride) * height, 0);
    auto put32 = [&file](size_t at, uint32_t v) { std::memcpy(&file[at], &v, 4); };
    auto put16 = [&file](size_t at, uint16_t v) { std::memcpy(&file[at], &v, 2); };
    file[0] = 'B';
    file[1] = 'M';
    put32(2, static_cast<uint32_t>(file.size()));
    put32(10, 54);
    put32(14, 40);
    put32(18, static_cast<uint32_t>(width));
    put32(22, static_cast<uint32_t>(height));
    put16(26, 1);
    put16(28, 24);
    for (int y = 0; y < height; ++y) {
        uint8_t* row = &file[54 + static_cast<size_t>(stride) * (height - 1 - y)];
        for (int x = 0; x < width; ++x) {
            Rgb c = Quadrant(x, y, width, height);
            row[3 * x] = c.b;
            row[3 * x + 1] = c.g;
            row[3 * x + 2] = c.r;
        }
    }
    return file;
}

/// GIF's variable-length LZW code stream of palette indices, least significant bit first.
Bytes GifLzw(const std::vector<uint8_t>& indices, int minCodeSize) {
    const int clear = 1 << minCodeSize;
    const int end = clear + 1;
    Bytes out;
    uint32_t bits = 0;
    int count = 0;
    auto emit = [&](int code, int size) {
        bits |= static_cast<uint32_t>(code) << count;
        count += size;
        for (; count >= 8; count -= 8, bits >>= 8)
            out.push_back(static_cast<uint8_t>(bits));
    };
    std::map<std::vector<uint8_t>, int> table;
    int size = 0;
    int next = 0;
    auto reset = [&] {
        table.clear();
        for (int i = 0; i < clear; ++i)
            table[{static_cast<uint8_t>(i)}] = i;
        size = minCodeSize + 1;
        next = end + 1;
    };
    reset();
    emit(clear, size);
    std::vector<uint8_t> current;
    for (uint8_t index : indices) {
        std::vector<uint8_t> candidate = current;
        candidate.push_back(index);
        if (table.count(candidate) != 0) {
            current = candidate;
            continue;
        }
        emit(table[current], size);
        if (next < 4096) {
            table[candidate] = next++;
            if (next > (1 << size) && size < 12)
                ++size;
        } else {
            emit(clear, size);
            reset();
        }
        current = {index};
    }
    emit(table[current], size);
    emit(end, size);
    if (count > 0)
        out.push_back(static_cast<uint8_t>(bits));
    return out;
}

/// A GIF file of the quadrant image with a four-colour palette, written by hand.
Bytes MakeGif(int width, int height) {
    const Rgb palette[] = {kRed, kGreen, kBlue, kWhite};
    std::vector<uint8_t> indices;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            Rgb c = Quadrant(x, y, width, height);
            for (uint8_t i = 0; i < 4; ++i) {
                if (palette[i].r == c.r && palette[i].g == c.g && palette[i].b == c.b) {
                    indices.push_back(i);
                }
            }
        }
    }
    Bytes data = GifLzw(indices, 2);
    Bytes file = {'G', 'I', 'F', '8', '9', 'a'};
    auto put16 = [&file](int v) {
        file.push_back(static_cast<uint8_t>(v));
        file.push_back(static_cast<uint8_t>(v >> 8));
    };
    put16(width);
    put16(height);
    file.insert(file.end(), {0xF1, 0, 0});  // global table of 4 colours
    for (const Rgb& c : palette)
        file.insert(file.end(), {c.r, c.g, c.b});
    file.push_back(',');
    put16(0);
    put16(0);
    put16(width);
    put16(height);
    file.insert(file.end(), {0, 2});  // no local table; minimum code size 2
    for (size_t i = 0; i < data.size(); i += 255) {
        size_t n = std::min<size_t>(255, data.size() - i);
        file.push_back(static_cast<uint8_t>(n));
        file.insert(file.end(), data.begin() + static_cast<long>(i),
                    data.begin() + static_cast<long>(i + n));
    }
    file.insert(file.end(), {0, ';'});
    return file;
}

/// The quadrant image encoded by the platform's own encoder of a container format.
Bytes Encode(const GUID& container, int width, int height, bool alpha = false) {
    IWICImagingFactory* factory = GetImagingFactory().Get();
    IStream* stream = nullptr;
    IWICBitmapEncoder* encoder = nullptr;
    IWICBitmapFrameEncode* frame = nullptr;
    IPropertyBag2* options = nullptr;
    Bytes out;
    WICPixelFormatGUID format = alpha ? GUID_WICPixelFormat32bppBGRA : GUID_WICPixelFormat24bppBGR;
    int bytesPerPixel = alpha ? 4 : 3;
    UINT stride = static_cast<UINT>((width * bytesPerPixel + 3) & ~3);
    Bytes pixels(static_cast<size_t>(stride) * height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            Rgb c = Quadrant(x, y, width, height);
            uint8_t* p = &pixels[y * stride + bytesPerPixel * x];
            p[0] = c.b;
            p[1] = c.g;
            p[2] = c.r;
            if (alpha)
                p[3] = (x < width / 2 && y < height / 2) ? 0 : 255;  // clear top left
        }
    }
    if (SUCCEEDED(CreateStreamOnHGlobal(nullptr, TRUE, &stream)) &&
        SUCCEEDED(factory->CreateEncoder(container, nullptr, &encoder)) &&
        SUCCEEDED(encoder->Initialize(stream, WICBitmapEncoderNoCache)) &&
        SUCCEEDED(encoder->CreateNewFrame(&frame, &options)) &&
        SUCCEEDED(frame->Initialize(options)) &&
        SUCCEEDED(frame->SetSize(static_cast<UINT>(width), static_cast<UINT>(height))) &&
        SUCCEEDED(frame->SetPixelFormat(&format)) &&
        SUCCEEDED(frame->WritePixels(static_cast<UINT>(height), stride,
                                     static_cast<UINT>(pixels.size()), pixels.data())) &&
        SUCCEEDED(frame->Commit()) && SUCCEEDED(encoder->Commit())) {
        STATSTG stat{};
        LARGE_INTEGER start{};
        stream->Stat(&stat, STATFLAG_NONAME);
        stream->Seek(start, STREAM_SEEK_SET, nullptr);
        out.resize(static_cast<size_t>(stat.cbSize.QuadPart));
        ULONG got = 0;
        stream->Read(out.data(), static_cast<ULONG>(out.size()), &got);
        out.resize(got);
    }
    for (IUnknown* p : {static_cast<IUnknown*>(options), static_cast<IUnknown*>(frame),
                        static_cast<IUnknown*>(encoder), static_cast<IUnknown*>(stream)}) {
        if (p != nullptr)
            p->Release();
    }
    return out;
}

/// A bitmap's section, read back.
struct Section {
    int width = 0;
    int height = 0;  ///< positive for bottom-up
    int bitsPerPixel = 0;
    const uint8_t* bits = nullptr;

    /// The colour at (x, y) counted from the top, whatever the row order.
    Rgb At(int x, int y) const {
        int row = height > 0 ? height - 1 - y : y;
        size_t stride = ((static_cast<size_t>(width) * bitsPerPixel + 31) / 32) * 4;
        const uint8_t* p = bits + stride * row;
        if (bitsPerPixel == 16) {
            uint16_t v = 0;
            std::memcpy(&v, p + 2 * x, 2);
            auto expand = [](int five) { return static_cast<uint8_t>((five << 3) | (five >> 2)); };
            return {expand((v >> 10) & 31), expand((v >> 5) & 31), expand(v & 31)};
        }
        p += (bitsPerPixel / 8) * x;
        return {p[2], p[1], p[0]};
    }
};

Section Inspect(HBITMAP bitmap) {
    DIBSECTION dib{};
    Section section;
    if (bitmap != nullptr && GetObjectW(bitmap, sizeof dib, &dib) == sizeof dib) {
        section.width = dib.dsBmih.biWidth;
        section.height = dib.dsBmih.biHeight;
        section.bitsPerPixel = dib.dsBmih.biBitCount;
        section.bits = static_cast<const uint8_t*>(dib.dsBm.bmBits);
    }
    return section;
}

bool Near(Rgb a, Rgb b, int tolerance) {
    return std::abs(a.r - b.r) <= tolerance && std::abs(a.g - b.g) <= tolerance &&
           std::abs(a.b - b.b) <= tolerance;
}

::testing::AssertionResult QuadrantsMatch(const Section& s, int tolerance) {
    const struct {
        int x, y;
        Rgb expected;
        const char* name;
    } probes[] = {{s.width / 4, s.height / 4, kRed, "top left"},
                  {3 * s.width / 4, s.height / 4, kGreen, "top right"},
                  {s.width / 4, 3 * s.height / 4, kBlue, "bottom left"},
                  {3 * s.width / 4, 3 * s.height / 4, kWhite, "bottom right"}};
    for (const auto& probe : probes) {
        Rgb got = s.At(probe.x, probe.y);
        if (!Near(got, probe.expected, tolerance)) {
            return ::testing::AssertionFailure() << probe.name << " is (" << int(got.r) << ","
                                                 << int(got.g) << "," << int(got.b) << ")";
        }
    }
    return ::testing::AssertionSuccess();
}

/// A contacts stream over bytes.
std::unique_ptr<MemoryStream> StreamOf(const Bytes& bytes) {
    return std::make_unique<MemoryStream>(std::make_shared<const Bytes>(bytes));
}

class BitmapHolder {
  public:
    explicit BitmapHolder(HBITMAP bitmap) : bitmap_(bitmap) {}
    ~BitmapHolder() {
        if (bitmap_ != nullptr)
            DeleteObject(bitmap_);
    }
    HBITMAP Get() const { return bitmap_; }

  private:
    HBITMAP bitmap_;
};

TEST(PhotosTest, TheFactoryIsOnePerProcess) {
    ImagingFactory& factory = GetImagingFactory();
    EXPECT_EQ(&GetImagingFactory(), &factory);
    EXPECT_NE(factory.Get(), nullptr);
}

TEST(PhotosTest, APictureStreamIsDecodedAtItsFittedSize) {
    auto stream = StreamOf(MakeBmp(100, 50));
    IWICBitmapSource* cover =
        DecodePictureStream(GetImagingFactory(), stream.get(), kFitCover, 60, 60);
    ASSERT_NE(cover, nullptr);
    UINT width = 0;
    UINT height = 0;
    cover->GetSize(&width, &height);
    EXPECT_EQ(width, 120u);
    EXPECT_EQ(height, 60u);
    BitmapHolder bitmap(ImageToBitmap(cover, 32));
    cover->Release();
    Section section = Inspect(bitmap.Get());
    ASSERT_EQ(section.width, 120);
    ASSERT_EQ(section.height, 60);  // positive: bottom-up rows
    EXPECT_EQ(section.bitsPerPixel, 32);
    EXPECT_TRUE(QuadrantsMatch(section, 8));

    IWICBitmapSource* inside =
        DecodePictureStream(GetImagingFactory(), stream.get(), kFitInside, 60, 60);
    ASSERT_NE(inside, nullptr);
    inside->GetSize(&width, &height);
    EXPECT_EQ(width, 60u);
    EXPECT_EQ(height, 30u);
    inside->Release();
}

TEST(PhotosTest, RowsAreStoredBottomUp) {
    auto stream = StreamOf(MakeBmp(8, 8));
    BitmapHolder bitmap(DecodePictureToBitmap(*stream, 0, 0));
    Section section = Inspect(bitmap.Get());
    ASSERT_EQ(section.height, 8);
    // The first row in memory is the image's last row: blue, then white.
    EXPECT_TRUE(Near({section.bits[2], section.bits[1], section.bits[0]}, kBlue, 8));
}

TEST(PhotosTest, TheSectionTakesTheScreenDepthButAtLeastSixteen) {
    auto stream = StreamOf(MakeBmp(40, 40));
    const std::pair<int, int> depths[] = {{8, 16}, {16, 16}, {24, 24}, {32, 32}};
    for (auto [screen, expected] : depths) {
        IWICBitmapSource* image = DecodePictureStream(GetImagingFactory(), stream.get(), 0, 0, 0);
        ASSERT_NE(image, nullptr);
        BitmapHolder bitmap(ImageToBitmap(image, screen));
        image->Release();
        Section section = Inspect(bitmap.Get());
        ASSERT_EQ(section.bitsPerPixel, expected) << screen;
        EXPECT_TRUE(QuadrantsMatch(section, 10)) << screen;
    }
    BitmapHolder screenDepth(DecodePictureToBitmap(*stream, 20, 20));
    EXPECT_GE(Inspect(screenDepth.Get()).bitsPerPixel, 16);
}

TEST(PhotosTest, EveryFormatDecodes) {
    struct Format {
        const char* name;
        Bytes bytes;
        int tolerance;
    };
    const Format formats[] = {
        {"bmp", MakeBmp(64, 48), 8},
        {"png", Encode(GUID_ContainerFormatPng, 64, 48), 8},
        {"gif", MakeGif(64, 48), 24},
        {"jpeg", Encode(GUID_ContainerFormatJpeg, 64, 48), 40},
    };
    for (const Format& format : formats) {
        ASSERT_FALSE(format.bytes.empty()) << format.name;
        auto stream = StreamOf(format.bytes);
        BitmapHolder bitmap(DecodePictureToBitmap(*stream, 32, 32));
        Section section = Inspect(bitmap.Get());
        ASSERT_EQ(section.width, 43) << format.name;  // 64 * 32 / 48 = 42.67, rounded
        ASSERT_EQ(section.height, 32) << format.name;
        EXPECT_TRUE(QuadrantsMatch(section, format.tolerance)) << format.name;
    }
}

TEST(PhotosTest, ALargePhotoBecomesOnlyAButtonSizedBitmap) {
    auto stream = StreamOf(Encode(GUID_ContainerFormatPng, 1600, 1200));
    BitmapHolder bitmap(DecodePictureToBitmap(*stream, 64, 48));
    Section section = Inspect(bitmap.Get());
    ASSERT_EQ(section.width, 64);
    ASSERT_EQ(section.height, 48);
    EXPECT_TRUE(QuadrantsMatch(section, 10));
}

TEST(PhotosTest, TransparencyIsDrawnOverWhite) {
    auto stream = StreamOf(Encode(GUID_ContainerFormatPng, 32, 32, true));
    BitmapHolder bitmap(DecodePictureToBitmap(*stream, 0, 0));
    Section section = Inspect(bitmap.Get());
    ASSERT_EQ(section.width, 32);
    EXPECT_TRUE(Near(section.At(4, 4), kWhite, 4));
    EXPECT_TRUE(Near(section.At(28, 4), kGreen, 4));
}

TEST(PhotosTest, BadPicturesGiveNoBitmap) {
    Bytes truncated = MakeBmp(10, 10);
    truncated.resize(30);
    Bytes lyingSize = MakeBmp(10, 10);
    lyingSize[18] = 0xFF;  // a width far beyond the pixels the file holds
    lyingSize[21] = 0x7F;
    const Bytes cases[] = {
        {}, {'n', 'o', 't', ' ', 'a', 'n', ' ', 'i', 'm', 'a', 'g', 'e'}, truncated, lyingSize};
    for (const Bytes& bytes : cases) {
        auto stream = StreamOf(bytes);
        EXPECT_EQ(DecodePictureToBitmap(*stream, 20, 20), nullptr) << bytes.size();
    }
    EXPECT_EQ(DecodePictureStream(GetImagingFactory(), nullptr, kFitCover, 10, 10), nullptr);
    EXPECT_EQ(ImageToBitmap(nullptr), nullptr);
}

TEST(PhotosTest, AnImageFileIsDecodedAtItsOwnSize) {
    wchar_t folder[MAX_PATH] = {};
    wchar_t path[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, folder);
    GetTempFileNameW(folder, L"dd", 0, path);
    Bytes bmp = MakeBmp(30, 20);
    HANDLE file = CreateFileW(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    DWORD written = 0;
    WriteFile(file, bmp.data(), static_cast<DWORD>(bmp.size()), &written, nullptr);
    CloseHandle(file);
    BitmapHolder bitmap(DecodeImageFile(GetImagingFactory(), path));
    DeleteFileW(path);
    Section section = Inspect(bitmap.Get());
    ASSERT_EQ(section.width, 30);
    ASSERT_EQ(section.height, 20);
    EXPECT_TRUE(QuadrantsMatch(section, 8));
    EXPECT_EQ(DecodeImageFile(GetImagingFactory(), L"Z:\\no\\such\\file.png"), nullptr);
    EXPECT_EQ(DecodeImageFile(GetImagingFactory(), nullptr), nullptr);
}

}  // namespace
