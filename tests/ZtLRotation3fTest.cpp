#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLRotation3f.h>
#include <ztutil/ZtUXMLDOMStream.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace {

const double kHalfPi = 1.5707963267948966;
const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kH = 0.7071067811865476;  // sqrt(1/2)
const ZtLRotation3f kId(0, 0, 0, 1);

bool Maps(const ZtLRotation3f& q, const ZtLVec3f& from, const ZtLVec3f& to, double tol) {
    return ZtLVec3f::Equals(from * ZtLMatrix3f(q), to, tol);
}

ZtLRotation3f Negated(const ZtLRotation3f& q) {
    return ZtLRotation3f(-q.GetA(), -q.GetB(), -q.GetC(), -q.GetD());
}

}  // namespace

TEST(ZtLRotation3f, AxisAngleAndGetValue) {
    const ZtLRotation3f q(ZtLUnitVec3f::Z(), kHalfPi);
    EXPECT_TRUE(q.EqualsAbs(ZtLRotation3f(0, 0, kH, kH), 1e-15));
    EXPECT_TRUE(Maps(q, ZtLVec3f(1, 0, 0), ZtLVec3f(0, 1, 0), 1e-15)) << "counter-clockwise";
    ZtLUnitVec3f axis;
    const ZtLUnitVec3f a(1, -2, 2);
    EXPECT_NEAR(ZtLRotation3f(a, 2.5).GetValue(&axis), 2.5, 1e-15);
    EXPECT_TRUE(ZtLUnitVec3f::Equals(axis, a, 1e-15));
    EXPECT_EQ(ZtLRotation3f(1e-11, 0, 0, 1).GetValue(&axis), 0.0) << "vector part within resop";
    EXPECT_TRUE(ZtLVec3f::Equals(axis, ZtLVec3f(0, 0, 1), 0.0));
    EXPECT_TRUE(std::isnan(ZtLRotation3f(0.5, 0, 0, 1.5).GetValue(&axis))) << "w is not clamped";
}

TEST(ZtLRotation3f, FromToWithItsHalfTurnFallBack) {
    const ZtLUnitVec3f x(1, 0, 0);
    EXPECT_EQ(ZtLRotation3f(x, x), kId);
    EXPECT_EQ(ZtLRotation3f(x, ZtLUnitVec3f(1, 1e-6, 0)), kId) << "1 - dot below resop";
    // from x X is zero for from = X: the axis comes from from x Y.
    EXPECT_EQ(ZtLRotation3f(x, ZtLUnitVec3f(-1, 0, 0)), ZtLRotation3f(0, 0, 1, 0));
    std::mt19937 gen(1);
    std::uniform_real_distribution<double> u(-1.0, 1.0);
    for (int n = 0; n < 100; ++n) {
        const ZtLUnitVec3f from(u(gen), u(gen), u(gen)), to(u(gen), u(gen), u(gen));
        EXPECT_TRUE(Maps(ZtLRotation3f(from, to), from, to, 1e-14));
    }
}

TEST(ZtLRotation3f, AboutAFixedAxis) {
    const ZtLUnitVec3f z(0, 0, 1);
    EXPECT_TRUE(ZtLRotation3f(z, ZtLUnitVec3f(1, 0, 5), ZtLUnitVec3f(0, 1, -5))
                    .EqualsAbs(ZtLRotation3f(0, 0, kH, kH), 1e-15))
        << "the projections turn a quarter, positively";
    EXPECT_TRUE(ZtLRotation3f(z, ZtLUnitVec3f(1, 0, 0), ZtLUnitVec3f(0, -1, 0))
                    .EqualsAbs(ZtLRotation3f(0, 0, -kH, kH), 1e-15));
    EXPECT_EQ(ZtLRotation3f(z, ZtLUnitVec3f(0, 0, -1), ZtLUnitVec3f(0, 1, 0)), kId)
        << "from parallel to the axis";
    EXPECT_EQ(ZtLRotation3f(z, ZtLUnitVec3f(1, 1, 0), ZtLUnitVec3f(-1, -1, 1)),
              ZtLRotation3f(0, 0, 1, 0))
        << "opposite projections: a half turn about the axis";
}

