// An empty object store of a test's own, in a file that goes with the object.
//
// For tests that link cehost or something built on it. A database handle left open fails the test.
#pragma once

#include <gtest/gtest.h>
#include <storefault.h>
#include <win.h>
#include <windbase.h>

#include <string>

#include "tests/support/temp_folder.h"

class FreshStore {
public:
    FreshStore() {
        EXPECT_TRUE(CeUnmountObjectStore()) << "a handle was left open before this test";
        SetEnvironmentVariableW(L"CE_OBJECT_STORE", File().c_str());
    }
    ~FreshStore() {
        CeClearFaults();
        EXPECT_TRUE(CeUnmountObjectStore()) << "this test left a handle open";
        SetEnvironmentVariableW(L"CE_OBJECT_STORE", nullptr);
    }
    FreshStore(const FreshStore&) = delete;
    FreshStore& operator=(const FreshStore&) = delete;

    std::wstring File() const { return folder_.File(L"Store.db"); }

    // Closes the store's file, as the end of the program does; the next call opens it again.
    static void Reopen() { EXPECT_TRUE(CeUnmountObjectStore()); }

private:
    TempFolder folder_;
};
