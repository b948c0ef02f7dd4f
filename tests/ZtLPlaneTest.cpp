#include <ztlinear/ZtLAffine2f.h>
#include <ztlinear/ZtLAffine3f.h>
#include <ztlinear/ZtLBox2f.h>
#include <ztlinear/ZtLBox3f.h>
#include <ztlinear/ZtLLine3f.h>
#include <ztlinear/ZtLMatrix2f.h>
#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLMatrix4f.h>
#include <ztlinear/ZtLPlane2f.h>
#include <ztlinear/ZtLPlane3f.h>
#include <ztlinear/ZtLRotation3f.h>
#include <ztlinear/ZtLTransform3f.h>
#include <ztutil/ZtUXMLDOMStream.h>

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

namespace {

std::uniform_real_distribution<double> g_u(-1.0, 1.0);

ZtLPos3f RandomPos(std::mt19937& gen, double scale = 5.0) {
    return ZtLPos3f(scale * g_u(gen), scale * g_u(gen), scale * g_u(gen));
}
ZtLPlane3f RandomPlane(std::mt19937& gen) {
    return ZtLPlane3f(ZtLUnitVec3f(RandomPos(gen).Vec()), 3.0 * g_u(gen));
}
// A random matrix kept well away from singular.
ZtLMatrix3f RandomMatrix(std::mt19937& gen) {
    ZtLMatrix3f a;
    do {
        for (int i = 0; i < 9; ++i) a[i / 3][i % 3] = 2.0 * g_u(gen);
    } while (std::fabs(a.Determinant()) < 0.5);
    return a;
}
// A projective matrix whose w stays in [0.5, 1.5] over the points used (|p| <= ~9).
ZtLMatrix4f RandomProjective(std::mt19937& gen) {
    ZtLMatrix4f m(RandomMatrix(gen), RandomPos(gen, 2.0).Vec());
    for (int i = 0; i < 3; ++i) m[i][3] = 0.03 * g_u(gen);
    return m;
}

// Whether p lies on the plane within tol, and the two planes agree within tol.
::testing::AssertionResult OnPlane(const ZtLPlane3f& pl, const ZtLPos3f& p, double tol) {
    const double d = pl.DistanceFromPlane(p);
    if (std::fabs(d) <= tol) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "signed distance " << d;
}
bool Near(const ZtLPlane3f& a, const ZtLPlane3f& b, double tol) {
    return a.GetNormal().Vec().Equals(b.GetNormal().Vec(), tol) &&
           std::fabs(a.GetDistance() - b.GetDistance()) <= tol;
}

}  // namespace

TEST(ZtLPlane3f, SignedDistanceHalfSpaceAndThreePointConstruction) {
    const ZtLPlane3f pl(ZtLUnitVec3f(0, 0, 1), ZtLPos3f(4, 5, 2));
    EXPECT_EQ(pl.GetDistance(), 2.0);
    EXPECT_EQ(pl.DistanceFromPlane(ZtLPos3f(1, 1, 2)), 0.0);
    EXPECT_TRUE(pl.IsInHalfspace(ZtLPos3f(1, 1, 2))) << "on the plane counts as inside";
    EXPECT_FALSE(pl.IsInHalfspace(ZtLPos3f(1, 1, 1.999)));
    EXPECT_TRUE(pl.ClosestPoint(ZtLPos3f(3, -1, 7)).Equals(ZtLPos3f(3, -1, 2), 0));
    EXPECT_EQ(pl.Opposite().DistanceFromPlane(ZtLPos3f(0, 0, 5)), -3.0);
    ZtLPlane3f moved = pl;
    moved.Offset(1.5);
    EXPECT_EQ(moved.GetDistance(), 3.5);
    moved.Negate();
    EXPECT_TRUE(moved == ZtLPlane3f(ZtLUnitVec3f(0, 0, -1), -3.5));

    ZtLPlane3f p3;
    ASSERT_EQ(p3.SetValue(ZtLPos3f(1, 0, 3), ZtLPos3f(0, 1, 3), ZtLPos3f(0, 0, 3)), 1);
    EXPECT_TRUE(p3.GetNormal().Vec().Equals(ZtLVec3f(0, 0, 1), 0)) << "counter-clockwise";
    EXPECT_EQ(p3.GetDistance(), 3.0);
    const ZtLPlane3f before = p3;
    EXPECT_EQ(p3.SetValue(ZtLPos3f(0, 0, 0), ZtLPos3f(1, 1, 1), ZtLPos3f(2, 2, 2)), 0);
    EXPECT_EQ(p3.SetValue(ZtLPos3f(1, 2, 3), ZtLPos3f(1, 2, 3), ZtLPos3f(0, 0, 1)), 0);
    EXPECT_TRUE(p3 == before) << "left untouched";
    EXPECT_EQ(p3.SetValue(ZtLPos3f(0, 0, 0), ZtLPos3f(1, 0, 0), ZtLPos3f(2, 1e-20, 0)), 1)
        << "no tolerance on nearly collinear points";
}

