#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLRotation3f.h>
#include <ztlinear/ZtLVec.h>
#include <ztutil/ZtUXMLDOMStream.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace {

const double kPi = 3.141592653589793;
const double kHalfPi = 1.5707963267948966;
const double kNaN = std::numeric_limits<double>::quiet_NaN();

bool SameRotation(const ZtLRotation3f& a, const ZtLRotation3f& b, double tol) {
    return ZtLMatrix3f(a).Equals(ZtLMatrix3f(b), tol);
}

bool Maps(const ZtLRotation3f& q, const ZtLVec3f& from, const ZtLVec3f& to, double tol) {
    return ZtLVec3f::Equals(from * ZtLMatrix3f(q), to, tol);
}

ZtLRotation3f RandomRotation(std::mt19937& gen) {
    std::uniform_real_distribution<double> u(-1.0, 1.0);
    return ZtLRotation3f(u(gen), u(gen), u(gen), u(gen)).Normalized();
}

}  // namespace

TEST(ZtLRotation3f, AxisAngleAndItsInverseGetValue) {
    const ZtLRotation3f q(ZtLUnitVec3f(0, 0, 1), kHalfPi);
    EXPECT_TRUE(q.EqualsAbs(ZtLRotation3f(0, 0, std::sqrt(0.5), std::sqrt(0.5)), 1e-15));
    EXPECT_TRUE(Maps(q, ZtLVec3f(1, 0, 0), ZtLVec3f(0, 1, 0), 1e-15)) << "counter-clockwise";
    ZtLUnitVec3f unnormalised;
    unnormalised.SetUnitValue(0, 0, 2);
    EXPECT_EQ(ZtLRotation3f(unnormalised, kPi).GetC(), 2.0) << "the axis is used as given";

    ZtLUnitVec3f axis;
    const ZtLUnitVec3f a(1, -2, 2);
    EXPECT_NEAR(ZtLRotation3f(a, 2.5).GetValue(&axis), 2.5, 1e-15);
    EXPECT_TRUE(ZtLUnitVec3f::Equals(axis, a, 1e-15));
    EXPECT_EQ(ZtLRotation3f::CreateIdentity().GetValue(&axis), 0.0);
    EXPECT_TRUE(ZtLVec3f::Equals(axis, ZtLVec3f(0, 0, 1), 0.0));
    EXPECT_EQ(ZtLRotation3f(1e-11, 0, 0, 1).GetValue(&axis), 0.0) << "vector part within resop";
    EXPECT_TRUE(std::isnan(ZtLRotation3f(0.5, 0, 0, 1.5).GetValue(&axis))) << "w is not clamped";
}

TEST(ZtLRotation3f, FromToWithItsHalfTurnFallBack) {
    const ZtLUnitVec3f x(1, 0, 0);
    EXPECT_EQ(ZtLRotation3f(x, x), ZtLRotation3f(0, 0, 0, 1));
    EXPECT_EQ(ZtLRotation3f(x, ZtLUnitVec3f(1, 1e-6, 0)), ZtLRotation3f(0, 0, 0, 1))
        << "1 - dot below resop";
    // from x X is zero for from = X: the axis comes from from x Y.
    EXPECT_EQ(ZtLRotation3f(x, ZtLUnitVec3f(-1, 0, 0)), ZtLRotation3f(0, 0, 1, 0));
    EXPECT_EQ(ZtLRotation3f(ZtLUnitVec3f(0, 1, 0), ZtLUnitVec3f(0, -1, 0)),
              ZtLRotation3f(0, 0, -1, 0));

    std::mt19937 gen(1);
    std::uniform_real_distribution<double> u(-1.0, 1.0);
    for (int n = 0; n < 100; ++n) {
        const ZtLUnitVec3f from(u(gen), u(gen), u(gen));
        const ZtLUnitVec3f to(u(gen), u(gen), u(gen));
        const ZtLRotation3f q(from, to);
        EXPECT_TRUE(Maps(q, from, to, 1e-14));
        ZtLUnitVec3f axis;
        EXPECT_NEAR(q.GetValue(&axis), from.Angle(to), 1e-7);
    }
}

