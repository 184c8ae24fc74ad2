// A start on a store that can be read and not be written.
#include <storefault.h>

#include "tests/app/app_fixture.h"
#include "tests/support/pump.h"

using testing::ElementsAre;

namespace {

constexpr wchar_t kTitle[] = L"Quillon Journal";
constexpr wchar_t kNoRoom[] =
    L"There is no room left on the disk.\nEntries can be read; what is new or changed cannot be stored.";
constexpr wchar_t kReadOnly[] =
    L"The file of the entries is read-only.\nEntries can be read; what is new or changed cannot be stored.";

class StartLimitTest : public AppFixture {
protected:
    ~StartLimitTest() override { CeClearFaults(); }
};

TEST_F(StartLimitTest, OnAFullDiskTheEntriesAreShownAndItIsSaidOnce) {
    Write({L"one", L"two"});
    ASSERT_TRUE(CeUnmountObjectStore());
    CeFailDisk(1, kCeDiskFull);
    boxes_.Expect(kTitle, kNoRoom);
    ASSERT_TRUE(Start());
    EXPECT_TRUE(PumpUntil([&] { return boxes_.Seen().size() == 1; }));
    EXPECT_THAT(Subjects(), ElementsAre(L"one", L"two"));
    EXPECT_EQ(boxes_.Seen()[0].owner, window_->GetHandle());
    window_->SendMessage(MainWindow::kOfferUnsaved);
    EXPECT_EQ(boxes_.Seen().size(), 1u);
}

TEST_F(StartLimitTest, AReadOnlyFileIsSaidToBeOne) {
    Write({L"one"});
    ASSERT_TRUE(CeUnmountObjectStore());
    ASSERT_TRUE(SetFileAttributesW(store_.File().c_str(), FILE_ATTRIBUTE_READONLY));
    boxes_.Expect(kTitle, kReadOnly);
    EXPECT_TRUE(Start());
    EXPECT_TRUE(PumpUntil([&] { return boxes_.Seen().size() == 1; }));
    EXPECT_THAT(Subjects(), ElementsAre(L"one"));
    SetFileAttributesW(store_.File().c_str(), FILE_ATTRIBUTE_NORMAL);
}

}  // namespace