TEST(ZtLPlane3f, BoxExtremesAreTheCornersFarthestAlongTheNormal) {
    std::mt19937 gen(3);
    for (int k = 0; k < 100; ++k) {
        const ZtLPlane3f pl = RandomPlane(gen);
        ZtLBox3f b;
        b.ExtendBy(RandomPos(gen));
        b.ExtendBy(RandomPos(gen));
        ZtLPos3f c[8];
        b.GetCorners(c);
        double lo = pl.DistanceFromPlane(c[0]);
        double hi = lo;
        for (const ZtLPos3f& p : c) {
            lo = std::fmin(lo, pl.DistanceFromPlane(p));
            hi = std::fmax(hi, pl.DistanceFromPlane(p));
        }
        EXPECT_NEAR(pl.MaxDistanceFromPlane(b), hi, 1e-13);
        EXPECT_NEAR(pl.MinDistanceFromPlane(b), lo, 1e-13);
    }
}

TEST(ZtLPlane3f, MappedPlanesContainTheMappedPointsForEveryTransformKind) {
    std::mt19937 gen(5);
    for (int k = 0; k < 100; ++k) {
        const ZtLPlane3f pl = RandomPlane(gen);
        const ZtLMatrix3f m = RandomMatrix(gen);
        const ZtLAffine3f a(RandomMatrix(gen), RandomPos(gen).Vec());
        const ZtLMatrix4f h = RandomProjective(gen);
        const ZtLTransform3f x(a);
        const ZtLPlane3f pm = pl.TransformedBy(m);
        const ZtLPlane3f pa = pl.TransformedBy(a);
        const ZtLPlane3f ph = pl.TransformedBy(h);
        const ZtLPlane3f px = pl.TransformedBy(x);
        for (int j = 0; j < 4; ++j) {
            const ZtLPos3f p = pl.ClosestPoint(RandomPos(gen));
            EXPECT_TRUE(OnPlane(pm, p * m, 1e-11));
            EXPECT_TRUE(OnPlane(pa, p * a, 1e-11));
            EXPECT_TRUE(OnPlane(ph, p * h, 1e-11));
            EXPECT_TRUE(OnPlane(px, p * x, 1e-11));
        }
        // There and back again, and the unit normal kept.
        EXPECT_TRUE(Near(pm.TransformedByInverse(m), pl, 1e-12));
        EXPECT_TRUE(Near(pa.TransformedByInverse(a), pl, 1e-12));
        EXPECT_TRUE(Near(ph.TransformedByInverse(h), pl, 1e-12));
        EXPECT_TRUE(Near(px.TransformedByInverse(x), pl, 1e-12));
        EXPECT_NEAR(pa.GetNormal().Vec().Length(), 1.0, 1e-15);
        // In place equals copying.
        ZtLPlane3f q = pl;
        q.Transform(a);
        EXPECT_TRUE(q == pa);
        q = pl;
        q.InverseTransform(h);
        EXPECT_TRUE(q == pl.TransformedByInverse(h));
        q = pl;
        q.Transform(x);
        EXPECT_TRUE(q == px);
    }
}

