#include "ui/dialog.h"

#include <gtest/gtest.h>
#include <px.h>

#include <functional>

#include "tests/support/pump.h"
#include "tests/ui/ids.h"
#include "tests/ui/test_windows.h"

namespace {

// A screen as screens are: one static procedure, one static pointer to the live object.
class SmallDialog : public Dialog {
public:
    INT_PTR Run(HWND owner = nullptr, void* data = nullptr) {
        DialogParams params(this, data);
        return DoModal(TestInstance(), IDD_SMALL, owner, Procedure, &params);
    }

    HWND Open(HWND owner = nullptr, void* data = nullptr) {
        DialogParams params(this, data);
        return CreateModeless(TestInstance(), IDD_SMALL, owner, Procedure, &params);
    }

    static SmallDialog* Live() { return live_; }

    std::function<void()> onInit = [] {};
    void* receivedData = nullptr;
    bool attachedAtInit = false;
    int applied = 0;
    int settingChanges = 0;
    static int early;  // messages that found no live object

private:
    INT_PTR OnInitDialog(void* data) override {
        receivedData = data;
        attachedAtInit = GetHandle() != nullptr;
        onInit();
        return TRUE;
    }

    INT_PTR OnCommand(UINT, int id) {
        if (id == IDC_APPLY) ++applied;
        if (id == IDOK) EndOk();
        if (id == IDCANCEL) EndCancel();
        return TRUE;
    }

    INT_PTR OnSettingChange(WPARAM wparam, LPARAM lparam) {
        ++settingChanges;
        return HandleSettingChange(wparam, lparam);
    }

    static INT_PTR CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
        if (live_ == nullptr) ++early;
        switch (message) {
            case WM_INITDIALOG: return Begin(hwnd, lparam, live_);
            case WM_COMMAND: return live_ ? live_->OnCommand(HIWORD(wparam), LOWORD(wparam)) : FALSE;
            case WM_SETTINGCHANGE: return live_ ? live_->OnSettingChange(wparam, lparam) : FALSE;
            case WM_NCDESTROY: return End(live_);
            default: return IsStoreNotification(message);
        }
    }

    static SmallDialog* live_;
};

SmallDialog* SmallDialog::live_ = nullptr;
int SmallDialog::early = 0;

}  // namespace

// ---- Creation and results ----

TEST(DialogTest, AMissingTemplateAnswersMinusOne) {
    SmallDialog dialog;
    DialogParams params(&dialog);
    const auto procedure = [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; };
    EXPECT_EQ(dialog.DoModal(TestInstance(), IDD_MISSING, nullptr, procedure, &params), -1);
    EXPECT_EQ(dialog.CreateModeless(TestInstance(), IDD_MISSING, nullptr, procedure, &params), nullptr);
    EXPECT_EQ(dialog.GetHandle(), nullptr);
}

TEST(DialogTest, EndOkAnswersOneAndEndCancelZero) {
    SmallDialog dialog;
    dialog.onInit = [&] { EXPECT_TRUE(dialog.EndOk()); };
    EXPECT_EQ(dialog.Run(), 1);
    dialog.onInit = [&] { EXPECT_TRUE(dialog.EndCancel()); };
    EXPECT_EQ(dialog.Run(), 0);
}

TEST(DialogTest, TheOkButtonOfItsBarReachesTheScreen) {
    SmallDialog dialog;
    dialog.onInit = [&] { dialog.PostMessage(WM_COMMAND, MAKEWPARAM(IDOK, 0)); };
    EXPECT_EQ(dialog.Run(), 1);
}

TEST(DialogTest, ClosingIsTheCommandTheShellWasGiven) {
    SmallDialog dialog;
    dialog.onInit = [&] { dialog.PostMessage(WM_CLOSE); };
    EXPECT_EQ(dialog.Run(), 1);
    dialog.onInit = [&] {
        EXPECT_TRUE(SHSetCloseCommand(dialog.GetHandle(), IDCANCEL));
        dialog.PostMessage(WM_CLOSE);
    };
    EXPECT_EQ(dialog.Run(), 0);
}

TEST(DialogTest, ADialogIsAScreenWithABarOfItsOwn) {
    SmallDialog dialog;
    RECT above = {};
    RECT whole = {};
    dialog.onInit = [&] {
        dialog.GetClientRect(&above);
        ::GetClientRect(dialog.GetHandle(), &whole);
        dialog.EndOk();
    };
    dialog.Run();
    EXPECT_EQ(above.bottom, whole.bottom - Px(kMenuBarHeight));
}

