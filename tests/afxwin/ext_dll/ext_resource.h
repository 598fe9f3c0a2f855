// Resource identifiers of the test extension DLL and of the test program.
#pragma once

// Only in the extension DLL.
#define IDD_EXT_DIALOG 7001
#define IDS_EXT_ONLY 7002
#define IDC_EXT_TEXT 7003
// In both, with different texts.
#define IDS_EXT_SHARED 7004
// Only in the test program.
#define IDS_APP_PROMPT 7010
#define IDS_APP_REGISTRY_KEY 7011