TEST(ZtLPlane3f, GeneralTransformsDispatchOnTheirTraits) {
    std::mt19937 gen(9);
    const ZtLPlane3f pl = RandomPlane(gen);
    const ZtLMatrix3f m = RandomMatrix(gen);
    const ZtLVec3f t(1, -2, 0.5);
    const ZtLAffine3f a(m, t);
    const ZtLMatrix4f h = RandomProjective(gen);
    EXPECT_TRUE(pl.TransformedByInverse(ZtLTransform3f()) == pl);
    EXPECT_TRUE(pl.TransformedByInverse(ZtLTransform3f(m)) == pl.TransformedByInverse(m));
    EXPECT_TRUE(pl.TransformedByInverse(ZtLTransform3f(a)) == pl.TransformedByInverse(a));
    EXPECT_TRUE(pl.TransformedByInverse(ZtLTransform3f(h)) == pl.TransformedByInverse(h));
    const ZtLTransform3f move = ZtLTransform3f::CreateTranslation(t);
    EXPECT_TRUE(pl.TransformedByInverse(move) == pl.TranslatedBy(-t));
    EXPECT_TRUE(pl.TransformedBy(move) == pl.TranslatedBy(t));
    ZtLPlane3f q = pl;
    q.Translate(t);
    EXPECT_TRUE(q == pl.TranslatedBy(t));
    EXPECT_NEAR(q.GetDistance() - pl.GetDistance(), pl.GetNormal().Dot(t), 1e-15);
}

TEST(ZtLPlane3f, RotationMapsTheNearestPointAndNonUniformScaleRescalesTheDistance) {
    ZtLPlane3f pl(ZtLUnitVec3f(1, 1, 0), 2.0);
    const ZtLMatrix3f r(ZtLRotation3f(ZtLUnitVec3f(0, 0, 1), 0.6));
    const ZtLPlane3f before = pl;
    const ZtLPlane3f rotated = pl.RotatedBy(r);
    EXPECT_TRUE(pl == before) << "RotatedBy leaves the plane";
    EXPECT_TRUE(Near(rotated, pl.TransformedBy(r), 1e-15));
    ZtLPlane3f inPlace = pl;
    inPlace.Rotate(r);
    EXPECT_TRUE(inPlace == rotated);

    ZtLMatrix3f s;
    s.MakeScale(ZtLVec3f(2, 1, 1));
    const ZtLPlane3f scaled = ZtLPlane3f(ZtLUnitVec3f(1, 0, 0), 3.0).TransformedBy(s);
    EXPECT_TRUE(scaled.GetNormal().Vec().Equals(ZtLVec3f(1, 0, 0), 0));
    EXPECT_EQ(scaled.GetDistance(), 6.0);
    // A matrix that maps the normal to zero gives non-finite fields, silently.
    ZtLMatrix3f flat;
    flat.MakeScale(ZtLVec3f(0, 1, 1));
    EXPECT_FALSE(std::isfinite(
        ZtLPlane3f(ZtLUnitVec3f(1, 0, 0), 3.0).TransformedByInverse(flat).GetDistance()));
}

TEST(ZtLPlane3f, ToleratedComparisonIsInclusiveOnNormalsAndStrictOnDistances) {
    const ZtLPlane3f a(ZtLUnitVec3f(0, 0, 1), 1.0);
    const ZtLPlane3f b(ZtLUnitVec3f(0, 0.1, 1), 1.25);
    const double tn = 1 - a.GetNormal().Dot(b.GetNormal());
    struct Case {
        double tn, td;
        int equal;
    };
    const Case cases[] = {
        {tn, 0.25, 0},       // distances differ by exactly td: strict test fails
        {tn, 0.2500001, 1},  // normals differ by exactly tn: inclusive test passes
        {tn * 0.999, 1.0, 0},
    };
    for (const Case& c : cases) EXPECT_EQ(a.Equals(b, c.tn, c.td), c.equal) << c.tn << " " << c.td;
    const double nan = std::nan("");
    EXPECT_FALSE(ZtLPlane3f(ZtLUnitVec3f(0, 0, 1), nan) == ZtLPlane3f(ZtLUnitVec3f(0, 0, 1), nan));
    EXPECT_TRUE(a != b);
}

