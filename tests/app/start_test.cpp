// How the program starts and stops.
#include <aygshell.h>
#include <px.h>

#include <gmock/gmock.h>

#include "res/ids.h"
#include "tests/app/app_fixture.h"
#include "tests/support/pump.h"

namespace {

using testing::ElementsAre;

using StartTest = AppFixture;

TEST_F(StartTest, ShowsTheMainWindowWithTheListFilledAndFocused) {
    Write({L"one", L"two"});
    ASSERT_TRUE(Start());
    EXPECT_TRUE(window_->IsVisible());
    EXPECT_TRUE(window_->IsClass(L"JCLASS"));
    std::wstring title;
    window_->GetText(title);
    EXPECT_EQ(title, L"Quillon Journal");
    EXPECT_THAT(Subjects(), ElementsAre(L"one", L"two"));
    EXPECT_TRUE(List().IsVisible());
    EXPECT_EQ(GetFocus(), List().GetHandle());
}

TEST_F(StartTest, TheClientAreaIsTheDevicesScreenBelowItsTitle) {
    ASSERT_TRUE(Start());
    SIPINFO panel = {};
    panel.cbSize = sizeof(panel);
    ASSERT_TRUE(SHSipInfo(SPI_GETSIPINFO, 0, &panel, 0));
    ASSERT_EQ(panel.fdwFlags & SIPF_ON, 0u);
    RECT client;
    window_->GetClientRect(&client);
    EXPECT_EQ(client.right, panel.rcVisibleDesktop.right - panel.rcVisibleDesktop.left);
    EXPECT_EQ(client.bottom, panel.rcVisibleDesktop.bottom - panel.rcVisibleDesktop.top - Px(26));
}

TEST_F(StartTest, WithTheInputPanelUpTheClientAreaIsTheVisibleDesktop) {
    SHSipPreference(nullptr, SIP_UP);
    EXPECT_TRUE(Start());
    SIPINFO panel = {};
    panel.cbSize = sizeof(panel);
    EXPECT_TRUE(SHSipInfo(SPI_GETSIPINFO, 0, &panel, 0));
    RECT client;
    window_->GetClientRect(&client);
    EXPECT_EQ(client.bottom, panel.rcVisibleDesktop.bottom - panel.rcVisibleDesktop.top);
    RECT list;
    List().GetWindowRect(&list);
    window_->ScreenToClient(&list);
    EXPECT_EQ(list.bottom, client.bottom);

    SHSipPreference(nullptr, SIP_FORCEDOWN);
    List().GetWindowRect(&list);
    window_->ScreenToClient(&list);
    EXPECT_EQ(list.bottom, panel.rcVisibleDesktop.bottom + panel.rcSipRect.bottom - panel.rcSipRect.top);
}

TEST_F(StartTest, TheListFillsTheClientAreaBelowTheBar) {
    ASSERT_TRUE(Start());
    RECT client;
    window_->GetClientRect(&client);
    RECT list;
    List().GetWindowRect(&list);
    window_->ScreenToClient(&list);
    EXPECT_EQ(list.left, 0);
    EXPECT_EQ(list.top, Px(26));
    EXPECT_EQ(list.right, client.right);
    EXPECT_EQ(list.bottom, client.bottom);
}

TEST_F(StartTest, TheBarNamesFilterAndSortField) {
    app_->WriteInt(L"Options", L"SortBy", 107);
    ASSERT_TRUE(Start());
    EXPECT_EQ(window_->Bar().GetButtonText(IDM_SHOW), L"All");
    EXPECT_EQ(window_->Bar().GetButtonText(IDM_SORT), L"Priority");
}

TEST_F(StartTest, TheMenuBarHasNewToolsFindAndFilter) {
    ASSERT_TRUE(Start());
    const HWND bar = window_->GetMenuBar();
    ASSERT_NE(bar, nullptr);
    const HMENU tools = SHGetSubMenu(bar, IDM_TOOLS);
    std::vector<UINT> ids;
    for (int i = 0; i < GetMenuItemCount(tools); ++i)
        ids.push_back(GetMenuItemID(tools, i));
    EXPECT_THAT(ids, ElementsAre(40014u, 40015u, 40016u, 40003u));
    for (const UINT button : {UINT{IDM_SHAREDNEW}, UINT{IDM_TOOLS}, UINT{IDM_FIND}, UINT{IDM_FILTER}}) {
        EXPECT_NE(::SendMessageW(bar, TB_GETSTATE, button, 0), -1) << button;
    }
}

// A window like the journal's that counts how often it is activated.
class RunningWindow {
public:
    RunningWindow() {
        WNDCLASSW windowClass = {};
        windowClass.lpfnWndProc = Procedure;
        windowClass.hInstance = GetModuleHandleW(nullptr);
        windowClass.lpszClassName = L"JCLASS";
        EXPECT_NE(RegisterClassW(&windowClass), 0);
        handle_ = CreateWindowExW(0, L"JCLASS", L"Quillon Journal", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 100, 100,
                                  nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    }
    ~RunningWindow() { DestroyWindow(handle_); }
    RunningWindow(const RunningWindow&) = delete;
    RunningWindow& operator=(const RunningWindow&) = delete;

    HWND Handle() const { return handle_; }

    static int activations;

private:
    static LRESULT CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) {
        if (message == WM_ACTIVATE && LOWORD(wparam) != WA_INACTIVE) ++activations;
        return DefWindowProcW(hwnd, message, wparam, lparam);
    }

