// Resource ids, grouped by screen. Only #defines: the resource compiler reads this file too.
//
// Numbers marked "fixed" are stored, sent between windows or known to other programs: do not renumber. Several screens
// use the same number; each has a name of its own for it. Numbers of our own choice start at 20000.
#pragma once

// ---- Program, fixed ----
#define IDI_JOURNAL 103
#define IDR_ACCELERATORS 203

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
