#include "ui/menu_bar.h"

HMENU MenuBar::GetSubMenu(int id) const {
    return reinterpret_cast<HMENU>(SendMessage(SHCMBM_GETSUBMENU, 0, id));
}
