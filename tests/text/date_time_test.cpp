#include "text/date_time.h"

#include <gtest/gtest.h>

TEST(DateTimeTest, StartsAtZeroTicks) { EXPECT_EQ(DateTime().Ticks(), 0u); }
