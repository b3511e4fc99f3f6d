#include "skin/Skin.h"

#include <vector>

#include "base/ScreenInfo.h"
#include "base/SettingsStore.h"
#include "skin/IniFile.h"
#include "win/Gdi.h"
#include "win/Imaging.h"
#include "win/MappedFile.h"
#include "win/WideCast.h"

namespace {

constexpr char16_t kSkinFileName[] = u"skin.ini";
constexpr char16_t kSkinSection[] = u"Dialdeck";

/// Colour keys in the order they are read, with the field each one sets.
struct ColourKey {
    const char16_t* key;
    COLORREF SkinColours::*field;
};
constexpr ColourKey kColourKeys[] = {
    {u"BgrColor", &SkinColours::background},
    {u"TxtColor", &SkinColours::text},
    {u"TxtSelectColor", &SkinColours::textSelected},
    {u"BtnNumberColor", &SkinColours::buttonNumber},
    {u"PhoneTypeColor1", &SkinColours::phoneType1},
    {u"PhoneTypeColor2", &SkinColours::phoneType2},
};

/// Font keys, in the order of SkinFont.
constexpr const char16_t* kFontKeys[] = {u"FontText", u"FontSmall", u"FontButton"};
/// Defaults are made in this order: small, text, button.
constexpr SkinFont kDefaultFontOrder[] = {SkinFont::kSmall, SkinFont::kText, SkinFont::kButton};

/// The four size-dependent bitmaps: resource numbers and names, small then big.
struct ButtonBitmap {
    uint32_t smallId;
    const char16_t* smallName;
    uint32_t bigId;
    const char16_t* bigName;
};
constexpr ButtonBitmap kButtonBitmaps[] = {
    {IDB_SMALL_FACE, u"small_btn_text", IDB_BIG_FACE, u"big_btn_text"},
    {IDB_SMALL_ADD_FACE, u"small_btn_add", IDB_BIG_ADD_FACE, u"big_btn_add"},
    {IDB_SMALL_PHOTO_FRAME, u"small_photo_frame", IDB_BIG_PHOTO_FRAME, u"big_photo_frame"},
    {IDB_SMALL_ACTIVE_FRAME, u"small_active_frame", IDB_BIG_ACTIVE_FRAME, u"big_active_frame"},
};

LOGFONTW SystemFontDescription() {
    LOGFONTW lf{};
    GetObjectW(GetStockObject(SYSTEM_FONT), sizeof lf, &lf);
    return lf;
}

}  // namespace

Skin::Skin(const Str& folder, HMODULE library) : folder_(folder), library_(library) {}

void Skin::LoadSkinFile() {
    colours_ = SkinColours{};
    Str path = folder_;
    path.Append(kSkinFileName);  // no separator: the name read ends in "DialdeckSkinskin.ini"
    MappedFile file(W(path.c_str()));
    if (file.Bytes() != nullptr)
        ReadSkinFile(file.Bytes(), file.Size());
    CreateDefaultFonts();
}

void Skin::ReadSkinFile(const uint8_t* bytes, size_t length) {
    IniFile ini;
    ini.Parse(bytes, length);
    const int section = ini.FindSection(kSkinSection);
    if (section < 0)
        return;
    for (const ColourKey& key : kColourKeys) {
        uint32_t colour = colours_.*key.field;
        ini.GetColor(section, key.key, colour);
        colours_.*key.field = colour;
    }
    for (int i = 0; i < 3; ++i) {
        if (HFONT font = ReadFont(ini, section, kFontKeys[i]))
            fonts_[i].Reset(font);
    }
}

HFONT Skin::ReadFont(const IniFile& ini, int section, const char16_t* key) const {
    int32_t size = 0;
    Str face;
    int32_t weightCode = 0;
    bool italic = false;
    bool clearType = false;
    if (!ini.GetFontSpec(section, key, size, face, weightCode, italic, &clearType)) {
        return nullptr;
    }
    return CreateFontFrom(FontFromSpec(EffectiveDpiY(), size, face, weightCode, italic, clearType));
}

void Skin::CreateDefaultFonts() {
    for (SkinFont which : kDefaultFontOrder) {
        gdi::Object<HFONT>& font = fonts_[static_cast<int32_t>(which)];
        if (!font)
            font.Reset(CreateFontFrom(DefaultFont(which, EffectiveDpiY())));
    }
}

HFONT Skin::CreateFontFrom(const FontChoice& choice) const {
    LOGFONTW lf = SystemFontDescription();
    lf.lfHeight = choice.height;
    lf.lfWidth = 0;
    lf.lfUnderline = FALSE;
    lf.lfStrikeOut = FALSE;
    lf.lfWeight = choice.weight;
    lf.lfItalic = choice.italic ? TRUE : FALSE;
    lf.lfQuality = choice.quality;
    lstrcpynW(lf.lfFaceName, W(choice.face.c_str()), LF_FACESIZE);
    return CreateFontIndirectW(&lf);
}

