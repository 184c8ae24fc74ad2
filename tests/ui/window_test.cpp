#include "ui/window.h"

#include <gtest/gtest.h>

#include "tests/support/message_boxes.h"
#include "tests/support/pump.h"
#include "tests/ui/test_windows.h"

namespace {

// Gives the tests what derived classes have.
class OpenWindow : public Window {
public:
    using Window::CallReplaced;
    using Window::HoldBrush;
    using Window::HoldFont;
};

bool MakeTopLevel(Window& window, DWORD style = WS_OVERLAPPEDWINDOW) {
    return window.Create(PlainClass(L"UiTestPlain"), L"Title", style, 20, 30, 240, 160, nullptr, nullptr,
                         TestInstance(), nullptr);
}

bool IsGdiObject(HGDIOBJ object) {
    return GetObjectType(object) != 0;
}

class WindowTest : public testing::Test {
protected:
    WindowTest() { window_.Attach(recorder_.Handle()); }

    RecordingWindow recorder_;
    OpenWindow window_;
};

}  // namespace

// ---- Life ----

TEST_F(WindowTest, ANewObjectIsDetachedAndEmpty) {
    const Window window;
    EXPECT_EQ(window.GetHandle(), nullptr);
    EXPECT_EQ(window.GetMenuBar(), nullptr);
    EXPECT_EQ(window.GetBrush(), nullptr);
    EXPECT_FALSE(window.IsWindow());
    EXPECT_FALSE(window.FindTimer(0));
}

TEST_F(WindowTest, CreateKeepsTheHandleOfTheWindowItMade) {
    Window window;
    ASSERT_TRUE(MakeTopLevel(window));
    EXPECT_TRUE(window.IsWindow());
    EXPECT_EQ(window.GetExStyle() & WS_EX_TOPMOST, 0u);
    EXPECT_EQ(TextOf(window.GetHandle()), L"Title");
    EXPECT_TRUE(window.Destroy());
}

TEST_F(WindowTest, CreateAnswersFalseForAClassThatDoesNotExist) {
    Window window;
    EXPECT_FALSE(window.Create(L"NoSuchClass", L"", 0, 0, 0, 10, 10, nullptr, nullptr, TestInstance(), nullptr));
    EXPECT_EQ(window.GetHandle(), nullptr);
}

TEST_F(WindowTest, CreateExTakesTheExtendedStyle) {
    Window window;
    ASSERT_TRUE(window.CreateEx(WS_EX_TOOLWINDOW, PlainClass(L"UiTestPlain"), L"", WS_POPUP, 0, 0, 10, 10, nullptr,
                                nullptr, TestInstance(), nullptr));
    EXPECT_NE(window.GetExStyle() & WS_EX_TOOLWINDOW, 0u);
    EXPECT_TRUE(window.Destroy());
}

TEST_F(WindowTest, CreateHandsTheParameterToTheWindow) {
    static void* received;
    received = nullptr;
    WNDCLASSW type = {};
    type.lpfnWndProc = [](HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) -> LRESULT {
        if (message == WM_CREATE) received = reinterpret_cast<CREATESTRUCTW*>(lparam)->lpCreateParams;
        return DefWindowProcW(hwnd, message, wparam, lparam);
    };
    type.hInstance = TestInstance();
    type.lpszClassName = L"UiTestParameter";
    RegisterClassW(&type);
    Window window;
    ASSERT_TRUE(window.Create(L"UiTestParameter", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, TestInstance(), this));
    EXPECT_EQ(received, this);
    EXPECT_TRUE(window.Destroy());
}

TEST_F(WindowTest, AttachRefusesASecondHandle) {
    RecordingWindow other;
    EXPECT_FALSE(window_.Attach(other.Handle()));
    EXPECT_EQ(window_.GetHandle(), recorder_.Handle());
}

TEST_F(WindowTest, DetachForgetsTheHandleAndLeavesTheWindow) {
    EXPECT_TRUE(window_.Detach());
    EXPECT_EQ(window_.GetHandle(), nullptr);
    EXPECT_TRUE(IsWindow(recorder_.Handle()));
    EXPECT_FALSE(window_.Detach());
    EXPECT_TRUE(window_.Attach(recorder_.Handle()));
}

