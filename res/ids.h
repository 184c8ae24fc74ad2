// Resource ids, grouped by screen. Only #defines: the resource compiler reads this file too.
//
// Numbers marked "fixed" are stored, sent between windows or known to other programs: do not renumber. Several screens
// use the same number; each has a name of its own for it. Numbers of our own choice start at 20000.
#pragma once

// ---- Strings, fixed ----
#define IDS_VERSION 105
#define IDS_BUILD 106
#define IDS_APP_TITLE 201
#define IDS_APP_CLASS 204
#define IDS_TOOLS 40011
#define IDS_OPTION_PASSWORD 40026
#define IDS_OPTION_CONFIRM_DELETES 40027
#define IDS_OPTION_SUBJECTS 40028
#define IDS_LOCK_NEW 40029
#define IDS_LOCK_AGAIN 40030
#define IDS_LOCK_ENTER 40031
#define IDS_OPTIONS 40032
#define IDS_EDIT_CATEGORIES 40033
#define IDS_EDIT_QUICK_SUBJECTS 40034
#define IDS_OPTION_CATEGORIES 40035
#define IDS_NO_PASSWORD 40036
#define IDS_JOURNAL_ENTRY 40039
#define IDS_FILTER_ALL 40040
#define IDS_NOTE_LIMIT 40042

// ---- Main window ----
// Fixed.
#define IDI_JOURNAL 103
#define IDR_MAIN 102
#define IDR_ACCELERATORS 203
#define IDB_MENU_WEAVE 108
#define IDB_DROP_ARROW 141
#define IDB_CHECK 142
#define IDB_MAIN_BAR 145
#define IDC_ENTRY_LIST 101
#define IDC_BUTTON_BAR 110
#define IDM_COPY_ENTRIES 105
#define IDM_DELETE_ENTRIES 106
#define IDM_EXPORT_SELECTED 107
#define IDM_SORT 111
#define IDM_SHOW 112
#define IDM_ASCENDING 113
#define IDM_SHOW_ALL 115
#define IDM_FILTER 121
#define IDM_OPEN_ENTRY 122
#define IDM_FILTER_CHANGED 136
#define IDM_FIRST_CATEGORY 700
#define IDM_NEW_ENTRY 3001
#define IDM_FIND 40003
#define IDM_EDIT_ENTRY 40008
#define IDM_TOOLS 40011
#define IDM_ABOUT 40014
#define IDM_OPTIONS 40015
#define IDM_EXPORT 40016
// Our own.
#define IDD_ABOUT 20000
#define IDC_ABOUT_TITLE 20001
#define IDC_ABOUT_VERSION 20002
#define IDC_ABOUT_BUILD 20003
#define IDC_ABOUT_ICON 20004
#define IDS_JOURNAL_ERROR 20010
#define IDS_NO_POCKET_OUTLOOK 20011
#define IDS_CONFIRM 20012
#define IDS_DELETE_RECORD 20013
#define IDS_YES 20014
#define IDS_COLUMN_DATE 20020
#define IDS_COLUMN_ENTRY 20021
#define IDS_SHOW 20022
#define IDS_SORT 20023
#define IDS_ASCENDING 20024
#define IDS_MORE 20025
#define IDS_COPY 20026
#define IDS_DELETE 20027
#define IDS_EXPORT_SELECTED 20028
#define IDS_NO_ENTRIES 20029

// ---- Empty full-screen frame, shared by screens that make their controls themselves; fixed ----
#define IDD_FRAME 151

// ---- Entry editor ----
// Fixed.
#define IDR_EDITOR_ENTRY_BAR 105
#define IDR_EDITOR_NOTE_BAR 106
#define IDC_EDITOR_FIELDS 102
#define IDC_EDITOR_BODY 103
#define IDM_ZOOM_75 2000
#define IDM_ZOOM_100 2001
#define IDM_ZOOM_150 2002
#define IDM_ZOOM_200 2003
#define IDM_ZOOM_300 2004
#define IDM_TIME_STAMP 40007
#define IDM_UNDO 40012
#define IDM_REDO 40013
#define IDM_DATE_STAMP 40021
#define IDM_VIEW_MODE 40027
#define IDM_CUT 40039
#define IDM_COPY 40040
#define IDM_PASTE 40041
#define IDM_SELECT_ALL 40042
// Our own.
#define IDC_EDITOR_TABS 20100
#define IDC_EDITOR_FIELD 20101
#define IDC_EDITOR_FIELD_TIME 20102
#define IDM_EDIT_MENU 20110
#define IDM_ZOOM_MENU 20111
#define IDB_EDITOR_BAR 20120
#define IDS_ENTRY_PAGE 20130
#define IDS_NOTE_PAGE 20131
#define IDS_ZOOM_MENU 20132
#define IDS_NOTE_LIMIT_TITLE 20133
#define IDS_EDIT_MENU 20134
#define IDS_TIME_STAMP 20135
#define IDS_DATE_STAMP 20136
#define IDS_VIEW_MODE 20137
