#include <ztlinear/ZtLMaths.h>

#include <gtest/gtest.h>

#include <climits>
#include <cmath>

// Replays of the inputs that the fuzz targets (fuzz/) found, one test per finding. Each names
// the target that found it.

// zt_fuzz_linear: fact of a large non-negative long multiplied on up to n long after the product
// had become infinite, so fact(LONG_MAX) did not return. It now stops at the first infinite
// product, which is the same result.
TEST(ZtLRegressionTest, FactOfHugeArgumentReturnsInfinityAtOnce) {
    EXPECT_EQ(ZtLMaths::fact(170), 7.257415615307994e306);
    EXPECT_EQ(ZtLMaths::fact(171), HUGE_VAL);
    EXPECT_EQ(ZtLMaths::fact(LONG_MAX), HUGE_VAL);
    EXPECT_TRUE(std::isnan(ZtLMaths::binomial(LONG_MAX, 2)));  // inf / (2 * inf)
}
