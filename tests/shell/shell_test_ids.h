// Resource ids of this test program.
#pragma once

#define IDR_BAR 102
#define IDR_OTHER_BAR 105
#define IDR_NO_BUTTONS 110
#define IDR_TRUNCATED 111
#define IDR_GARBAGE 112
#define IDR_NO_SUCH_POPUP 113
#define IDR_DEFAULT_NEW 114
#define IDB_STRIP 145
#define IDD_SCREEN 200
#define IDD_WITH_CANCEL 201

#define IDS_TEST_TOOLS 300

#define IDM_PICTURE 40003
#define IDM_ABOUT 40014
#define IDM_OPTIONS 40015
#define IDM_TOOLS 40011
#define IDM_CHECKED 40027
#define IDM_DISABLED 121
#define IDM_OTHER 40007

#define IDC_LINE 1001
#define IDC_NOTE 1002