gdi::Object<HBITMAP> Skin::LoadSkinBitmap(uint32_t resourceId, const char16_t* name) const {
    if (name != nullptr) {
        Str path;
        path.Format(u"%s\\%s.bmp", folder_.c_str(), name);
        if (HBITMAP bitmap = DecodeImageFile(GetImagingFactory(), W(path.c_str())))
            return gdi::Object<HBITMAP>(bitmap);
    }
    if (library_ == nullptr)
        return gdi::Object<HBITMAP>();
    return gdi::Object<HBITMAP>(LoadBitmapW(library_, MAKEINTRESOURCEW(resourceId)));
}

bool Skin::SetBigButtons(bool big) {
    const int32_t flag = big ? 1 : 0;
    if (flag == big_)
        return false;
    big_ = flag;
    settings::WriteNumber(settings::kSettingsKey, settings::kBigButtons.name,
                          static_cast<uint32_t>(flag));
    for (int i = 0; i < 4; ++i) {
        const ButtonBitmap& b = kButtonBitmaps[i];
        buttons_[i] =
            big ? LoadSkinBitmap(b.bigId, b.bigName) : LoadSkinBitmap(b.smallId, b.smallName);
    }
    SIZE face = BitmapSize(Button(ButtonArt::kFace));
    cellW_ = face.cx / 2;  // normal and pressed faces side by side
    cellH_ = face.cy;
    return true;
}

bool Skin::FitText(Str& text, int maxWidth, HDC dc) {
    const int length = text.Length();
    std::vector<int> extents(static_cast<size_t>(length) + 1, 0);
    SIZE whole{};
    GetTextExtentExPointW(dc, W(text.c_str()), length, 0, nullptr, extents.data(), &whole);
    if (whole.cx <= maxWidth)
        return false;
    SIZE dot{};
    GetTextExtentPoint32W(dc, L".", 1, &dot);
    const int32_t keep = FitKeepCount(extents.data(), length, dot.cx, maxWidth);
    text = ShortenedText(text, keep);
    return true;
}

int Skin::GetFontHeight(HFONT font) {
    gdi::MemoryDc dc;
    gdi::Selection selection(dc.Get(), font);
    SIZE size{};
    GetTextExtentPoint32W(dc.Get(), L"A", 1, &size);
    return size.cy;
}

bool Skin::TileBitmap(HDC dc, HBITMAP bitmap, const RECT& rect) {
    const SIZE size = BitmapSize(bitmap);
    if (size.cx == 0 || size.cy == 0)
        return false;
    gdi::MemoryDc source(dc);
    gdi::Selection selection(source.Get(), bitmap);
    for (LONG y = rect.top; y < rect.bottom; y += size.cy) {
        const LONG h = y + size.cy > rect.bottom ? rect.bottom - y : size.cy;
        for (LONG x = rect.left; x < rect.right; x += size.cx) {
            const LONG w = x + size.cx > rect.right ? rect.right - x : size.cx;
            BitBlt(dc, x, y, w, h, source.Get(), 0, 0, SRCCOPY);
        }
    }
    return true;
}

void Skin::DrawTransparent(HDC dc, int x, int y, HBITMAP bitmap, int sx, int sy, int width,
                           int height) {
    if (bitmap == nullptr || width <= 0 || height <= 0)
        return;
    gdi::MemoryDc source(dc);
    gdi::Selection selection(source.Get(), bitmap);
    TransparentBlt(dc, x, y, width, height, source.Get(), sx, sy, width, height, kTransparentKey);
}

void Skin::DrawWrapped(HDC dc, const Str& text, const RECT& rect) {
    constexpr UINT kFormat = DT_CENTER | DT_WORDBREAK | DT_WORD_ELLIPSIS | DT_NOPREFIX;
    const int boxHeight = rect.bottom - rect.top;
    if (boxHeight <= 0 || rect.right <= rect.left)
        return;
    RECT measured = rect;
    const int height =
        DrawTextW(dc, W(text.c_str()), text.Length(), &measured, kFormat | DT_CALCRECT);
    TEXTMETRICW tm{};
    GetTextMetricsW(dc, &tm);
    const int line = tm.tmHeight > 0 ? tm.tmHeight : 1;
    // Only whole lines: a text taller than the box keeps the lines that fit.
    const int shown = height <= boxHeight ? height : boxHeight / line * line;
    if (shown <= 0)
        return;
    RECT target = rect;
    target.top = rect.top + (boxHeight - shown) / 2;
    target.bottom = target.top + shown;
    DrawTextW(dc, W(text.c_str()), text.Length(), &target, kFormat);
}

SIZE Skin::BitmapSize(HBITMAP bitmap) {
    BITMAP info{};
    if (bitmap == nullptr || GetObjectW(bitmap, sizeof info, &info) == 0)
        return SIZE{0, 0};
    return SIZE{info.bmWidth, info.bmHeight};
}
