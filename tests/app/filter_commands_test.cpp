// The commands that change the filter, from the main window's side. The dialog is the real one.
#include <gmock/gmock.h>

#include "data/category_blob.h"
#include "data/db_cats.h"
#include "res/ids.h"
#include "tests/app/app_fixture.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FilterCommandsTest : public AppFixture {
protected:
    // "May" starts in May and carries "Business", "June" starts in June. What passes is the first entry: a row shows
    // the entry at its place in the store.
    void SetUp() override {
        WriteEntry(5, L"May", Category(L"Business"));
        WriteEntry(6, L"June", 0);
        ASSERT_TRUE(Start());
    }

    static CEOID Category(const wchar_t* name) {
        DbCats categories;
        EXPECT_TRUE(categories.Open(nullptr));
        const CEOID id = categories.FindByName(name);
        EXPECT_TRUE(categories.AddUse(id));
        return id;
    }

    static void WriteEntry(WORD month, const wchar_t* subject, CEOID category) {
        DbJournal journal;
        ASSERT_TRUE(journal.Open(nullptr));
        const SYSTEMTIME start = {2001, month, 0, 7, 12, 0, 0, 0};
        const std::vector<BYTE> bytes = MakeCategoryBlob({&category, 1});
        CEPROPVAL values[3] = {};
        values[0].propid = kPropStart;
        ASSERT_TRUE(SystemTimeToFileTime(&start, &values[0].val.filetime));
        values[1].propid = kPropSubject;
        values[1].val.lpwstr = const_cast<wchar_t*>(subject);
        values[2].propid = kPropCategories;
        values[2].val.blob = {static_cast<DWORD>(bytes.size()), const_cast<BYTE*>(bytes.data())};
        ASSERT_NE(journal.WriteRecordProps(0, category ? 3 : 2, values), 0u);
        journal.Close();
    }

    // Runs `script` on the filter dialog that `command` opens.
    void InDialog(WORD command, const std::function<void(HWND)>& script) {
        InDialog([&] { Command(command); }, script);
    }
    void InDialog(const std::function<void()>& opens, const std::function<void(HWND)>& script) {
        script_ = &script;
        const UINT_PTR timer = SetTimer(nullptr, 0, 10, OnTimer);
        opens();
        KillTimer(nullptr, timer);
        EXPECT_EQ(script_, nullptr) << "no dialog came";
    }

    std::wstring Caption() { return window_->Bar().GetButtonText(IDM_SHOW); }
    int Stored(const wchar_t* name) { return app_->ReadInt(L"Options", name, -1); }

private:
    static BOOL CALLBACK Find(HWND window, LPARAM found) {
        if (GetDlgItem(window, IDC_FILTER_STATUS) == nullptr || !IsWindowVisible(window)) return TRUE;
        *reinterpret_cast<HWND*>(found) = window;
        return FALSE;
    }
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
        HWND dialog = nullptr;
        EnumThreadWindows(GetCurrentThreadId(), Find, reinterpret_cast<LPARAM>(&dialog));
        if (dialog == nullptr || script_ == nullptr) return;
        (*std::exchange(script_, nullptr))(dialog);
    }

    static const std::function<void(HWND)>* script_;
};

const std::function<void(HWND)>* FilterCommandsTest::script_ = nullptr;

void ChooseMay(HWND dialog) {
    SendMessageW(GetDlgItem(dialog, IDC_FILTER_BY_MONTH), BM_CLICK, 0, 0);
    ListView_SetCheckState(GetDlgItem(dialog, IDC_FILTER_MONTHS), 4, TRUE);
}

void Press(HWND dialog, WORD command) {
    SendMessageW(dialog, WM_COMMAND, command, 0);
}

TEST_F(FilterCommandsTest, OkStoresTheFilterRefillsTheListAndNamesIt) {
    InDialog(121, [](HWND dialog) {
        ChooseMay(dialog);
        Press(dialog, IDOK);
    });
    EXPECT_THAT(Subjects(), ElementsAre(L"May"));
    EXPECT_EQ(filter_.passed, 1);
    EXPECT_NE(Caption(), L"All");
    EXPECT_EQ(Stored(L"fActive"), 1);
    EXPECT_EQ(Stored(L"fMonths"), 0x10);
}

TEST_F(FilterCommandsTest, CancelRefillsTheListAndStoresNothing) {
    InDialog(121, [](HWND dialog) {
        ChooseMay(dialog);
        Press(dialog, IDCANCEL);
    });
    EXPECT_THAT(Subjects(), ElementsAre(L"May"));
    EXPECT_EQ(Stored(L"fActive"), -1);
}

TEST_F(FilterCommandsTest, AllClearsTheFilter) {
    filter_.active = TRUE;
    Command(136);
    EXPECT_THAT(Subjects(), IsEmpty());
    EXPECT_EQ(Stored(L"fActive"), 1);
    Command(115);
    EXPECT_THAT(Subjects(), ElementsAre(L"May", L"June"));
    EXPECT_EQ(Caption(), L"All");
    EXPECT_EQ(Stored(L"fActive"), 0);
    EXPECT_EQ(Stored(L"fRange"), 1);
}

TEST_F(FilterCommandsTest, ClearInTheDialogShowsAllBehindIt) {
    filter_.active = TRUE;
    Command(136);
    InDialog(121, [this](HWND dialog) {
        Press(dialog, 115);
        EXPECT_THAT(Subjects(), ElementsAre(L"May", L"June"));
        EXPECT_EQ(Caption(), L"All");
        Press(dialog, IDOK);
    });
    EXPECT_FALSE(filter_.active);
    EXPECT_THAT(Subjects(), ElementsAre(L"May", L"June"));
}

TEST_F(FilterCommandsTest, ACategoryFromTheMenuShowsItsEntries) {
    ButtonBar& bar = window_->Bar();
    bar.OnShowChoice(bar.MakeShowMenu().get(), 700);
    EXPECT_THAT(Subjects(), ElementsAre(L"May"));
    EXPECT_EQ(Caption(), L"Business");
    bar.OnShowChoice(bar.MakeShowMenu().get(), 115);
    EXPECT_THAT(Subjects(), ElementsAre(L"May", L"June"));
    EXPECT_EQ(Caption(), L"All");
}

TEST_F(FilterCommandsTest, AProgramClosedUnderTheDialogEndsWithoutAWord) {
    InDialog(121, [this](HWND) { window_->SendMessage(WM_CLOSE); });
    EXPECT_FALSE(window_->IsWindow());
    EXPECT_EQ(journal_.GetHandle(), nullptr);
}

TEST_F(FilterCommandsTest, AProgramClosedUnderTheDialogThatShowOpenedEndsWithoutAWord) {
    InDialog([this] { window_->Bar().OnShowChoice(window_->Bar().MakeShowMenu().get(), 121); },
             [this](HWND) { window_->SendMessage(1023); });
    EXPECT_FALSE(window_->IsWindow());
}

TEST_F(FilterCommandsTest, TheDialogDoesNotOpenWithoutCategories) {
    CeDbase base;
    ASSERT_TRUE(base.Open(kCategoriesDatabase, 0, 0, nullptr));
    ASSERT_TRUE(base.DeleteDatabase(0));
    boxes_.Expect(L"CE Database Error", L"Error: 2(37)\nDbCategories");
    Command(121);
    EXPECT_FALSE(filter_.active);
    EXPECT_EQ(Subjects().size(), 2u);
}

}  // namespace
