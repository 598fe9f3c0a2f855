// Resource ids of the window and dialog tests' templates.
#pragma once

#define IDD_TEST_EVENTS 8100
#define IDD_TEST_DDX 8101
#define IDD_TEST_MISSING 8199

// Controls of IDD_TEST_EVENTS.
#define IDC_EV_EDIT 1001
#define IDC_EV_FIRST 1010
#define IDC_EV_SECOND 1011
#define IDC_EV_THIRD 1012

// Controls of IDD_TEST_DDX.
#define IDC_DDX_TEXT 1001
#define IDC_DDX_INT 1002
#define IDC_DDX_UINT 1003
#define IDC_DDX_LONG 1004
#define IDC_DDX_DWORD 1005
#define IDC_DDX_DOUBLE 1006
#define IDC_DDX_CHECK 1010
#define IDC_DDX_RADIO1 1011
#define IDC_DDX_RADIO2 1012
#define IDC_DDX_RADIO3 1013
#define IDC_DDX_LABEL 1014