TEST_F(WindowTest, DestroyFreesWhatTheObjectHolds) {
    OpenWindow window;
    ASSERT_TRUE(MakeTopLevel(window));
    const HBRUSH brush = CreateSolidBrush(RGB(0, 0, 255));
    window.HoldBrush(UniqueBrush(brush));
    EXPECT_EQ(window.GetBrush(), brush);
    const HWND handle = window.GetHandle();
    EXPECT_TRUE(window.Destroy());
    EXPECT_FALSE(IsWindow(handle));
    EXPECT_FALSE(IsGdiObject(brush));
    EXPECT_EQ(window.GetHandle(), nullptr);
    EXPECT_FALSE(window.Destroy());
}

TEST_F(WindowTest, TheDestructorLeavesTheWindowAlone) {
    {
        Window window;
        window.Attach(recorder_.Handle());
    }
    EXPECT_TRUE(IsWindow(recorder_.Handle()));
}

TEST_F(WindowTest, TheHookTakesNoMessage) {
    MSG message = {};
    EXPECT_FALSE(window_.PreTranslate(&message));
}

TEST_F(WindowTest, ADetachedObjectTouchesNothing) {
    Window window;
    EXPECT_EQ(window.SendMessage(WM_GETTEXTLENGTH), 0);
    EXPECT_FALSE(window.PostMessage(WM_APP));
    MSG message;
    EXPECT_FALSE(PeekMessageW(&message, reinterpret_cast<HWND>(-1), WM_APP, WM_APP, PM_REMOVE));
    EXPECT_FALSE(window.Invalidate());
    EXPECT_FALSE(window.Validate());
    EXPECT_FALSE(window.SetTimer(1, 10));
    EXPECT_FALSE(window.Subclass(DefWindowProcW));
    RECT rect;
    EXPECT_FALSE(window.GetClientRect(&rect));
    std::wstring text = L"before";
    window.GetText(text);
    EXPECT_EQ(text, L"");
}

// ---- State and styles ----

TEST_F(WindowTest, ShowHideAndEnableAnswerTheStateBefore) {
    EXPECT_FALSE(window_.IsVisible());
    EXPECT_FALSE(window_.Show());
    EXPECT_TRUE(window_.IsVisible());
    EXPECT_TRUE(window_.Hide());
    EXPECT_FALSE(window_.IsVisible());
    EXPECT_TRUE(window_.IsEnabled());
    EXPECT_FALSE(window_.Enable(false));
    EXPECT_FALSE(window_.IsEnabled());
    EXPECT_TRUE(window_.Enable(true));
}

TEST_F(WindowTest, AClassCountsWhenItsNameBeginsWithTheWantedOne) {
    Window list;
    list.Attach(MakeChild(recorder_.Handle(), WC_LISTVIEWW));
    EXPECT_TRUE(list.IsClass(L"SysListView32"));
    EXPECT_TRUE(list.IsClass(L"sYSlISTvIEW32"));
    EXPECT_TRUE(list.IsClass(L"SysL"));
    EXPECT_FALSE(list.IsClass(L"SysListView321"));
    EXPECT_FALSE(list.IsClass(L"SysTab"));
    EXPECT_FALSE(list.IsClass(L"ListView"));
}

TEST_F(WindowTest, TheInputPanelFollowsThePreference) {
    EXPECT_FALSE(window_.IsInputPanelUp());
    EXPECT_TRUE(window_.SipPreference(SIP_UP));
    EXPECT_TRUE(window_.IsInputPanelUp());
    EXPECT_TRUE(window_.SipPreference(SIP_DOWN));
    EXPECT_TRUE(PumpUntil([&] { return !window_.IsInputPanelUp(); }));
}

TEST_F(WindowTest, StylesAreReadAndSet) {
    const DWORD style = window_.GetStyle();
    EXPECT_NE(style & WS_CAPTION, 0u);
    EXPECT_EQ(window_.SetStyle(style & ~static_cast<DWORD>(WS_SYSMENU)), style);
    EXPECT_EQ(window_.GetStyle() & WS_SYSMENU, 0u);
    const DWORD exStyle = window_.GetExStyle();
    EXPECT_EQ(window_.SetExStyle(exStyle | WS_EX_CONTROLPARENT), exStyle);
    EXPECT_NE(window_.GetExStyle() & WS_EX_CONTROLPARENT, 0u);
}

TEST_F(WindowTest, AWindowWordHoldsAPointer) {
    Window child;
    child.Attach(MakeChild(recorder_.Handle(), WC_STATICW));
    const auto value = reinterpret_cast<LONG_PTR>(this);
    child.SetWindowLong(GWLP_USERDATA, value);
    EXPECT_EQ(child.GetWindowLong(GWLP_USERDATA), value);
    EXPECT_EQ(child.GetParent(), recorder_.Handle());
}

