// resource.h - the numbers of the program's resources and commands. Status-bar
// help texts and tooltips are string resources with the number of their
// command.

#ifndef RESOURCES_RESOURCE_H
#define RESOURCES_RESOURCE_H

// Bitmaps and icons
#define IDB_FACE 1011
#define IDB_KEYS 1012
#define IDB_SWITCHES 1013
#define IDB_TOOLBAR 1014
#define IDB_WELCOME 10002
#define IDI_VORSTEK 10001
#define IDI_GRAPH 15550

// Child windows of the main window
#define IDC_TOOLBAR 1001
#define IDC_STATUSBAR 1002
#define IDC_LISTING 1003
#define IDC_REGISTERS 1004
#define IDC_KEYPAD 1005

// Menu and accelerators of the main window
#define IDR_MENU 1008
#define IDR_ACCELERATORS 1009

// File menu
#define IDM_NEW 101
#define IDM_OPEN 102
#define IDM_SAVE 103
#define IDM_SAVE_AS 104
#define IDM_PAGE_SETUP 105
#define IDM_PRINT_PREVIEW 106
#define IDM_PRINT 107
#define IDM_EXIT 121

// Edit menu
#define IDM_UNDO 201
#define IDM_CUT 202
#define IDM_COPY 203
#define IDM_PASTE 204
#define IDM_DELETE 205
#define IDM_SELECT_ALL 206
#define IDM_FIND 207
#define IDM_REPLACE 208
#define IDM_REPAIR_HIGHLIGHT 209

// View menu
#define IDM_TOOLBAR 401
#define IDM_STATUS_BAR 402
#define IDM_GRAPH 403
#define IDM_OPTIONS 404

// Help menu
#define IDM_HELP 601
#define IDM_ABOUT 602

// Dialogs
#define IDD_ABOUT 3001
#define IDD_OPTIONS 3003
#define IDD_WELCOME 3004
#define IDD_SENDING 15100

// Name of the document in the dialog that stands while it is printed
#define IDC_SENDING_DOCUMENT 15001

// Controls of the options dialog
#define IDC_KEEP_LISTING 1031
#define IDC_OPEN_LISTING 1032
#define IDC_KEEP_REGISTERS 1033
#define IDC_OPEN_REGISTERS 1034
#define IDC_TRACE 1035
#define IDC_SOUND 1036

// Timer of the welcome dialog
#define IDT_WELCOME 3010

// Tooltip of a combo box in a toolbar
#define IDS_FIND_TOOL 15991

#endif
