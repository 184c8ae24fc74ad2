// While a screen is open over the main window, no command from outside opens another: the open one comes to the front.
#include <gmock/gmock.h>

#include <algorithm>

#include "res/ids.h"
#include "tests/app/app_fixture.h"
#include "tests/app/fake_export.h"
#include "tests/app/fake_options.h"
#include "tests/support/modal_stage.h"
#include "tests/support/pump.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

BOOL CALLBACK CountAbout(HWND window, LPARAM count) {
    if (GetDlgItem(window, IDC_ABOUT_VERSION) != nullptr) ++*reinterpret_cast<int*>(count);
    return TRUE;
}

int AboutScreens() {
    int count = 0;
    EnumThreadWindows(GetCurrentThreadId(), CountAbout, reinterpret_cast<LPARAM>(&count));
    return count;
}

class OpenScreenTest : public AppFixture {
protected:
    void SetUp() override {
        FakeExport::opened.clear();
        FakeOptions::opened = 0;
        ids_ = Write({L"one", L"two"});
        ASSERT_TRUE(Start());
        List().SelectEntry(ids_[0]);
    }

    std::vector<CEOID> ids_;
};

// Closes About when all that was posted has been seen to: a timer comes last.
int most = 0;

void CALLBACK CloseAbout(HWND, UINT, UINT_PTR, DWORD) {
    most = std::max(most, AboutScreens());
    if (AboutScreens() > 0) PostMessageW(FindWindowW(L"#32770", L"About"), WM_COMMAND, IDOK, 0);
}

TEST_F(OpenScreenTest, ASecondAboutBringsTheFirstForward) {
    most = 0;
    const UINT_PTR timer = SetTimer(nullptr, 0, 50, CloseAbout);
    for (int times = 0; times < 2; ++times)
        window_->PostMessage(WM_COMMAND, IDM_ABOUT);
    Command(IDM_ABOUT);
    KillTimer(nullptr, timer);
    EXPECT_EQ(most, 1);
    EXPECT_EQ(AboutScreens(), 0);
    EXPECT_TRUE(window_->IsEnabled());
}

TEST_F(OpenScreenTest, NothingElseOpensBehindOneNorIsAnythingChanged) {
    const HWND screen = CreateWindowExW(0, L"STATIC", L"screen", WS_POPUP | WS_CAPTION | WS_VISIBLE, 0, 0, 100, 100,
                                        window_->GetHandle(), nullptr, GetModuleHandleW(nullptr), nullptr);
    SetForegroundWindow(screen);
    window_->Enable(false);
    ShowWindow(screen, SW_MINIMIZE);
    for (const WORD id :
         {IDM_SHAREDNEW, IDM_NEW_ENTRY, IDM_OPEN_ENTRY, IDM_EDIT_ENTRY, IDM_COPY_ENTRIES, IDM_DELETE_ENTRIES,
          IDM_FILTER, IDM_EXPORT, IDM_EXPORT_SELECTED, IDM_FIND, IDM_OPTIONS, IDM_ABOUT})
        Command(id);
    EXPECT_TRUE(PumpUntil([&] { return !IsIconic(screen); }));
    EXPECT_EQ(GetActiveWindow(), screen);
    EXPECT_THAT(FakeEditor::opened, IsEmpty());
    EXPECT_THAT(FakeDetail::shown, IsEmpty());
    EXPECT_THAT(FakeFind::asked, IsEmpty());
    EXPECT_TRUE(FakeExport::opened.empty());
    EXPECT_EQ(FakeOptions::opened, 0);
    EXPECT_EQ(AboutScreens(), 0);
    EXPECT_THAT(Subjects(), ElementsAre(L"one", L"two"));
    window_->Enable(true);
    DestroyWindow(screen);
    Command(IDM_OPTIONS);
    EXPECT_EQ(FakeOptions::opened, 1);
}

TEST_F(OpenScreenTest, TheFiltersCommandsAreCarriedOutBehindItsDialog) {
    filter_.active = TRUE;
    window_->Enable(false);
    Command(IDM_FILTER_CHANGED);
    EXPECT_EQ(app_->ReadInt(L"Options", L"fActive", 0), 1);
    Command(IDM_SHOW_ALL);
    EXPECT_EQ(filter_.active, FALSE);
    window_->Enable(true);
}

}  // namespace
