#include "tests/support/message_boxes.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

thread_local MessageBoxes* live = nullptr;

constexpr int kTextControl = 0xFFFF;
constexpr UINT_PTR kReadLater = 0x4A4D;  // timer of a box

// The icon's control id differs between systems: 20 on Windows, 1088 under Wine.
HICON IconOf(HWND box) {
    for (const int id : {20, 1088}) {
        if (const HWND control = GetDlgItem(box, id)) {
            if (const auto icon = reinterpret_cast<HICON>(SendMessageW(control, STM_GETICON, 0, 0))) return icon;
        }
    }
    return nullptr;
}

UINT IconFlag(HICON icon) {
    if (!icon) return 0;
    if (icon == LoadIconW(nullptr, IDI_EXCLAMATION)) return MB_ICONEXCLAMATION;
    if (icon == LoadIconW(nullptr, IDI_HAND)) return MB_ICONHAND;
    if (icon == LoadIconW(nullptr, IDI_ASTERISK)) return MB_ICONINFORMATION;
    if (icon == LoadIconW(nullptr, IDI_QUESTION)) return MB_ICONQUESTION;
    return 0xFFFFFFFF;
}

UINT ButtonsOf(HWND box) {
    const auto shown = [box](int id) {
        const HWND button = GetDlgItem(box, id);
        return button && (GetWindowLongPtrW(button, GWL_STYLE) & WS_VISIBLE);
    };
    if (shown(IDABORT)) return MB_ABORTRETRYIGNORE;
    if (shown(IDRETRY)) return MB_RETRYCANCEL;
    if (shown(IDYES)) return shown(IDCANCEL) ? MB_YESNOCANCEL : MB_YESNO;
    return shown(IDOK) && shown(IDCANCEL) ? MB_OKCANCEL : MB_OK;
}

std::wstring TextOf(HWND window) {
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

// The system's own boxes are dialogs that belong to no module of ours.
bool IsMessageBox(HWND window) {
    wchar_t className[16] = {};
    GetClassNameW(window, className, 16);
    return std::wstring(className) == L"#32770" && GetDlgItem(window, kTextControl) &&
           reinterpret_cast<HMODULE>(GetWindowLongPtrW(window, GWLP_HINSTANCE)) != GetModuleHandleW(nullptr);
}

}  // namespace

MessageBoxes::MessageBoxes() {
    EXPECT_EQ(live, nullptr) << "one MessageBoxes a thread";
    live = this;
    hook_ = SetWindowsHookExW(WH_CBT, Hook, nullptr, GetCurrentThreadId());
    EXPECT_NE(hook_, nullptr);
}

MessageBoxes::~MessageBoxes() {
    UnhookWindowsHookEx(hook_);
    live = nullptr;
    for (const Expected& missing : expected_) {
        ADD_FAILURE() << "a message box never came: title \"" << testing::PrintToString(missing.title) << "\", text \""
                      << testing::PrintToString(missing.text) << "\"";
    }
}

std::wstring MessageBoxes::SystemText(DWORD error) {
    wchar_t text[300] = L"";
    FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0, text, 300, nullptr);
    std::wstring shown = text;
    shown.erase(shown.find_last_not_of(L"\r\n ") + 1);
    return shown;
}

void MessageBoxes::Expect(std::wstring title, std::wstring text, int answer) {
    expected_.push_back({std::move(title), std::move(text), answer});
}

LRESULT CALLBACK MessageBoxes::Hook(int code, WPARAM wparam, LPARAM lparam) {
    const auto box = reinterpret_cast<HWND>(wparam);
    if (code == HCBT_ACTIVATE && live && IsMessageBox(box)) {
        // One that is modal to the whole task can be active before it has its text: then it is read a little later.
        if (TextOf(GetDlgItem(box, kTextControl)).empty()) {
            SetTimer(box, kReadLater, 1, ReadLater);
        } else {
            live->OnBox(box);
        }
    }
    return CallNextHookEx(nullptr, code, wparam, lparam);
}

void CALLBACK MessageBoxes::ReadLater(HWND box, UINT, UINT_PTR timer, DWORD) {
    KillTimer(box, timer);
    if (live) live->OnBox(box);
}

void MessageBoxes::OnBox(HWND box) {
    if (std::find(answered_.begin(), answered_.end(), box) != answered_.end()) return;
    answered_.push_back(box);
    seen_.push_back({TextOf(box), TextOf(GetDlgItem(box, kTextControl)), IconFlag(IconOf(box)), ButtonsOf(box),
                     GetWindow(box, GW_OWNER)});
    const SeenBox& seen = seen_.back();

    int answer = seen.buttons == MB_YESNO ? IDNO : seen.buttons == MB_OK ? IDOK : IDCANCEL;
    if (expected_.empty()) {
        ADD_FAILURE() << "a message box nobody expected: title \"" << testing::PrintToString(seen.title)
                      << "\", text \"" << testing::PrintToString(seen.text) << "\"";
    } else {
        EXPECT_EQ(seen.title, expected_.front().title);
        EXPECT_EQ(seen.text, expected_.front().text);
        answer = expected_.front().answer;
        expected_.pop_front();
    }
    PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(answer), 0);
}
