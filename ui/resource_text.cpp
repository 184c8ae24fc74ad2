#include "ui/resource_text.h"

std::wstring LoadText(UINT id) {
    // A size of 0 asks for the string where it lies among the resources: no limit on its length, and no NUL behind it.
    const wchar_t* text = nullptr;
    const int length = LoadStringW(GetModuleHandleW(nullptr), id, reinterpret_cast<LPWSTR>(&text), 0);
    return length > 0 ? std::wstring(text, static_cast<size_t>(length)) : std::wstring();
}
