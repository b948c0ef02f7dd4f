#include <ztlinear/ZtLHVec2f.h>
#include <ztlinear/ZtLHVec3f.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>

namespace {
const double kNaN = std::numeric_limits<double>::quiet_NaN();

void ExpectComponents(const ZtLHVec3f& v, double x, double y, double z, double w) {
    EXPECT_EQ(v[0], x);
    EXPECT_EQ(v[1], y);
    EXPECT_EQ(v[2], z);
    EXPECT_EQ(v[3], w);
}
void ExpectComponents(const ZtLHVec2f& v, double x, double y, double w) {
    EXPECT_EQ(v[0], x);
    EXPECT_EQ(v[1], y);
    EXPECT_EQ(v[2], w);
}
}  // namespace

static_assert(sizeof(ZtLHVec3f) == 4 * sizeof(double) && sizeof(ZtLHVec2f) == 3 * sizeof(double),
              "homogeneous vectors are their doubles");
static_assert(std::is_trivially_copyable<ZtLHVec3f>::value &&
                  std::is_trivially_copyable<ZtLHVec2f>::value,
              "homogeneous vectors are plain values");

TEST(ZtLHVec3f, PosDividesByTheWeightOrKeepsTheDirectionOfAPointAtInfinity) {
    struct Row {
        ZtLHVec3f h;
        ZtLPos3f expected;
    };
    const Row rows[] = {
        {ZtLHVec3f(2, 4, 6, 2), ZtLPos3f(1, 2, 3)},
        {ZtLHVec3f(2, 4, 6, 0), ZtLPos3f(2, 4, 6)},
        {ZtLHVec3f(2, 4, 6, -0.0), ZtLPos3f(2, 4, 6)},  // -0.0 compares equal to 0
        // a division, not a product with 1/w: 3 * (1/5) would give
        // 0.6000000000000001
        {ZtLHVec3f(3, -3, 1, 5), ZtLPos3f(0.6, -0.6, 0.2)},
        {ZtLHVec3f(1, 1, 1, -0.5), ZtLPos3f(-2, -2, -2)},
    };
    for (const Row& r : rows) {
        const ZtLPos3f p = r.h.Pos();
        EXPECT_EQ(p[0], r.expected[0]);
        EXPECT_EQ(p[1], r.expected[1]);
        EXPECT_EQ(p[2], r.expected[2]);
    }
    EXPECT_TRUE(std::isnan(ZtLHVec3f(1, 2, 3, kNaN).Pos()[0]));
}

TEST(ZtLHVec2f, PosDividesByTheWeightOrKeepsTheDirectionOfAPointAtInfinity) {
    ZtLPos2f p = ZtLHVec2f(2, 4, 2).Pos();
    EXPECT_EQ(p[0], 1.0);
    EXPECT_EQ(p[1], 2.0);
    p = ZtLHVec2f(2, 4, 0).Pos();
    EXPECT_EQ(p[0], 2.0);
    EXPECT_EQ(p[1], 4.0);
    p = ZtLHVec2f(3, -3, 5).Pos();
    EXPECT_EQ(p[0], 0.6);
    EXPECT_EQ(p[1], -0.6);
}

TEST(ZtLHVec3f, SetFromPointScalesByTheWeight) {
    ZtLHVec3f h;
    h.SetFromPoint(ZtLPos3f(1, 2, 3), 2);
    ExpectComponents(h, 2, 4, 6, 2);
    ZtLHVec2f h2;
    h2.SetFromPoint(ZtLPos2f(1, -2), 0.5);
    ExpectComponents(h2, 0.5, -1, 0.5);
}

TEST(ZtLHVec3f, EqualsIsAnInclusiveBoxOverEveryComponentIncludingTheWeight) {
    const ZtLHVec3f a(1, 2, 3, 4);
    EXPECT_TRUE(ZtLHVec3f::Equals(a, ZtLHVec3f(1.5, 2.5, 3.5, 4.5), 0.5));
    EXPECT_FALSE(ZtLHVec3f::Equals(a, ZtLHVec3f(1, 2, 3, 4.75), 0.5));
    EXPECT_FALSE(a.Equals(ZtLHVec3f(1, 2, 3.75, 4), 0.5));
    EXPECT_FALSE(a.Equals(ZtLHVec3f(1, 2, 3, kNaN), 1e300));
    EXPECT_TRUE(a.Equals(a, 0.0));

    const ZtLHVec2f b(1, 2, 3);
    EXPECT_TRUE(ZtLHVec2f::Equals(b, ZtLHVec2f(0.5, 2.5, 3.5), 0.5));
    EXPECT_FALSE(b.Equals(ZtLHVec2f(1, 2, 3.75), 0.5));
    EXPECT_FALSE(b.Equals(ZtLHVec2f(kNaN, 2, 3), 1e300));
}

