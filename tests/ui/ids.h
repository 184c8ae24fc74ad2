// Resources of the tests' own: a dialog and a menu bar.
#pragma once

#define IDD_SMALL 300
#define IDD_MISSING 301
#define IDC_NAME 310
#define IDC_APPLY 311
#define IDC_CHOICE 312
#define IDC_ABSENT 319
#define IDR_BAR 320
#define IDM_ONE 330
#define IDM_TWO 331
#define IDM_TOGGLE 332
#define IDS_BAR_MENU 340
