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
bool Near(const ZtLPlane3f& a, const ZtLPlane3f& b, double tol) {
    return a.GetNormal().Vec().Equals(b.GetNormal().Vec(), tol) &&
           std::fabs(a.GetDistance() - b.GetDistance()) <= tol;
}

}  // namespace

TEST(ZtLPlane3f, ThreePointsGiveTheRightHandedPlaneUnlessExactlyCollinear) {
    ZtLPlane3f pl;
    ASSERT_EQ(pl.SetValue(ZtLPos3f(1, 0, 3), ZtLPos3f(0, 1, 3), ZtLPos3f(0, 0, 3)), 1);
    EXPECT_TRUE(pl == ZtLPlane3f(ZtLUnitVec3f(0, 0, 1), 3.0));
    EXPECT_TRUE(pl.IsInHalfspace(ZtLPos3f(7, 7, 3))) << "on the plane counts as inside";
    EXPECT_EQ(pl.Opposite().DistanceFromPlane(ZtLPos3f(0, 0, 5)), -2.0);
    const ZtLPlane3f before = pl;
    EXPECT_EQ(pl.SetValue(ZtLPos3f(0, 0, 0), ZtLPos3f(1, 1, 1), ZtLPos3f(2, 2, 2)), 0);
    EXPECT_EQ(pl.SetValue(ZtLPos3f(1, 2, 3), ZtLPos3f(1, 2, 3), ZtLPos3f(0, 0, 1)), 0);
    EXPECT_TRUE(pl == before) << "left untouched";
    EXPECT_EQ(pl.SetValue(ZtLPos3f(0, 0, 0), ZtLPos3f(1, 0, 0), ZtLPos3f(2, 1e-20, 0)), 1)
        << "no tolerance on nearly collinear points";

    // Box extremes take, per axis, the corner coordinate along and against the normal.
    const ZtLPlane3f tilted(ZtLUnitVec3f(2, -1, 2), 1.0);  // (2, -1, 2) / 3
    const ZtLBox3f b(ZtLPos3f(-1, -1, -1), ZtLPos3f(2, 3, 4));
    EXPECT_NEAR(tilted.MaxDistanceFromPlane(b), (4 + 1 + 8) / 3.0 - 1, 1e-15);
    EXPECT_NEAR(tilted.MinDistanceFromPlane(b), (-2 - 3 - 2) / 3.0 - 1, 1e-15);
}

TEST(ZtLPlane3f, MappedPlanesContainTheMappedPointsForEveryTransformKind) {
    std::mt19937 gen(5);
    for (int k = 0; k < 100; ++k) {
        const ZtLPlane3f pl = RandomPlane(gen);
        const ZtLMatrix3f m = RandomMatrix(gen);
        const ZtLAffine3f a(RandomMatrix(gen), RandomPos(gen).Vec());
        ZtLMatrix4f h(RandomMatrix(gen), RandomPos(gen, 2.0).Vec());  // w stays in [0.5, 1.5]
        for (int i = 0; i < 3; ++i) h[i][3] = 0.03 * g_u(gen);
        const ZtLPlane3f pm = pl.TransformedBy(m), pa = pl.TransformedBy(a),
                         ph = pl.TransformedBy(h);
        for (int j = 0; j < 4; ++j) {
            const ZtLPos3f p = pl.ClosestPoint(RandomPos(gen));
            EXPECT_NEAR(pm.DistanceFromPlane(p * m), 0.0, 1e-11);
            EXPECT_NEAR(pa.DistanceFromPlane(p * a), 0.0, 1e-11);
            EXPECT_NEAR(ph.DistanceFromPlane(p * h), 0.0, 1e-11);
        }
        EXPECT_TRUE(Near(pm.TransformedByInverse(m), pl, 1e-12));
        EXPECT_TRUE(Near(pa.TransformedByInverse(a), pl, 1e-12));
        EXPECT_TRUE(Near(ph.TransformedByInverse(h), pl, 1e-12));
        ZtLPlane3f q = pl;
        q.Transform(a);
        EXPECT_TRUE(q == pa);
        q = pl;
        q.InverseTransform(h);
        EXPECT_TRUE(q == pl.TransformedByInverse(h));
    }
}