// ---- Geometry ----

TEST_F(WindowTest, MovesInScreenCoordinates) {
    ASSERT_TRUE(window_.MoveWindow(50, 60, 320, 220));
    RECT rect;
    ASSERT_TRUE(window_.GetWindowRect(&rect));
    EXPECT_EQ(rect.left, 50);
    EXPECT_EQ(rect.top, 60);
    EXPECT_EQ(rect.right - rect.left, 320);
    EXPECT_EQ(rect.bottom - rect.top, 220);
    ASSERT_TRUE(window_.SetWindowPos(nullptr, 70, 80, 0, 0, SWP_NOSIZE | SWP_NOZORDER));
    ASSERT_TRUE(window_.GetWindowRect(&rect));
    EXPECT_EQ(rect.left, 70);
    EXPECT_EQ(rect.right - rect.left, 320);
}

TEST_F(WindowTest, PointsAndRectanglesMapToTheScreenAndBack) {
    RECT rect = {1, 2, 11, 22};
    ASSERT_TRUE(window_.ClientToScreen(&rect));
    POINT corner = {0, 0};
    ::ClientToScreen(recorder_.Handle(), &corner);
    EXPECT_EQ(rect.left, corner.x + 1);
    EXPECT_EQ(rect.bottom, corner.y + 22);
    ASSERT_TRUE(window_.ScreenToClient(&rect));
    EXPECT_EQ(rect.left, 1);
    EXPECT_EQ(rect.top, 2);
    EXPECT_EQ(rect.right, 11);
    EXPECT_EQ(rect.bottom, 22);
    ASSERT_TRUE(window_.ScreenToClient(&corner));
    EXPECT_EQ(corner.x, 0);
    EXPECT_EQ(corner.y, 0);
}

// ---- Messages and painting ----

TEST_F(WindowTest, SendsAndPostsMessages) {
    window_.SendMessage(WM_APP + 1, 2, 3);
    ASSERT_EQ(recorder_.Seen(WM_APP + 1).size(), 1u);
    EXPECT_EQ(recorder_.Seen(WM_APP + 1)[0].wParam, 2u);
    EXPECT_EQ(recorder_.Seen(WM_APP + 1)[0].lParam, 3);
    EXPECT_TRUE(window_.PostMessage(WM_APP + 2, 4, 5));
    EXPECT_TRUE(recorder_.Seen(WM_APP + 2).empty());
    EXPECT_TRUE(PumpUntil([&] { return recorder_.Seen(WM_APP + 2).size() == 1; }));
}

TEST_F(WindowTest, KillFocusSendsTheWindowThatGetsTheFocus) {
    RecordingWindow next;
    window_.KillFocus(next.Handle());
    ASSERT_EQ(recorder_.Seen(WM_KILLFOCUS).size(), 1u);
    EXPECT_EQ(recorder_.Seen(WM_KILLFOCUS)[0].wParam, reinterpret_cast<WPARAM>(next.Handle()));
}

TEST_F(WindowTest, SetFontSendsTheFont) {
    const HFONT font = static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    window_.SetFont(font);
    ASSERT_EQ(recorder_.Seen(WM_SETFONT).size(), 1u);
    EXPECT_EQ(recorder_.Seen(WM_SETFONT)[0].wParam, reinterpret_cast<WPARAM>(font));
}

TEST_F(WindowTest, AHeldFontReplacesTheOneBefore) {
    const HFONT first = CreateFontW(-10, 0, 0, 0, 400, 0, 0, 0, 0, 0, 0, 0, 0, L"Tahoma");
    const HFONT second = CreateFontW(-12, 0, 0, 0, 400, 0, 0, 0, 0, 0, 0, 0, 0, L"Tahoma");
    window_.HoldFont(UniqueFont(first));
    window_.HoldFont(UniqueFont(second));
    EXPECT_FALSE(IsGdiObject(first));
    EXPECT_TRUE(IsGdiObject(second));
    EXPECT_EQ(recorder_.Seen(WM_SETFONT).size(), 2u);
}

TEST_F(WindowTest, ReleaseBrushFreesIt) {
    const HBRUSH brush = CreateSolidBrush(RGB(255, 0, 0));
    window_.HoldBrush(UniqueBrush(brush));
    window_.ReleaseBrush();
    EXPECT_EQ(window_.GetBrush(), nullptr);
    EXPECT_FALSE(IsGdiObject(brush));
}

