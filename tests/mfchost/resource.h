//{{NO_DEPENDENCIES}}
// Resource identifiers of mfchost.rc.
//
#define IDM_ABOUTBOX                    0x0010
#define IDD_ABOUTBOX                    100
#define IDS_ABOUTBOX                    101
#define IDD_MFCHOST_DIALOG              102
#define IDS_GREETING                    103
#define IDS_MESSAGE                     104
#define IDR_MAINMENU                    129
#define IDC_RUN                         1000
#define IDC_BARE                        1001
#define IDC_CLOSE                       1002
#define IDC_RADIO1                      1003
#define IDC_RADIO2                      1004
#define IDC_RADIO3                      1005
#define IDC_SCROLL                      1006
#define IDC_LIST                        1007
#define ID_TOOLS_COUNT                  32771
#define ID_TOOLS_PICK                   32772
