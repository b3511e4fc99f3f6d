#pragma once
// DialogBase: the base of the program's dialogs (the rename dialog, the picker, the SMS panel),
// each made from a dialog template in the program's own module. Like WndBase it keeps the object
// with its window (in the dialog's user slot, DWLP_USER) from the dialog's first message to its
// last, and hands every message to the object's virtual DlgProc; a derived dialog overrides
// DlgProc with one switch that passes each message to a named member.
//
// The dialogs fill the board's area as on the device: x 0, below the top bar, the screen's width,
// down to the bottom of the screen. The bottom band, one bar high, holds the dialog's soft-key
// strip (the device's soft-key bar: the keys of a menu resource, OK / Cancel by default), which
// sends its commands to the dialog; a dialog lays its own controls out in ContentArea.
//
// Keyboard: every message of a modal dialog's loop goes through RouteDialogMessage, so Enter,
// Escape and Tab work in the modal dialog and in any modeless dialog open at the time. A modeless
// dialog outside a modal loop gets them only when its host loop calls RouteDialogMessage too.

#include <windows.h>

#include <cstdint>

#include "base/Geometry.h"
#include "base/ResourceIds.h"
#include "win/SoftKeyStrip.h"

class DialogBase {
  public:
    /// A dialog made from template `templateId` (RT_DIALOG) of the program's module, with the
    /// soft keys of menu `softKeysMenu` of the program's module (0: none).
    explicit DialogBase(int templateId, uint32_t softKeysMenu = IDR_OK_CANCEL);
    /// Detaches the object from its window, then destroys the window if it is still alive. The
    /// derived parts are gone by then: a dialog whose WM_DESTROY handler must run ends itself
    /// in its own destructor.
    virtual ~DialogBase();
    DialogBase(const DialogBase&) = delete;
    DialogBase& operator=(const DialogBase&) = delete;

    /// Runs the dialog modally, owned by `owner` (may be null): creates it, disables the owner,
    /// shows it and runs the dialog's own message loop (timers and posted messages of every
    /// window of the thread keep flowing through it) until End; then enables the owner again,
    /// destroys the dialog and returns the end code. -1 when the template or the window could
    /// not be made, or the dialog is already open; 0 when the dialog went away without End, or
    /// the loop met WM_QUIT (which it posts again for the outer loop).
    int RunModal(HWND owner);
    /// Creates the dialog modeless, owned by `owner` (may be null), shown at once (and painted)
    /// when `show` is set. Returns the dialog, or null (also when it is already open).
    HWND CreateModeless(HWND owner, bool show);
    /// Ends the dialog with `code`: a modal dialog's loop returns it; a modeless dialog is
    /// destroyed at once and keeps the code in EndCode.
    void End(int code);

    /// The dialog window; null before its first message and after its last.
    HWND Hwnd() const { return hwnd_; }
    /// The template's resource id.
    int TemplateId() const { return templateId_; }
    /// The code given to the last End; 0 before any.
    int EndCode() const { return endCode_; }
    /// True while RunModal runs the dialog.
    bool IsModal() const { return modal_; }

    /// The area a dialog fills on a width x height screen at dpiY: x 0, y the bar height, the
    /// screen's width, the screen's height less the bar height.
    static Rect FullScreenAreaOf(int width, int height, int dpiY);
    /// The area a dialog fills on the emulated screen (device profile and measured screen).
    static Rect FullScreenArea();
    /// The client area left to the dialog's own controls: the client area less the soft-key band.
    Rect ContentArea() const;
    /// The soft-key band: the bottom bar-height strip of the client area (less when the client
    /// area is lower than a bar).
    Rect SoftKeyArea() const;
    /// The dialog's soft-key strip, made at WM_INITDIALOG (before OnInitDialog, which may dress
    /// it with the skin's faces) and kept in the soft-key band; its window is null when the
    /// dialog has none or its menu could not be loaded.
    SoftKeyStrip& SoftKeys() { return softKeys_; }

    /// Offers a message of the thread's loop to the dialog of this program that holds its window
    /// (IsDialogMessage). True when the dialog took it: the loop must not dispatch it again.
    static bool RouteDialogMessage(MSG& msg);

  protected:
    /// The object's dialog procedure, with the dialog procedure's return rules (TRUE: handled).
    /// The base passes WM_INITDIALOG, WM_COMMAND, WM_SIZE and WM_DESTROY to the members below.
    virtual INT_PTR DlgProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
    /// WM_INITDIALOG, after the base has placed the dialog full screen. `focus` is the control
    /// the system would focus; true lets it do so, false when the member set the focus itself.
    virtual bool OnInitDialog(HWND focus);
    /// WM_COMMAND. The base ends the dialog with 1 on IDOK and 2 on IDCANCEL. True when handled.
    virtual bool OnCommand(int id, int notifyCode, HWND control);
    /// WM_SIZE with the new client size; the base keeps the soft-key strip in its band.
    virtual void OnSize(int width, int height);
    /// WM_DESTROY; the base does nothing.
    virtual void OnDestroy();

    /// Gives the dialog the caption of the top-level window that owns it (none: no change).
    void TakeOwnerCaption();

  private:
    static INT_PTR CALLBACK StaticDlgProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
    HWND CreateWindowFromTemplate(HWND owner);
    void PlaceFullScreen();
    void Detach();

    const int templateId_;
    const uint32_t softKeysMenu_;
    HWND hwnd_ = nullptr;
    SoftKeyStrip softKeys_;
    int endCode_ = 0;
    bool modal_ = false;
    bool ended_ = false;
    bool destroying_ = false;  ///< WM_DESTROY has begun: the window is going by itself
};