TEST_F(WindowTest, InvalidateAndValidateChangeWhatIsToBeDrawn) {
    window_.Show();
    PumpOnce();
    window_.Validate();
    RECT dirty;
    EXPECT_FALSE(GetUpdateRect(recorder_.Handle(), &dirty, FALSE));
    const RECT part = {5, 6, 20, 30};
    EXPECT_TRUE(window_.Invalidate(&part, false));
    ASSERT_TRUE(GetUpdateRect(recorder_.Handle(), &dirty, FALSE));
    EXPECT_TRUE(EqualRect(&dirty, &part));
    EXPECT_TRUE(window_.Validate());
    EXPECT_FALSE(GetUpdateRect(recorder_.Handle(), &dirty, FALSE));
    EXPECT_TRUE(window_.Invalidate());
    const size_t before = recorder_.Seen(WM_PAINT).size();
    EXPECT_TRUE(window_.Update());
    EXPECT_EQ(recorder_.Seen(WM_PAINT).size(), before + 1);
}

TEST_F(WindowTest, FillRectFillsADeviceContext) {
    const HDC dc = window_.GetDC();
    ASSERT_NE(dc, nullptr);
    const HDC memory = CreateCompatibleDC(dc);
    const HBITMAP bitmap = CreateCompatibleBitmap(dc, 10, 10);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    EXPECT_TRUE(window_.FillRect(memory, {0, 0, 5, 5}, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH))));
    EXPECT_EQ(GetPixel(memory, 4, 4), RGB(255, 255, 255));
    EXPECT_EQ(GetPixel(memory, 5, 5), RGB(0, 0, 0));
    SelectObject(memory, before);
    DeleteObject(bitmap);
    DeleteDC(memory);
    EXPECT_TRUE(window_.ReleaseDC(dc));
}

TEST_F(WindowTest, FocusAndActivationAnswerTheWindowBefore) {
    window_.Show();
    EXPECT_TRUE(window_.SetForeground());
    ::SetFocus(recorder_.Handle());
    Window child;
    child.Attach(MakeChild(recorder_.Handle(), WC_EDITW));
    EXPECT_EQ(child.SetFocus(), recorder_.Handle());
    EXPECT_EQ(::GetFocus(), child.GetHandle());
    EXPECT_TRUE(window_.BringToTop());
    EXPECT_EQ(window_.SetActive(), recorder_.Handle());
}

// ---- Text ----

