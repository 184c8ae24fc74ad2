// import, contacts, appointments, tasks and link: the real tool on a store, and a window in the place of the journal's.
#include <pimdata.h>

#include "data/link_message.h"
#include "tests/support/outlook.h"
#include "tests/support/pump.h"
#include "tests/tools/journal_tool_fixture.h"

namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class OutlookCommandsTest : public JournalToolTest {
protected:
    ToolRun Import(const std::string& content, const std::wstring& name = L"people.vcf") const {
        return RunTool({L"import", MakeFile(content, name)});
    }
    static std::string Card(const std::string& uid, const std::string& last, const std::string& more = "") {
        return "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:" + uid + "\r\nN:" + last + ";Anna;;;\r\n" + more + "END:VCARD\r\n";
    }
    // What a command lists: for each item its columns without the id.
    static std::vector<std::string> Listed(const wchar_t* command) {
        std::vector<std::string> rows;
        const std::vector<std::string> lines = RunTool({command}).Lines();
        for (size_t i = 1; i < lines.size(); ++i)
            rows.push_back(lines[i].substr(lines[i].find('\t') + 1));
        return rows;
    }
    static CEOID FirstId(const wchar_t* command) {
        const std::vector<std::string> lines = RunTool({command}).Lines();
        return lines.size() < 2 ? 0 : static_cast<CEOID>(std::stoul(lines[1]));
    }
};

TEST_F(OutlookCommandsTest, PeopleAreImportedAndListedByName) {
    const ToolRun run = Import(Card("1", "Brook", "ORG:Talvern\r\n") + Card("2", "Abel"));
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.output, EndsWith("people.vcf: 2 added, 0 changed, 0 unchanged, 0 left out\n"));
    EXPECT_THAT(run.complaints, IsEmpty());
    EXPECT_EQ(RunTool({L"contacts"}).Lines()[0], "id\tname\tcompany");
    EXPECT_THAT(Listed(L"contacts"), ElementsAre("Abel, Anna\t", "Brook, Anna\tTalvern"));
    EXPECT_THAT(Listed(L"tasks"), IsEmpty());
}

TEST_F(OutlookCommandsTest, AppointmentsAndTasksAreImportedFromOneFile) {
    const ToolRun run = Import(
        "BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\nUID:1\r\nDTSTART:20040507T143000\r\nSUMMARY:Late\r\nEND:VEVENT\r\n"
        "BEGIN:VEVENT\r\nUID:2\r\nDTSTART;VALUE=DATE:20040506\r\nSUMMARY:Early\\nbird\r\nEND:VEVENT\r\n"
        "BEGIN:VTODO\r\nUID:3\r\nSUMMARY:Paint\r\nDUE:20040601\r\nEND:VTODO\r\nEND:VCALENDAR\r\n",
        L"calendar.ics");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.output, EndsWith("calendar.ics: 3 added, 0 changed, 0 unchanged, 0 left out\n"));
    EXPECT_EQ(RunTool({L"appointments"}).Lines()[0], "id\tstart\tsubject");
    EXPECT_THAT(Listed(L"appointments"), ElementsAre("2004-05-06\tEarly  bird", "2004-05-07 14:30\tLate"));
    EXPECT_EQ(RunTool({L"tasks"}).Lines()[0], "id\tstart\tdue\tsubject");
    EXPECT_THAT(Listed(L"tasks"), ElementsAre("\t2004-06-01\tPaint"));
}

TEST_F(OutlookCommandsTest, WhatIsImportedIsWhatPocketOutlookShows) {
    Import(Card("1", "Abel", "TEL;TYPE=CELL:123\r\nBDAY:1970-05-07\r\n"));
    const CEOID oid = FirstId(L"contacts");
    const Outlook outlook;
    IDispatch* item = nullptr;
    ASSERT_EQ(outlook->GetItemFromOid(oid, &item), S_OK);
    auto* contact = static_cast<IContact*>(item);
    EXPECT_EQ(TextOf(contact, &IContact::get_FileAs), L"Abel, Anna");
    EXPECT_EQ(TextOf(contact, &IContact::get_MobileTelephoneNumber), L"123");
    DATE birthday = 0;
    EXPECT_EQ(contact->get_Birthday(&birthday), S_OK);
    EXPECT_EQ(birthday, 25695);
    contact->Release();
}