TEST(ZtLRotation3f, AboutAFixedAxis) {
    const ZtLUnitVec3f z(0, 0, 1);
    const double h = std::sqrt(0.5);
    EXPECT_TRUE(ZtLRotation3f(z, ZtLUnitVec3f(1, 0, 5), ZtLUnitVec3f(0, 1, -5))
                    .EqualsAbs(ZtLRotation3f(0, 0, h, h), 1e-15))
        << "the projections turn a quarter, positively";
    EXPECT_TRUE(ZtLRotation3f(z, ZtLUnitVec3f(1, 0, 0), ZtLUnitVec3f(0, -1, 0))
                    .EqualsAbs(ZtLRotation3f(0, 0, -h, h), 1e-15));
    EXPECT_EQ(ZtLRotation3f(z, ZtLUnitVec3f(0, 0, -1), ZtLUnitVec3f(0, 1, 0)),
              ZtLRotation3f(0, 0, 0, 1))
        << "from parallel to the axis";
    EXPECT_EQ(ZtLRotation3f(z, ZtLUnitVec3f(1, 0, 0), ZtLUnitVec3f(1, 0, 3)),
              ZtLRotation3f(0, 0, 0, 1));
    EXPECT_EQ(ZtLRotation3f(z, ZtLUnitVec3f(1, 1, 0), ZtLUnitVec3f(-1, -1, 1)),
              ZtLRotation3f(0, 0, 1, 0))
        << "opposite projections: a half turn about the axis";
}

TEST(ZtLRotation3f, CompositionMatchesTheMatrixProduct) {
    std::mt19937 gen(2);
    for (int n = 0; n < 100; ++n) {
        const ZtLRotation3f a = RandomRotation(gen);
        const ZtLRotation3f b = RandomRotation(gen);
        const ZtLRotation3f ab = a * b;
        EXPECT_TRUE(ZtLMatrix3f(ab).Equals(ZtLMatrix3f(a) * ZtLMatrix3f(b), 1e-14));
        EXPECT_NEAR(ab.GetA() * ab.GetA() + ab.GetB() * ab.GetB() + ab.GetC() * ab.GetC() +
                        ab.GetD() * ab.GetD(),
                    1.0, 1e-15);
        ZtLRotation3f c = a;
        c *= c;
        EXPECT_EQ(c, a * a);
        EXPECT_TRUE((a * a.Inverse()).EqualsNor(ZtLRotation3f::CreateIdentity(), 1e-15));
    }
    const ZtLRotation3f q(1, 2, 3, 4);
    EXPECT_EQ(q.Inverse(), ZtLRotation3f(-1, -2, -3, 4)) << "conjugate, no division";
    ZtLRotation3f zero(0, 0, 0, 0);
    zero.Normalize();
    EXPECT_TRUE(std::isnan(zero.GetD()));
}

TEST(ZtLRotation3f, EulerAnglesRoundTripAwayFromGimbalLock) {
    std::mt19937 gen(4);
    std::uniform_real_distribution<double> around(-3.0, 3.0);
    std::uniform_real_distribution<double> tilt(-1.4, 1.4);
    for (int n = 0; n < 200; ++n) {
        const double ax = around(gen), ay = tilt(gen), az = around(gen);
        const ZtLRotation3f q = ZtLRotation3f::CreateFromEulerAngles(ax, ay, az);
        // Z first, then Y, then X.
        const ZtLRotation3f zyx = ZtLRotation3f(ZtLUnitVec3f::Z(), az) *
                                  ZtLRotation3f(ZtLUnitVec3f::Y(), ay) *
                                  ZtLRotation3f(ZtLUnitVec3f::X(), ax);
        EXPECT_EQ(q, zyx);
        double bx, by, bz;
        EXPECT_TRUE(q.FactorEulerXYZ(&bx, &by, &bz));
        EXPECT_NEAR(bx, ax, 1e-12);
        EXPECT_NEAR(by, ay, 1e-12);
        EXPECT_NEAR(bz, az, 1e-12);
    }
}

