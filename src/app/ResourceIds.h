#pragma once
// Resource identifiers shared by the program's code and its resource scripts (.rc files read
// these definitions too, so they are preprocessor macros).

// In the program's own module.
#define IDR_SOFTKEYS 122      // menu: the board's two soft keys
#define IDR_OK_CANCEL 113     // menu: the dialogs' OK / Cancel soft keys
#define IDD_RENAME 112        // dialog: rename a button
#define IDC_RENAME_EDIT 1073  // rename dialog: the name
#define IDC_RENAME_LIST 1074  // rename dialog: the suggestions
#define IDM_MAIN_MENU 103     // command: open the main menu
#define IDM_CLOSE 104         // command: close (not forced)

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
