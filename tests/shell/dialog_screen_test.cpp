#include <gmock/gmock.h>

#include "px.h"
#include "tests/shell/shell_fixture.h"
#include "tests/support/pump.h"

using testing::ElementsAre;

namespace {

// A modeless dialog over the fixture's window, which writes its commands down.
class DialogScreenTest : public ShellTest {
protected:
    ~DialogScreenTest() override { DestroyWindow(dialog_); }

    void Open(UINT id, DWORD flags, HWND owner) {
        flags_ = flags;
        dialog_ = CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(id), owner, Procedure,
                                     reinterpret_cast<LPARAM>(this));
        ASSERT_NE(dialog_, nullptr);
        ShowWindow(dialog_, SW_SHOW);
        SetForegroundWindow(dialog_);
        Settle(dialog_);
    }
    void Open(UINT id, DWORD flags = SHIDIF_DONEBUTTON | SHIDIF_SIZEDLG) { Open(id, flags, Window()); }

    // A real key, through a loop that offers it to the dialog first, as the program's does.
    void Key(UINT control, WORD key) {
        SetFocus(control ? GetDlgItem(dialog_, static_cast<int>(control)) : dialog_);
        Type(key);
        const ULONGLONG end = GetTickCount64() + kPatience;
        for (bool up = false; !up && GetTickCount64() < end;) {
            MSG message;
            if (!PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
                MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
                continue;
            }
            up = message.message == WM_KEYUP && message.wParam == key;
            if (IsDialogMessageW(dialog_, &message)) continue;
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    HWND Done() const { return FindWindowExW(SHFindMenuBar(dialog_), nullptr, L"ToolbarWindow32", nullptr); }

    HWND dialog_ = nullptr;
    std::vector<WORD> commands_;
    int settingChanges_ = 0;

private:
    static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam) {
        if (message == WM_INITDIALOG) SetWindowLongPtrW(dialog, GWLP_USERDATA, lparam);
        auto* test = reinterpret_cast<DialogScreenTest*>(GetWindowLongPtrW(dialog, GWLP_USERDATA));
        switch (message) {
            case WM_INITDIALOG: {
                SHINITDLGINFO info{SHIDIM_FLAGS, dialog, test->flags_};
                EXPECT_TRUE(SHInitDialog(&info));
                return TRUE;
            }
            case WM_COMMAND:
                if (HIWORD(wparam) == 0) test->commands_.push_back(LOWORD(wparam));
                return TRUE;
            case WM_SETTINGCHANGE: test->settingChanges_ += wparam == SPI_SETSIPINFO; return TRUE;
        }
        return FALSE;
    }

    DWORD flags_ = 0;
};

}  // namespace

TEST_F(DialogScreenTest, HasThePlaceAndSizeOfItsOwner) {
    Open(IDD_SCREEN);
    RECT owner, dialog;
    GetWindowRect(Window(), &owner);
    GetWindowRect(dialog_, &dialog);
    EXPECT_TRUE(EqualRect(&owner, &dialog));
    RECT ownerClient, dialogClient;
    GetClientRect(Window(), &ownerClient);
    GetClientRect(dialog_, &dialogClient);
    EXPECT_TRUE(EqualRect(&ownerClient, &dialogClient));
    EXPECT_NE(GetWindowLongW(dialog_, GWL_STYLE) & WS_THICKFRAME, 0);
}

TEST_F(DialogScreenTest, ShowsTheIconOfItsOwner) {
    const HICON icon = LoadIconW(nullptr, IDI_WARNING);
    SendMessageW(Window(), WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icon));
    Open(IDD_SCREEN);
    EXPECT_EQ(reinterpret_cast<HICON>(SendMessageW(dialog_, WM_GETICON, ICON_BIG, 0)), icon);
}

TEST_F(DialogScreenTest, FollowsAnOwnerThatWasResizedBefore) {
    SetWindowPos(Window(), nullptr, 0, 0, Px(333), Px(444), SWP_NOMOVE | SWP_NOZORDER);
    Open(IDD_SCREEN);
    RECT dialog;
    GetWindowRect(dialog_, &dialog);
    EXPECT_EQ(dialog.right - dialog.left, Px(333));
    EXPECT_EQ(dialog.bottom - dialog.top, Px(444));
}

TEST_F(DialogScreenTest, WithoutAnOwnerItIsAScreenInTheMiddle) {
    Open(IDD_SCREEN, SHIDIF_DONEBUTTON | SHIDIF_SIZEDLGFULLSCREEN, nullptr);
    RECT client;
    GetClientRect(dialog_, &client);
    EXPECT_EQ(client.right, Px(240));
    EXPECT_EQ(client.bottom, Px(294));
}

TEST_F(DialogScreenTest, ADoneButtonWithoutABarMakesAnEmptyBar) {
    Open(IDD_SCREEN);
    ASSERT_NE(SHFindMenuBar(dialog_), nullptr);
    Click(Middle(Done(), IDOK));
    ASSERT_TRUE(PumpUntil([&] { return !commands_.empty(); }));
    EXPECT_THAT(commands_, ElementsAre(IDOK));
}

