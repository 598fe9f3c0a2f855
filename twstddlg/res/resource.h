// Resource identifiers of twstddlg.dll, shared by the code and twstddlg.rc.
#pragma once

// Strings.
#define IDS_TAG_INSERT_REFUSED 30040

// Messages of the system error reporter (30000 plus the code modulo 100).
#define IDS_ERR_UPDATE_CHECK 30009
#define IDS_ERR_MEMORY 30010
#define IDS_ERR_OLE_INIT 30011
#define IDS_ERR_UNABLE_TO_RUN 30012
#define IDS_ERR_FILE_WRITTEN 30013
#define IDS_ERR_NO_NEED_FOR_SAVE 30014
#define IDS_ERR_VBA_INIT_FAILED 30016
#define IDS_ERR_VBA_INIT_ERROR 30017
#define IDS_ERR_GRAPHICS 30018
#define IDS_ERR_REGISTRY 30019
#define IDS_ERR_DLL_NOT_FOUND 30020
#define IDS_ERR_DLL_LOAD_FAILED 30021
#define IDS_ERR_FUNCTION_NOT_FOUND 30022
#define IDS_ERR_PLUGIN_DIR 30023
#define IDS_ERR_ADDON_DIR 30024
#define IDS_ERR_PROGRAM_DIR 30025
#define IDS_ERR_OPEN_FAILED 30026
#define IDS_ERR_RESERVED_27 30027
#define IDS_ERR_RESERVED_28 30028
#define IDS_ERR_RESERVED_29 30029
#define IDS_ERR_RESERVED_30 30030
// Texts of the settings exchange, the picture commands, the file dialog and
// the spreadsheet export.
#define IDS_SETTINGS_FILE_FILTER 30032
#define IDS_SETTINGS_OPEN_TITLE 30033
#define IDS_SETTINGS_SAVE_TITLE 30034
#define IDS_COPY_TARGET_FOLDER 30037
#define IDS_NO_PREVIEW 30038
#define IDS_DIF_FILE_FILTER 30039
// Help texts of the file dialog's controls (the control ids are the same).
#define IDS_HELP_PREVIEW_SWITCH 30050
#define IDS_HELP_PREVIEW_TEXT 30051
#define IDS_HELP_OPEN_MODE 30052

// Message box with suppression (template 918).
#define IDD_MESSAGE_BOX 918
#define IDI_MESSAGE_BOX_QUESTION 143
#define IDC_MB_YES_ALL 14
#define IDC_MB_TEXT 1019
#define IDC_MB_DONT_SHOW 1036

// Question dialog with answers for all (template 1221).
#define IDD_ASK_SOMETHING 1221
#define IDC_ASK_YES_ALL 12
#define IDC_ASK_NO_ALL 13
#define IDC_ASK_QUESTION 1292
