#pragma once
// ContactPicker: the full-screen dialog that fills a free board button. A finger-scrolled list of
// contacts sits above the phone keypad; digits typed on the keypad narrow the list through the
// search service. The user picks a contact and then, when it has more than one number, one of
// its numbers (stage 2). Cancel in stage 2 goes back to the same contact list.

#include <windows.h>

#include <cstdint>

#include "base/ResourceIds.h"
#include "base/Str.h"

class NumberTemplates;

/// The picker's look, borrowed from the board's skin: the owner keeps every handle alive while
/// the picker runs. A font left null gets the dialog's default (bold 10-point Tahoma).
struct PickerLook {
    COLORREF background = RGB(255, 255, 255);
    COLORREF text = RGB(0, 0, 0);
    COLORREF selectedText = RGB(255, 255, 255);
    HFONT font = nullptr;             ///< names and numbers; the keypad's first label row
    HFONT smallFont = nullptr;        ///< second texts; the keypad's second label row
    HBITMAP rowUnselected = nullptr;  ///< "list_unselect_bgr"
    HBITMAP rowSelected = nullptr;    ///< "list_select_bgr"
    HBITMAP rowVoid = nullptr;        ///< "list_void_bgr"
    HBITMAP scrollThumb = nullptr;    ///< "scroll"
};

/// What the board asks for and what the picker gives back.
struct PickerRequest {
    // In.
    int templateId = IDD_PICKER;
    bool wantNumber = true;  ///< a number must be chosen (false: the contact alone)
    bool vibrate = false;    ///< "BtnFeedback" is 2: the keypad pulses
    uint32_t pulseMs = 50;
    PickerLook look;
    const NumberTemplates* templates = nullptr;  ///< formats stage 2's numbers; may be null
    // Out.
    uint32_t oid = 0;
    Str number;       ///< empty when the contact has none (or none was wanted)
    Str numberLabel;  ///< the text naming the number's type
    int32_t numberType = 0;
};

/// Runs the picker modally, owned by `owner`: 1 when a choice was made (the request's out part
/// is filled), 2 on cancel, -1 when the dialog could not be made.
int RunContactPicker(PickerRequest& request, HWND owner);
