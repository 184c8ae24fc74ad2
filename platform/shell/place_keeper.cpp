#include "platform/shell/place_keeper.h"

#include <new>

#include "platform/shell/screen_geometry.h"

namespace {

std::wstring ClassOf(HWND window) {
    wchar_t name[256] = {};
    GetClassNameW(window, name, ARRAYSIZE(name));
    return name;
}

RECT ScaledTo(int dpi, const WindowPlace& place) {
    const RECT& rect = place.normal;
    return {rect.left, rect.top, rect.left + MulDiv(rect.right - rect.left, dpi, place.dpi),
            rect.top + MulDiv(rect.bottom - rect.top, dpi, place.dpi)};
}

}  // namespace

PlaceKeeper::PlaceKeeper(HWND window) : window_(window), class_(ClassOf(window)), forced_(ForcedScreen().has_value()) {}

std::unique_ptr<PlaceKeeper> PlaceKeeper::Begin(HWND window) {
    const auto style = static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE));
    if ((style & (WS_CHILD | WS_VISIBLE)) || !(style & WS_MAXIMIZEBOX) || GetWindow(window, GW_OWNER)) return nullptr;
    std::unique_ptr<PlaceKeeper> keeper(new (std::nothrow) PlaceKeeper(window));
    if (keeper) keeper->Restore();
    return keeper;
}

void PlaceKeeper::Restore() {
    const auto kept = forced_ ? std::nullopt : LoadPlace(class_, DisplayArrangement());
    GetWindowRect(window_, &normal_);
    normal_ = kept ? BroughtIntoView(ScaledTo(ScreenDpi(), *kept)) : Centred(normal_);
    before_ = normal_;
    maximise_ = kept && kept->maximised;
    MoveTo(normal_);
}

void PlaceKeeper::MoveTo(const RECT& place) const {
    SetWindowPos(window_, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

// A window manager may size a window first and say afterwards that this was maximising it.
void PlaceKeeper::OnPositionChanged(const WINDOWPOS& position) {
    if (IsIconic(window_)) return;
    RECT now{};
    GetWindowRect(window_, &now);
    if (IsZoomed(window_)) {
        if (EqualRect(&now, &normal_)) normal_ = before_;
    } else if (!EqualRect(&now, &normal_)) {
        before_ = normal_;
        normal_ = now;
    }
    if (position.flags & SWP_SHOWWINDOW) shown_ = true;
}

// Maximised before it is to be seen, so that no window manager sees it at its other size first.
void PlaceKeeper::OnShow() {
    if (!maximise_) return;
    maximise_ = false;
    ShowWindow(window_, SW_SHOWMAXIMIZED);
}

void PlaceKeeper::OnDisplayChange() {
    if (forced_ || !shown_ || !IsPlain()) return;
    const auto kept = LoadPlace(class_, DisplayArrangement());
    MoveTo(BroughtIntoView(kept ? ScaledTo(ScreenDpi(), *kept) : normal_));
}

void PlaceKeeper::Save() const {
    if (forced_ || !shown_) return;
    WINDOWPLACEMENT placement{};
    placement.length = sizeof(placement);
    GetWindowPlacement(window_, &placement);
    const bool maximised =
        IsZoomed(window_) || (IsIconic(window_) && (placement.flags & WPF_RESTORETOMAXIMIZED)) || maximise_;
    StorePlace(class_, DisplayArrangement(), {normal_, maximised, ScreenDpi()});
}
