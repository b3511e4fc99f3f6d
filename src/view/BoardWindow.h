#pragma once
// BoardWindow: the board's main full-screen window. One object lives for the whole run on the
// entry function's stack; a second start of the program finds its window by class name.

#include <windows.h>

#include <memory>

#include "board/DialBoard.h"
#include "board/SessionContactSource.h"
#include "phone/NumberTemplates.h"
#include "view/BoardGeometry.h"
#include "view/BoardMenus.h"
#include "view/PhotoCache.h"
#include "win/Gdi.h"
#include "win/ScreenRotation.h"
#include "win/WndBase.h"

class ButtonPanel;
class ContactsSession;
class Skin;
struct PickerLook;
struct PickerRequest;

/// The board window's class; a running copy of the program is found by it.
constexpr wchar_t kBoardWindowClass[] = L"Orvalis_Dialdeck_Wnd_Class";
constexpr wchar_t kBoardWindowTitle[] = L"Orvalis Dialdeck";
/// The board's background colour until a skin sets another.
constexpr COLORREF kBoardDefaultBackground = 0x50463B;
/// WM_CLOSE's wParam for a forced close: the process ends even when resident.
constexpr WPARAM kForcedCloseCode = 100;

class BoardWindow : public WndBase {
  public:
    /// Takes the process's contacts session and opens it when it is not open yet.
    BoardWindow();
    ~BoardWindow() override;

