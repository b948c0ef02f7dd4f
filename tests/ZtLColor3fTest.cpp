#include <ztlinear/ZtLColor3f.h>

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace {
using V = std::vector<double>;
const double kNaN = std::numeric_limits<double>::quiet_NaN();
V C(const ZtLColor3f& c) { return V({c.GetR(), c.GetG(), c.GetB()}); }
}  // namespace

TEST(ZtLColor3f, ClampedByteValueTruncatesInsideTheRange) {
    const struct {
        double value;
        int byte;
    } rows[] = {{0.999, 254}, {1.0, 255},  {-0.1, 0},  {-0.0, 0}, {0.5, 127},
                {1e300, 255}, {0.0039, 0}, {0.004, 1}, {kNaN, 0}, {-1e300, 0}};
    for (const auto& r : rows) {
        const ZtLColor3f c(0.25, r.value, 0.75);
        EXPECT_EQ(c.GetClampedByteValue(1), r.byte) << r.value;
        EXPECT_EQ(c.GetClampedByteValue(0) + c.GetClampedByteValue(2), 63 + 191);
    }
}

TEST(ZtLColor3f, LuminancesAndBestBackground) {
    EXPECT_EQ(V({ZtLColor3f::Red().LuminanceStandard(), ZtLColor3f::Green().LuminanceStandard(),
                 ZtLColor3f::Blue().LuminanceStandard()}),
              V({0.2126, 0.7152, 0.0722}));
    EXPECT_EQ(V({ZtLColor3f::Red().LuminancePerceived(), ZtLColor3f::Green().LuminancePerceived(),
                 ZtLColor3f::Blue().LuminancePerceived()}),
              V({0.299, 0.587, 0.114}));
    // 0.299 * 0.90625 + 0.587 * 0.375 + 0.114 * 0.078125 is exactly 0.5: black.
    EXPECT_EQ(C(ZtLColor3f::BestBackgroundColor(ZtLColor3f(0.90625, 0.375, 0.078125))), V(3, 0.0));
    // Mid grey's perceived luminance is 0.49999999999999994 in doubles, below one half: white.
    EXPECT_EQ(C(ZtLColor3f::BestBackgroundColor(ZtLColor3f(0.5, 0.5, 0.5))), V(3, 1.0));
    EXPECT_EQ(C(ZtLColor3f::BestBackgroundColor(ZtLColor3f::Green())), V(3, 0.0));
    EXPECT_EQ(C(ZtLColor3f::BestBackgroundColor(ZtLColor3f::Red())), V(3, 1.0));
}

TEST(ZtLColor3f, ValidityAndBlackTestsAreExact) {
    EXPECT_TRUE(ZtLColor3f(0, 1, -0.0).IsValid());
    EXPECT_FALSE(ZtLColor3f(1.0000001, 0, 0).IsValid());
    EXPECT_FALSE(ZtLColor3f(0, -1e-300, 0).IsValid());
    EXPECT_FALSE(ZtLColor3f(0, 0, kNaN).IsValid());
    EXPECT_TRUE(ZtLColor3f(-0.0, 0, 0).IsBlack());
    EXPECT_FALSE(ZtLColor3f(0, 0, 1e-300).GetIsBlack());
    EXPECT_FALSE(ZtLColor3f(kNaN, 0, 0).IsBlack());
}

TEST(ZtLColor3f, FactoriesArithmeticAndVectorView) {
    EXPECT_EQ(C(ZtLColor3f::FromByteRGB(255, 0, 128)), V({1, 0, 128 / 255.0}));
    const ZtLColor3f a(0.75, 0.5, 0.25), b(0.5, 0.75, 1);
    EXPECT_EQ(C(a.Add(b)), V({1.25, 1.25, 1.25}));  // not clamped
    EXPECT_EQ(C(a.Subtract(b)), V({0.25, -0.25, -0.75}));
    EXPECT_EQ(C(a.Multiply(4)), V({3, 2, 1}));

    ZtLVec3f v(1, 2, 3);
    v.Color().Set(1, 5);
    v.Color().Vec() += ZtLVec3f(1, 1, 1);
    EXPECT_EQ(C(v.Color()), V({2, 6, 4}));
}