    HWND handle_ = nullptr;
};

int RunningWindow::activations = 0;

TEST_F(StartTest, ASecondStartBringsTheRunningWindowForwardAndEnds) {
    const RunningWindow running;
    const HWND other = CreateWindowExW(0, L"STATIC", L"other", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 100, 100,
                                       nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    SetForegroundWindow(other);
    RunningWindow::activations = 0;
    EXPECT_FALSE(Start());
    EXPECT_EQ(app_->GetMainWindow(), nullptr);
    EXPECT_EQ(RunningWindow::activations, 1);
    DestroyWindow(other);
}

TEST_F(StartTest, ASecondStartBringsBackAScreenThatWasMinimised) {
    const RunningWindow running;
    const HWND screen = CreateWindowExW(0, L"STATIC", L"screen", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 100, 100,
                                        running.Handle(), nullptr, GetModuleHandleW(nullptr), nullptr);
    SetForegroundWindow(screen);
    EnableWindow(running.Handle(), FALSE);
    ShowWindow(screen, SW_MINIMIZE);
    ASSERT_TRUE(IsIconic(screen));
    // A window manager that is late with minimising does it once more after the screen is back; then so is the start.
    const auto isBackAfterStart = [&] {
        EXPECT_FALSE(Start());
        PumpOnce();
        return !IsIconic(screen);
    };
    EXPECT_TRUE(PumpUntil(isBackAfterStart));
    EXPECT_TRUE(IsWindowVisible(screen));
}

TEST_F(StartTest, AClassOfThatNameEndsTheStartSilently) {
    WNDCLASSW other = {};
    other.lpfnWndProc = DefWindowProcW;
    other.hInstance = GetModuleHandleW(nullptr);
    other.lpszClassName = L"JCLASS";
    ASSERT_NE(RegisterClassW(&other), 0);
    EXPECT_FALSE(Start());
    EXPECT_EQ(app_->GetMainWindow(), nullptr);
}

TEST_F(StartTest, WithoutComItSaysSoAndEnds) {
    // A thread that is in the other kind of apartment already cannot enter this one.
    ASSERT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_MULTITHREADED)));
    boxes_.Expect(L"Journal Error", L"Failed to Initialize Pocket Outlook");
    EXPECT_FALSE(Start());
    ASSERT_EQ(boxes_.Seen().size(), 1u);
    EXPECT_EQ(boxes_.Seen()[0].buttons, static_cast<UINT>(MB_OK));
    EXPECT_EQ(boxes_.Seen()[0].icon, 0u);
    CoUninitialize();
}

TEST_F(StartTest, AStoreThatWillNotOpenEndsTheStart) {
    CeFailCall("CeCreateDatabase", 1, ERROR_DISK_FULL);
    boxes_.Expect(L"CE Database Error", L"Error: 112(111)\ncedbase");
    EXPECT_FALSE(Start());
    EXPECT_EQ(boxes_.Seen().size(), 1u);
    EXPECT_FALSE(window_ != nullptr && window_->IsWindow());
}

class CloseTest : public AppFixture, public testing::WithParamInterface<UINT> {};

