#include "data/sort_key.h"

#include <gtest/gtest.h>

namespace {

TEST(SortKeyTest, FollowsTheField) {
    struct Case {
        unsigned field;
        CEPROPID propid;
        DWORD flags;
    };
    const Case cases[] = {
        {101, 0x00650040, 0},
        {102, 0x0066001F, CEDB_SORT_CASEINSENSITIVE},
        {104, 0x00680041, 0},
        {105, 0x00690002, 0},
        {107, 0x006B0002, 0},
        {108, 0x006C0002, 0},
        {109, 0x006D0040, 0},
        {110, 0x006E0041, 0},
        {111, 0x006F001F, CEDB_SORT_CASEINSENSITIVE},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.field);
        EXPECT_EQ(SortKeyForField(c.field).propid, c.propid);
        EXPECT_EQ(SortKeyForField(c.field).dwFlags, c.flags);
    }
}

TEST(SortKeyTest, BodyAndUnknownFieldsSortByStart) {
    for (const unsigned field : {103u, 106u, 0u, 100u, 112u, 65535u, 4'000'000'000u}) {
        SCOPED_TRACE(field);
        EXPECT_EQ(SortKeyForField(field).propid, 0x00650040u);
        EXPECT_EQ(SortKeyForField(field).dwFlags, 0u);
    }
}

}  // namespace
