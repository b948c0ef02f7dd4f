#include <ztlinear/ZtLHVec2f.h>
#include <ztlinear/ZtLHVec3f.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace {
using V = std::vector<double>;
const double kNaN = std::numeric_limits<double>::quiet_NaN();

// The first n components of any vector of the library, for one-line comparisons.
template <class T>
V C(const T& t, int n) {
    V v(n);
    for (int i = 0; i < n; ++i) v[i] = t.GetValue()[i];
    return v;
}
}  // namespace

TEST(ZtLHVec, PosDividesByTheWeightOrKeepsTheDirectionOfAPointAtInfinity) {
    EXPECT_EQ(C(ZtLHVec3f(2, 4, 6, 2).Pos(), 3), V({1, 2, 3}));
    EXPECT_EQ(C(ZtLHVec3f(2, 4, 6, 0).Pos(), 3), V({2, 4, 6}));
    EXPECT_EQ(C(ZtLHVec3f(2, 4, 6, -0.0).Pos(), 3), V({2, 4, 6}));
    // A division, not a product with 1/w: 3 * (1/5) would give 0.6000000000000001.
    EXPECT_EQ(C(ZtLHVec3f(3, -3, 1, 5).Pos(), 3), V({0.6, -0.6, 0.2}));
    EXPECT_TRUE(std::isnan(ZtLHVec3f(1, 2, 3, kNaN).Pos()[0]));
    EXPECT_EQ(C(ZtLHVec2f(2, 4, 2).Pos(), 2), V({1, 2}));
    EXPECT_EQ(C(ZtLHVec2f(2, 4, 0).Pos(), 2), V({2, 4}));
    EXPECT_EQ(C(ZtLHVec2f(3, -3, 5).Pos(), 2), V({0.6, -0.6}));

    ZtLHVec3f h;
    h.SetFromPoint(ZtLPos3f(1, 2, 3), 2);
    EXPECT_EQ(C(h, 4), V({2, 4, 6, 2}));
    ZtLHVec2f h2;
    h2.SetFromPoint(ZtLPos2f(1, -2), 0.5);
    EXPECT_EQ(C(h2, 3), V({0.5, -1, 0.5}));
}

TEST(ZtLHVec, EqualityAndZeroTestsCoverTheWeight) {
    const ZtLHVec3f a(1, 2, 3, 4);
    EXPECT_TRUE(ZtLHVec3f::Equals(a, ZtLHVec3f(1.5, 2.5, 3.5, 4.5), 0.5));  // inclusive
    EXPECT_FALSE(ZtLHVec3f::Equals(a, ZtLHVec3f(1, 2, 3, 4.75), 0.5));
    EXPECT_FALSE(a.Equals(ZtLHVec3f(1, 2, 3, kNaN), 1e300));
    EXPECT_TRUE(ZtLHVec2f::Equals(ZtLHVec2f(1, 2, 3), ZtLHVec2f(0.5, 2.5, 3.5), 0.5));
    EXPECT_FALSE(ZtLHVec2f(1, 2, 3).Equals(ZtLHVec2f(1, 2, 3.75), 0.5));

    EXPECT_TRUE(ZtLHVec3f(0, -0.0, 0, 0).IsZero());
    EXPECT_FALSE(ZtLHVec3f(0, 0, 0, 1e-300).IsZero());
    EXPECT_FALSE(ZtLHVec3f(kNaN, 0, 0, 0).IsZero());
    EXPECT_TRUE(ZtLHVec2f(-0.0, 0, 0).IsZero());
    EXPECT_FALSE(ZtLHVec2f(0, 0, 1e-300).IsZero());
    ZtLHVec3f h(a);
    h.MakeZero();
    ZtLHVec2f h2(1, 2, 3);
    h2.MakeZero();
    EXPECT_TRUE(h.IsZero() && h2.IsZero());
}

// The 2D vectors are the first three components of the 3D ones, and so are the results.
template <class H>
void ExpectArithmetic(const H& a, const H& b, int n) {
    auto first = [n](V v) {
        v.resize(n);
        return v;
    };
    EXPECT_EQ(C(-a, n), first({-1, -2, -3, -4}));
    EXPECT_EQ(C(H(a) += b, n), first({9, 6, 5, 5}));
    EXPECT_EQ(C(H(a) -= b, n), first({-7, -2, 1, 3}));
    EXPECT_EQ(C(H(a) *= b, n), first({8, 8, 6, 4}));
    EXPECT_EQ(C(H(a) /= b, n), first({0.125, 0.5, 1.5, 4}));
    EXPECT_EQ(C(H(a) += 1, n), first({2, 3, 4, 5}));
    EXPECT_EQ(C(H(a) -= 1, n), first({0, 1, 2, 3}));
    EXPECT_EQ(C(H(a) *= 2, n), first({2, 4, 6, 8}));
    EXPECT_EQ(C(H(a) /= 4, n), first({0.25, 0.5, 0.75, 1}));
}

TEST(ZtLHVec, ArithmeticActsOnEveryComponentIncludingTheWeight) {
    ExpectArithmetic(ZtLHVec3f(1, 2, 3, 4), ZtLHVec3f(8, 4, 2, 1), 4);
    ExpectArithmetic(ZtLHVec2f(1, 2, 3), ZtLHVec2f(8, 4, 2), 3);
}