TEST_F(WindowTest, ReadsATextOfAnyLength) {
    Window label;
    label.Attach(MakeChild(recorder_.Handle(), WC_STATICW, 0));
    const std::wstring longText(200'000, L'\u00e4');
    ASSERT_TRUE(label.SetText(longText.c_str()));
    EXPECT_EQ(label.GetTextLength(), 200'000);
    std::wstring text = L"something else";
    label.GetText(text);
    EXPECT_EQ(text, longText);
}

TEST_F(WindowTest, AnEmptyTextReadsAsEmpty) {
    window_.SetText(L"");
    std::wstring text = L"before";
    window_.GetText(text);
    EXPECT_TRUE(text.empty());
    EXPECT_EQ(window_.GetTextLength(), 0);
}

TEST_F(WindowTest, ATextIsCutToTheBuffer) {
    window_.SetText(L"Journal");
    wchar_t buffer[5];
    EXPECT_EQ(window_.GetText(buffer, 5), 4);
    EXPECT_STREQ(buffer, L"Jour");
    wchar_t whole[8];
    EXPECT_EQ(window_.GetText(whole, 8), 7);
    EXPECT_STREQ(whole, L"Journal");
}

// ---- Timers ----

TEST_F(WindowTest, ATimerTicksUntilItIsKilled) {
    EXPECT_FALSE(window_.FindTimer(7));
    ASSERT_TRUE(window_.SetTimer(7, 10));
    EXPECT_TRUE(window_.FindTimer(7));
    EXPECT_TRUE(PumpUntil([&] { return !recorder_.Seen(WM_TIMER).empty(); }));
    EXPECT_EQ(recorder_.Seen(WM_TIMER)[0].wParam, 7u);
    EXPECT_TRUE(window_.KillTimer(7));
    EXPECT_FALSE(window_.FindTimer(7));
    EXPECT_FALSE(window_.KillTimer(7));
}

TEST_F(WindowTest, ATimerStartedAgainIsOneTimer) {
    ASSERT_TRUE(window_.SetTimer(1, 10'000));
    ASSERT_TRUE(window_.SetTimer(2, 10'000));
    ASSERT_TRUE(window_.SetTimer(1, 20'000));
    EXPECT_TRUE(window_.KillTimer(1));
    EXPECT_FALSE(window_.FindTimer(1));
    EXPECT_TRUE(window_.FindTimer(2));
}

TEST_F(WindowTest, ATimerOfSomebodyElseIsLeftAlone) {
    ::SetTimer(recorder_.Handle(), 9, 10'000, nullptr);
    EXPECT_FALSE(window_.KillTimer(9));
    EXPECT_TRUE(::KillTimer(recorder_.Handle(), 9));
}

TEST_F(WindowTest, TimersEndWithTheObject) {
    {
        Window window;
        window.Attach(recorder_.Handle());
        ASSERT_TRUE(window.SetTimer(5, 10));
    }
    EXPECT_FALSE(::KillTimer(recorder_.Handle(), 5));
}

// ---- Message box ----

TEST_F(WindowTest, AMessageBoxIsOwnedByTheWindow) {
    MessageBoxes boxes;
    boxes.Expect(L"Confirm", L"Delete record?", IDNO);
    EXPECT_EQ(window_.MessageBox(L"Delete record?", L"Confirm", MB_YESNO | MB_ICONEXCLAMATION), IDNO);
    ASSERT_EQ(boxes.Seen().size(), 1u);
    EXPECT_EQ(boxes.Seen()[0].owner, recorder_.Handle());
    EXPECT_EQ(boxes.Seen()[0].icon, static_cast<UINT>(MB_ICONEXCLAMATION));
}

// ---- Subclass ----

namespace {

UINT lastMessage;
OpenWindow* subclassed;

LRESULT CALLBACK Replacement(HWND, UINT message, WPARAM wparam, LPARAM lparam) {
    lastMessage = message;
    return subclassed->CallReplaced(message, wparam, lparam);
}

LRESULT CALLBACK Other(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) {
    return DefWindowProcW(hwnd, message, wparam, lparam);
}

WNDPROC ProcedureOf(HWND window) {
    return reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC));
}

}  // namespace

TEST_F(WindowTest, ASubclassSeesMessagesAndPassesThemOn) {
    subclassed = &window_;
    ASSERT_TRUE(window_.Subclass(Replacement));
    window_.SendMessage(WM_APP + 3, 1);
    EXPECT_EQ(lastMessage, static_cast<UINT>(WM_APP + 3));
    EXPECT_EQ(recorder_.Seen(WM_APP + 3).size(), 1u);
    EXPECT_TRUE(window_.Unsubclass());
}

TEST_F(WindowTest, ASecondSubclassIsRefused) {
    const WNDPROC before = ProcedureOf(recorder_.Handle());
    subclassed = &window_;
    ASSERT_TRUE(window_.Subclass(Replacement));
    EXPECT_FALSE(window_.Subclass(Other));
    EXPECT_EQ(ProcedureOf(recorder_.Handle()), Replacement);
    EXPECT_TRUE(window_.Unsubclass());
    EXPECT_EQ(ProcedureOf(recorder_.Handle()), before);
    EXPECT_FALSE(window_.Unsubclass());
}

TEST_F(WindowTest, DetachTakesTimersAndProcedureOutOfTheWindow) {
    const WNDPROC before = ProcedureOf(recorder_.Handle());
    ASSERT_TRUE(window_.Subclass(Other));
    ASSERT_TRUE(window_.SetTimer(3, 10'000));
    ASSERT_TRUE(window_.Detach());
    EXPECT_EQ(ProcedureOf(recorder_.Handle()), before);
    EXPECT_FALSE(::KillTimer(recorder_.Handle(), 3));
    EXPECT_FALSE(window_.FindTimer(3));
    ASSERT_TRUE(window_.Attach(recorder_.Handle()));
    EXPECT_TRUE(window_.Subclass(Other));
}

TEST_F(WindowTest, TheProcedureComesBackWithTheEndOfTheObject) {
    const WNDPROC before = ProcedureOf(recorder_.Handle());
    {
        OpenWindow window;
        window.Attach(recorder_.Handle());
        ASSERT_TRUE(window.Subclass(Other));
    }
    EXPECT_EQ(ProcedureOf(recorder_.Handle()), before);
}