TEST(DialogTest, TheScreenStartsAttachedWithItsData) {
    int data = 0;
    SmallDialog dialog;
    dialog.onInit = [&] {
        EXPECT_EQ(SmallDialog::Live(), &dialog);
        dialog.EndOk();
    };
    EXPECT_EQ(dialog.Run(nullptr, &data), 1);
    EXPECT_TRUE(dialog.attachedAtInit);
    EXPECT_EQ(dialog.receivedData, &data);
}

TEST(DialogTest, TheObjectIsDetachedAndNotLiveAfterTheEnd) {
    SmallDialog dialog;
    dialog.onInit = [&] { dialog.EndCancel(); };
    dialog.Run();
    EXPECT_EQ(SmallDialog::Live(), nullptr);
    EXPECT_EQ(dialog.GetHandle(), nullptr);
}

TEST(DialogTest, MessagesBeforeInitialisationAreNotHandled) {
    // WM_SETFONT, at least, comes first: the template names a font.
    SmallDialog::early = 0;
    SmallDialog dialog;
    dialog.onInit = [&] { dialog.EndOk(); };
    dialog.Run();
    EXPECT_GE(SmallDialog::early, 2);  // WM_INITDIALOG itself is one
}

TEST(DialogTest, AScreenThatIsOpenComesToTheFrontInsteadOfOpeningTwice) {
    SmallDialog dialog;
    SmallDialog another;
    dialog.onInit = [&] {
        dialog.Show();
        EXPECT_EQ(another.Run(), -1);
        EXPECT_EQ(another.GetHandle(), nullptr);
        EXPECT_EQ(SmallDialog::Live(), &dialog);
        EXPECT_EQ(GetActiveWindow(), dialog.GetHandle());
        dialog.EndOk();
    };
    EXPECT_EQ(dialog.Run(), 1);
    another.onInit = [&] { another.EndOk(); };
    EXPECT_EQ(another.Run(), 1) << "the first one is closed";
}

TEST(DialogTest, AScreenThatWasMinimisedIsRestored) {
    SmallDialog dialog;
    dialog.onInit = [&] {
        dialog.Show();
        dialog.Show(SW_MINIMIZE);
        ASSERT_TRUE(IsIconic(dialog.GetHandle()));
        EXPECT_EQ(SmallDialog().Run(), -1);
        EXPECT_TRUE(PumpUntil([&] { return !IsIconic(dialog.GetHandle()); }));
        dialog.EndOk();
    };
    EXPECT_EQ(dialog.Run(), 1);
}

TEST(DialogTest, AnInitialisationSentFromOutsideChangesNothing) {
    SmallDialog dialog;
    int data = 0;
    int times = 0;
    dialog.onInit = [&] {
        if (++times > 1) return;
        for (const LPARAM lparam : {LPARAM{0}, LPARAM{1}, reinterpret_cast<LPARAM>(&data)})
            dialog.SendMessage(WM_INITDIALOG, 0, lparam);
        dialog.EndOk();
    };
    EXPECT_EQ(dialog.Run(nullptr, &data), 1);
    EXPECT_EQ(dialog.receivedData, &data);
    EXPECT_EQ(times, 1);
}

TEST(DialogTest, CommandsAndSettingChangesReachTheScreen) {
    SmallDialog dialog;
    ASSERT_NE(dialog.Open(), nullptr);
    const int before = dialog.settingChanges;
    dialog.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_APPLY, BN_CLICKED));
    EXPECT_EQ(dialog.applied, 1);
    dialog.SendMessage(WM_SETTINGCHANGE, SPI_SETSIPINFO);
    EXPECT_EQ(dialog.settingChanges, before + 1);
    EXPECT_TRUE(dialog.HandleSettingChange(SPI_SETSIPINFO, 0));
    EXPECT_TRUE(dialog.Destroy());
    EXPECT_EQ(SmallDialog::Live(), nullptr);
}

TEST(DialogTest, AModelessDialogAttachesItself) {
    SmallDialog dialog;
    const HWND handle = dialog.Open();
    ASSERT_NE(handle, nullptr);
    EXPECT_EQ(dialog.GetHandle(), handle);
    EXPECT_TRUE(dialog.AttachIfNone(reinterpret_cast<HWND>(1)));
    EXPECT_EQ(dialog.GetHandle(), handle);
    EXPECT_TRUE(dialog.Destroy());
}

TEST(DialogTest, AttachIfNoneAttachesADetachedObject) {
    RecordingWindow window;
    SmallDialog dialog;
    EXPECT_TRUE(dialog.AttachIfNone(window.Handle()));
    EXPECT_EQ(dialog.GetHandle(), window.Handle());
}

// ---- Items ----

