// Messages to windows about changes that others made.
#include <storebatch.h>

#include <string>
#include <thread>

#include "tests/objectstore/other_process.h"
#include "tests/objectstore/store_fixture.h"
#include "tests/support/pump.h"

namespace {

struct Message {
    UINT message;
    CEOID object;
    CEOID parent;
    bool operator==(const Message&) const = default;
};

std::ostream& operator<<(std::ostream& stream, const Message& message) {
    return stream << "message " << message.message << " about " << message.object << " in " << message.parent;
}

// A window without looks that keeps what the store posts to it.
class Listener {
public:
    Listener() {
        window_ = CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
        SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Procedure));
    }
    ~Listener() { DestroyWindow(window_); }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;
    operator HWND() const { return window_; }
    const std::vector<Message>& Got() const { return got_; }

    // Waits until so many have come.
    std::vector<Message> Wait(size_t count) {
        EXPECT_TRUE(PumpUntil([&] { return got_.size() >= count; })) << got_.size() << " of " << count;
        PumpOnce();
        return std::exchange(got_, {});
    }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
        auto& self = *reinterpret_cast<Listener*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (message > WM_USER && message <= WM_USER + 6) {
            self.got_.push_back({message, static_cast<CEOID>(wparam), static_cast<CEOID>(lparam)});
            return 0;
        }
        return DefWindowProcW(window, message, wparam, lparam);
    }

    HWND window_ = nullptr;
    std::vector<Message> got_;
};

class NotificationTest : public StoreTest {
protected:
    NotificationTest() {
        Make({{kText, 0}});
        database = OpenBy(kText, 0, listener);
    }
    template <class Work>
    static void InAnotherThread(Work work) {
        std::thread(work).join();
    }
    Listener listener;
    HANDLE database;
};

TEST_F(NotificationTest, AnotherThreadsChangesAreTold) {
    CEOID record = 0;
    InAnotherThread([&] {
        record = Add(database, L"a");
        Write(database, {TextValue(kText, L"b")}, record);
        CeDeleteRecord(database, record);
    });
    EXPECT_EQ(listener.Wait(3), (std::vector<Message>{{DB_CEOID_CREATED, record, Oid()},
                                                      {DB_CEOID_CHANGED, record, Oid()},
                                                      {DB_CEOID_RECORD_DELETED, record, Oid()}}));
}

TEST_F(NotificationTest, TheOwnThreadsChangesAreNot) {
    Add(database, L"own");
    CEOID record = 0;
    InAnotherThread([&] { record = Add(database, L"other's"); });
    EXPECT_EQ(listener.Wait(1), (std::vector<Message>{{DB_CEOID_CREATED, record, Oid()}}));
}

TEST_F(NotificationTest, AnotherProcesssChangesAreTold) {
    OtherProcess other;
    other.Do("open \\Test 1001F");
    const CEOID record = std::stoul(other.Do("add a"));
    other.Do("set " + std::to_string(record) + " b");
    other.Do("delete " + std::to_string(record));
    EXPECT_EQ(listener.Wait(3), (std::vector<Message>{{DB_CEOID_CREATED, record, Oid()},
                                                      {DB_CEOID_CHANGED, record, Oid()},
                                                      {DB_CEOID_RECORD_DELETED, record, Oid()}}));
}

TEST_F(NotificationTest, TheChangeCanBeReadWhenItIsTold) {
    OtherProcess other;
    other.Do("open \\Test 1001F");
    for (int i = 0; i < 20; ++i) {
        const CEOID record = std::stoul(other.Do("add a"));
        listener.Wait(1);
        EXPECT_EQ(SeekTo(database, record), record);
    }
}

TEST_F(NotificationTest, OtherDatabasesAreNotTold) {
    const HANDLE second = Make({}, L"second");
    InAnotherThread([&] { Add(second, L"x"); });
    CEOID record = 0;
    InAnotherThread([&] { record = Add(database, L"y"); });
    EXPECT_EQ(listener.Wait(1).at(0).object, record);
}

TEST_F(NotificationTest, AFailedWriteIsNotTold) {
    InAnotherThread([&] {
        Write(database, {TextValue(kText, nullptr)});
        Write(database, {TextValue(kText, L"x")}, 999'999);
        Add(database, L"good");
    });
    EXPECT_EQ(listener.Wait(1).size(), 1u);
}

TEST_F(NotificationTest, AClosedHandleIsNotToldAndAnotherIs) {
    Listener second;
    const HANDLE other = OpenBy(kText, 0, second);
    CloseHandle(database);
    InAnotherThread([&] { Add(other, L"x"); });
    EXPECT_EQ(second.Wait(1).size(), 1u);
    EXPECT_TRUE(listener.Got().empty());
}

TEST_F(NotificationTest, ABatchIsToldAtItsEndAndNotWhenCancelled) {
    InAnotherThread([&] {
        CeBeginBatch();
        Add(database, L"x");
        CeCancelBatch();
        CeBeginBatch();
        for (int i = 0; i < 3; ++i)
            Add(database, L"y");
        CeCommitBatch();
    });
    EXPECT_EQ(listener.Wait(3).size(), 3u);
}

TEST_F(NotificationTest, ALargeBatchDoesNotFloodTheWindow) {
    InAnotherThread([&] {
        CeBeginBatch();
        for (int i = 0; i < 1000; ++i)
            Add(database, L"y");
        CeCommitBatch();
    });
    EXPECT_EQ(listener.Wait(100).size(), 100u);
}

}  // namespace
