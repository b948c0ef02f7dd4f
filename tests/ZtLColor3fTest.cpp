#include <ztlinear/ZtLColor3f.h>

#include <gtest/gtest.h>

#include <limits>

namespace {
const double kNaN = std::numeric_limits<double>::quiet_NaN();

void ExpectColor(const ZtLColor3f& c, double r, double g, double b) {
    EXPECT_EQ(c.GetR(), r);
    EXPECT_EQ(c.GetG(), g);
    EXPECT_EQ(c.GetB(), b);
}
}  // namespace

TEST(ZtLColor3f, ClampedByteValueTruncatesInsideTheRange) {
    struct Row {
        double value;
        int byte;
    };
    const Row rows[] = {{0.999, 254}, {1.0, 255}, {-0.1, 0},
                        {0.0, 0},     {-0.0, 0},  {0.5, 127},
                        {1e300, 255}, {1.5, 255}, {0.0039, 0},
                        {0.004, 1},   {kNaN, 0},  {-std::numeric_limits<double>::infinity(), 0}};
    for (const Row& r : rows) {
        const ZtLColor3f c(0.25, r.value, 0.75);
        EXPECT_EQ(c.GetClampedByteValue(1), r.byte) << r.value;
        EXPECT_EQ(c.GetClampedByteValue(0), 63);
        EXPECT_EQ(c.GetClampedByteValue(2), 191);
    }
}

TEST(ZtLColor3f, LuminancesUseTheirOwnWeightsPerChannel) {
    EXPECT_EQ(ZtLColor3f::Red().LuminanceStandard(), 0.2126);
    EXPECT_EQ(ZtLColor3f::Green().LuminanceStandard(), 0.7152);
    EXPECT_EQ(ZtLColor3f::Blue().LuminanceStandard(), 0.0722);
    EXPECT_EQ(ZtLColor3f::Red().LuminancePerceived(), 0.299);
    EXPECT_EQ(ZtLColor3f::Green().LuminancePerceived(), 0.587);
    EXPECT_EQ(ZtLColor3f::Blue().LuminancePerceived(), 0.114);
    EXPECT_EQ(ZtLColor3f(2, 0, 0).LuminancePerceived(), 0.598);  // not clamped
}

TEST(ZtLColor3f, BestBackgroundIsBlackFromAPerceivedLuminanceOfOneHalf) {
    // 0.299 * 0.90625 + 0.587 * 0.375 + 0.114 * 0.078125 is exactly 0.5.
    ExpectColor(ZtLColor3f::BestBackgroundColor(ZtLColor3f(0.90625, 0.375, 0.078125)), 0, 0, 0);
    // Mid grey's perceived luminance rounds to 0.49999999999999994 in doubles, below one half.
    ExpectColor(ZtLColor3f::BestBackgroundColor(ZtLColor3f(0.5, 0.5, 0.5)), 1, 1, 1);
    ExpectColor(ZtLColor3f::BestBackgroundColor(ZtLColor3f::White()), 0, 0, 0);
    ExpectColor(ZtLColor3f::BestBackgroundColor(ZtLColor3f::Black()), 1, 1, 1);
    ExpectColor(ZtLColor3f::BestBackgroundColor(ZtLColor3f::Green()), 0, 0, 0);
    ExpectColor(ZtLColor3f::BestBackgroundColor(ZtLColor3f::Red()), 1, 1, 1);
}

TEST(ZtLColor3f, IsValidIncludesBothEndsOfTheUnitRange) {
    EXPECT_TRUE(ZtLColor3f(0, 1, -0.0).IsValid());
    EXPECT_TRUE(ZtLColor3f(0.25, 0.5, 0.75).IsValid());
    EXPECT_FALSE(ZtLColor3f(1.0000001, 0, 0).IsValid());
    EXPECT_FALSE(ZtLColor3f(0, -1e-300, 0).IsValid());
    EXPECT_FALSE(ZtLColor3f(0, 0, kNaN).IsValid());
}

TEST(ZtLColor3f, FactoriesAndBlackTest) {
    ExpectColor(ZtLColor3f::FromByteRGB(255, 0, 128), 1, 0, 128 / 255.0);
    ExpectColor(ZtLColor3f::CreateBlack(), 0, 0, 0);
    ExpectColor(ZtLColor3f::CreateWhite(), 1, 1, 1);
    ExpectColor(ZtLColor3f::CreateRed(), 1, 0, 0);
    ExpectColor(ZtLColor3f::CreateGreen(), 0, 1, 0);
    ExpectColor(ZtLColor3f::CreateBlue(), 0, 0, 1);
    EXPECT_TRUE(ZtLColor3f(-0.0, 0, 0).IsBlack());
    EXPECT_FALSE(ZtLColor3f(0, 0, 1e-300).GetIsBlack());
    EXPECT_FALSE(ZtLColor3f(kNaN, 0, 0).IsBlack());
    ZtLColor3f c(0.1, 0.2, 0.3);
    c.MakeBlack();
    EXPECT_TRUE(c.IsBlack());
}

TEST(ZtLColor3f, ArithmeticIsComponentwiseAndUnclamped) {
    const ZtLColor3f a(0.75, 0.5, 0.25);
    const ZtLColor3f b(0.5, 0.75, 1);
    ExpectColor(a.Add(b), 1.25, 1.25, 1.25);
    ExpectColor(a.Subtract(b), 0.25, -0.25, -0.75);
    ExpectColor(a.Multiply(4), 3, 2, 1);
    ExpectColor(ZtLColor3f(a) += b, 1.25, 1.25, 1.25);
    ExpectColor(ZtLColor3f(a) -= b, 0.25, -0.25, -0.75);
    ExpectColor(ZtLColor3f(a) *= -1, -0.75, -0.5, -0.25);
}

TEST(ZtLColor3f, VecViewSharesTheStorage) {
    ZtLColor3f c(0.1, 0.2, 0.3);
    c.Vec() += ZtLVec3f(1, 1, 1);
    ExpectColor(c, 0.1 + 1, 0.2 + 1, 0.3 + 1);
    EXPECT_EQ(static_cast<const ZtLColor3f&>(c).Vec().GetValue(), c.GetValue());
    ZtLVec3f v(1, 2, 3);
    v.Color().Set(1, 5);
    EXPECT_EQ(v.GetY(), 5.0);
    EXPECT_EQ(static_cast<const ZtLVec3f&>(v).Color().GetG(), 5.0);
}