TEST(ZtLPlane3f, GeneralTransformsDispatchOnTheirTraits) {
    std::mt19937 gen(9);
    const ZtLPlane3f pl = RandomPlane(gen);
    const ZtLMatrix3f m = RandomMatrix(gen);
    const ZtLVec3f t(1, -2, 0.5);
    ZtLMatrix4f h(m, t);
    h[0][3] = 0.25;
    EXPECT_TRUE(pl.TransformedByInverse(ZtLTransform3f()) == pl);
    EXPECT_TRUE(pl.TransformedByInverse(ZtLTransform3f(m)) == pl.TransformedByInverse(m));
    EXPECT_TRUE(pl.TransformedByInverse(ZtLTransform3f(m, t)) ==
                pl.TransformedByInverse(ZtLAffine3f(m, t)));
    EXPECT_TRUE(pl.TransformedByInverse(ZtLTransform3f(h)) == pl.TransformedByInverse(h));
    EXPECT_TRUE(Near(pl.TransformedBy(ZtLTransform3f(h)), pl.TransformedBy(h), 1e-12));
    const ZtLTransform3f move = ZtLTransform3f::CreateTranslation(t);
    EXPECT_TRUE(pl.TransformedByInverse(move) == pl.TranslatedBy(-t));
    EXPECT_TRUE(pl.TransformedBy(move) == pl.TranslatedBy(t));
}

TEST(ZtLPlane3f, ToleratedComparisonIsInclusiveOnNormalsAndStrictOnDistances) {
    const ZtLPlane3f a(ZtLUnitVec3f(0, 0, 1), 1.0), b(ZtLUnitVec3f(0, 0.1, 1), 1.25);
    const double tn = 1 - a.GetNormal().Dot(b.GetNormal());
    EXPECT_EQ(a.Equals(b, tn, 0.25), 0) << "distances differ by exactly td";
    EXPECT_EQ(a.Equals(b, tn, 0.2500001), 1) << "normals differ by exactly tn";
    EXPECT_EQ(a.Equals(b, tn * 0.999, 1.0), 0);
    const ZtLPlane3f n(ZtLUnitVec3f(0, 0, 1), std::nan(""));
    EXPECT_TRUE(n != n);
}

TEST(ZtLPlane3f, RotationMapsTheNearestPointAndScalesRescaleTheDistance) {
    ZtLPlane3f pl(ZtLUnitVec3f(1, 1, 0), 2.0);
    const ZtLPlane3f before = pl;
    const ZtLMatrix3f r(ZtLRotation3f(ZtLUnitVec3f(0, 0, 1), 0.6));
    EXPECT_TRUE(Near(pl.RotatedBy(r), pl.TransformedBy(r), 1e-15));
    EXPECT_TRUE(pl == before) << "RotatedBy leaves the plane";
    ZtLMatrix3f s;
    s.MakeScale(ZtLVec3f(2, 1, 1));
    EXPECT_TRUE(ZtLPlane3f(ZtLUnitVec3f(1, 0, 0), 3.0).TransformedBy(s) ==
                ZtLPlane3f(ZtLUnitVec3f(1, 0, 0), 6.0));
    s.MakeScale(ZtLVec3f(0, 1, 1));  // maps the normal to zero: non-finite, silently
    EXPECT_FALSE(std::isfinite(
        ZtLPlane3f(ZtLUnitVec3f(1, 0, 0), 3.0).TransformedByInverse(s).GetDistance()));
}

TEST(ZtLPlane3f, TwoPlanesMeetInTheLineNearestTheOriginAndOppositeOnesAreNotRejected) {
    std::mt19937 gen(13);
    for (int k = 0; k < 50; ++k) {
        const ZtLPlane3f a = RandomPlane(gen), b = RandomPlane(gen);
        ZtLLine3f line;
        ASSERT_TRUE(a.Intersect(b, &line));
        for (double t : {0.0, 3.0}) {
            EXPECT_NEAR(a.DistanceFromPlane(line.Evaluate(t)), 0.0, 1e-9);
            EXPECT_NEAR(b.DistanceFromPlane(line.Evaluate(t)), 0.0, 1e-9);
        }
        EXPECT_NEAR(line.GetDirection().Dot(line.GetPoint().Vec()), 0.0, 1e-9);
    }
    const ZtLPlane3f a(ZtLUnitVec3f(1, 2, 3), 1.0);
    ZtLLine3f kept(ZtLPos3f(0, 0, 0), ZtLUnitVec3f(1, 0, 0));
    const ZtLLine3f before = kept;
    EXPECT_FALSE(a.Intersect(a, &kept));
    EXPECT_FALSE(a.Intersect(ZtLPlane3f(a.GetNormal(), 5.0), &kept));
    EXPECT_TRUE(kept == before);
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
        {ZtLPos3f(1.5, 1, 1), 0, ZtLVec3f(7, 7, 7)},
        {ZtLPos3f(-0.1, 1, 1), 0, ZtLVec3f(7, 7, 7)},  // weights untouched
    };
    for (const Case& c : cases) {
        ZtLVec3f w(7, 7, 7);
        EXPECT_EQ(ZtLPlane3f::IsPointInTriangle(c.p, p0, p1, p2, &w), c.inside);
        EXPECT_TRUE(w.Equals(c.w, 1e-15)) << w.ToString().GetString();
    }
    // A cross product shorter than 1e-10 is degenerate in the three-point form only.
    const ZtLPos3f o(0, 0, 0), q1(1e-6, 0, 0), q2(0, 1e-5, 0), p(1e-7, 1e-7, 0);
    EXPECT_EQ(ZtLPlane3f::IsPointInTriangle(p, o, q1, q2, nullptr), 0);
    EXPECT_EQ(ZtLPlane3f::IsPointInTriangle(p, ZtLUnitVec3f(0, 0, 1), o, q1, q2, nullptr), 1);
}

