#include <ztlinear/ZtLMaths.h>

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>

namespace {
std::uint64_t Bits(double d) {
    std::uint64_t u;
    std::memcpy(&u, &d, sizeof u);
    return u;
}
const double kNaN = std::numeric_limits<double>::quiet_NaN();
}  // namespace

TEST(ZtLMaths, SpecialValuesHaveTheirBitPatterns) {
    EXPECT_EQ(Bits(ZtLMaths::Infinity()), 0x7FF0000000000000ULL);
    EXPECT_EQ(Bits(ZtLMaths::QuietNaN()), 0x7FF8000000000000ULL);
    EXPECT_EQ(ZtLMaths::Infinite(), std::numeric_limits<double>::max());
    EXPECT_TRUE(ZtLMaths::IsFinite(ZtLMaths::Infinite())) << "a sentinel, not an infinity";
    EXPECT_FALSE(ZtLMaths::IsFinite(ZtLMaths::Infinity()));
    EXPECT_FALSE(ZtLMaths::IsFinite(kNaN));
    EXPECT_TRUE(ZtLMaths::IsNaN(ZtLMaths::QuietNaN()));
    EXPECT_FALSE(ZtLMaths::IsNaN(ZtLMaths::Infinity()));
    EXPECT_EQ(ZtLMaths::CopySign(2.0, -0.0), -2.0);
    EXPECT_EQ(ZtLMaths::CopySign(-2.0, 1.0), 2.0);
}

TEST(ZtLMaths, MinMaxReturnTheSecondOnTiesAndNaN) {
    EXPECT_EQ(ZtLMaths::Min(kNaN, 1.0), 1.0);
    EXPECT_TRUE(std::isnan(ZtLMaths::Min(1.0, kNaN)));
    EXPECT_EQ(ZtLMaths::Max(kNaN, 1.0), 1.0);
    EXPECT_TRUE(std::isnan(ZtLMaths::Max(1.0, kNaN)));
    EXPECT_TRUE(std::signbit(ZtLMaths::Min(0.0, -0.0))) << "tie gives the second";
    EXPECT_FALSE(std::signbit(ZtLMaths::Max(-0.0, 0.0)));
    EXPECT_TRUE(std::signbit(ZtLMaths::Min(0.0f, -0.0f)));
    EXPECT_EQ(ZtLMaths::Min(-3, 2), -3);
    EXPECT_EQ(ZtLMaths::Max(-3L, 2L), 2L);
    EXPECT_EQ(ZtLMaths::Min(LLONG_MIN, 0LL), LLONG_MIN) << "signed 64-bit comparison";
    EXPECT_EQ(ZtLMaths::Max(LLONG_MAX, -1LL), LLONG_MAX);
}

TEST(ZtLMaths, EqualsAndIsZeroAreInclusiveAndRejectNaN) {
    EXPECT_TRUE(ZtLMaths::Equals(1.0, 1.5, 0.5));
    EXPECT_FALSE(ZtLMaths::Equals(1.0, 1.5, 0.4999));
    EXPECT_FALSE(ZtLMaths::Equals(kNaN, kNaN, 1e300));
    EXPECT_TRUE(ZtLMaths::IsZero(-0.25, 0.25));
    EXPECT_FALSE(ZtLMaths::IsZero(kNaN, 1.0));
    // In float, 1 + 1e-8 rounds to 1: the float difference is zero.
    EXPECT_TRUE(ZtLMaths::Equals(1.0f, static_cast<float>(1.0 + 1e-8), 0.0f));
    EXPECT_TRUE(ZtLMaths::IsZero(-0.5f, 0.5f));
    EXPECT_EQ(ZtLMaths::sqrt(2.0f), static_cast<float>(std::sqrt(2.0)));
    EXPECT_EQ(ZtLMaths::abs(-2.5f), 2.5f);
}

TEST(ZtLMaths, ConversionsAndHyperbolicFormulas) {
    EXPECT_EQ(ZtLMaths::DegToRad(180.0), 180.0 * 0.017453292519943295);
    EXPECT_EQ(ZtLMaths::RadToDeg(1.0), 57.29577951308232);
    EXPECT_EQ(ZtLMaths::acosh(2.0), std::log(std::sqrt(3.0) + 2.0));
    EXPECT_NEAR(ZtLMaths::atanh(std::tanh(0.3)), 0.3, 1e-15);
    EXPECT_TRUE(std::isnan(ZtLMaths::acosh(0.5)));
    EXPECT_EQ(ZtLMaths::atanh(1.0), std::numeric_limits<double>::infinity());
    // No symmetry for negative arguments: sqrt(x*x + 1) + x cancels to 0 and the log is -inf.
    EXPECT_EQ(ZtLMaths::asinh(-1e10), -std::numeric_limits<double>::infinity());
}

TEST(ZtLMaths, RoundTakesHalvesAwayFromZero) {
    const struct {
        double in, out;
    } cases[] = {{0.5, 1}, {-0.5, -1}, {2.5, 3}, {-2.5, -3}, {1.4999, 1}, {-1.4999, -1}, {0, 0}};
    for (const auto& c : cases) EXPECT_EQ(ZtLMaths::Round(c.in), c.out) << c.in;
    EXPECT_FALSE(std::signbit(ZtLMaths::Round(-0.0))) << "-0.0 takes the floor(x + 0.5) branch";
    EXPECT_TRUE(std::signbit(ZtLMaths::Round(-0.25))) << "ceil(-0.75) is -0.0";
}

