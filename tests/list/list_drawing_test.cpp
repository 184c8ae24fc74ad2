// What the list draws beside its rows: its selection without the focus, and what an empty list says.
#include <set>

#include "filter/filter_caption.h"
#include "list/entry_list.h"
#include "tests/list/journal_fixture.h"
#include "tests/list/list_host.h"
#include "tests/support/pump.h"
#include "tests/support/replaced_import.h"
#include "ui/gdi_scope.h"

namespace {

std::wstring written;  // what DrawTextW was last given

class ListDrawingTest : public JournalFixture {
protected:
    void SetUp() override {
        host_.onNotify = [this](NMHDR* header) { return list_.OnNotify(header); };
        ASSERT_TRUE(list_.CreateIn(host_.Handle(), host_.Client()));
        list_.Show();
        SetForegroundWindow(host_.Handle());
        list_.SetFocus();
    }

    // The colour at the right end of a row, where there is no text.
    COLORREF PaperOf(int row) {
        list_.Update();
        RECT place = {};
        EXPECT_TRUE(list_.GetItemRect(row, &place));
        const WindowDc dc(list_.GetHandle());
        return GetPixel(dc.Dc(), place.right - 4, (place.top + place.bottom) / 2);
    }

    ListHost host_;
    EntryList list_{journal_, selection_, filter_};
};

TEST_F(ListDrawingTest, ASelectionShowsWithoutTheFocusToo) {
    const auto ids = InsertDays(4);
    list_.RefreshList();
    list_.SelectEntry(ids[1]);
    const COLORREF strong = PaperOf(1);
    EXPECT_NE(strong, PaperOf(2));
    SetFocus(host_.Handle());
    PumpOnce();
    const COLORREF pale = PaperOf(1);
    EXPECT_NE(pale, PaperOf(2));
    EXPECT_NE(pale, strong);
    list_.SelectEntry(ids[3]);
    EXPECT_EQ(PaperOf(3), pale);
    list_.SetFocus();
    PumpOnce();
    EXPECT_EQ(PaperOf(1), strong);
    EXPECT_EQ(PaperOf(2), GetSysColor(COLOR_WINDOW));
}

int WINAPI DrawAndWriteDown(HDC dc, const wchar_t* text, int length, RECT* area, UINT format) {
    written = text;
    return ::DrawTextExW(dc, const_cast<wchar_t*>(text), length, area, format, nullptr);
}

TEST_F(ListDrawingTest, AnEmptyListSaysWhy) {
    const ReplacedImport draw(nullptr, "DrawTextW", DrawAndWriteDown);
    const auto said = [&] {
        list_.RefreshList();
        written.clear();
        list_.Invalidate();
        list_.Update();
        return written;
    };
    EXPECT_EQ(said(), L"No entries.\nTap New to write one.");
    InsertDays(3);
    EXPECT_EQ(said(), L"");
    filter_.active = TRUE;
    filter_.months = 0x0800;
    EXPECT_EQ(said(), L"No entries pass the filter \"" + MonthName(12, LOCALE_SYSTEM_DEFAULT) +
                          L"\".\nTap it above, then All, to see them all.");
    journal_.Close();
    filter_.active = FALSE;
    EXPECT_EQ(said(), L"");  // opened again
}

}  // namespace
