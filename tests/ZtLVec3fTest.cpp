#include <ztlinear/ZtLVec3f.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {
const double kPi = 3.141592653589793;
const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInf = std::numeric_limits<double>::infinity();

void ExpectXyz(const ZtLBaseVec3f& v, double x, double y, double z) {
    EXPECT_EQ(v[0], x);
    EXPECT_EQ(v[1], y);
    EXPECT_EQ(v[2], z);
}
}  // namespace

TEST(ZtLVec3f, StorageAndAccess) {
    ZtLVec3f v(1, 2, 3);
    v[0] = 4;
    v.Set(1, 5);
    v.EditValue()[2] = 6;
    ExpectXyz(v, 4, 5, 6);
    const double raw[3] = {7, 8, 9};
    v.Pos().SetValue(raw);
    ExpectXyz(v, 7, 8, 9);  // Pos() views the same storage
    ZtLPos3f p(1, 1, 1);
    p.Vec() *= 2.0;
    ExpectXyz(p, 2, 2, 2);
}

TEST(ZtLVec3f, EqualsIsAnInclusiveBoxAndPositionsASphere) {
    const ZtLVec3f o(0, 0, 0), d(1e-6, 1e-6, 1e-6);
    EXPECT_TRUE(ZtLVec3f::Equals(o, d, 1e-6));
    EXPECT_FALSE(ZtLPos3f::Equals(o.Pos(), d.Pos(), 1e-6)) << "sqrt(3)*1e-6 exceeds 1e-6";
    EXPECT_TRUE(ZtLPos3f(0, 0, 0).Equals(ZtLPos3f(0, 0.5, 0), 0.5)) << "inclusive";
    EXPECT_TRUE(ZtLVec3f(1, 2, 3).Equals(ZtLVec3f(1.5, 2, 3), 0.5));
    EXPECT_FALSE(ZtLVec3f(1, 2, 3).Equals(ZtLVec3f(1, 2, 3.5), 0.49));
    EXPECT_FALSE(ZtLVec3f(1, 2, kNaN).Equals(ZtLVec3f(1, 2, kNaN), kInf));
    EXPECT_FALSE(ZtLPos3f(kNaN, 0, 0).Equals(ZtLPos3f(kNaN, 0, 0), kInf));
}

TEST(ZtLVec3f, ZeroTestsAreExact) {
    EXPECT_FALSE(ZtLVec3f(std::numeric_limits<double>::min(), 0, 0).GetIsZero());
    EXPECT_TRUE(ZtLVec3f(-0.0, 0, 0).GetIsZero());
    EXPECT_FALSE(ZtLVec3f(kNaN, 0, 0).IsZero());
    EXPECT_TRUE(ZtLPos3f(0, -0.0, 0).IsOrigin());
    EXPECT_FALSE(ZtLPos3f(0, 0, 1e-300).GetIsOrigin());
    EXPECT_TRUE(ZtLUnitVec3f::IsZero(0, -0.0, 0));
}

TEST(ZtLVec3f, NormalizeReturnsTheLengthAndKeepsZero) {
    ZtLVec3f v(3, 0, 4);
    EXPECT_EQ(v.Normalize(), 5);
    ExpectXyz(v, 0.6, 0, 0.8);
    ZtLVec3f zero(0, -0.0, 0);
    EXPECT_EQ(zero.Normalize(), 0);
    ExpectXyz(zero, 0, -0.0, 0);
    EXPECT_TRUE(std::signbit(zero[1])) << "left unchanged";

    ZtLUnitVec3f u;
    EXPECT_EQ(u.SetAndNormalize(0, 0, -0.0), 0);
    ExpectXyz(u, 0, 0, 0);
    EXPECT_FALSE(std::signbit(u[2])) << "a zero input becomes (0, 0, 0)";
    EXPECT_EQ(u.SetAndNormalize(ZtLVec3f(0, 0, -2)), 2);
    ExpectXyz(u, 0, 0, -1);
    ExpectXyz(ZtLUnitVec3f(ZtLVec3f(0, 3, 4)), 0, 0.6, 0.8);
    u.SetUnitValue(0, 2, 0);
    ExpectXyz(u, 0, 2, 0);
    u.Normalize();
    ExpectXyz(u, 0, 1, 0);
}

