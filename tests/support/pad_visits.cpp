#include "tests/support/pad_visits.h"

#include <gtest/gtest.h>

#include "res/ids.h"

namespace {

constexpr UINT kPause = 10;  // milliseconds between two looks

BOOL CALLBACK FindPad(HWND window, LPARAM found) {
    if (!IsWindowVisible(window) || !GetDlgItem(window, IDC_PIN_DISPLAY)) return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

}  // namespace

PadVisits* PadVisits::live_ = nullptr;

PadVisits::PadVisits() {
    EXPECT_EQ(live_, nullptr);
    live_ = this;
    timer_ = SetTimer(nullptr, 0, kPause, OnTimer);
}

PadVisits::~PadVisits() {
    KillTimer(nullptr, timer_);
    live_ = nullptr;
    EXPECT_TRUE(scripts_.empty()) << scripts_.size() << " pads never came";
}

void PadVisits::ExpectDigits(std::wstring digits) {
    Expect([this, digits] {
        Tap(digits);
        Ok();
    });
}

void PadVisits::Tap(const std::wstring& keys) const {
    for (const wchar_t key : keys) {
        const int id = key == L'C' ? IDC_PIN_CLEAR : key == L'0' ? IDC_PIN_ZERO : IDC_PIN_FIRST_DIGIT + (key - L'1');
        SendMessageW(Item(id), BM_CLICK, 0, 0);
    }
}

void PadVisits::Ok() const {
    SendMessageW(pad_, WM_COMMAND, IDOK, 0);
}

std::wstring PadVisits::TextOf(int id) const {
    wchar_t text[1000] = L"";
    GetWindowTextW(Item(id), text, 1000);
    return text;
}

void CALLBACK PadVisits::OnTimer(HWND, UINT, UINT_PTR, DWORD) noexcept {
    if (live_) live_->Look();
}

void PadVisits::Look() {
    if (pad_) return;  // its script is running, in a loop of its own
    EnumThreadWindows(GetCurrentThreadId(), FindPad, reinterpret_cast<LPARAM>(&pad_));
    if (!pad_) return;
    ++seen_;
    if (scripts_.empty()) {
        ADD_FAILURE() << "a pad came that nobody expected";
    } else {
        const Script script = std::move(scripts_.front());
        scripts_.pop_front();
        script();
    }
    if (IsWindowVisible(pad_)) Ok();
    pad_ = nullptr;
}