TEST(ZtLRotation3f, CompositionMatchesTheMatrixProduct) {
    std::mt19937 gen(2);
    std::uniform_real_distribution<double> u(-1.0, 1.0);
    for (int n = 0; n < 100; ++n) {
        const ZtLRotation3f a = ZtLRotation3f(u(gen), u(gen), u(gen), u(gen)).Normalized();
        const ZtLRotation3f b(u(gen), u(gen), u(gen), u(gen));  // products normalise
        ZtLRotation3f ab = a;
        ab *= b;
        EXPECT_TRUE(ZtLMatrix3f(ab).Equals(ZtLMatrix3f(a) * ZtLMatrix3f(b.Normalized()), 1e-14));
        EXPECT_TRUE((a * a.Inverse()).EqualsAbs(kId, 1e-15));
    }
    EXPECT_EQ(ZtLRotation3f(1, 2, 3, 4).Inverse(), ZtLRotation3f(-1, -2, -3, 4)) << "no division";
    EXPECT_TRUE(std::isnan(ZtLRotation3f(0, 0, 0, 0).Normalized().GetD()));
}

TEST(ZtLRotation3f, EulerAnglesRoundTripAwayFromGimbalLock) {
    std::mt19937 gen(4);
    std::uniform_real_distribution<double> around(-3.0, 3.0), tilt(-1.4, 1.4);
    for (int n = 0; n < 200; ++n) {
        const double ax = around(gen), ay = tilt(gen), az = around(gen);
        const ZtLRotation3f q = ZtLRotation3f::CreateFromEulerAngles(ax, ay, az);
        EXPECT_EQ(q, ZtLRotation3f(ZtLUnitVec3f::Z(), az) * ZtLRotation3f(ZtLUnitVec3f::Y(), ay) *
                         ZtLRotation3f(ZtLUnitVec3f::X(), ax))
            << "Z first, then Y, then X";
        double bx, by, bz;
        EXPECT_TRUE(q.FactorEulerXYZ(&bx, &by, &bz));
        EXPECT_TRUE(std::fabs(bx - ax) < 1e-12 && std::fabs(by - ay) < 1e-12 &&
                    std::fabs(bz - az) < 1e-12);
    }
}

TEST(ZtLRotation3f, EulerSpecialCases) {
    double ax, ay, az;
    ZtLRotation3f(0, 0, 0, -1).FactorEulerXYZ(&ax, &ay, &az);
    EXPECT_TRUE(ax == 0.0 && ay == 0.0 && az == 0.0);
    // Single axes: the angle wrapped into (-pi, pi]; 3 pi / 2 built with a positive component.
    ZtLRotation3f(ZtLUnitVec3f::Z(), 3 * kHalfPi).FactorEulerXYZ(&ax, &ay, &az);
    EXPECT_TRUE(ax == 0.0 && ay == 0.0 && std::fabs(az + kHalfPi) < 1e-15) << az;
    ZtLRotation3f(0, -std::sin(0.3), 0, std::cos(0.3)).FactorEulerXYZ(&ax, &ay, &az);
    EXPECT_NEAR(ay, -0.6, 1e-15);

    // Gimbal lock (also within resabs of it): ax folds into az; the angles rebuild the rotation.
    for (double ySet : {kHalfPi, -kHalfPi, kHalfPi - 1e-4}) {
        const ZtLRotation3f q = ZtLRotation3f::CreateFromEulerAngles(0.4, ySet, 0.9);
        q.FactorEulerXYZ(&ax, &ay, &az);
        EXPECT_TRUE(ax == 0.0 && ay == (ySet < 0 ? -kHalfPi : kHalfPi));
        EXPECT_TRUE(ZtLRotation3f::CreateFromEulerAngles(ax, ay, az).EqualsNor(q, 1e-7));
    }
}