TEST(ZtLVec3f, Arithmetic) {
    const ZtLVec3f a(1, 2, 4), b(2, 4, 8);
    ExpectXyz(a - b, -1, -2, -4);
    ExpectXyz(a.Divide(b), 0.5, 0.5, 0.5);
    ExpectXyz(2.0 * a + a.Subtract(1.0), 2, 5, 11);
    ExpectXyz(ZtLVec3f(-1, 2, -0.0).Abs(), 1, 2, 0);
    // Division divides each component rather than multiplying by the reciprocal.
    ExpectXyz(ZtLVec3f(0.3, 0.7, 1.1) / 3.0, 0.3 / 3.0, 0.7 / 3.0, 1.1 / 3.0);
    ZtLVec3f c(1, 2, 4);
    c += b;
    c *= ZtLVec3f(4, 2, 1);
    c /= 2.0;
    ExpectXyz(c, 6, 6, 6);
    ZtLVec3f inv(2, 0, -4);
    inv.Invert();
    ExpectXyz(inv, 0.5, kInf, -0.25);
    ExpectXyz(ZtLVec3f(2, -0.0, 4).Inverse(), 0.5, -kInf, 0.25);
    EXPECT_EQ(a.Dot(b), 42);
    ExpectXyz(ZtLVec3f(1, 2, 3).Cross(ZtLVec3f(4, 5, 6)), -3, 6, -3);
}

TEST(ZtLVec3f, PositionsMoveByVectors) {
    const ZtLPos3f p(1, 2, 3), q(4, 6, 3);
    const ZtLVec3f d = q - p;
    ExpectXyz(d, 3, 4, 0);
    ExpectXyz(p + d, 4, 6, 3);
    ExpectXyz(q - d, 1, 2, 3);
    EXPECT_EQ(p.DistanceTo(q), 5);
    EXPECT_EQ(ZtLPos3f(0, 3, 4).Distance(), 5);
    ZtLPos3f r = p;
    r -= d;
    ExpectXyz(r, -2, -2, 3);
    ExpectXyz(p + ZtLUnitVec3f::Z(), 1, 2, 4);
}

TEST(ZtLVec3f, UnitVectorsCompareByDotAndStayUnit) {
    const ZtLUnitVec3f x = ZtLUnitVec3f::X();
    const ZtLUnitVec3f tilted(1, 1e-5, 0);
    const double gap = 1 - x.Dot(tilted);
    EXPECT_TRUE(ZtLUnitVec3f::Equals(x, tilted, gap)) << "inclusive";
    EXPECT_FALSE(x.Equals(tilted, gap / 2));
    EXPECT_TRUE(x.DirEquals(ZtLVec3f(7, 0, 0), 0));
    EXPECT_TRUE(ZtLVec3f(0, 5, 0).DirEquals(ZtLVec3f(0, 0.5, 0), 0));
    EXPECT_FALSE(ZtLVec3f(0, 5, 0).DirEquals(ZtLVec3f(0, -0.5, 0), 1.5));
    EXPECT_TRUE(ZtLVec3f(0, 5, 0).DirEquals(ZtLUnitVec3f::Y(), 0));
    EXPECT_TRUE(ZtLVec3f(0, 0, 0).DirEquals(ZtLVec3f(0, 1, 0), 1.0)) << "zero gives dot 0";

    const ZtLUnitVec3f minus = -x;  // negation stays a unit vector, arithmetic leaves it
    const ZtLVec3f sum = minus + ZtLUnitVec3f::Y();
    ExpectXyz(sum, -1, 1, 0);
}

