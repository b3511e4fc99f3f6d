#pragma once
// Resource identifiers shared by the program's code and its resource scripts (.rc files read
// these definitions too, so they are preprocessor macros).

// Menus and dialogs in the program's own module.
#define IDR_SOFTKEYS 122      // menu: the board's two soft keys
#define IDR_OK_CANCEL 113     // menu: the dialogs' OK / Cancel soft keys
#define IDD_RENAME 112        // dialog: rename a button
#define IDD_PICKER 114        // dialog: choose a contact (and one of its numbers) for a button
#define IDC_RENAME_EDIT 1073  // rename dialog: the name
#define IDC_RENAME_LIST 1074  // rename dialog: the suggestions

// The board's window commands (WM_COMMAND's low word). 1 and 2 (the dialogs' OK and Cancel, the
// End-call key) close the board too.
#define IDM_PREV_PAGE 101     // previous page (the panel's Prev)
#define IDM_NEXT_PAGE 102     // next page (the panel's Next)
#define IDM_MAIN_MENU 103     // open the main menu (the panel's Menu)
#define IDM_CLOSE 104         // close, not forced (the panel's Close)
#define IDM_SORT_BY_NAME 105  // sort the entries by name
#define IDM_CLEAR_ALL 106     // clear the whole board, after asking
#define IDM_RENAME 107        // rename the selected button
#define IDM_CLEAR_BUTTON 108  // clear the selected button
#define IDM_CLOSE_BOARD 109   // close, not forced
#define IDM_MOVE_UP 110       // move the selected button up
#define IDM_MOVE_DOWN 111     // ... down
#define IDM_MOVE_LEFT 112     // ... left
#define IDM_MOVE_RIGHT 113    // ... right
#define IDM_PANEL_PREV 40025  // previous page from the panel arrow, without vibration
#define IDM_PANEL_NEXT 40027  // next page from the panel arrow, without vibration

// Items of the board's pop-up menus. The chosen id comes back from the menu; an id of the
// window-command table above is carried out as that command. Each range below is its own, so no
// two items of one menu share an id.
#define IDM_PHONE_FIRST 201   // context menu "Phone:": the contact's numbers, 201 + list index
#define IDM_PHONE_LAST 299    //   (at most 99 numbers listed)
#define IDM_CALL_FIRST 300    // context menu: the call item
#define IDM_DIALER_CLEAR 400  // "Dialer Button" sub-menu: no number
#define IDM_DIALER_FIRST 401  // "Dialer Button" sub-menu: number n is 400 + n (401 .. 499)
#define IDM_DIALER_LAST 499
#define IDM_BUTTON_NAME 500      // context menu: the button's name, shown and never chosen
#define IDM_SEND_SMS 501         // write a text message to the button's number
#define IDM_ADD_PAGE 502         // main menu: a page more at the end
#define IDM_DELETE_PAGE 503      // main menu: delete the current page
#define IDM_BIG_BUTTONS 504      // main menu, View: big or small buttons
#define IDM_SHOW_DIALER 505      // main menu, View: show the dialer numbers
#define IDM_SHOW_PHONE_TYPE 506  // main menu, View: show the phone types
#define IDM_EXIT 507             // main menu: end the program, even when resident

// The board's private messages from other processes.
#define WM_DD_RELOAD_TEMPLATES 0x591  // the number templates changed
#define WM_DD_RELOAD 0x7E8            // lParam 2: the stored entries changed
#define DD_RELOAD_ENTRIES 2

// Texts of the resource libraries.
#define IDS_UNNAMED 107
#define IDS_SHOW_DIALER_BUTTON 108
#define IDS_CLEAR_NUMBER 109
#define IDS_CALL 110
#define IDS_SEND_SMS 111
#define IDS_RENAME 112
#define IDS_DIALER_BUTTON 113
#define IDS_CLEAR 114
#define IDS_PHONE 115
#define IDS_CLEAR_ALL_QUESTION 116
#define IDS_UP 117
#define IDS_DOWN 118
#define IDS_LEFT 119
#define IDS_RIGHT 120
#define IDS_MOVE 121
#define IDS_SORT_BY_NAME 122
#define IDS_CLEAR_ALL 123
#define IDS_ADD_PAGE 124
#define IDS_DELETE_PAGE 125
#define IDS_BIG_BUTTONS 126
#define IDS_SHOW_PHONE_TYPE 127
#define IDS_PREV 129
#define IDS_NEXT 130
#define IDS_MENU 131
#define IDS_CLOSE 132
#define IDS_VIEW 133
#define IDS_EXIT 134
#define IDS_NEW_SMS 135

// Skin bitmaps of the resource libraries (a skin folder's "<name>.bmp" replaces each).
#define IDB_NUMBER_FRAME 120        // btn_number_frame: the dialer number's frame
#define IDB_LIST_UNSELECTED 156     // list_unselect_bgr: a list row
#define IDB_LIST_SELECTED 154       // list_select_bgr: the selected list row
#define IDB_LIST_VOID 158           // list_void_bgr: the list below its last row
#define IDB_SCROLL 140              // scroll: the scroll thumb
#define IDB_SMS_HEADER 142          // sms_bgr: the message panel's header
#define IDB_SMALL_FACE 115          // small_btn_text: small button face
#define IDB_BIG_FACE 106            // big_btn_text: big button face
#define IDB_SMALL_ADD_FACE 113      // small_btn_add: small free button face
#define IDB_BIG_ADD_FACE 109        // big_btn_add: big free button face
#define IDB_SMALL_PHOTO_FRAME 110   // small_photo_frame: small photo frame
#define IDB_BIG_PHOTO_FRAME 101     // big_photo_frame: big photo frame
#define IDB_SMALL_ACTIVE_FRAME 111  // small_active_frame: small selection frame
#define IDB_BIG_ACTIVE_FRAME 102    // big_active_frame: big selection frame
#define IDB_LANDSCAPE_PANEL_1 133   // l_panel_1: landscape panel: Prev, Next
#define IDB_PORTRAIT_PANEL_1 137    // p_panel_1: portrait panel: Prev, Next
#define IDB_LANDSCAPE_PANEL_2 135   // l_panel_2: landscape panel: Menu, Close
#define IDB_PORTRAIT_PANEL_2 132    // p_panel_2: portrait panel: Menu, Close