TEST(ZtLRotation3f, SlerpEndPointsAndShortestArc) {
    const ZtLRotation3f a(ZtLUnitVec3f(1, 2, 3), 0.4), b(ZtLUnitVec3f(-1, 0, 2), 1.9);
    EXPECT_TRUE(a.Slerp(b, 0).EqualsAbs(a, 1e-15) && a.Slerp(b, 1).EqualsAbs(b, 1e-15));
    for (double t : {0.25, 0.5, 0.8}) {
        const ZtLRotation3f s = a.Slerp(b, t);
        EXPECT_TRUE(a.Slerp(Negated(b), t).EqualsAbs(s, 1e-15)) << "-b takes the same short arc";
        EXPECT_NEAR(a.AngleBetween(s, nullptr), t * a.AngleBetween(b, nullptr), 1e-14);
        EXPECT_TRUE(a.Slerp(Negated(a), t).EqualsAbs(a, 1e-15)) << "q and -q: q for every t";
    }
}

TEST(ZtLRotation3f, AngleBetween) {
    const ZtLRotation3f a(ZtLUnitVec3f(0, 1, 1), 0.7);
    ZtLUnitVec3f axis;
    EXPECT_EQ(a.AngleBetween(a, &axis), 0.0);
    EXPECT_TRUE(ZtLVec3f::Equals(axis, ZtLVec3f(0, 0, 1), 0.0));
    EXPECT_NEAR(a.AngleBetween(a * ZtLRotation3f(ZtLUnitVec3f::X(), 0.5), &axis), 0.5, 1e-15);
    // Three quarters round one way is a quarter round the other: the axis is reversed.
    EXPECT_NEAR(kId.AngleBetween(ZtLRotation3f(ZtLUnitVec3f::X(), 3 * kHalfPi), &axis), kHalfPi,
                1e-15);
    EXPECT_TRUE(ZtLVec3f::Equals(axis, ZtLVec3f(-1, 0, 0), 1e-15));
}

TEST(ZtLRotation3f, ComparisonsAndTheirAsymmetries) {
    const ZtLRotation3f h(0.5, -0.5, 0.5, 0.5);
    EXPECT_TRUE(h.EqualsNor(Negated(h), 0.0) && h != Negated(h)) << "q and -q";
    EXPECT_FALSE(h.EqualsNor(ZtLRotation3f(ZtLUnitVec3f(1, 2, 3), 0.1) * h, 1e-4));
    EXPECT_FALSE(ZtLRotation3f(0, 0, 0, -1).IsIdentity());
    EXPECT_TRUE(h.EqualsAbs(ZtLRotation3f(0.5 + 1e-7, -0.5, 0.5, 0.5 - 1e-6), 1e-6));
    // A NaN passes in x, y and z but not in w.
    EXPECT_TRUE(h.EqualsAbs(ZtLRotation3f(kNaN, kNaN, kNaN, 0.5), 1e-6));
    EXPECT_FALSE(h.EqualsAbs(ZtLRotation3f(0.5, -0.5, 0.5, kNaN), 1e-6));
}

TEST(ZtLRotation3f, HashTextAndXmlRecord) {
    EXPECT_NE(ZtLRotation3f(1, 2, 3, 4).CalcHashCode(), ZtLRotation3f(2, 1, 3, 4).CalcHashCode());
    EXPECT_EQ(ZtLRotation3f::CreateFromEulerAngles(0.1, -0.2, 0.3).ToStringImpl().Str(),
              L"(5.7296, -11.4592, 17.1887)");

    ZtLRotation3f q(0.1, -0.2, 0.3, 0.9);
    ZtUXMLDOMWriter writer;
    q.SerialiseXML(&writer);
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

    ASSERT_TRUE(reader.Parse("<rotation><quaternion a=\"1\" b=\"2\" c=\"3\"/></rotation>"));
    back.SerialiseXML(&reader);
    EXPECT_TRUE(reader.HasError());
    EXPECT_EQ(back, q) << "a failed read leaves the rotation as it was";
}
