#pragma once
// Skin: the look of the board. Six colours and three fonts from the skin description beside the
// skin folder, the four bitmaps of the current button size, and the drawing services every
// painter shares (text fitting, line height, tiling, magenta-keyed drawing, wrapped text).
// Bitmaps come from the skin folder first and the resource library second.

#include <windows.h>

#include <cstdint>

#include "base/ResourceIds.h"
#include "base/Str.h"
#include "skin/SkinMetrics.h"
#include "win/Gdi.h"

class IniFile;

/// The colour a skin bitmap leaves out where it is transparent.
constexpr COLORREF kTransparentKey = RGB(255, 0, 255);

/// The skin's colours; the defaults are the board's own look.
struct SkinColours {
    COLORREF background = RGB(59, 70, 80);       ///< "BgrColor"
    COLORREF text = RGB(255, 255, 255);          ///< "TxtColor"
    COLORREF textSelected = RGB(0, 0, 0);        ///< "TxtSelectColor"
    COLORREF buttonNumber = RGB(255, 255, 255);  ///< "BtnNumberColor"
    COLORREF phoneType1 = RGB(255, 255, 255);    ///< "PhoneTypeColor1"
    COLORREF phoneType2 = RGB(0, 0, 0);          ///< "PhoneTypeColor2"
};

/// Resource numbers of the named bitmaps in the resource libraries.
namespace skin_bitmap {
constexpr uint32_t kNumberFrame = IDB_NUMBER_FRAME;
constexpr uint32_t kListUnselected = IDB_LIST_UNSELECTED;
constexpr uint32_t kListSelected = IDB_LIST_SELECTED;
constexpr uint32_t kListVoid = IDB_LIST_VOID;
constexpr uint32_t kScroll = IDB_SCROLL;
constexpr uint32_t kSmsHeader = IDB_SMS_HEADER;
constexpr uint32_t kLandscapePanel1 = IDB_LANDSCAPE_PANEL_1;
constexpr uint32_t kPortraitPanel1 = IDB_PORTRAIT_PANEL_1;
constexpr uint32_t kLandscapePanel2 = IDB_LANDSCAPE_PANEL_2;
constexpr uint32_t kPortraitPanel2 = IDB_PORTRAIT_PANEL_2;
}  // namespace skin_bitmap

/// The four bitmaps that follow the button size, in loading order.
enum class ButtonArt : int32_t { kFace = 0, kAddFace = 1, kPhotoFrame = 2, kActiveFrame = 3 };

class Skin {
  public:
    /// A skin reading from `folder` (no trailing backslash) with `library` (a resource library
    /// loaded as a data file, or null) as the fallback for bitmaps.
    Skin(const Str& folder, HMODULE library);
    Skin(const Skin&) = delete;
    Skin& operator=(const Skin&) = delete;

    /// Colour defaults, then the "Dialdeck" section of folder + "skin.ini" (joined with no
    /// separator: the file read ends in "DialdeckSkinskin.ini"), then the fonts still missing.
    /// A missing or unreadable file leaves the defaults, silently.
    void LoadSkinFile();
    /// The font described under `key`, or null when the description has no items.
    HFONT ReadFont(const IniFile& ini, int section, const char16_t* key) const;
    /// Creates each of the three fonts that is still null.
    void CreateDefaultFonts();
    /// Folder\name.bmp through the image loader, else bitmap `resourceId` of the resource
    /// library; empty when neither has it.
    gdi::Object<HBITMAP> LoadSkinBitmap(uint32_t resourceId, const char16_t* name) const;

    /// Switches the button size: nothing when it is the current one; otherwise stores
    /// "DdBigBtn", replaces the four button bitmaps and measures the cell from the face (half
    /// its width, its height). Returns whether anything changed.
    bool SetBigButtons(bool big);
    /// Current size flag: 1 big, 0 small, -1 before the first SetBigButtons.
    int32_t BigButtons() const { return big_; }
    int32_t CellWidth() const { return cellW_; }
    int32_t CellHeight() const { return cellH_; }
    HBITMAP Button(ButtonArt art) const { return buttons_[static_cast<int32_t>(art)].get(); }

    const SkinColours& Colours() const { return colours_; }
    HFONT Font(SkinFont which) const { return fonts_[static_cast<int32_t>(which)].get(); }
    const Str& Folder() const { return folder_; }
    HMODULE Library() const { return library_; }

    /// Shortens `text` in place to fit maxWidth in dc's font, ending it in "..."; keeps one
    /// character less than would fit (a deliberate margin). False when the text already fits.
    static bool FitText(Str& text, int maxWidth, HDC dc);
    /// Height in pixels of "A" in `font`, measured in a memory context of the screen.
    static int GetFontHeight(HFONT font);
    /// Tiles `bitmap` over rect from its top-left corner, clipping the last row and column.
    /// False for a null or empty bitmap.
    static bool TileBitmap(HDC dc, HBITMAP bitmap, const RECT& rect);
    /// Draws the src x src bitmap's part at (sx, sy) to (x, y), leaving out magenta pixels.
    static void DrawTransparent(HDC dc, int x, int y, HBITMAP bitmap, int sx, int sy, int width,
                                int height);
    /// Draws text wrapped at word breaks, centred across and down in rect; a text taller than
    /// rect shows the whole lines that fit, and a word wider than rect ends in "...".
    static void DrawWrapped(HDC dc, const Str& text, const RECT& rect);
    /// Width and height of a bitmap (0, 0 for null).
    static SIZE BitmapSize(HBITMAP bitmap);

  private:
    HFONT CreateFontFrom(const FontChoice& choice) const;
    void ReadSkinFile(const uint8_t* bytes, size_t length);

    Str folder_;
    HMODULE library_;
    SkinColours colours_;
    gdi::Object<HFONT> fonts_[3];
    gdi::Object<HBITMAP> buttons_[4];
    int32_t big_ = -1;
    int32_t cellW_ = 0;
    int32_t cellH_ = 0;
};
