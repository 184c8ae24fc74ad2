// The main window's commands on entries that another program has deleted meanwhile.
#include <gmock/gmock.h>

#include "res/ids.h"
#include "tests/app/app_fixture.h"
#include "tests/support/other_program.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class SharedStoreTest : public AppFixture {
protected:
    void SetUp() override {
        ids_ = Write({L"one", L"two", L"three"});
        ASSERT_TRUE(Start());
        for (const CEOID id : ids_)
            List().SelectEntry(id);
    }
    static void Delete(CEOID id) {
        ASSERT_EQ(RunOtherProgram(L"journal_helper.exe", L"delete " + std::to_wstring(id)), 1u);
    }

    std::vector<CEOID> ids_;
};

TEST_F(SharedStoreTest, CopyLeavesOutAnEntryThatIsGone) {
    Delete(ids_[1]);
    Command(IDM_COPY_ENTRIES);
    EXPECT_THAT(Subjects(), UnorderedElementsAre(L"one", L"one", L"three", L"three"));
}

TEST_F(SharedStoreTest, DeleteOfAnEntryThatIsGoneDeletesTheOthersSilently) {
    Delete(ids_[1]);
    boxes_.Expect(L"Confirm", L"Delete record?", IDYES);
    Command(IDM_DELETE_ENTRIES);
    EXPECT_THAT(Subjects(), IsEmpty());
    EXPECT_THAT(selection_.Ids(), IsEmpty());
}

TEST_F(SharedStoreTest, AfterACommandTheListShowsWhatIsThere) {
    Delete(ids_[2]);
    ASSERT_NE(RunOtherProgram(L"journal_helper.exe", L"add four"), 0u);
    Command(IDM_SHOW, 0x466);
    EXPECT_THAT(Subjects(), ElementsAre(L"one", L"two", L"four"));
    EXPECT_EQ(selection_.Current(), 0u);
}

TEST_F(SharedStoreTest, AnEntryDeletedWhileItIsEditedLeavesTheList) {
    FakeEditor::edit = [&](CEOID id) {
        Delete(id);
        return id;
    };
    List().SelectEntry(ids_[1]);
    Command(IDM_EDIT_ENTRY);
    EXPECT_THAT(Subjects(), ElementsAre(L"one", L"three"));
}

TEST_F(SharedStoreTest, AnEntryDeletedWhileItIsEditedAndThenWrittenAnewIsListedAndCurrent) {
    FakeEditor::edit = [&](CEOID id) {
        Delete(id);
        return Write({L"anew"})[0];
    };
    List().SelectEntry(ids_[1]);
    Command(IDM_EDIT_ENTRY);
    EXPECT_THAT(Subjects(), ElementsAre(L"one", L"three", L"anew"));
    EXPECT_EQ(List().GetItemText(List().GetNextItem(-1, LVNI_FOCUSED), 1), L"anew");
}

}  // namespace