TEST(ZtLRotation3f, EulerSpecialCases) {
    double ax, ay, az;
    ZtLRotation3f(0, 0, 0, -1).FactorEulerXYZ(&ax, &ay, &az);
    EXPECT_EQ(ax, 0.0);
    EXPECT_EQ(ay, 0.0);
    EXPECT_EQ(az, 0.0);
    // Single axes: the angle wrapped into (-pi, pi]; 3 pi / 2 built with a positive component.
    ZtLRotation3f(ZtLUnitVec3f::Z(), 3 * kHalfPi).FactorEulerXYZ(&ax, &ay, &az);
    EXPECT_NEAR(az, -kHalfPi, 1e-15);
    EXPECT_EQ(ax, 0.0);
    ZtLRotation3f(0, -std::sin(0.3), 0, std::cos(0.3)).FactorEulerXYZ(&ax, &ay, &az);
    EXPECT_NEAR(ay, -0.6, 1e-15);
    ZtLRotation3f(ZtLUnitVec3f::X(), 1.0).FactorEulerXYZ(&ax, &ay, &az);
    EXPECT_NEAR(ax, 1.0, 1e-15);
    EXPECT_EQ(az, 0.0);

    // Gimbal lock: ax is folded into az, and the angles rebuild the same rotation.
    for (double sign : {1.0, -1.0}) {
        const ZtLRotation3f q = ZtLRotation3f::CreateFromEulerAngles(0.4, sign * kHalfPi, 0.9);
        q.FactorEulerXYZ(&ax, &ay, &az);
        EXPECT_EQ(ax, 0.0);
        EXPECT_EQ(ay, sign * kHalfPi);
        EXPECT_TRUE(SameRotation(ZtLRotation3f::CreateFromEulerAngles(ax, ay, az), q, 1e-12));
    }
    // Within resabs of the lock counts as locked.
    ZtLRotation3f::CreateFromEulerAngles(0.4, kHalfPi - 1e-4, 0.9).FactorEulerXYZ(&ax, &ay, &az);
    EXPECT_EQ(ax, 0.0);
}

TEST(ZtLRotation3f, SlerpEndPointsAndShortestArc) {
    const ZtLRotation3f a(ZtLUnitVec3f(1, 2, 3), 0.4);
    const ZtLRotation3f b(ZtLUnitVec3f(-1, 0, 2), 1.9);
    EXPECT_TRUE(a.Slerp(b, 0).EqualsAbs(a, 1e-15));
    EXPECT_TRUE(a.Slerp(b, 1).EqualsAbs(b, 1e-15));
    const ZtLRotation3f minusB(-b.GetA(), -b.GetB(), -b.GetC(), -b.GetD());
    for (double t : {0.0, 0.25, 0.5, 0.8, 1.0}) {
        const ZtLRotation3f s = a.Slerp(b, t);
        EXPECT_TRUE(a.Slerp(minusB, t).EqualsAbs(s, 1e-15)) << "-b takes the same short arc";
        EXPECT_NEAR(a.AngleBetween(s, nullptr), t * a.AngleBetween(b, nullptr), 1e-14);
        const ZtLRotation3f minusA(-a.GetA(), -a.GetB(), -a.GetC(), -a.GetD());
        EXPECT_TRUE(a.Slerp(minusA, t).EqualsAbs(a, 1e-15)) << "q and -q: q for every t";
    }
}

TEST(ZtLRotation3f, AngleBetween) {
    const ZtLRotation3f a(ZtLUnitVec3f(0, 1, 1), 0.7);
    ZtLUnitVec3f axis;
    EXPECT_EQ(a.AngleBetween(a, &axis), 0.0);
    EXPECT_TRUE(ZtLVec3f::Equals(axis, ZtLVec3f(0, 0, 1), 0.0));
    const ZtLUnitVec3f x(1, 0, 0);
    EXPECT_NEAR(a.AngleBetween(a * ZtLRotation3f(x, 0.5), &axis), 0.5, 1e-15);
    // Three quarters round one way is a quarter round the other: the axis is reversed.
    const ZtLRotation3f id = ZtLRotation3f::CreateIdentity();
    EXPECT_NEAR(id.AngleBetween(ZtLRotation3f(x, 3 * kHalfPi), &axis), kHalfPi, 1e-15);
    EXPECT_TRUE(ZtLVec3f::Equals(axis, ZtLVec3f(-1, 0, 0), 1e-15));
}

