// What the processes that use one store's file tell each other through memory: that something changed, and who has
// which database open. Nothing of it needs to survive; it goes with the last process.
#pragma once

#include <windbase.h>

#include <string>

namespace store {

struct SharedPage;

class SharedState {
public:
    // Joins the others who use this file. Throws.
    explicit SharedState(const std::wstring& path);
    ~SharedState();
    SharedState(const SharedState&) = delete;
    SharedState& operator=(const SharedState&) = delete;

    // Moves whenever anybody is about to commit, and again when he has. Costs no more than reading memory.
    LONG64 Changes() const;
    void CountChange();

    // Holds everybody else off the table of open handles, and off making the file.
    class Lock {
    public:
        explicit Lock(SharedState& state);  // throws ERROR_LOCK_VIOLATION after ten seconds
        ~Lock();
        Lock(const Lock&) = delete;
        Lock& operator=(const Lock&) = delete;

    private:
        SharedState& state_;
    };

    // Enters an open handle of the calling thread; the answer is for Leave. Throws ERROR_NOT_ENOUGH_MEMORY when full.
    int Enter(CEOID database, HWND notify);
    void Leave(int row) noexcept;

    // Whether any process that still lives has the database open. Call with the lock held, to rely on the answer.
    bool IsOpen(CEOID database);

    // The same of all databases.
    bool IsInUse();

    // Posts the message to each window given for the database by a thread other than the caller's.
    void Notify(CEOID database, UINT message, CEOID object);

private:
    bool Lives(const struct SharedRow& row) const;

    HANDLE mutex_ = nullptr;
    HANDLE section_ = nullptr;
    SharedPage* page_ = nullptr;
    LONG64 born_ = 0;  // this process's time of creation: tells it from a dead one with the same id
};

}  // namespace store