TEST(ZtLMaths, FactorialAndBinomial) {
    EXPECT_EQ(ZtLMaths::fact(0), 1.0);
    EXPECT_EQ(ZtLMaths::fact(9), 362880.0);
    EXPECT_EQ(ZtLMaths::fact(10), 3628800.0);
    EXPECT_EQ(ZtLMaths::fact(20), 2432902008176640000.0);
    EXPECT_TRUE(std::isnan(ZtLMaths::fact(-1)));
    EXPECT_EQ(ZtLMaths::binomial(5, 2), 10.0);
    EXPECT_EQ(ZtLMaths::binomial(0, 3), 0.0);
    EXPECT_EQ(ZtLMaths::binomial(3, 0), 1.0);
    EXPECT_EQ(ZtLMaths::binomial(0, 0), 1.0) << "k == 0 is tested before n == 0";
    EXPECT_EQ(ZtLMaths::binomial(4, 4), 1.0);
    EXPECT_EQ(ZtLMaths::binomial(2, 5), 0.0);
    EXPECT_EQ(ZtLMaths::binomial(12, 5), 792.0);
}

TEST(ZtLMaths, FfsAndCeilPower2) {
    EXPECT_EQ(ZtLMaths::ffs(0), 0);
    EXPECT_EQ(ZtLMaths::ffs(1), 1);
    EXPECT_EQ(ZtLMaths::ffs(6), 2);
    EXPECT_EQ(ZtLMaths::ffs(8), 4);
    EXPECT_EQ(ZtLMaths::ffs(-1), 1);
    EXPECT_EQ(ZtLMaths::ffs(LONG_MIN), static_cast<int>(sizeof(long) * CHAR_BIT));
    EXPECT_EQ(ZtLMaths::ffs(static_cast<long>(INT32_MIN)), 32)
        << "the same for either width of long";

    const struct {
        int in, out;
    } cases[] = {{0, 0}, {-7, 1}, {1, 1}, {2, 2}, {5, 8}, {8, 8}, {9, 16}, {1 << 30, 1 << 30}};
    for (const auto& c : cases) EXPECT_EQ(ZtLMaths::CeilPower2(c.in), c.out) << c.in;
    EXPECT_EQ(ZtLMaths::CeilPower2((1 << 30) + 1), 0) << "no int power of two qualifies";
}

TEST(ZtLMaths, FindQuadraticRootsTakesEachBranch) {
    const double kUnset = 99;
    const struct {
        double a, b, c;
        int n;
        double r1, r2;
    } cases[] = {
        {0, 0, 5, 0, kUnset, kUnset},  // no equation
        {0, 2, 3, 1, -1.5, kUnset},    // linear
        {3, 0, 0, 1, 0, kUnset},       // c == 0, double root at 0
        {2, 4, 0, 2, 0, -2},           // c == 0: r1 = 0, r2 = -b/a
        {1, 0, 1, 0, kUnset, kUnset},  // negative discriminant
        {1, 2, 1, 1, -1, kUnset},      // zero discriminant
        {1, -3, 2, 2, 2, 1},           // the root of larger magnitude first
        {1, 3, 2, 2, -2, -1},          // b > 0 flips the square root
        {1, -1e8, 1, 2, 1e8, 1e-8},    // the small root from the product: no cancellation
    };
    for (const auto& t : cases) {
        double r1 = kUnset, r2 = kUnset;
        EXPECT_EQ(ZtLMaths::FindQuadraticRoots(t.a, t.b, t.c, &r1, &r2), t.n) << t.a << t.b << t.c;
        EXPECT_DOUBLE_EQ(r1, t.r1) << t.a << " " << t.b << " " << t.c;
        EXPECT_DOUBLE_EQ(r2, t.r2) << t.a << " " << t.b << " " << t.c;
    }
}

TEST(ZtLMaths, FindQuadraticRootsSatisfyRandomEquations) {
    std::mt19937 rng(12345);
    std::uniform_real_distribution<double> coef(-100.0, 100.0);
    int solved = 0;
    for (int i = 0; i < 2000; ++i) {
        const double a = coef(rng), b = coef(rng), c = coef(rng);
        double r[2];
        const int n = ZtLMaths::FindQuadraticRoots(a, b, c, &r[0], &r[1]);
        ASSERT_EQ(n == 0, b * b - a * 4 * c < 0) << a << " " << b << " " << c;
        for (int k = 0; k < n; ++k) {
            const double x = r[k];
            const double scale = std::fabs(a * x * x) + std::fabs(b * x) + std::fabs(c);
            EXPECT_LE(std::fabs(a * x * x + b * x + c), 1e-12 * scale) << a << " " << b << " " << c;
        }
        if (n == 2) {
            EXPECT_GE(std::fabs(r[0]), std::fabs(r[1]));
        }
        solved += n;
    }
    EXPECT_GT(solved, 1000);
}
