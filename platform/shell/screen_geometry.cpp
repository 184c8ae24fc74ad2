#include "platform/shell/screen_geometry.h"

#include <algorithm>
#include <string>

#include "px.h"

namespace {

constexpr int kSmallestSide = 160;
constexpr int kLargestSide = 3840;
constexpr SIZE kSmallestContent{200, 200};

std::optional<int> ParseNumber(std::wstring_view text) {
    if (text.empty() || text.size() > 4) return std::nullopt;
    int number = 0;
    for (const wchar_t c : text) {
        if (c < L'0' || c > L'9') return std::nullopt;
        number = number * 10 + (c - L'0');
    }
    return number;
}

std::wstring Environment(const wchar_t* name) {
    wchar_t buffer[32];
    const DWORD length = GetEnvironmentVariableW(name, buffer, ARRAYSIZE(buffer));
    return length < ARRAYSIZE(buffer) ? std::wstring(buffer, length) : std::wstring();  // longer ones are no sizes
}

std::wstring StoredScreen() {
    wchar_t buffer[32] = {};
    DWORD bytes = sizeof(buffer);
    if (RegGetValueW(HKEY_CURRENT_USER, L"Software\\Pocket PC", L"Screen", RRF_RT_REG_SZ, nullptr, buffer, &bytes)) {
        return {};
    }
    return buffer;
}

int FindDpi() {
    if (const auto dpi = ParseScale(Environment(L"CE_SCALE"))) return *dpi;
    const HDC screen = GetDC(nullptr);
    const int dpi = screen ? GetDeviceCaps(screen, LOGPIXELSX) : 0;
    if (screen) ReleaseDC(nullptr, screen);
    return dpi > 0 ? dpi : USER_DEFAULT_SCREEN_DPI;
}

}  // namespace

std::optional<SIZE> ParseScreenSize(std::wstring_view text) {
    const size_t cross = text.find(L'x');
    if (cross == std::wstring_view::npos) return std::nullopt;
    const auto width = ParseNumber(text.substr(0, cross));
    const auto height = ParseNumber(text.substr(cross + 1));
    const auto sound = [](std::optional<int> side) { return side && *side >= kSmallestSide && *side <= kLargestSide; };
    if (!sound(width) || !sound(height)) return std::nullopt;
    return SIZE{*width, *height};
}

std::optional<int> ParseScale(std::wstring_view text) {
    const auto percent = ParseNumber(text);
    if (!percent || *percent < 50 || *percent > 400) return std::nullopt;
    return MulDiv(USER_DEFAULT_SCREEN_DPI, *percent, 100);
}

std::optional<SIZE> ForcedScreen() {
    const auto screen = ParseScreenSize(Environment(L"CE_SCREEN"));
    return screen ? screen : ParseScreenSize(StoredScreen());
}

SIZE ContentSize() {
    SIZE content = ForcedScreen().value_or(kDefaultScreen);
    content.cy -= kTitleArea;
    return content;
}

SIZE SmallestContent() {
    const SIZE content = ContentSize();
    return {std::min(content.cx, kSmallestContent.cx), std::min(content.cy, kSmallestContent.cy)};
}

int ScreenDpi() {
    static const int dpi = FindDpi();
    return dpi;
}

int Px(int logical) {
    const int scaled = MulDiv(logical, ScreenDpi(), USER_DEFAULT_SCREEN_DPI);
    if (scaled != 0 || logical == 0) return scaled;
    return logical > 0 ? 1 : -1;
}