TEST(ZtLPlane3f, TwoPlanesMeetInTheLineNearestTheOrigin) {
    std::mt19937 gen(13);
    for (int k = 0; k < 50; ++k) {
        const ZtLPlane3f a = RandomPlane(gen);
        const ZtLPlane3f b = RandomPlane(gen);
        ZtLLine3f line;
        ASSERT_TRUE(a.Intersect(b, &line));
        const ZtLPos3f p = line.GetPoint();
        EXPECT_TRUE(OnPlane(a, p, 1e-9) && OnPlane(b, p, 1e-9));
        EXPECT_TRUE(OnPlane(a, line.Evaluate(3), 1e-9) && OnPlane(b, line.Evaluate(3), 1e-9));
        EXPECT_NEAR(line.GetDirection().Dot(p.Vec()), 0.0, 1e-9) << "the foot from the origin";
    }
    const ZtLPlane3f a(ZtLUnitVec3f(1, 2, 3), 1.0);
    ZtLLine3f kept(ZtLPos3f(0, 0, 0), ZtLUnitVec3f(1, 0, 0));
    const ZtLLine3f before = kept;
    EXPECT_FALSE(a.Intersect(a, &kept));
    EXPECT_FALSE(a.Intersect(ZtLPlane3f(a.GetNormal(), 5.0), &kept)) << "parallel";
    EXPECT_TRUE(kept == before);
    // Opposite normals are not rejected: the line comes out non-finite.
    ASSERT_TRUE(a.Intersect(a.Opposite(), &kept));
    EXPECT_FALSE(kept.GetPoint().IsFinite());
}

TEST(ZtLPlane3f, PointInTriangleCountsCornersAndEdgesAndDropsTheDominantAxis) {
    const ZtLPos3f p0(0, 0, 1), p1(2, 0, 1), p2(0, 2, 1);
    struct Case {
        ZtLPos3f p;
        int inside;
        ZtLVec3f w;
    };
    const Case cases[] = {
        {p0, 1, ZtLVec3f(1, 0, 0)},
        {p1, 1, ZtLVec3f(0, 1, 0)},
        {p2, 1, ZtLVec3f(0, 0, 1)},
        {ZtLPos3f(1, 1, 1), 1, ZtLVec3f(0, 0.5, 0.5)},          // on the hypotenuse
        {ZtLPos3f(0.5, 0.5, 9), 1, ZtLVec3f(0.5, 0.25, 0.25)},  // off the plane: projected
        {ZtLPos3f(1.5, 1, 1), 0, ZtLVec3f()},
        {ZtLPos3f(-0.1, 1, 1), 0, ZtLVec3f()},
    };
    for (const Case& c : cases) {
        ZtLVec3f w(7, 7, 7);
        EXPECT_EQ(ZtLPlane3f::IsPointInTriangle(c.p, p0, p1, p2, &w), c.inside);
        if (c.inside)
            EXPECT_TRUE(w.Equals(c.w, 1e-15)) << w.ToString().GetString();
        else
            EXPECT_TRUE(w.Equals(ZtLVec3f(7, 7, 7), 0)) << "weights untouched";
    }
    EXPECT_EQ(ZtLPlane3f::IsPointInTriangle(p0, p0, p1, p2, nullptr), 1);
    // A cross product shorter than 1e-10 is degenerate in the three-point form...
    const ZtLPos3f q1(1e-6, 0, 0), q2(0, 1e-5, 0);
    EXPECT_EQ(ZtLPlane3f::IsPointInTriangle(ZtLPos3f(0, 0, 0), ZtLPos3f(0, 0, 0), q1, q2, nullptr),
              0);
    // ...but the form given a normal still works on it.
    EXPECT_EQ(ZtLPlane3f::IsPointInTriangle(ZtLPos3f(1e-7, 1e-7, 0), ZtLUnitVec3f(0, 0, 1),
                                            ZtLPos3f(0, 0, 0), q1, q2, nullptr),
              1);
}