namespace {

class OpenDialogTest : public testing::Test {
protected:
    OpenDialogTest() { dialog_.Open(); }
    ~OpenDialogTest() override { dialog_.Destroy(); }

    SmallDialog dialog_;
};

}  // namespace

TEST_F(OpenDialogTest, ItemsAreFoundById) {
    EXPECT_NE(dialog_.GetDlgItem(IDC_NAME), nullptr);
    EXPECT_EQ(dialog_.GetDlgItem(IDC_ABSENT), nullptr);
}

TEST_F(OpenDialogTest, ItemsAreEnabledShownAndHidden) {
    EXPECT_TRUE(dialog_.EnableItem(IDC_APPLY, false));
    EXPECT_FALSE(IsWindowEnabled(dialog_.GetDlgItem(IDC_APPLY)));
    EXPECT_TRUE(dialog_.EnableItem(IDC_APPLY));
    EXPECT_TRUE(IsWindowEnabled(dialog_.GetDlgItem(IDC_APPLY)));
    EXPECT_TRUE(dialog_.IsVisible(IDC_APPLY));
    EXPECT_TRUE(dialog_.Show(IDC_APPLY, false));
    EXPECT_FALSE(dialog_.IsVisible(IDC_APPLY));
    EXPECT_TRUE(dialog_.Show(IDC_APPLY, true));
    EXPECT_TRUE(dialog_.IsVisible(IDC_APPLY));
}

TEST_F(OpenDialogTest, AnAbsentItemAnswersFalse) {
    EXPECT_FALSE(dialog_.EnableItem(IDC_ABSENT));
    EXPECT_FALSE(dialog_.IsVisible(IDC_ABSENT));
    EXPECT_FALSE(dialog_.Show(IDC_ABSENT, true));
    RECT rect = {1, 2, 3, 4};
    EXPECT_FALSE(dialog_.ScreenToClient(IDC_ABSENT, &rect));
    EXPECT_TRUE(IsRectEmpty(&rect));
}

TEST_F(OpenDialogTest, AnItemHasAPlaceInTheDialogAndOnTheScreen) {
    RECT screen;
    ASSERT_TRUE(dialog_.ClientToScreen(IDC_NAME, &screen));
    RECT expected;
    GetWindowRect(dialog_.GetDlgItem(IDC_NAME), &expected);
    EXPECT_TRUE(EqualRect(&screen, &expected));
    RECT client;
    ASSERT_TRUE(dialog_.ScreenToClient(IDC_NAME, &client));
    ASSERT_TRUE(dialog_.ClientToScreen(&client));
    EXPECT_TRUE(EqualRect(&client, &expected));
}

TEST_F(OpenDialogTest, StoreNotificationsLeaveTheDefaultButtonAlone) {
    const LRESULT before = dialog_.SendMessage(DM_GETDEFID);
    dialog_.SendMessage(WM_USER + 1, IDC_APPLY);
    EXPECT_EQ(dialog_.SendMessage(DM_GETDEFID), before);
    EXPECT_TRUE(IsStoreNotification(WM_USER + 6));
    EXPECT_FALSE(IsStoreNotification(WM_USER));
    EXPECT_FALSE(IsStoreNotification(WM_USER + 7));
}

// ---- Centre ----

namespace {

// A hidden window that the window manager leaves where it is put.
POINT CentredAt(int width, int height) {
    const HWND window = CreateWindowExW(0, PlainClass(L"UiTestPlain"), L"", WS_POPUP, 3, 4, width, height, nullptr,
                                        nullptr, TestInstance(), nullptr);
    Dialog dialog;
    dialog.Attach(window);
    EXPECT_TRUE(dialog.Centre());
    RECT rect;
    EXPECT_TRUE(dialog.GetWindowRect(&rect));
    EXPECT_EQ(rect.right - rect.left, width);
    EXPECT_EQ(rect.bottom - rect.top, height);
    DestroyWindow(window);
    return {rect.left, rect.top};
}

RECT WorkArea() {
    RECT work;
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    return work;
}

}  // namespace

TEST(DialogCentreTest, SitsInTheMiddleAndAThirdDown) {
    const RECT work = WorkArea();
    const POINT place = CentredAt(201, 100);
    EXPECT_EQ(place.x, (work.right - 201) / 2);
    EXPECT_EQ(place.y, (work.bottom - 100) / 3);
}

TEST(DialogCentreTest, NeverStartsAboveTheScreen) {
    const RECT work = WorkArea();
    const POINT place = CentredAt(100, work.bottom + 90);
    EXPECT_EQ(place.x, (work.right - 100) / 2);
    EXPECT_EQ(place.y, 0);
}
