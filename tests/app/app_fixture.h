// The program as it starts, in this process, on settings and a store of the test's own. The detail view and the editor
// are stand-ins.
#pragma once

#include <memory>

#include "app/journal_app.h"
#include "app/main_window.h"
#include "data/db_journal.h"
#include "data/field_ids.h"
#include "filter/filter_settings.h"
#include "list/selection_memory.h"
#include "tests/app/fake_detail.h"
#include "tests/app/fake_editor.h"
#include "tests/app/fake_find.h"
#include "tests/support/fresh_store.h"
#include "tests/support/message_boxes.h"
#include "tests/support/private_registry.h"

class AppFixture : public testing::Test {
protected:
    AppFixture() {
        FakeEditor::Reset();
        FakeDetail::Reset();
        FakeFind::Reset();
    }
    ~AppFixture() override {
        if (window_ != nullptr && window_->IsWindow()) window_->SendMessage(WM_CLOSE);
        journal_.Close();
        MSG message;
        while (PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE))
            continue;
        app_.reset();
        UnregisterClassW(L"JCLASS", GetModuleHandleW(nullptr));
    }

    bool Start() {
        const bool started = app_->InitInstance(GetModuleHandleW(nullptr), SW_SHOWNORMAL);
        window_ = static_cast<MainWindow*>(app_->GetMainWindow());
        return started;
    }

    void Command(WORD id, WORD notification = 0) { window_->SendMessage(WM_COMMAND, MAKEWPARAM(id, notification)); }
    EntryList& List() { return window_->List(); }

    // Entries with these subjects, a minute apart, written behind the program's back; answers their ids.
    std::vector<CEOID> Write(const std::vector<std::wstring>& subjects) {
        DbJournal journal;
        EXPECT_TRUE(journal.Open(nullptr));
        std::vector<CEOID> ids;
        for (const std::wstring& subject : subjects) {
            const WORD minute = static_cast<WORD>(written_++);
            const SYSTEMTIME start = {2001, 5, 0, 7, static_cast<WORD>(minute / 60), static_cast<WORD>(minute % 60),
                                      0,    0};
            CEPROPVAL values[3] = {};
            values[0].propid = kPropStart;
            EXPECT_TRUE(SystemTimeToFileTime(&start, &values[0].val.filetime));
            values[1].propid = kPropSubject;
            values[1].val.lpwstr = const_cast<wchar_t*>(subject.c_str());
            values[2].propid = kPropCompany;
            values[2].val.lpwstr = const_cast<wchar_t*>(L"Talvern");
            ids.push_back(journal.WriteRecordProps(0, 3, values));
            EXPECT_NE(ids.back(), 0u);
        }
        journal.Close();
        return ids;
    }

    std::vector<std::wstring> Subjects() {
        std::vector<std::wstring> subjects;
        for (int row = 0; row < List().GetItemCount(); ++row)
            subjects.push_back(List().GetItemText(row, 1));
        return subjects;
    }

    MessageBoxes boxes_;
    PrivateRegistry registry_;
    FreshStore store_;
    SelectionMemory selection_;
    DbJournal journal_;
    FilterSettings filter_;
    std::unique_ptr<JournalApp> app_ = std::make_unique<JournalApp>(journal_, selection_, filter_);
    MainWindow* window_ = nullptr;

private:
    int written_ = 0;
};