TEST_P(CloseTest, ClosesTheStoreAndForgetsTheSelection) {
    const auto ids = Write({L"one"});
    ASSERT_TRUE(Start());
    List().SelectEntry(ids[0]);
    const HWND handle = window_->GetHandle();
    SendMessageW(handle, GetParam(), 0, 0);
    EXPECT_FALSE(IsWindow(handle));
    EXPECT_EQ(journal_.GetHandle(), nullptr);
    EXPECT_TRUE(selection_.Ids().empty());
    EXPECT_EQ(selection_.Current(), 0u);
    MSG quit;
    ASSERT_TRUE(PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(quit.wParam, 0u);
}

TEST_P(CloseTest, LetsAnOpenEditorWriteFirst) {
    ASSERT_TRUE(Start());
    bool wasOpen = false;
    FakeEditor::finish = [&] { wasOpen = journal_.GetHandle() != nullptr; };
    FakeEditor::edit = [&](CEOID id) {
        window_->SendMessage(GetParam());
        return id;
    };
    Command(IDM_NEW_ENTRY);
    FakeEditor::Reset();
    EXPECT_TRUE(wasOpen);
    EXPECT_FALSE(window_->IsWindow());
    MSG quit;
    EXPECT_TRUE(PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}

INSTANTIATE_TEST_SUITE_P(Messages, CloseTest, testing::Values(WM_CLOSE, 1023u));

// ---- Other messages of the window ----

using MainWindowTest = AppFixture;

TEST_F(MainWindowTest, LongWorkShowsTheBusyCursorAndEndsWithARebuild) {
    ASSERT_TRUE(Start());
    window_->SendMessage(1125, 1);
    EXPECT_EQ(app_->BusyCount(), 1);
    Write({L"one"});
    EXPECT_EQ(List().GetItemCount(), 0);
    window_->SendMessage(1125, 2);
    EXPECT_EQ(app_->BusyCount(), 0);
    EXPECT_THAT(Subjects(), ElementsAre(L"one"));
}

TEST_F(MainWindowTest, TheListFollowsTheWindowsSize) {
    Write(std::vector<std::wstring>(60, L"entry"));
    ASSERT_TRUE(Start());
    RECT frame;
    window_->GetWindowRect(&frame);
    List().SetItemState(55, LVIS_FOCUSED, LVIS_FOCUSED);
    window_->SetWindowPos(nullptr, 0, 0, frame.right - frame.left + 60, frame.bottom - frame.top - 40,
                          SWP_NOMOVE | SWP_NOZORDER);
    RECT client;
    window_->GetClientRect(&client);
    RECT list;
    List().GetWindowRect(&list);
    window_->ScreenToClient(&list);
    EXPECT_EQ(list.right, client.right);
    EXPECT_EQ(list.bottom, client.bottom);
    RECT inner;
    List().GetClientRect(&inner);
    EXPECT_EQ(List().GetColumnWidth(0) + List().GetColumnWidth(1), inner.right);
    RECT row;
    ASSERT_TRUE(List().GetItemRect(55, &row));
    EXPECT_LE(row.bottom, inner.bottom);
    EXPECT_GE(row.top, 0);
}

TEST_F(MainWindowTest, OtherSettingsLeaveTheListAlone) {
    ASSERT_TRUE(Start());
    List().MoveWindow(0, Px(26), 50, 50);
    window_->SendMessage(WM_SETTINGCHANGE, SPI_SETWORKAREA);
    RECT list;
    List().GetWindowRect(&list);
    EXPECT_EQ(list.right - list.left, 50);
    window_->SendMessage(WM_SETTINGCHANGE, SPI_SETSIPINFO);
    List().GetWindowRect(&list);
    EXPECT_GT(list.right - list.left, 50);
}

TEST_F(MainWindowTest, PutsItselfIntoTheShellsNewMenu) {
    ASSERT_TRUE(Start());
    NMNEWMENU query = {};
    query.hdr = {window_->GetMenuBar(), 0, NMN_GETAPPREGKEY};
    query.hMenu = CreatePopupMenu();
    window_->SendMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&query));
    ASSERT_EQ(GetMenuItemCount(query.hMenu), 1);
    EXPECT_EQ(GetMenuItemID(query.hMenu, 0), 3001u);
    wchar_t text[40] = L"";
    GetMenuStringW(query.hMenu, 0, text, 40, MF_BYPOSITION);
    EXPECT_STREQ(text, L"Quillon Journal");
    DestroyMenu(query.hMenu);
}

}  // namespace
