#include <ztlinear/ZtLAffine3f.h>
#include <ztlinear/ZtLLine3f.h>
#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLMatrix4f.h>
#include <ztlinear/ZtLPlane3f.h>
#include <ztlinear/ZtLRotation3f.h>
#include <ztlinear/ZtLTransform3f.h>

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

std::uniform_real_distribution<double> g_u(-1.0, 1.0);

ZtLPos3f RandomPos(std::mt19937& gen, double scale = 5.0) {
    return ZtLPos3f(scale * g_u(gen), scale * g_u(gen), scale * g_u(gen));
}
ZtLUnitVec3f RandomDir(std::mt19937& gen) { return ZtLUnitVec3f(RandomPos(gen).Vec()); }

// Moeller-Trumbore on the infinite line: the parameter along d and the weights of p1 and p2.
void LineTriangle(const ZtLPos3f& o, const ZtLVec3f& d, const ZtLPos3f& p0, const ZtLPos3f& p1,
                  const ZtLPos3f& p2, double* t, double* u, double* v) {
    const ZtLVec3f e1 = p1 - p0, e2 = p2 - p0, s = o - p0;
    const ZtLVec3f h = d.Cross(e2), q = s.Cross(e1);
    const double det = e1.Dot(h);
    *u = s.Dot(h) / det;
    *v = d.Dot(q) / det;
    *t = e2.Dot(q) / det;
}

}  // namespace

TEST(ZtLLine3f, ThePointIsTheFootFromTheOriginExceptWhereStoredAsGiven) {
    std::mt19937 gen(1);
    for (int k = 0; k < 100; ++k) {
        const ZtLPos3f p = RandomPos(gen);
        const ZtLUnitVec3f d = RandomDir(gen);
        const ZtLLine3f a(p, d);
        EXPECT_NEAR(a.GetPoint().Vec().Dot(d), 0.0, 1e-14);
        EXPECT_NEAR(a.DistanceFromOrigin(), p.Vec().Cross(d).Length(), 1e-13);
        EXPECT_NEAR(a.DistanceFromLine(p), 0.0, 1e-13);
        const ZtLPos3f q = p + d.Multiply(2.5);
        EXPECT_TRUE(ZtLLine3f(p, q).Equals(a, 1e-15, 1e-13));
        EXPECT_TRUE(ZtLLine3f(ZtLRay3f(p, d)) == a);
        EXPECT_TRUE(ZtLLine3f(ZtLSegment3f(p, q)) == ZtLLine3f(p, q));
    }
    ZtLLine3f raw;
    raw.SetNormalizedValue(ZtLPos3f(1, 2, 3), ZtLVec3f(0, 0, 2));
    EXPECT_TRUE(raw.GetPoint().Equals(ZtLPos3f(1, 2, 3), 0)) << "neither projected...";
    EXPECT_EQ(raw.GetDirection()[2], 2.0) << "...nor normalised";
    ZtLLine3f z(ZtLPos3f(1, 2, 3), ZtLUnitVec3f(0, 0, 1));  // TranslatedBy is non-const
    EXPECT_TRUE(z.TranslatedBy(ZtLVec3f(1, 1, 1)).GetPoint().Equals(ZtLPos3f(2, 3, 0), 0));
}

TEST(ZtLLine3f, PlaneIntersectionTestsOnlyTheAngle) {
    const ZtLPlane3f pl(ZtLUnitVec3f(0, 0, 1), 2.0);
    const ZtLLine3f inPlane(ZtLPos3f(0, 0, 2), ZtLUnitVec3f(1, 0, 0));
    const ZtLLine3f slanted(ZtLPos3f(1, 0, 0), ZtLUnitVec3f(0, 3, 4));
    double t = 42;
    ZtLPos3f p(7, 7, 7);
    EXPECT_EQ(inPlane.Intersects(pl), 0);
    EXPECT_EQ(inPlane.IntersectParameter(pl, &t) + inPlane.Intersect(pl, &p), 0);
    EXPECT_EQ(t, 42.0);
    EXPECT_EQ(p[0], 7.0);
    ASSERT_EQ(slanted.IntersectParameter(pl, &t), 1);
    EXPECT_NEAR(t, 2.5, 1e-15);
    ASSERT_EQ(slanted.Intersect(pl, &p), 1);
    EXPECT_TRUE(p.Equals(ZtLPos3f(1, 1.5, 2), 1e-15));
    const ZtLLine3f nan(ZtLPos3f(0, 0, 0), ZtLUnitVec3f(std::nan(""), 0, 0));
    EXPECT_EQ(nan.Intersects(pl), 1) << "a NaN product is not zero";
}

