// The program with all its screens does not fall over anything that can be posted to it.
//
// A longer run by hand, of so many seeds from the first on and so many messages each:
//     JOURNAL_MONKEY="first seeds messages" wine monkey_tests.exe
// JOURNAL_MONKEY_TRACE=1 tells each message.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>

#include "app/journal_app.h"
#include "data/db_journal.h"
#include "data/field_ids.h"
#include "filter/filter_settings.h"
#include "list/selection_memory.h"
#include "tests/monkey/monkey.h"
#include "tests/support/fresh_store.h"
#include "tests/support/outlook.h"
#include "tests/support/private_registry.h"
#include "tests/support/replaced_import.h"

namespace {

struct Plan {
    unsigned first = 1;
    unsigned seeds = 5;
    int messages = 300;
};

Plan ReadPlan() {
    Plan plan;
    if (const char* wanted = std::getenv("JOURNAL_MONKEY"))
        std::sscanf(wanted, "%u %u %d", &plan.first, &plan.seeds, &plan.messages);
    return plan;
}

const Plan plan = ReadPlan();

// The program from its start to its end, as its entry function has it.
class Program {
public:
    ~Program() {
        journal_.Close();
        MSG message;
        while (PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE))
            continue;
        app_.reset();
        UnregisterClassW(L"JCLASS", GetModuleHandleW(nullptr));
    }
    JournalApp& App() { return *app_; }
    void Run() {
        if (app_->InitInstance(GetModuleHandleW(nullptr), SW_SHOWNORMAL)) app_->Run();
    }

private:
    SelectionMemory selection_;
    DbJournal journal_;
    FilterSettings filter_;
    std::unique_ptr<JournalApp> app_ = std::make_unique<JournalApp>(journal_, selection_, filter_);
};

class MonkeyTest : public testing::TestWithParam<unsigned> {
protected:
    MonkeyTest() { exportFile_ = folder_.File(L"Export.csv"); }

    void WriteEntries() {
        DbJournal journal;
        ASSERT_TRUE(journal.Open(nullptr));
        for (WORD minute = 0; minute < 30; ++minute) {
            const SYSTEMTIME start = {2001, 5, 0, 7, 9, minute, 0, 0};
            CEPROPVAL values[2] = {};
            values[0].propid = kPropStart;
            ASSERT_TRUE(SystemTimeToFileTime(&start, &values[0].val.filetime));
            values[1].propid = kPropSubject;
            values[1].val.lpwstr = const_cast<wchar_t*>(minute % 3 == 0 ? L"Meeting" : L"Telephone");
            ASSERT_NE(journal.WriteRecordProps(0, 2, values), 0u);
        }
        journal.Close();
    }

    // In the place of the system's dialog, which would write wherever it likes.
    static BOOL WINAPI ChooseFile(OPENFILENAMEW* choice) {
        lstrcpynW(choice->lpstrFile, exportFile_.c_str(), static_cast<int>(choice->nMaxFile));
        return TRUE;
    }

    static std::wstring exportFile_;

    TempFolder folder_;
    PrivateRegistry registry_;
    FreshStore store_;
    ReplacedImport saveDialog_{nullptr, "GetSaveFileNameW", ChooseFile};
};

std::wstring MonkeyTest::exportFile_;

TEST_P(MonkeyTest, NothingItDoesEndsTheProgramInAnyOtherWay) {
    WriteEntries();
    Monkey monkey(GetParam(), plan.messages);
    do {
        Program program;
        // It sets passwords, which nobody knows then.
        program.App().WriteInt(L"Options", L"pwActive", 0);
        program.Run();
        EXPECT_EQ(FindWindowW(L"JCLASS", nullptr), nullptr);
        EXPECT_TRUE(ShownWindows().empty());
    } while (monkey.Left() > 0);

    DbJournal journal;
    EXPECT_TRUE(journal.Open(nullptr));
    journal.Close();
}

INSTANTIATE_TEST_SUITE_P(Seeds, MonkeyTest, testing::Range(plan.first, plan.first + plan.seeds));

}  // namespace