TEST_F(OutlookCommandsTest, ImportingTwiceChangesNothingTwice) {
    const std::string people =
        Card("1", "Abel", "ORG:Talvern\r\nNOTE:x\r\n") + "BEGIN:VCARD\r\nFN:No Uid\r\nTEL:1\r\nEND:VCARD\r\n";
    Import(people);
    const std::string before = RunTool({L"contacts"}).output;
    EXPECT_THAT(Import(people).output, EndsWith(": 0 added, 0 changed, 2 unchanged, 0 left out\n"));
    EXPECT_EQ(RunTool({L"contacts"}).output, before);
}

TEST_F(OutlookCommandsTest, WhatTheFileChangedIsChangedUnderTheSameId) {
    Import(Card("1", "Abel", "ORG:Talvern\r\nTEL:1\r\n") + Card("2", "Brook"));
    const CEOID oid = FirstId(L"contacts");
    EXPECT_THAT(Import(Card("1", "Abel", "ORG:Acme\r\n") + Card("2", "Brook")).output,
                EndsWith(": 0 added, 1 changed, 1 unchanged, 0 left out\n"));
    EXPECT_THAT(Listed(L"contacts"), ElementsAre("Abel, Anna\tAcme", "Brook, Anna\t"));
    EXPECT_EQ(FirstId(L"contacts"), oid);
    const Outlook outlook;
    IDispatch* item = nullptr;
    ASSERT_EQ(outlook->GetItemFromOid(oid, &item), S_OK);
    EXPECT_EQ(TextOf(static_cast<IContact*>(item), &IContact::get_HomeTelephoneNumber), L"") << "it is gone there";
    item->Release();
}

TEST_F(OutlookCommandsTest, ADeletedItemComesBackAndInkOutlivesAnImport) {
    Import(Card("1", "Abel") + Card("2", "Brook"));
    {
        const Outlook outlook;
        BYTE bytes[] = {1, 2, 3};
        CEBLOB ink = {3, bytes};
        IDispatch* item = nullptr;
        ASSERT_EQ(outlook->GetItemFromOid(FirstId(L"contacts"), &item), S_OK);
        auto* contact = static_cast<IContact*>(item);
        EXPECT_EQ(contact->put_BodyInk(&ink), S_OK);
        EXPECT_EQ(contact->Save(), S_OK);
        EXPECT_THAT(Import(Card("1", "Abel") + Card("2", "Brook")).output,
                    EndsWith(": 0 added, 0 changed, 2 unchanged, 0 left out\n"));
        EXPECT_EQ(contact->Delete(), S_OK);
        contact->Release();
    }
    EXPECT_THAT(Import(Card("1", "Abel")).output, EndsWith(": 1 added, 0 changed, 0 unchanged, 0 left out\n"));
}

TEST_F(OutlookCommandsTest, BrokenItemsAreToldByTheirLineAndTheRestIsImported) {
    const ToolRun run = Import(Card("1", "Abel") + "BEGIN:VCARD\r\nVERSION:3.0\r\nTEL:1\r\nEND:VCARD\r\n" +
                               "BEGIN:VCARD\r\nFN:Lost\r\nthis is broken\r\nEND:VCARD\r\n" + Card("2", "Brook"));
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.complaints, HasSubstr("people.vcf, line 6 is left out: the person has no name"));
    EXPECT_THAT(run.complaints, HasSubstr("people.vcf, line 12 is left out: this is no line of VCARD"));
    EXPECT_THAT(run.output, EndsWith(": 2 added, 0 changed, 0 unchanged, 2 left out\n"));
    EXPECT_THAT(Listed(L"contacts"), SizeIs(2));
}

TEST_F(OutlookCommandsTest, AFileThatIsNotThereOrOfSomethingElseIsToldAndTheNextIsImported) {
    const ToolRun run = RunTool({L"import", files_.File(L"nowhere.vcf"), MakeFile("nothing", L"letter.txt"),
                                 MakeFile("", L"empty.vcf"), MakeFile(Card("1", "Abel"), L"good.vcf")});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.complaints, HasSubstr("nowhere.vcf is not there"));
    EXPECT_THAT(run.complaints, HasSubstr("letter.txt, line 1: this is no line of a vCard or iCalendar file"));
    EXPECT_THAT(run.complaints, HasSubstr("empty.vcf: there are no people, appointments or tasks in it"));
    EXPECT_THAT(Listed(L"contacts"), ElementsAre("Abel, Anna\t"));
}

