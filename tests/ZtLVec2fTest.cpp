#include <ztlinear/ZtLVec2f.h>
#include <ztutil/ZtUChecksum.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {
const double kPi = 3.141592653589793;
const double kNaN = std::numeric_limits<double>::quiet_NaN();
}  // namespace

TEST(ZtLVec2f, EqualsIsABoxForVectorsAndACircleForPositions) {
    EXPECT_TRUE(ZtLVec2f::Equals(ZtLVec2f(0, 0), ZtLVec2f(1e-6, 1e-6), 1e-6));
    EXPECT_FALSE(ZtLPos2f::Equals(ZtLPos2f(0, 0), ZtLPos2f(1e-6, 1e-6), 1e-6));
    EXPECT_TRUE(ZtLPos2f(0, 0).Equals(ZtLPos2f(0.5, 0), 0.5)) << "inclusive";
    EXPECT_FALSE(ZtLVec2f(kNaN, 0).Equals(ZtLVec2f(kNaN, 0), 1e300));
    EXPECT_TRUE(ZtLVec2f(-0.0, 0).IsZero());
    EXPECT_FALSE(ZtLPos2f(0, std::numeric_limits<double>::denorm_min()).IsOrigin());
    EXPECT_TRUE(ZtLUnitVec2f(0, 0).IsZero());
}

TEST(ZtLVec2f, NormalizeAndArithmetic) {
    ZtLVec2f zero(0, 0);
    EXPECT_EQ(zero.Normalize(), 0);
    EXPECT_TRUE(zero.IsZero());
    ZtLVec2f v(3, 4);
    EXPECT_EQ(v.Normalize(), 5);
    EXPECT_EQ(v[0], 0.6);
    ZtLUnitVec2f u;
    EXPECT_EQ(u.SetAndNormalize(0, -2), 2);
    EXPECT_EQ(u[1], -1);
    EXPECT_EQ(ZtLVec2f(1, 0).Cross(ZtLVec2f(0, 1)), 1);
    EXPECT_EQ(ZtLUnitVec2f::Y().Cross(ZtLVec2f(1, 0)), -1) << "this first";
    const ZtLVec2f w = ZtLVec2f(1, 2) * 2.0 - ZtLVec2f(0.5, 0.5) / 0.5;
    EXPECT_TRUE(w.Equals(ZtLVec2f(1, 3), 0));
    ZtLVec2f inv(4, -0.0);
    inv.Invert();
    EXPECT_EQ(inv[0], 0.25);
    EXPECT_EQ(inv[1], -std::numeric_limits<double>::infinity());
}

TEST(ZtLVec2f, PositionsMoveByVectors) {
    const ZtLPos2f a(1, 1), b(4, 5);
    const ZtLVec2f d = b - a;
    EXPECT_TRUE(d.Equals(ZtLVec2f(3, 4), 0));
    EXPECT_EQ(a.DistanceTo(b), 5);
    EXPECT_TRUE((a + d).Equals(b, 0));
    EXPECT_TRUE((b - d).Equals(a, 0));
    EXPECT_TRUE(ZtLPos2f::CentreOfTwoPoints(a, b).Equals(ZtLPos2f(2.5, 3), 0));
    EXPECT_EQ(ZtLPos2f::AngleOfTwoPoints(ZtLPos2f(0, 1), ZtLPos2f(0, 0)), -kPi / 2);
    EXPECT_EQ(ZtLPos2f::AngleOfTwoPoints(ZtLPos2f(-1, -0.0), ZtLPos2f(0, 0)), kPi);
}

TEST(ZtLVec2f, AngleWithRefTakesItsSignFromRefDotOther) {
    const ZtLUnitVec2f x = ZtLUnitVec2f::X(), y = ZtLUnitVec2f::Y();
    EXPECT_EQ(x.AngleWithRef(y, y), kPi / 2);
    EXPECT_EQ(x.AngleWithRef(y, -y), -kPi / 2);
    EXPECT_EQ(x.AngleWithRef(y, x), kPi / 2) << "ref perpendicular to other";
    EXPECT_EQ(x.AngleWithRef(-y, y), -kPi / 2) << "ref . other, not a cross product";
    EXPECT_EQ(ZtLVec2f(2, 0).AngleWithRef(ZtLVec2f(-3, 4), ZtLVec2f(0, -1)), -std::acos(-0.6));
    // The free-vector form tests ref . other unnormalised: here the product underflows to zero
    // (positive result) where the normalised directions would give a negative dot.
    EXPECT_GT(ZtLVec2f(1, 0).AngleWithRef(ZtLVec2f(1e-200, 1), ZtLVec2f(-1e-150, 0)), 0.0);
    EXPECT_EQ(ZtLVec2f(2, 0).AngleWithRef(ZtLVec2f(0, 5), ZtLVec2f(1, 0)), kPi / 2);
    // A NaN ref: the unit form (ref . other >= 0) negates, the vector form (< 0) does not.
    ZtLUnitVec2f nanRef;
    nanRef.SetUnitValue(kNaN, kNaN);
    EXPECT_EQ(x.AngleWithRef(y, nanRef), -kPi / 2);
    EXPECT_EQ(ZtLVec2f(1, 0).AngleWithRef(ZtLVec2f(0, 1), ZtLVec2f(kNaN, 0)), kPi / 2);

    ZtLUnitVec2f a, b;
    a.SetUnitValue(0.6, 0.8);
    b.SetUnitValue(0.6000000000000001, 0.8);
    ASSERT_GT(a.Dot(b), 1.0);
    EXPECT_EQ(a.Angle(b), 0.0) << "clamped";
    EXPECT_TRUE(ZtLVec2f(0, 3).DirEquals(ZtLVec2f(0, 0.1), 0));
    EXPECT_FALSE(y.DirEquals(ZtLVec2f(1, 0), 0.99));
}

TEST(ZtLVec2f, TextAndHash) {
    EXPECT_EQ(ZtLPos2f(1e20, 0).ToStringImpl().ToUtf8(),
              "(100000000000000000000.0000000000000000, 0.0000000000000000)");
    EXPECT_EQ(ZtLVec2f(0.5, -2).ToString().ToUtf8(), "(0.5000000000000000, -2.0000000000000000)");
    ZtUChecksum c;
    c.AddFloat(1.0);
    c.AddFloat(2.0);
    EXPECT_EQ(ZtLPos2f(1, 2).CalcHashCode(), c.End());
    EXPECT_FALSE(ZtLPos2f(1, kNaN).IsFinite());
}