TEST(ZtLLine3f, ClosestPointsAreMutuallyPerpendicularFeet) {
    std::mt19937 gen(2);
    for (int k = 0; k < 200; ++k) {
        const ZtLLine3f a(RandomPos(gen), RandomDir(gen)), b(RandomPos(gen), RandomDir(gen));
        ZtLPos3f p, q;
        ASSERT_EQ(a.ClosestPoints(b, &p, &q), 1);
        EXPECT_NEAR((q - p).Dot(a.GetDirection()), 0.0, 1e-9);
        EXPECT_NEAR((q - p).Dot(b.GetDirection()), 0.0, 1e-9);
        EXPECT_NEAR(a.DistanceFromLine(p) + b.DistanceFromLine(q), 0.0, 1e-12);
    }
    // Directions along an axis: the determinant is exactly zero and nothing is written.
    const ZtLLine3f x(ZtLPos3f(0, 1, 0), ZtLUnitVec3f(1, 0, 0));
    const ZtLLine3f back(ZtLPos3f(0, 0, 3), ZtLUnitVec3f(-1, 0, 0));
    double s = 5, t = 6;
    EXPECT_EQ(x.ClosestPointsParameters(x, &s, &t) + x.ClosestPointsParameters(back, &s, &t), 0);
    EXPECT_EQ(s + t, 11.0);
}

TEST(ZtLLine3f, TwoPlanesGiveTheLineThroughTheDominantCoordinatePlane) {
    ZtLLine3f line;
    const ZtLPlane3f x1(ZtLUnitVec3f(1, 0, 0), 1.0);
    ASSERT_EQ(line.SetValue(x1, ZtLPlane3f(ZtLUnitVec3f(0, 1, 0), 2.0)), 1);
    EXPECT_TRUE(line == ZtLLine3f(ZtLPos3f(1, 2, 0), ZtLUnitVec3f(0, 0, 1)));
    EXPECT_EQ(line.SetValue(x1, ZtLPlane3f(ZtLUnitVec3f(-1, 0, 0), 4.0)), 0);
    EXPECT_TRUE(line == ZtLLine3f(ZtLPos3f(1, 2, 0), ZtLUnitVec3f(0, 0, 1))) << "untouched";
    std::mt19937 gen(4);
    for (int k = 0; k < 100; ++k) {
        const ZtLPlane3f a(RandomDir(gen), 3 * g_u(gen)), b(RandomDir(gen), 3 * g_u(gen));
        ASSERT_EQ(line.SetValue(a, b), 1);
        const ZtLVec3f u = a.GetNormal().Cross(b.GetNormal()).Abs();
        const int i0 = u[0] >= u[1] && u[0] >= u[2] ? 0 : u[1] >= u[2] ? 1 : 2;
        EXPECT_EQ(line.GetPoint()[i0], 0.0) << "the point is not projected";
        EXPECT_NEAR(a.DistanceFromPlane(line.GetPoint()), 0.0, 1e-10);
        EXPECT_NEAR(b.DistanceFromPlane(line.Evaluate(2)), 0.0, 1e-10);
    }
}

