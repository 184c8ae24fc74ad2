#include "tests/richink/rich_ink_fixture.h"

#include <algorithm>
#include <string_view>

namespace {

constexpr int kInkId = 103;

// Gives 100 bytes at a time, so that words and characters are split between pieces.
DWORD CALLBACK Give(DWORD_PTR cookie, LPBYTE buffer, LONG wanted, LONG* given) {
    auto& rest = *reinterpret_cast<std::string_view*>(cookie);
    *given = static_cast<LONG>(std::min({static_cast<size_t>(wanted), rest.size(), size_t{100}}));
    std::copy_n(rest.data(), *given, buffer);
    rest.remove_prefix(*given);
    return 0;
}

DWORD CALLBACK Take(DWORD_PTR cookie, LPBYTE buffer, LONG offered, LONG* taken) {
    reinterpret_cast<std::string*>(cookie)->append(reinterpret_cast<const char*>(buffer), offered);
    *taken = offered;
    return 0;
}

}  // namespace

RichInkTest::RichInkTest() {
    InitRichInkDLL();
    WNDCLASSW window{};
    window.lpfnWndProc = Procedure;
    window.hInstance = GetModuleHandleW(nullptr);
    window.lpszClassName = L"RichInkTest";
    RegisterClassW(&window);
    parent_ = CreateWindowExW(0, window.lpszClassName, L"Rich ink", WS_POPUP | WS_VISIBLE, 50, 50, 240, 240, nullptr,
                              nullptr, window.hInstance, this);
    ink_ = CreateWindowExW(0, WC_RICHINK, nullptr, WS_CHILD | WS_VISIBLE | WS_VSCROLL, 0, 0, 240, 240, parent_,
                           reinterpret_cast<HMENU>(INT_PTR{kInkId}), nullptr, nullptr);
    EXPECT_NE(ink_, nullptr);
    SetFocus(ink_);
    Forget();
}

RichInkTest::~RichInkTest() {
    DestroyWindow(parent_);
}

LRESULT CALLBACK RichInkTest::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_NCCREATE) {
        SetWindowLongPtrW(window, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(reinterpret_cast<CREATESTRUCTW*>(lparam)->lpCreateParams));
    }
    if (message == WM_COMMAND && LOWORD(wparam) == kInkId) {
        auto* test = reinterpret_cast<RichInkTest*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        test->codes_.push_back(HIWORD(wparam));
    }
    return DefWindowProcW(window, message, wparam, lparam);
}

DWORD RichInkTest::Load(UINT format, const std::string& bytes) const {
    std::string_view rest = bytes;
    EDITSTREAM stream{};
    stream.dwCookie = reinterpret_cast<DWORD_PTR>(&rest);
    stream.pfnCallback = Give;
    const LRESULT result = Send(EM_STREAMIN, format, reinterpret_cast<LPARAM>(&stream));
    EXPECT_EQ(static_cast<DWORD>(result), stream.dwError);
    return stream.dwError;
}

DWORD RichInkTest::LoadText(const std::wstring& text) const {
    return Load(kText, {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t)});
}

std::string RichInkTest::Save(UINT format) const {
    std::string bytes;
    EDITSTREAM stream{};
    stream.dwCookie = reinterpret_cast<DWORD_PTR>(&bytes);
    stream.pfnCallback = Take;
    EXPECT_EQ(Send(EM_STREAMOUT, format, reinterpret_cast<LPARAM>(&stream)), 0);
    EXPECT_EQ(stream.dwError, 0u);
    return bytes;
}

std::wstring RichInkTest::Text() const {
    std::wstring text(GetWindowTextLengthW(ink_) + 1, L'\0');
    text.resize(GetWindowTextW(ink_, text.data(), static_cast<int>(text.size())));
    std::erase(text, L'\r');
    return text;
}

void RichInkTest::Write(const std::wstring& text) const {
    for (const wchar_t c : text)
        Send(WM_CHAR, c, 1);
}

void RichInkTest::PutOnClipboard(const std::wstring& text) {
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t));
    std::copy_n(text.c_str(), text.size() + 1, static_cast<wchar_t*>(GlobalLock(memory)));
    GlobalUnlock(memory);
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    SetClipboardData(CF_UNICODETEXT, memory);
    CloseClipboard();
}

int RichInkTest::Count(WORD code) const {
    return static_cast<int>(std::count(codes_.begin(), codes_.end(), code));
}