TEST(ZtLHVec3f, IsZeroIsExactAndIncludesTheWeight) {
    EXPECT_TRUE(ZtLHVec3f(0, -0.0, 0, 0).IsZero());
    EXPECT_FALSE(ZtLHVec3f(0, 0, 0, 1e-300).IsZero());
    EXPECT_FALSE(ZtLHVec3f(kNaN, 0, 0, 0).IsZero());
    ZtLHVec3f h(1, 2, 3, 4);
    h.MakeZero();
    ExpectComponents(h, 0, 0, 0, 0);

    EXPECT_TRUE(ZtLHVec2f(-0.0, 0, 0).IsZero());
    EXPECT_FALSE(ZtLHVec2f(0, 0, 1e-300).IsZero());
    ZtLHVec2f h2(1, 2, 3);
    h2.MakeZero();
    ExpectComponents(h2, 0, 0, 0);
}

TEST(ZtLHVec3f, ArithmeticActsOnEveryComponentIncludingTheWeight) {
    const ZtLHVec3f a(1, 2, 3, 4);
    const ZtLHVec3f b(8, 4, 2, 1);
    ExpectComponents(-a, -1, -2, -3, -4);
    ExpectComponents(ZtLHVec3f(a) += b, 9, 6, 5, 5);
    ExpectComponents(ZtLHVec3f(a) -= b, -7, -2, 1, 3);
    ExpectComponents(ZtLHVec3f(a) *= b, 8, 8, 6, 4);
    ExpectComponents(ZtLHVec3f(a) /= b, 0.125, 0.5, 1.5, 4);
    ExpectComponents(ZtLHVec3f(a) += 1, 2, 3, 4, 5);
    ExpectComponents(ZtLHVec3f(a) -= 1, 0, 1, 2, 3);
    ExpectComponents(ZtLHVec3f(a) *= 2, 2, 4, 6, 8);
    ExpectComponents(ZtLHVec3f(a) /= 4, 0.25, 0.5, 0.75, 1);

    const ZtLHVec2f c(1, 2, 4);
    const ZtLHVec2f d(8, 4, 2);
    ExpectComponents(-c, -1, -2, -4);
    ExpectComponents(ZtLHVec2f(c) += d, 9, 6, 6);
    ExpectComponents(ZtLHVec2f(c) -= d, -7, -2, 2);
    ExpectComponents(ZtLHVec2f(c) *= d, 8, 8, 8);
    ExpectComponents(ZtLHVec2f(c) /= d, 0.125, 0.5, 2);
    ExpectComponents(ZtLHVec2f(c) += 1, 2, 3, 5);
    ExpectComponents(ZtLHVec2f(c) -= 1, 0, 1, 3);
    ExpectComponents(ZtLHVec2f(c) *= 2, 2, 4, 8);
    ExpectComponents(ZtLHVec2f(c) /= 4, 0.25, 0.5, 1);
}

TEST(ZtLHVec3f, AccessorsAndSettersAddressTheComponentsInOrder) {
    const double values[4] = {1, 2, 3, 4};
    ZtLHVec3f h(values);
    EXPECT_EQ(h.GetW(), 4.0);
    h.Set(3, 9);
    h[0] = 7;
    h.EditValue()[1] = 8;
    ExpectComponents(h, 7, 8, 3, 9);
    EXPECT_EQ(h.Get(1), 8.0);
    h.SetValue(5, 6, 7, 8);
    EXPECT_EQ(static_cast<const ZtLHVec3f&>(h).GetValue()[3], 8.0);

    ZtLHVec2f h2(values);
    EXPECT_EQ(h2.GetW(), 3.0);
    h2.Set(2, 9);
    h2[0] = 7;
    ExpectComponents(h2, 7, 2, 9);
    h2.SetValue(values + 1);
    ExpectComponents(h2, 2, 3, 4);
}
