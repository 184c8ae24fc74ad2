// Files dropped on the main window.
#include <fstream>

#include "tests/app/app_fixture.h"
#include "tests/support/pad_visits.h"
#include "tests/support/temp_folder.h"

namespace {

class DropTest : public AppFixture {
protected:
    // As the system tells of files that are let go over the window, which then owns the memory.
    static void Drop(const std::vector<std::wstring>& files) {
        std::wstring names;
        for (const std::wstring& file : files)
            names += file + L'\0';
        names += L'\0';
        const HGLOBAL memory = GlobalAlloc(GHND, sizeof(DROPFILES) + names.size() * sizeof(wchar_t));
        auto* drop = static_cast<DROPFILES*>(GlobalLock(memory));
        drop->pFiles = sizeof(DROPFILES);
        drop->fWide = TRUE;
        std::copy(names.begin(), names.end(), reinterpret_cast<wchar_t*>(drop + 1));
        GlobalUnlock(memory);
        SendMessageW(FindWindowW(L"JCLASS", nullptr), WM_DROPFILES, reinterpret_cast<WPARAM>(memory), 0);
    }
    std::wstring Card() const {
        std::ofstream(files_.Path() / L"people.vcf", std::ios::binary)
            << "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Ann\r\nEND:VCARD\r\n";
        return files_.File(L"people.vcf");
    }

    TempFolder files_;
};

TEST_F(DropTest, AVcardIsImportedAfterAQuestion) {
    ASSERT_TRUE(Start());
    EXPECT_TRUE(window_->GetWindowLong(GWL_EXSTYLE) & WS_EX_ACCEPTFILES);
    boxes_.Expect(L"Import", L"Import the people, appointments and tasks in these files?\n\npeople.vcf", IDYES);
    boxes_.Expect(L"Import", L"people.vcf: 1 added, 0 changed, 0 unchanged, 0 left out.");
    Drop({Card()});
}

TEST_F(DropTest, OnAWindowThatWaitsForAnotherScreenNothingIsDropped) {
    ASSERT_TRUE(Start());
    window_->Enable(false);
    Drop({Card()});
    window_->Enable(true);
}

TEST_F(DropTest, BehindThePasswordNothingIsDropped) {
    app_->WriteString(L"Options", L"vacc", L"1204");
    app_->WriteInt(L"Options", L"pwActive", 1);
    PadVisits pads;
    pads.Expect([&] {
        Drop({Card()});
        pads.Tap(L"1204");
    });
    EXPECT_TRUE(Start());
    EXPECT_EQ(pads.Seen(), 1);
    boxes_.Expect(L"Import", L"Only vCard (.vcf) and iCalendar (.ics) files can be imported.");
    Drop({files_.File(L"letter.txt")});
}

}  // namespace