TEST(ZtLLine3f, TriangleIntersectionAgreesWithAnIndependentTestAwayFromEdges) {
    std::mt19937 gen(6);
    int inside = 0, outside = 0;
    for (int k = 0; k < 500; ++k) {
        const ZtLPos3f p0 = RandomPos(gen), p1 = RandomPos(gen), p2 = RandomPos(gen);
        const ZtLLine3f line(RandomPos(gen, 2.0), RandomDir(gen));
        double t, u, v;
        LineTriangle(line.GetPoint(), line.GetDirection(), p0, p1, p2, &t, &u, &v);
        const double margin = std::fmin(1 - u - v, std::fmin(u, v));
        if (std::fabs(margin) < 1e-6 || !std::isfinite(t) || std::fabs(t) > 1e6) continue;
        ZtLPos3f p(9, 9, 9);
        ZtLVec3f w;
        const int hit = line.Intersect(p0, p1, p2, &p, &w);
        EXPECT_EQ(hit, margin > 0 ? 1 : 0) << k;
        EXPECT_TRUE(p.Equals(line.Evaluate(t), 1e-8)) << "the point is written either way";
        if (hit) {
            EXPECT_TRUE(w.Equals(ZtLVec3f(1 - u - v, u, v), 1e-8));
        }
        ++(hit ? inside : outside);
    }
    EXPECT_GT(inside, 20);
    EXPECT_GT(outside, 20);

    const ZtLPos3f p0(0, 0, 0), p1(1, 0, 0), p2(0, 1, 0);
    const ZtLLine3f down(ZtLPos3f(2, 2, 5), ZtLUnitVec3f(0, 0, -1)),
        flat(p2, ZtLUnitVec3f(1, 1, 0));
    ZtLPos3f p(9, 9, 9);
    EXPECT_EQ(flat.Intersect(p0, p1, p2, &p, nullptr) + down.Intersect(p0, p0, p2, &p, nullptr), 0);
    EXPECT_EQ(p[0], 9.0) << "parallel or degenerate: untouched";
    EXPECT_EQ(down.IntersectParameter(p0, p1, p2, ZtLUnitVec3f(0, 0, 1), 1.0, &p, nullptr), 0);
    EXPECT_TRUE(p.Equals(ZtLPos3f(2, 2, -1), 0)) << "the parameter form always writes";
}

TEST(ZtLLine3f, MappedPathsContainTheMappedPoints) {
    std::mt19937 gen(8);
    for (int k = 0; k < 50; ++k) {
        const ZtLLine3f line(RandomPos(gen), RandomDir(gen));
        const ZtLRay3f ray(RandomPos(gen), RandomDir(gen));
        const ZtLSegment3f seg(RandomPos(gen), RandomPos(gen));
        const ZtLMatrix3f m(ZtLRotation3f(RandomDir(gen), 2.0 * g_u(gen)));
        const ZtLAffine3f a(m * ZtLMatrix3f(2, 0, 0, 0.5, 1, 0, 0, 0, 3), RandomPos(gen).Vec());
        ZtLMatrix4f h(a.GetLinear(), a.GetTranslation());
        for (int i = 0; i < 3; ++i) h[i][3] = 0.01 * g_u(gen);
        const ZtLTransform3f x(h);
        const ZtLLine3f lines[4] = {line.TransformedBy(m), line.TransformedBy(a),
                                    line.TransformedBy(h), line.TransformedBy(x)};
        for (double t : {-2.0, 3.0}) {
            const ZtLPos3f p = line.Evaluate(t);
            EXPECT_NEAR(lines[0].DistanceFromLine(p * m), 0.0, 1e-9);
            EXPECT_NEAR(lines[1].DistanceFromLine(p * a), 0.0, 1e-9);
            EXPECT_NEAR(lines[2].DistanceFromLine(p * h), 0.0, 1e-9);
            EXPECT_NEAR(lines[3].DistanceFromLine(p * x), 0.0, 1e-9);
        }
        for (const ZtLLine3f& l : lines)
            EXPECT_NEAR(l.GetPoint().Vec().Dot(l.GetDirection()), 0.0, 1e-12);
        EXPECT_TRUE(seg.TransformedBy(x) == ZtLSegment3f(seg.GetStart() * x, seg.GetEnd() * x));
        ZtLLine3f l2 = line;
        l2.Transform(h);
        EXPECT_TRUE(l2 == lines[2]);
        ZtLRay3f r2 = ray;
        r2.Rotate(m);
        EXPECT_TRUE(r2 == ray.TransformedBy(m));
    }
    ZtLLine3f line(ZtLPos3f(1, 0, 0), ZtLUnitVec3f(0, 0, 1));
    EXPECT_TRUE(line.RotatedBy(ZtLMatrix3f(0, 1, 0, -1, 0, 0, 0, 0, 1))
                    .GetPoint()
                    .Equals(ZtLPos3f(0, 1, 0), 0));
    ZtLMatrix3f s;
    s.MakeUniformScale(2);
    EXPECT_EQ(line.RotatedBy(s).GetDirection()[2], 2.0) << "RotatedBy does not normalise";
    EXPECT_EQ(line.TransformedBy(s).GetDirection()[2], 1.0);
}