TEST_F(DialogScreenTest, TheProgramsBarTakesThePlaceOfTheEmptyOneAndHasTheDoneButton) {
    Open(IDD_SCREEN);
    SHMENUBARINFO info{};
    info.cbSize = sizeof(info);
    info.hwndParent = dialog_;
    info.nToolBarId = IDR_OTHER_BAR;
    info.hInstRes = GetModuleHandleW(nullptr);
    ASSERT_TRUE(SHCreateMenuBar(&info));
    EXPECT_EQ(SHFindMenuBar(dialog_), info.hwndMB);
    EXPECT_EQ(FindWindowExW(dialog_, info.hwndMB, L"CBFRAME", nullptr), nullptr);
    Click(Middle(Done(), IDOK));
    ASSERT_TRUE(PumpUntil([&] { return !commands_.empty(); }));
    EXPECT_THAT(commands_, ElementsAre(IDOK));
}

TEST_F(DialogScreenTest, WithoutADoneButtonThereIsNoBar) {
    Open(IDD_SCREEN, SHIDIF_SIZEDLG);
    EXPECT_EQ(SHFindMenuBar(dialog_), nullptr);
}

TEST_F(DialogScreenTest, ASmallDialogGrowsByItsBar) {
    Open(IDD_SCREEN, 0);
    RECT without;
    GetClientRect(dialog_, &without);
    DestroyWindow(dialog_);
    Open(IDD_SCREEN, SHIDIF_DONEBUTTON);
    RECT with;
    GetClientRect(dialog_, &with);
    EXPECT_EQ(with.bottom, without.bottom + Px(26));
}

TEST_F(DialogScreenTest, TheCloseBoxIsOkSoThatNothingIsLost) {
    Open(IDD_SCREEN);
    SendMessageW(dialog_, WM_SYSCOMMAND, SC_CLOSE, 0);
    PumpOnce();
    EXPECT_THAT(commands_, ElementsAre(IDOK));
}

TEST_F(DialogScreenTest, EscapeIsOkSoThatNothingIsLost) {
    Open(IDD_SCREEN);
    Key(IDC_LINE, VK_ESCAPE);
    EXPECT_THAT(commands_, ElementsAre(IDOK));
}

TEST_F(DialogScreenTest, ACancelThatTheProgramSendsIsOne) {
    Open(IDD_SCREEN);
    SendMessageW(dialog_, WM_COMMAND, IDCANCEL, 0);
    EXPECT_THAT(commands_, ElementsAre(IDCANCEL));
}

TEST_F(DialogScreenTest, ADialogWithACancelButtonIsCancelled) {
    Open(IDD_WITH_CANCEL);
    SendMessageW(dialog_, WM_SYSCOMMAND, SC_CLOSE, 0);
    Key(0, VK_ESCAPE);
    EXPECT_THAT(commands_, ElementsAre(IDCANCEL, IDCANCEL));
}

TEST_F(DialogScreenTest, AScreenChoosesWhatClosingMeans) {
    Open(IDD_SCREEN);
    ASSERT_TRUE(SHSetCloseCommand(dialog_, IDCANCEL));
    SendMessageW(dialog_, WM_SYSCOMMAND, SC_CLOSE, 0);
    Key(IDC_LINE, VK_ESCAPE);
    EXPECT_THAT(commands_, ElementsAre(IDCANCEL, IDCANCEL));
    EXPECT_FALSE(SHSetCloseCommand(Window(), IDCANCEL));
}

TEST_F(DialogScreenTest, ReturnInAFieldOfSeveralLinesStartsALine) {
    Open(IDD_SCREEN);
    Key(IDC_NOTE, VK_RETURN);
    EXPECT_TRUE(commands_.empty());
    EXPECT_EQ(GetWindowTextLengthW(GetDlgItem(dialog_, IDC_NOTE)), 2);
}

TEST_F(DialogScreenTest, AResizedDialogLaysItselfOutAgain) {
    Open(IDD_SCREEN);
    const int before = settingChanges_;
    SetWindowPos(dialog_, nullptr, 0, 0, Px(300), Px(350), SWP_NOMOVE | SWP_NOZORDER);
    PumpOnce();
    EXPECT_EQ(settingChanges_, before + 1);
}

TEST_F(DialogScreenTest, BadRecordsAreRefused) {
    EXPECT_FALSE(SHInitDialog(nullptr));
    SHINITDLGINFO info{SHIDIM_FLAGS, reinterpret_cast<HWND>(0x1234), 0};
    EXPECT_FALSE(SHInitDialog(&info));
    info = {0, Window(), SHIDIF_DONEBUTTON};
    EXPECT_FALSE(SHInitDialog(&info));
    EXPECT_FALSE(SHDoneButton(Window(), 0));
}