    /// Creates the window below the top bar, covering the rest of the screen; in preload mode
    /// hidden at once. Then loads the templates, the skin, the panel, the board's bitmaps, the
    /// button size and the entries, and lays the board out. True when the window exists (also
    /// when it existed already).
    bool Create(bool preload);
    LRESULT WndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) override;

    /// Closes the board. Not forced while ModPreload is on: only hides the window (the process
    /// stays resident). Otherwise gives the Talk key back and ends the message loop with code 0.
    void Close(bool forced);
    /// Paints the board into dc (covering the whole client area, in client coordinates), drawing
    /// only the cells that meet `clip`; the one paint path of WM_PAINT (off-screen) and
    /// WM_PRINTCLIENT.
    void Paint(HDC dc, const RECT& clip);

    /// Places the panel, works out the grid, the pages and the selection, updates the arrows.
    void Layout();
    /// Hands the page arrows to the panel when their state changed.
    void UpdateArrows();
    /// Switches big or small buttons: new bitmaps, and when the cell size changed, photos dropped.
    void SetBigButtons(bool big);
    /// The contacts changed: refreshes every entry from them in place and drops the photos, so
    /// changed pictures are decoded anew; then lays the board out and repaints it.
    void RefreshContacts();
    /// A page more at the end (a free button on the last page was bound).
    void GrowByPage();
    /// Deletes the current page's entries and moves the later pages down one page.
    void DeletePage();
    /// Moves the entry at `position` one step (MoveDirection) if it can, repainting the board.
    void MoveButton(int position, MoveDirection direction);
    /// Deletes the entry at `position` and repaints that cell.
    void ClearButton(int position);
    /// Offers the rename dialog for the entry at `position` (none: nothing happens); on OK stores
    /// the edited text as the entry's display text, saves that entry and repaints its cell.
    void RenameButton(int position);
    /// Draws `position` pressed or released at once.
    void SetCellPressed(int position, bool pressed);
    bool IsCellPressed(int position) const {
        return position >= 0 && position < kMaxButtonsPerPage && cellPressed_[position];
    }

    // Input (BoardInput.cpp).

    /// A tap on `position`: a bound button is called; a free one opens the contact picker.
    void Activate(int position);
    /// Opens the contact picker for the free button at `position`; a choice binds the contact
    /// and number to its slot, stores that entry, adds a page when the slot is on the last page
    /// and repaints the cell. Nothing happens on a bound button or when the picker is cancelled.
    void FillFreeButton(int position);
    /// What runs the contact picker: RunContactPicker unless a test put another in.
    using PickerFn = int (*)(PickerRequest& request, HWND owner);
    static PickerFn SetPickerRunner(PickerFn picker);
    /// The picker's colours, fonts and list bitmaps, lent from the board's skin.
    PickerLook PickerLookOf() const;
    /// Makes `position` the selection, repainting the old and the new cell with the margin the
    /// selection frame needs.
    void Select(int position);
    /// Ends a tap-and-hold in progress: the hold timer and any tick of it already queued.
    void StopHold();
    /// The position under the stylus since it went down, or -1.
    int PressedPosition() const { return pressed_; }
    bool HoldTimerOn() const { return holdTimerOn_; }
    bool KeyHold() const { return keyHold_; }
    /// Whether the window carries the hidden marker (set while it is hidden).
    bool HasHiddenMarker() const;

    // Menus and commands (BoardCommands.cpp).

    /// Carries out a window command (WM_COMMAND's low word).
    void RunCommand(uint32_t id);
    /// The main menu at the panel's Menu key; carries out the choice.
    void OpenMainMenu();
    /// The context menu of `position` at the hold point; carries out the choice. Nothing when
    /// the position holds no entry (any more).
    void OpenContextMenu(int position);
    /// Calls the entry of `slot` on its own number; nothing when the slot is free.
    void Call(int32_t slot);
    /// Calls the entry of `slot` on `number`: the number through the templates, the name as
    /// shown, then the wait for the call screen while resident, then the board closes.
    void CallNumber(int32_t slot, const Str& number);
    /// What places calls: PlaceCall unless a test put another in.
    using CallPlacerFn = int (*)(const char16_t* number, const char16_t* calledParty);
    static CallPlacerFn SetCallPlacer(CallPlacerFn placer);
    /// What asks for a vibration pulse: feedback::RequestPulse unless a test put another in.
    using PulseFn = void (*)(uint32_t ms);
    static PulseFn SetPulseRequester(PulseFn requester);

    bool IsPreload() const { return preload_; }
    bool ShowsDialerButton() const { return showDialerButton_; }
    bool ShowsPhoneType() const { return showPhoneType_; }
    void SetShowsDialerButton(bool on) { showDialerButton_ = on; }
    void SetShowsPhoneType(bool on) { showPhoneType_ = on; }
    const BoardGeometry& Geometry() const { return geometry_; }
    BoardGeometry& Geometry() { return geometry_; }
    DialBoard& Board() { return board_; }
    /// The decoded photos, by contact.
    PhotoCache& Photos() { return photos_; }
    NumberTemplates& Templates() { return templates_; }
    Skin* GetSkin() const { return skin_.get(); }
    ButtonPanel* Panel() const { return panel_.get(); }
    Arrows ShownArrows() const { return arrows_; }
    /// The board's own list and number bitmaps (owned), lent to the picker and the panels.
    HBITMAP NumberFrame() const { return numberFrame_.get(); }
    HBITMAP ListUnselected() const { return listUnselected_.get(); }
    HBITMAP ListSelected() const { return listSelected_.get(); }
    HBITMAP ListVoid() const { return listVoid_.get(); }
    HBITMAP ScrollThumb() const { return scroll_.get(); }

  private:
    void ReadOptions();
    bool CreateFrame();
    void RemoveDesktopFrame();
    void CreateMenuBar();
    void CreatePanel();
    void LoadBoardBitmaps();
    void HideInputPanel();
    void OverrideTalkKey();
    void RestoreTalkKey();
    void RepaintCell(int position);

    // Painting (BoardPaint.cpp).
    void PaintCell(HDC dc, int position, int labelH, Array<int>& numbered);
    bool PaintPhoto(HDC dc, int index, const RECT& cell, bool pressed);
    void PaintName(HDC dc, const DialEntry& entry, const RECT& cell, bool pressed, int labelH);
    void PaintLabel(HDC dc, const Str& label, const RECT& cell);
    void PaintSelection(HDC dc);
    void PaintNumber(HDC dc, const DialEntry& entry, const RECT& cell);
    HBITMAP PhotoOf(int index);

    LRESULT OnCreate();
    LRESULT OnDestroy();
    LRESULT OnPaint();
    LRESULT OnPrintClient(HDC dc);
    LRESULT OnClose(WPARAM wParam);
    LRESULT OnScreenChange(WPARAM wParam);
    LRESULT OnActivateMessage(HWND hwnd, WPARAM wParam, LPARAM lParam);
    LRESULT OnCancelMode();
    LRESULT OnWindowPosChanged(HWND hwnd, WPARAM wParam, LPARAM lParam);
    LRESULT OnNcActivate(HWND hwnd, WPARAM wParam, LPARAM lParam);
    LRESULT OnKeyDown(WPARAM key);
    LRESULT OnKeyUp(WPARAM key);
    LRESULT OnTimer(WPARAM id);
    LRESULT OnLButtonDown(int x, int y);
    LRESULT OnMouseMove(int x, int y);
    LRESULT OnLButtonUp(int x, int y);
    LRESULT OnHotKey(LPARAM lParam);
    LRESULT OnReloadTemplates();
    LRESULT OnReload(LPARAM lParam);

    void StartHold();
    void TalkKey();
    void RepaintAll();
    void RunMenuChoice(uint32_t id, int32_t slot, uint32_t oid);
    ButtonMenuState MenuStateOf(int32_t slot) const;
    bool EntryStillThere(int32_t slot, uint32_t oid) const;
    void ChoosePhone(int32_t slot, uint32_t oid, const Str& number, const Str& label);
    void GoToPage(int32_t page);
    void ClearAll();
    void ToggleBigButtons();

    bool preload_ = false;
    bool showDialerButton_ = false;
    bool showPhoneType_ = false;
    HWND menuBar_ = nullptr;
    LRESULT talkKeyDefault_ = 0;
    ContactsSession* session_ = nullptr;
    SessionContactSource contacts_;
    DialBoard board_;
    PhotoCache photos_;
    NumberTemplates templates_;
    std::unique_ptr<Skin> skin_;
    std::unique_ptr<ButtonPanel> panel_;
    gdi::Object<HBITMAP> numberFrame_;
    gdi::Object<HBITMAP> listUnselected_;
    gdi::Object<HBITMAP> listSelected_;
    gdi::Object<HBITMAP> listVoid_;
    gdi::Object<HBITMAP> scroll_;
    BoardGeometry geometry_;
    Arrows arrows_{true, true};  /// the panel starts with both arrows enabled
    int32_t buttonW_ = -1;       ///< the button size the cached photos were made for
    int32_t buttonH_ = -1;
    bool cellPressed_[kMaxButtonsPerPage] = {};
    int pressed_ = -1;          ///< position under the stylus since pen-down, or -1
    bool holdTimerOn_ = false;  ///< the hold timer runs for a stylus press
    bool keyHold_ = false;      ///< the hold timer runs for the action key
    Point down_;  ///< where the stylus (or, for a key, the selected cell's centre) went down
};