TEST_F(OutlookCommandsTest, TenThousandCardsAreImported) {
    std::string people;
    for (int i = 0; i < 10'000; ++i)
        people += Card(std::to_string(i), "Last" + std::to_string(10'000 + i), "ORG:Talvern\r\n");
    EXPECT_THAT(Import(people).output, EndsWith(": 10000 added, 0 changed, 0 unchanged, 0 left out\n"));
    EXPECT_THAT(Import(people).output, EndsWith(": 0 added, 0 changed, 10000 unchanged, 0 left out\n"));
    EXPECT_THAT(Listed(L"contacts"), SizeIs(10'000));
}

TEST_F(OutlookCommandsTest, WrongCommandLinesAreTold) {
    const struct {
        std::vector<std::wstring> arguments;
        const char* complaint;
    } cases[] = {
        {{L"import"}, "import needs the name of a file"},
        {{L"contacts", L"1"}, "contacts takes nothing more"},
        {{L"appointments", L"1"}, "appointments takes nothing more"},
        {{L"tasks", L"1"}, "tasks takes nothing more"},
        {{L"link"}, "link needs contact, appointment or task"},
        {{L"link", L"contact"}, "link needs"},
        {{L"link", L"friend", L"1"}, "link needs"},
        {{L"link", L"contact", L"0"}, "link needs"},
        {{L"link", L"contact", L"1x"}, "link needs"},
        {{L"link", L"contact", L"1", L"2"}, "link needs"},
    };
    for (const auto& c : cases) {
        const ToolRun run = RunTool(c.arguments);
        EXPECT_EQ(run.exitCode, 2) << c.complaint;
        EXPECT_THAT(run.complaints, HasSubstr(c.complaint));
        EXPECT_THAT(run.output, IsEmpty());
    }
}

TEST_F(OutlookCommandsTest, AStoreThatIsFullSaysSoAndKeepsWhatItHas) {
    std::string people;
    for (int i = 0; i < 65'536; ++i)
        people += "BEGIN:VCARD\nUID:" + std::to_string(i) + "\nFN:x\nEND:VCARD\n";
    const ToolRun run = Import(people);
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.complaints, HasSubstr("112"));
    EXPECT_THAT(run.output, EndsWith(": 65535 added, 0 changed, 0 unchanged, 0 left out\n"));
}

// ---- Linking ----

// A window as the journal's main window, which notes what it is asked.
class JournalWindow {
public:
    JournalWindow() {
        WNDCLASSW windowClass = {};
        windowClass.lpfnWndProc = Procedure;
        windowClass.hInstance = GetModuleHandleW(nullptr);
        windowClass.lpszClassName = L"JCLASS";
        EXPECT_NE(RegisterClassW(&windowClass), 0);
        window_ = CreateWindowExW(0, L"JCLASS", L"Quillon Journal", WS_OVERLAPPED, 0, 0, 10, 10, nullptr, nullptr,
                                  GetModuleHandleW(nullptr), nullptr);
        requests.clear();
    }
    ~JournalWindow() {
        DestroyWindow(window_);
        UnregisterClassW(L"JCLASS", GetModuleHandleW(nullptr));
    }
    JournalWindow(const JournalWindow&) = delete;
    JournalWindow& operator=(const JournalWindow&) = delete;

    void Lock() { SetPropW(window_, L"Journal.Locked", reinterpret_cast<HANDLE>(1)); }

    static inline std::vector<std::pair<WPARAM, LPARAM>> requests;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
        if (message != 1126) return DefWindowProcW(window, message, wparam, lparam);
        requests.emplace_back(wparam, lparam);
        return 0;
    }

    HWND window_ = nullptr;
};

TEST_F(OutlookCommandsTest, LinkAsksTheRunningJournal) {
    const JournalWindow journal;
    const wchar_t* const kinds[] = {L"contact", L"appointment", L"task"};
    for (const wchar_t* kind : kinds) {
        const ToolRun run = RunTool({L"link", kind, L"4711"});
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_EQ(run.output, "the journal was asked for an entry\n");
    }
    EXPECT_TRUE(PumpUntil([] { return JournalWindow::requests.size() == 3; }));
    EXPECT_THAT(JournalWindow::requests, ElementsAre(std::pair(0, 4711), std::pair(1, 4711), std::pair(2, 4711)));
}

TEST_F(OutlookCommandsTest, LinkSaysWhenTheJournalIsLocked) {
    JournalWindow journal;
    journal.Lock();
    const ToolRun run = RunTool({L"link", L"contact", L"4711"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.complaints, HasSubstr("the journal is locked: enter its password first"));
    EXPECT_THAT(run.output, IsEmpty());
    PumpOnce();
    EXPECT_THAT(JournalWindow::requests, IsEmpty());
}

TEST_F(OutlookCommandsTest, LinkSaysWhenNoJournalRuns) {
    const ToolRun run = RunTool({L"link", L"contact", L"4711"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.complaints, HasSubstr("no journal is running: start it first"));
    EXPECT_THAT(run.output, IsEmpty());
}

}  // namespace
