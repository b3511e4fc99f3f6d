#pragma once
// Puts a board window on a chosen screen for the view's Windows tests: the device profile and
// the screen record, the resource library beside the test, a skin folder, the options and a set
// of stored entries; then renders the window and its panel the way the screen shows them.

#include <windows.h>

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "ScreenShot.h"
#include "base/Str.h"
#include "board/ContactSource.h"
#include "platform/DeviceProfile.h"
#include "testing/WindowTestKit.h"

class BoardWindow;

/// One stored entry of the test board.
struct StoredEntry {
    uint32_t oid;
    const char16_t* display;
    int32_t btn;
    int32_t slot;
    const char16_t* phone;
    const char16_t* type;
    const char16_t* first;
    const char16_t* last;
};

/// The demo board: names in several scripts, a long name, a company, a button whose contact is
/// gone (oid 0), a photo contact (oid 7) and one button on the second page.
const std::vector<StoredEntry>& DemoEntries();

/// Replaces the stored entries ("Dialdeck" key) with `entries`.
void StoreEntries(const std::vector<StoredEntry>& entries);
/// Writes the board's options to "Settings".
void StoreOptions(bool big, bool showType, bool showNumber);
/// Removes what StoreEntries and StoreOptions wrote, so the prefix's own board is left alone.
void ForgetStoredBoard();

/// Contacts for the test board: every oid of the demo except 0 exists, with its stored names,
/// and so does every entry of `added`; the oids in `pictures` have a picture (at first oid 7).
/// An oid in `deleted` is gone.
class DemoContacts : public ContactSource {
  public:
    bool IsAvailable() override { return true; }
    bool Read(uint32_t oid, uint32_t flags, ContactRecord& record) override;
    bool FindByNumber(const Str& number, Array<uint32_t>& oids) override;

    std::vector<StoredEntry> added;
    std::set<uint32_t> pictures{7};
    std::set<uint32_t> deleted;
};

/// Selects the screen: profile, screen record and resource library (hi-res one at 192 dpi).
/// Returns the library (loaded as a data file; the caller frees it).
HMODULE UseScreen(const device::Profile& profile);
/// Points the skin at `folder` (no trailing backslash).
void UseSkinFolder(const std::wstring& folder);

/// Renders the board window and its panel into an image of the board's client area.
shot::Image RenderBoard(BoardWindow& board);
/// A test "photo": a diagonal gradient bitmap of the given size.
HBITMAP MakeTestPhoto(int width, int height);