TEST(ZtLPlane3f, XMLRecordRoundTripsAndAFailedReadLeavesThePlane) {
    const ZtLPlane3f pl(ZtLUnitVec3f(1, 2, 2), -0.3), stored(ZtLUnitVec3f(0, 0, 1), 9.0);
    ZtUXMLDOMWriter w;
    ZtLPlane3f(pl).SerialiseXML(&w);
    std::string text = w.GetText();
    EXPECT_NE(text.find("<plane distance=\"-0.3\">\n  <vec3f x="), std::string::npos) << text;
    ZtUXMLDOMReader r;
    ASSERT_TRUE(r.Parse(text));
    ZtLPlane3f back = stored;
    back.SerialiseXML(&r);
    EXPECT_TRUE(back == pl);
    text.replace(text.find("z="), 2, "w=");
    ASSERT_TRUE(r.Parse(text));
    back = stored;
    back.SerialiseXML(&r);
    EXPECT_TRUE(r.HasError());
    EXPECT_TRUE(back == stored);
}

TEST(ZtLPlane2f, PlanarLinesFollowTheSameRules) {
    std::mt19937 gen(17);
    for (int k = 0; k < 50; ++k) {
        const ZtLPlane2f pl(ZtLUnitVec2f(g_u(gen), g_u(gen)), 2 * g_u(gen));
        const ZtLMatrix2f m(2 * g_u(gen), 2 * g_u(gen), 2 * g_u(gen), 2 * g_u(gen));
        if (std::fabs(m[0][0] * m[1][1] - m[0][1] * m[1][0]) < 0.3) continue;
        const ZtLAffine2f a(m, ZtLVec2f(g_u(gen), g_u(gen)));
        const ZtLPos2f p = pl.ClosestPoint(ZtLPos2f(3 * g_u(gen), 3 * g_u(gen)));
        EXPECT_NEAR(pl.TransformedBy(m).DistanceFromPlane(p * m), 0.0, 1e-12);
        EXPECT_NEAR(pl.TransformedBy(a).DistanceFromPlane(p * a), 0.0, 1e-12);
        EXPECT_TRUE(pl.TransformedBy(a).TransformedByInverse(a).Equals(pl, 1e-14, 1e-12));
        ZtLPlane2f q = pl;
        q.InverseTransform(m);
        EXPECT_TRUE(q == pl.TransformedByInverse(m));
    }
    ZtLPlane2f pl(ZtLUnitVec2f(0, 1), ZtLPos2f(5, 2));
    const ZtLBox2f b(ZtLPos2f(-1, -1), ZtLPos2f(2, 3));
    EXPECT_EQ(pl.MaxDistanceFromPlane(b), 1.0);
    EXPECT_EQ(pl.MinDistanceFromPlane(b), -3.0);
    const ZtLMatrix2f quarter(0, 1, -1, 0);  // (x, y) -> (-y, x)
    EXPECT_TRUE(pl.RotatedBy(quarter).Equals(ZtLPlane2f(ZtLUnitVec2f(-1, 0), 2.0), 1e-15, 1e-15));
    EXPECT_EQ(pl.Equals(ZtLPlane2f(ZtLUnitVec2f(0, 1), 2.5), 0, 0.5), 0) << "strict distance";
}