TEST(ZtLRotation3f, ComparisonsAndTheirAsymmetries) {
    const ZtLRotation3f h(0.5, -0.5, 0.5, 0.5);
    EXPECT_TRUE(h.EqualsNor(ZtLRotation3f(-0.5, 0.5, -0.5, -0.5), 0.0)) << "q and -q";
    const ZtLRotation3f q = ZtLRotation3f(1, 2, 3, 4).Normalized();
    const ZtLRotation3f minusQ(-q.GetA(), -q.GetB(), -q.GetC(), -q.GetD());
    EXPECT_TRUE(q.EqualsNor(minusQ, 1e-15));
    EXPECT_FALSE(q.EqualsNor(ZtLRotation3f(ZtLUnitVec3f(1, 2, 3), 0.1) * q, 1e-4));
    EXPECT_FALSE(q == minusQ);
    EXPECT_TRUE(q != minusQ);
    EXPECT_FALSE(q.EqualsAbs(minusQ, 0.1));
    EXPECT_TRUE(ZtLRotation3f(0, 0, 0, 1).IsIdentity());
    EXPECT_FALSE(ZtLRotation3f(0, 0, 0, -1).IsIdentity());

    EXPECT_TRUE(q.EqualsAbs(ZtLRotation3f(q.GetA() + 1e-7, q.GetB(), q.GetC(), q.GetD()), 1e-6));
    EXPECT_FALSE(q.EqualsAbs(ZtLRotation3f(q.GetA(), q.GetB(), q.GetC() + 1e-5, q.GetD()), 1e-6));
    // A NaN passes in x, y and z but not in w.
    EXPECT_TRUE(q.EqualsAbs(ZtLRotation3f(kNaN, kNaN, kNaN, q.GetD()), 1e-6));
    EXPECT_FALSE(q.EqualsAbs(ZtLRotation3f(q.GetA(), q.GetB(), q.GetC(), kNaN), 1e-6));
}

TEST(ZtLRotation3f, HashAndEulerText) {
    const ZtLRotation3f q(1, 2, 3, 4);
    EXPECT_EQ(q.CalcHashCode(), ZtLRotation3f(1, 2, 3, 4).CalcHashCode());
    EXPECT_NE(q.CalcHashCode(), ZtLRotation3f(2, 1, 3, 4).CalcHashCode());
    EXPECT_EQ(std::wstring(ZtLRotation3f(ZtLUnitVec3f::X(), kHalfPi).ToString().GetString()),
              L"(90.0000, 0.0000, 0.0000)");
    EXPECT_EQ(std::wstring(
                  ZtLRotation3f::CreateFromEulerAngles(0.1, -0.2, 0.3).ToStringImpl().GetString()),
              L"(5.7296, -11.4592, 17.1887)");
}

TEST(ZtLRotation3f, XmlRecordRoundTripsAndAFailedReadChangesNothing) {
    ZtLRotation3f q(0.1, -0.2, 0.3, 0.9);
    ZtUXMLDOMWriter writer;
    q.SerialiseXML(&writer);
    ASSERT_FALSE(writer.HasError()) << writer.GetErrorMessage();
    const std::string text = writer.GetText();
    EXPECT_NE(text.find("<rotation>"), std::string::npos) << text;
    EXPECT_NE(text.find("<quaternion a=\"0.1\" b=\"-0.2\" c=\"0.3\" d=\"0.9\""), std::string::npos)
        << text;

    ZtUXMLDOMReader reader;
    ASSERT_TRUE(reader.Parse(text));
    ZtLRotation3f back(7, 7, 7, 7);
    back.SerialiseXML(&reader);
    EXPECT_TRUE(reader.Finish()) << reader.GetErrorMessage();
    EXPECT_EQ(back, q);

    ZtUXMLDOMReader broken;
    ASSERT_TRUE(broken.Parse("<rotation><quaternion a=\"1\" b=\"2\" c=\"3\"/></rotation>"));
    back.SerialiseXML(&broken);
    EXPECT_TRUE(broken.HasError());
    EXPECT_EQ(back, q) << "a failed read leaves the rotation as it was";
}