TEST(ZtLPlane3f, XMLRecordRoundTripsAndAFailedReadLeavesThePlane) {
    ZtLPlane3f pl(ZtLUnitVec3f(1, 2, 2), -0.3);
    ZtUXMLDOMWriter w;
    pl.SerialiseXML(&w);
    ASSERT_FALSE(w.HasError());
    const std::string text = w.GetText();
    EXPECT_NE(text.find("<plane distance=\"-0.3\">"), std::string::npos) << text;
    EXPECT_NE(text.find("<vec3f"), std::string::npos);
    ZtUXMLDOMReader r;
    ASSERT_TRUE(r.Parse(text));
    ZtLPlane3f back(ZtLUnitVec3f(0, 0, 1), 9.0);
    back.SerialiseXML(&r);
    EXPECT_TRUE(back == pl);
    EXPECT_TRUE(r.Finish());

    std::string bad = text;
    bad.replace(bad.find("z="), 2, "w=");
    ASSERT_TRUE(r.Parse(bad));
    ZtLPlane3f kept(ZtLUnitVec3f(0, 0, 1), 9.0);
    kept.SerialiseXML(&r);
    EXPECT_TRUE(r.HasError());
    EXPECT_TRUE(kept == ZtLPlane3f(ZtLUnitVec3f(0, 0, 1), 9.0));
}

TEST(ZtLPlane2f, PlanarLinesFollowTheSameRules) {
    std::mt19937 gen(17);
    for (int k = 0; k < 50; ++k) {
        const ZtLPlane2f pl(ZtLUnitVec2f(g_u(gen), g_u(gen)), 2 * g_u(gen));
        ZtLMatrix2f m(2 * g_u(gen), 2 * g_u(gen), 2 * g_u(gen), 2 * g_u(gen));
        if (std::fabs(m[0][0] * m[1][1] - m[0][1] * m[1][0]) < 0.3) continue;
        const ZtLAffine2f a(m, ZtLVec2f(g_u(gen), g_u(gen)));
        const ZtLPlane2f pm = pl.TransformedBy(m);
        const ZtLPlane2f pa = pl.TransformedBy(a);
        const ZtLPos2f p = pl.ClosestPoint(ZtLPos2f(3 * g_u(gen), 3 * g_u(gen)));
        EXPECT_NEAR(pm.DistanceFromPlane(p * m), 0.0, 1e-12);
        EXPECT_NEAR(pa.DistanceFromPlane(p * a), 0.0, 1e-12);
        const ZtLPlane2f back = pa.TransformedByInverse(a);
        EXPECT_TRUE(back.Equals(pl, 1e-14, 1e-12));
        ZtLPlane2f q = pl;
        q.InverseTransform(m);
        EXPECT_TRUE(q == pl.TransformedByInverse(m));
        q = pl;
        q.Transform(a);
        EXPECT_TRUE(q == pa);
    }
    ZtLPlane2f pl(ZtLUnitVec2f(0, 1), ZtLPos2f(5, 2));
    EXPECT_EQ(pl.GetDistance(), 2.0);
    EXPECT_TRUE(pl.IsInHalfspace(ZtLPos2f(-3, 2)));
    EXPECT_EQ(pl.Opposite().DistanceFromPlane(ZtLPos2f(0, 5)), -3.0);
    EXPECT_EQ(pl.TranslatedBy(ZtLVec2f(4, 1)).GetDistance(), 3.0);
    const ZtLBox2f b(ZtLPos2f(-1, -1), ZtLPos2f(2, 3));
    EXPECT_EQ(pl.MaxDistanceFromPlane(b), 1.0);
    EXPECT_EQ(pl.MinDistanceFromPlane(b), -3.0);
    const ZtLMatrix2f quarter(0, 1, -1, 0);  // (x, y) -> (-y, x)
    const ZtLPlane2f turned = pl.RotatedBy(quarter);
    EXPECT_TRUE(turned.Equals(ZtLPlane2f(ZtLUnitVec2f(-1, 0), 2.0), 1e-15, 1e-15));
    EXPECT_EQ(pl.Equals(ZtLPlane2f(ZtLUnitVec2f(0, 1), 2.5), 0, 0.5), 0) << "strict distance";
    EXPECT_EQ(pl.Equals(ZtLPlane2f(ZtLUnitVec2f(0, 1), 2.5), 0, 0.50001), 1);
}