TEST(ZtLVec3f, AngleClampsTheDotProduct) {
    // Components whose rounded dot product is one ulp above 1.
    ZtLUnitVec3f a, b;
    a.SetUnitValue(0.6, 0.8, 0);
    b.SetUnitValue(0.6000000000000001, 0.8, 0);
    ASSERT_GT(a.Dot(b), 1.0);
    EXPECT_EQ(a.Angle(b), 0.0);
    b.SetUnitValue(-0.6000000000000001, -0.8, 0);
    ASSERT_LT(a.Dot(b), -1.0);
    EXPECT_EQ(a.Angle(b), std::acos(-1.0));
    EXPECT_NEAR(ZtLVec3f(2, 0, 0).Angle(ZtLVec3f(1, 1, 0)), kPi / 4, 1e-15);
}

TEST(ZtLVec3f, AngleWithRefIsSignedByTheReference) {
    const ZtLUnitVec3f x = ZtLUnitVec3f::X(), y = ZtLUnitVec3f::Y(), z = ZtLUnitVec3f::Z();
    EXPECT_EQ(x.AngleWithRef(y, z), kPi / 2);
    EXPECT_EQ(x.AngleWithRef(y, -z), -kPi / 2);
    EXPECT_EQ(x.AngleWithRef(-x, z), kPi) << "c is zero: the sign test leaves it positive";
    EXPECT_EQ(x.AngleWithRef(y, x), kPi / 2) << "ref perpendicular to c";
    // Near-parallel directions use asin of |c|, near-opposite ones pi minus it.
    const double t = 1e-9;
    const ZtLUnitVec3f near(std::cos(t), std::sin(t), 0);
    EXPECT_EQ(x.AngleWithRef(near, -z), -std::asin(x.Cross(near).Length()));
    EXPECT_EQ(x.AngleWithRef(-near, z), -(kPi - std::asin(x.Cross(-near).Length())));
    // The switch is inclusive at the 14-decimal constant; one step inside the band uses acos.
    // (At both dots asin and acos differ in the last bit, so each branch is observable.)
    for (const double d : {0.70710678118655, 0.7071067811865495}) {
        ZtLUnitVec3f u;
        u.SetUnitValue(d, std::sqrt(1 - d * d), 0);
        const double viaSin = std::asin(x.Cross(u).Length()), viaCos = std::acos(d);
        ASSERT_NE(viaSin, viaCos);
        EXPECT_EQ(x.AngleWithRef(u, z), d >= 0.70710678118655 ? viaSin : viaCos) << d;
    }
    // The free-vector form normalises all three operands.
    EXPECT_EQ(ZtLVec3f(3, 0, 0).AngleWithRef(ZtLVec3f(0, 0, 2), ZtLVec3f(0, 5, 0)), -kPi / 2);
}

TEST(ZtLVec3f, TextHashAndFiniteness) {
    EXPECT_EQ(ZtLVec3f(1, 2, 3).ToString().ToUtf8(),
              "(1.0000000000000000, 2.0000000000000000, 3.0000000000000000)");
    EXPECT_EQ(ZtLPos3f(-0.5, 1e20, 0).ToStringImpl().ToUtf8(),
              "(-0.5000000000000000, 100000000000000000000.0000000000000000, 0.0000000000000000)");
    EXPECT_EQ(ZtLUnitVec3f::Z().ToStringImpl().ToUtf8(), ZtLVec3f::Z().ToStringImpl().ToUtf8());

    EXPECT_EQ(ZtLVec3f(1, 2, 3).CalcHashCode(), 0x8F61589Eu) << "checksum of 1, 2, 3 in order";
    EXPECT_EQ(ZtLPos3f(1, 2, 3).CalcHashCode(), 0x8F61589Eu);
    EXPECT_TRUE(ZtLVec3f(1, 2, 3).IsFinite());
    EXPECT_FALSE(ZtLVec3f(1, kInf, 3).IsFinite());
    EXPECT_FALSE(ZtLPos3f(1, 2, kNaN).IsFinite());
}
