// calculator_ids.h - the numbers of the calculator's sounds and menu commands.
// The engine plays the sounds and enables some of the commands, so its code
// includes this header as well as the resource compiler, which knows only
// macros.

#ifndef RESOURCES_CALCULATOR_IDS_H
#define RESOURCES_CALCULATOR_IDS_H

// Sounds, WAVE resources
#define IDW_KEY_CLICK 10050
#define IDW_REFUSAL 10051
#define IDW_ERROR 10052
#define IDW_HALTED 10053
#define IDW_CLEARED 10054
#define IDW_SLIDE_ON 10055
#define IDW_SLIDE_OFF 10056
#define IDW_PROGRAM_MODE 10057
#define IDW_RUN_MODE 10058

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

#endif
