#include "ui/window_class.h"

#include <cwchar>
#include <vector>

bool IsWindowClass(HWND window, const wchar_t* className) {
    const size_t length = std::wcslen(className);
    std::vector<wchar_t> actual(length + 1, L'\0');
    if (GetClassNameW(window, actual.data(), static_cast<int>(actual.size())) == 0) return false;
    return CompareStringOrdinal(actual.data(), -1, className, -1, TRUE) == CSTR_EQUAL;
}
