#pragma once
// Ids of the dialog templates in the window tests' own resources (TestDialogs.rc).

#define IDD_TEST_PLAIN 901    // a captioned dialog with one edit field
#define IDC_TEST_EDIT 100     // its edit field
#define IDD_TEST_MISSING 999  // no such template
