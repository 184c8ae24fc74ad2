#include "bench/bare_list.h"

HWND MakeFrame() {
    return CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 240, 320, nullptr, nullptr,
                           nullptr, nullptr);
}

HWND MakeBareList(HWND parent, const ListView& like) {
    const HWND list =
        CreateWindowExW(0, WC_LISTVIEWW, L"", like.GetStyle(), 0, 0, 240, 294, parent, nullptr, nullptr, nullptr);
    ::SendMessageW(list, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, like.SendMessage(LVM_GETEXTENDEDLISTVIEWSTYLE));
    ::SendMessageW(list, LVM_SETIMAGELIST, LVSIL_SMALL, like.SendMessage(LVM_GETIMAGELIST, LVSIL_SMALL));
    for (int i = 0; i < like.GetColumnCount(); ++i) {
        LVCOLUMNW column = {};
        column.mask = LVCF_WIDTH;
        column.cx = like.GetColumnWidth(i);
        ::SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&column));
    }
    return list;
}