TEST(ZtLRay3f, PlaneIntersectionStartsAtZeroAndWritesNegativeParameters) {
    const ZtLPlane3f pl(ZtLUnitVec3f(0, 0, 1), 1.0);
    struct Case {
        ZtLRay3f ray;
        bool hit;
        double t;
    };
    const Case cases[] = {
        {ZtLRay3f(ZtLPos3f(0, 0, 1), ZtLUnitVec3f(0, 0, 1)), true, 0.0},  // starts on it
        {ZtLRay3f(ZtLPos3f(0, 0, 3), ZtLPos3f(0, 0, 2)), true, 2.0},
        {ZtLRay3f(ZtLPos3f(0, 0, 3), ZtLUnitVec3f(0, 0, 1)), false, -2.0},  // pointing away
        {ZtLRay3f(ZtLPos3f(0, 0, 3), ZtLUnitVec3f(1, 0, 0)), false, 99.0},  // parallel
    };
    for (const Case& c : cases) {
        double t = 99;
        ZtLPos3f p(9, 9, 9);
        EXPECT_EQ(c.ray.IntersectParameter(pl, &t), c.hit);
        EXPECT_EQ(t, c.t) << "written also when behind";
        EXPECT_EQ(c.ray.Intersect(pl, &p), c.hit);
        EXPECT_EQ(p[2], c.hit ? 1.0 : 9.0);
    }
}

TEST(ZtLSegment3f, PlaneIntersectionIncludesBothEndsAndExcludesTheSegmentInThePlane) {
    const ZtLPlane3f pl(ZtLUnitVec3f(0, 0, 1), 1.0);
    struct Case {
        ZtLSegment3f seg;
        bool hit;
    };
    const Case cases[] = {
        {ZtLSegment3f(ZtLPos3f(0, 0, 0), ZtLPos3f(0, 0, 1)), true},  // ends on it: t = 1
        {ZtLSegment3f(ZtLPos3f(0, 0, 1), ZtLPos3f(0, 0, 4)), true},
        {ZtLSegment3f(ZtLPos3f(0, 0, 0), ZtLPos3f(0, 0, 0.999)), false},
        {ZtLSegment3f(ZtLPos3f(0, 0, 1), ZtLPos3f(5, 0, 1)), false},  // in the plane
    };
    for (const Case& c : cases) {
        ZtLPos3f p(9, 9, 9);
        EXPECT_EQ(c.seg.Intersect(pl, &p), c.hit);
        EXPECT_EQ(p[2], c.hit ? 1.0 : 9.0);
    }
    const ZtLSegment3f s(ZtLPos3f(1, 0, 0), ZtLPos3f(1, 10, 0));
    EXPECT_EQ(s.ClosestPointParameter(s.GetEnd()), 10.0) << "a length, not a fraction";
    EXPECT_EQ(s.ClosestPointParameter(ZtLPos3f(4, 20, 0)), 20.0) << "not clamped";
    const ZtLSegment3f nearEnds(ZtLPos3f(50, 0, 0), s.GetEnd());
    EXPECT_EQ(s.Equals(nearEnds, 0, 100), 1) << "ends exact, starts loose";
    EXPECT_EQ(nearEnds.Equals(s, 100, 0), 0) << "the first tolerance is the ends'";
}
