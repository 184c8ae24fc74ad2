#include "platform/shell/window_place.h"

#include <algorithm>
#include <vector>

namespace {

constexpr wchar_t kPlaces[] = L"Software\\Pocket PC\\Places\\";
constexpr wchar_t kLast[] = L"Last";
constexpr LONG kFarthest = 32'767;  // no coordinate and no side of a window is beyond

BOOL CALLBACK AddDisplay(HMONITOR, HDC, RECT* place, LPARAM displays) {
    reinterpret_cast<std::vector<RECT>*>(displays)->push_back(*place);
    return TRUE;
}

std::optional<WindowPlace> LoadValue(const std::wstring& key, const wchar_t* name) {
    wchar_t text[128] = {};
    DWORD bytes = sizeof(text);
    if (RegGetValueW(HKEY_CURRENT_USER, key.c_str(), name, RRF_RT_REG_SZ, nullptr, text, &bytes)) return std::nullopt;
    return ParsePlace(text);
}

RECT WorkAreaAt(const RECT& place) {
    MONITORINFO display{};
    display.cbSize = sizeof(display);
    GetMonitorInfoW(MonitorFromRect(&place, MONITOR_DEFAULTTONEAREST), &display);
    return display.rcWork;
}

// Moves a stretch by as little as brings it between two ends, and cuts it when it is longer than they are apart.
void BringBetween(LONG least, LONG most, LONG& from, LONG& to) {
    const LONG length = std::min(to - from, most - least);
    from = std::clamp(from, least, most - length);
    to = from + length;
}

}  // namespace

std::wstring PlaceText(const WindowPlace& place) {
    const RECT& rect = place.normal;
    std::wstring text;
    for (const LONG number : {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, LONG{place.dpi}})
        text += std::to_wstring(number) + L' ';
    return text + (place.maximised ? L"maximised" : L"normal");
}

std::optional<WindowPlace> ParsePlace(const std::wstring& text) {
    int left = 0, top = 0, width = 0, height = 0, dpi = 0, end = 0;
    wchar_t state[16] = {};
    const int read = swscanf(text.c_str(), L"%d %d %d %d %d %15ls%n", &left, &top, &width, &height, &dpi, state, &end);
    if (read != 6 || static_cast<size_t>(end) != text.size()) return std::nullopt;
    const auto beyond = [](int number) { return number < -kFarthest || number > kFarthest; };
    if (beyond(left) || beyond(top) || beyond(width) || beyond(height) || width <= 0 || height <= 0)
        return std::nullopt;
    if (dpi < USER_DEFAULT_SCREEN_DPI / 2 || dpi > USER_DEFAULT_SCREEN_DPI * 10) return std::nullopt;
    const bool maximised = std::wstring_view(state) == L"maximised";
    if (!maximised && std::wstring_view(state) != L"normal") return std::nullopt;
    return WindowPlace{{left, top, left + width, top + height}, maximised, dpi};
}

std::wstring DisplayArrangement() {
    std::vector<RECT> displays;
    EnumDisplayMonitors(nullptr, nullptr, AddDisplay, reinterpret_cast<LPARAM>(&displays));
    std::sort(displays.begin(), displays.end(),
              [](const RECT& a, const RECT& b) { return a.left != b.left ? a.left < b.left : a.top < b.top; });
    std::wstring name;
    for (const RECT& place : displays) {
        if (!name.empty()) name += L' ';
        name += std::to_wstring(place.right - place.left) + L'x' + std::to_wstring(place.bottom - place.top) + L'@' +
                std::to_wstring(place.left) + L',' + std::to_wstring(place.top);
    }
    return name;
}

std::optional<WindowPlace> LoadPlace(const std::wstring& windowClass, const std::wstring& arrangement) {
    const std::wstring key = kPlaces + windowClass;
    const auto place = LoadValue(key, arrangement.c_str());
    return place ? place : LoadValue(key, kLast);
}

void StorePlace(const std::wstring& windowClass, const std::wstring& arrangement, const WindowPlace& place) {
    const std::wstring key = kPlaces + windowClass;
    const std::wstring text = PlaceText(place);
    const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    for (const wchar_t* name : {arrangement.c_str(), kLast})
        RegSetKeyValueW(HKEY_CURRENT_USER, key.c_str(), name, REG_SZ, text.c_str(), bytes);
}

RECT BroughtInto(const RECT& work, RECT place, int overhang) {
    BringBetween(work.left - overhang, work.right + overhang, place.left, place.right);
    BringBetween(work.top, work.bottom + overhang, place.top, place.bottom);
    return place;
}

RECT BroughtIntoView(const RECT& place) {
    const int overhang = GetSystemMetrics(SM_CXSIZEFRAME) + GetSystemMetrics(SM_CXPADDEDBORDER);
    return BroughtInto(WorkAreaAt(place), place, overhang);
}

RECT Centred(const RECT& place) {
    const RECT work = WorkAreaAt(place);
    const LONG width = place.right - place.left;
    const LONG height = place.bottom - place.top;
    const LONG left = (work.left + work.right - width) / 2;
    const LONG top = std::max(work.top, (work.top + work.bottom - height) / 2);
    return {left, top, left + width, top + height};
}
