#include <ztlinear/ZtLAffine3f.h>
#include <ztlinear/ZtLBox3f.h>
#include <ztlinear/ZtLFrustum3f.h>
#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLMatrix4f.h>
#include <ztlinear/ZtLPickFrustum3f.h>
#include <ztlinear/ZtLRotation3f.h>
#include <ztlinear/ZtLTransform3f.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace {

const double kHalfPi = 1.5707963267948966;
const double kNone = std::numeric_limits<double>::quiet_NaN();  // "not checked"

bool Near(const ZtLBaseVec3f& a, const ZtLBaseVec3f& b, double tol) {
    return std::fabs(a[0] - b[0]) <= tol && std::fabs(a[1] - b[1]) <= tol &&
           std::fabs(a[2] - b[2]) <= tol;
}

std::string Str(const ZtLBaseVec3f& v) {
    return "(" + std::to_string(v[0]) + ", " + std::to_string(v[1]) + ", " + std::to_string(v[2]) +
           ")";
}

// The box x, y in [-1, 1], z in [-10, -1] seen along -z: plane 4 is z = -1, so the distance of
// a point is -z - 1, and the centre line is the z axis.
ZtLPickFrustum3f Box() {
    return ZtLPickFrustum3f(ZtLFrustum3f(ZtLFrustum3f::Orthographic, -1, 1, -1, 1, 1, 10));
}

enum : int {
    kPos = ZtLPickEnum::WritePosition | ZtLPickEnum::WriteDistance,
    kCentre = ZtLPickEnum::NearestToCentreLine,
    kVtx = ZtLPickEnum::SnapVertex0,
    kEdge = ZtLPickEnum::SnapEdge1,
    kEnd = ZtLPickEnum::SnapEnd1,
    kMid = ZtLPickEnum::SnapMidpoint,
    kLimit = ZtLPickEnum::UseNearLimit,
    kThrough = ZtLPickEnum::CentreLineThrough
};

struct Case {
    const char* name;
    ZtLPos3f a, b, c;  // c unused for segments
    int options;
    double nearLimit;
    int hit;
    int result;
    ZtLPos3f position;
    double distance;
};

void Check(const Case& k, int hit, const ZtLPickFrustumContext3f& ctx) {
    SCOPED_TRACE(k.name);
    ASSERT_EQ(hit, k.hit);
    if (!hit) return;
    EXPECT_EQ(ctx.result, k.result) << std::hex << ctx.result;
    if (!std::isnan(k.position[0])) {
        EXPECT_TRUE(Near(ctx.position, k.position, 1e-12)) << Str(ctx.position);
        EXPECT_NEAR(ctx.distance, k.distance, 1e-12);
    }
}

}  // namespace

TEST(ZtLPickFrustum3f, BuiltFromAFrustum) {
    const ZtLFrustum3f camera(kHalfPi, 1, 1, 10);
    const ZtLPickFrustum3f pick(camera);
    ZtLPlane3f planes[6];
    camera.GetPlanes(planes);
    EXPECT_EQ(pick.GetNumPlanes(), 6);
    for (int i = 0; i < 6; ++i) EXPECT_TRUE(pick.GetPlane(i) == planes[i]) << i;
    EXPECT_EQ(pick.HasOrigin(), 1);
    EXPECT_TRUE(Near(pick.GetOrigin(), ZtLPos3f(0, 0, 0), 0.0));
    EXPECT_TRUE(Near(pick.GetCenterLine().GetDirection(), ZtLVec3f(0, 0, -1), 1e-15));
    EXPECT_TRUE(Near(pick.GetRay().GetDirection(), ZtLVec3f(0, 0, -1), 1e-15));
    EXPECT_EQ(Box().HasOrigin(), 0);

    // A mirrored camera's planes all face outwards; the orientation step turns them round.
    const ZtLFrustum3f mirrored(ZtLFrustum3f::Perspective, 1, -1, -1, 1, 1, 10);
    mirrored.GetPlanes(planes);
    EXPECT_LT(planes[4].DistanceFromPlane(ZtLPos3f(0, 0, -5)), 0.0);
    const ZtLPickFrustum3f turned(mirrored);
    for (int i = 0; i < 6; ++i) {
        EXPECT_TRUE(turned.GetPlane(i) == planes[i].Opposite()) << i;
    }
    ZtLPickFrustumContext3f ctx(0, 0x3f, kPos);
    EXPECT_EQ(turned.FindNearest(&ctx, ZtLPos3f(0.1, 0.2, -5)), 1);
    EXPECT_NEAR(ctx.distance, 4.0, 1e-15);

    // From planes: no origin, no orientation step, the count taken as given.
    const ZtLPickFrustum3f two(planes, 2);
    EXPECT_EQ(two.GetNumPlanes(), 2);
    EXPECT_EQ(two.HasOrigin(), 0);
    EXPECT_TRUE(two.GetPlane(1) == planes[1]);
    EXPECT_EQ(ZtLPickFrustum3f().GetNumPlanes(), 0);
}

TEST(ZtLPickFrustum3f, ClassifyAndPoints) {
    const ZtLPickFrustum3f box = Box();
    EXPECT_EQ(box.Classify(ZtLPos3f(2, -3, -0.5), 0), 0x02 | 0x08 | 0x10);
    EXPECT_EQ(box.Classify(ZtLPos3f(2, -3, -0.5), 0x02), 0x08 | 0x10) << "excluded planes";
    EXPECT_EQ(box.Classify(ZtLPos3f(1, 1, -10), 0), 0) << "on the faces is inside";

    ZtLPickFrustumContext3f ctx(0, 0x3f, kPos);
    EXPECT_EQ(box.FindNearest(&ctx, ZtLPos3f(0.5, 0.5, -3)), 1);
    EXPECT_EQ(ctx.result, 0x80);
    EXPECT_TRUE(Near(ctx.position, ZtLPos3f(0.5, 0.5, -3), 0.0));
    EXPECT_EQ(ctx.distance, 2.0);
    EXPECT_EQ(box.FindNearest(&ctx, ZtLPos3f(1.5, 0, -3)), 0);
    ctx.planeMask = 0x3d;
    EXPECT_EQ(box.FindNearest(&ctx, ZtLPos3f(1.5, 0, -3)), 1) << "plane 1 not tested";
    // The near limit rejects points nearer than it; a point on plane 4 passes a limit of 0.
    ctx.options = kPos | kLimit;
    ctx.nearLimit = 0.0;
    EXPECT_EQ(box.FindNearest(&ctx, ZtLPos3f(0, 0, -1)), 1);
    EXPECT_EQ(ctx.distance, 0.0);
    ctx.nearLimit = 2.5;
    EXPECT_EQ(box.FindNearest(&ctx, ZtLPos3f(0, 0, -3)), 0);
    EXPECT_EQ(box.FindNearest(&ctx, ZtLPos3f(0, 0, -4)), 1);
}

// Triangles in the box. T (a, b, c) crosses the right plane x = 1 with corner b outside; the
// clipped ring is, from its head, X on edge 1 at (1, -0.25, -2.125), c, a, and E on edge 0 at
// (1, -0.5, -1.625), at distances 1.125, 3, 1 and 0.625. The z axis meets T at (0, 0, -2.875).
TEST(ZtLPickFrustum3f, TrianglesByConfiguration) {
    const ZtLPos3f a(-0.5, -0.5, -2), b(1.5, -0.5, -1.5), c(-0.5, 0.5, -4);
    const ZtLPos3f e(1, -0.5, -1.625), ax(0, 0, -2.875);
    // Wholly inside: I (p, q, r), nearest corner q; the z axis meets it at (0, 0, -3.25).
    const ZtLPos3f p(-0.5, -0.5, -3), q(0.5, -0.5, -2), r(0, 0.5, -4);
    // Inside the box but off the z axis: S, whose edge 0 passes nearest the axis at s0.
    const ZtLPos3f s0(0.2, 0.1, -2), s1(0.8, 0.1, -2), s2(0.2, 0.7, -3);
    const Case cases[] = {
        {"inside, plane 4", p, q, r, kPos, 0, 1, 0x80, q, 1},
        {"inside, no output asked", p, q, r, 0, 0, 1, 0x80, {kNone, 0, 0}, 0},
        {"inside, vertex snap", p, q, r, kPos | kVtx, 0, 1, 0x80 | 0x20, q, 1},
        {"inside, edge snap", p, q, r, kPos | kEdge, 0, 1, 0x80 | 0x03, q, 1},
        {"inside, centre line", p, q, r, kPos | kCentre, 0, 1, 0x80, {0, 0, -3.25}, 2.25},
        {"inside, centre line, vertex snap", p, q, r, kPos | kCentre | kVtx, 0, 1, 0xc0, r, 3},
        {"clipped, plane 4", a, b, c, kPos, 0, 1, 0, e, 0.625},
        {"clipped, vertex snap", a, b, c, kPos | kVtx, 0, 1, 0x10, a, 1},
        {"clipped, edge snap", a, b, c, kPos | kEdge, 0, 1, 0x01, e, 0.625},
        {"clipped, vertex and edge snap", a, b, c, kPos | kVtx | kEdge, 0, 1, 0x10, a, 1},
        {"near limit keeps what reaches nearer", a, b, c, kPos | kLimit, 0.7, 1, 0, e, 0.625},
        {"near limit drops what does not", a, b, c, kPos | kLimit, 0.6, 0, 0, e, 0},
        {"clipped, centre line", a, b, c, kPos | kCentre, 0, 1, 0, ax, 1.875},
        {"clipped, centre line, through", a, b, c, kPos | kCentre | kThrough, 0, 1, 0, ax, 1.875},
        // Corners a and c are equally far from the axis: c comes first in the ring.
        {"clipped, centre line, vertex snap", a, b, c, kPos | kCentre | kVtx, 0, 1, 0x40, c, 3},
        // The nearest ring edge to the axis is X -> c, on triangle edge 1.
        {"clipped, centre line, edge snap",
         a,
         b,
         c,
         kPos | kCentre | kEdge,
         0,
         1,
         0x02,
         {0.1, 0.2, -3.25},
         2.25},
        {"off axis, centre line, through", s0, s1, s2, kPos | kCentre | kThrough, 0, 0, 0, p, 0},
        {"off axis, centre line", s0, s1, s2, kPos | kCentre, 0, 1, 0x80 | 0x01, s0, 1},
        {"outside one plane", {2, 0, -2}, {3, 0, -2}, {2, 5, -9}, kPos, 0, 0, 0, p, 0},
    };
    const ZtLPickFrustum3f box = Box();
    for (const Case& k : cases) {
        ZtLPickFrustumContext3f ctx(0, 0x3f, k.options);
        ctx.nearLimit = k.nearLimit;
        Check(k, box.FindNearest(&ctx, k.a, k.b, k.c), ctx);
    }

    // The convenience form and Intersects.
    ZtLPos3f at;
    double distance = 0;
    EXPECT_EQ(box.FindNearest(a, b, c, 0, 0x3f, &at, &distance), 1);
    EXPECT_TRUE(Near(at, e, 1e-12));
    EXPECT_NEAR(distance, 0.625, 1e-12);
    EXPECT_EQ(box.FindNearest(a, b, c, 0, 0x3f, nullptr, nullptr), 1);
    EXPECT_EQ(box.Intersects(a, b, c, 0, 0x3f), 1);
    EXPECT_EQ(box.Intersects(p, q, r, 0, 0x3f), 1);
    // Corners outside different planes, and the triangle still misses the box's corner region.
    const ZtLPos3f m0(0.5, 3, -2), m1(3, 0.5, -2), m2(3, 3, -2);
    EXPECT_EQ(box.Intersects(m0, m1, m2, 0, 0x3f), 0);
    EXPECT_EQ(box.FindNearest(m0, m1, m2, 0, 0x3f, &at, &distance), 0);
    // A huge triangle wholly behind one plane is rejected at once.
    EXPECT_EQ(box.Intersects({-1e6, -1e6, -0.5}, {1e6, -1e6, -0.5}, {0, 1e6, -0.5}, 0, 0x3f), 0);
    EXPECT_EQ(box.Intersects({-1e6, -1e6, -0.5}, {1e6, -1e6, -0.5}, {0, 1e6, -0.5}, 0, 0x2f), 1);
}

TEST(ZtLPickFrustum3f, BackFacesAreCulledAgainstTheEyeOrThePlane) {
    const ZtLPickFrustum3f eye(ZtLFrustum3f(kHalfPi, 1, 1, 10));
    const ZtLPos3f a(-1, -1, -5), b(1, -1, -5), c(0, 1, -5);  // counter-clockwise seen from +z
    EXPECT_EQ(eye.Intersects(a, b, c, 1, 0x3f), 1);
    EXPECT_EQ(eye.Intersects(a, c, b, 1, 0x3f), 0);
    EXPECT_EQ(eye.Intersects(a, c, b, 0, 0x3f), 1);
    // The direction from the eye to the first corner decides: edge-on to the eye is culled.
    EXPECT_EQ(eye.Intersects({0, 0, -2}, {0, 1, -4}, {0, -1, -4}, 1, 0x3f), 0);
    // Degenerate triangles are never culled.
    EXPECT_EQ(eye.Intersects(a, b, b, 1, 0x3f), 1);
    // Without an eye the near plane's normal (-z) stands in for the sight direction.
    const ZtLPickFrustum3f box = Box();
    EXPECT_EQ(box.Intersects({-0.1, -0.1, -2}, {0.1, -0.1, -2}, {0, 0.1, -2}, 1, 0x3f), 1);
    EXPECT_EQ(box.Intersects({-0.1, -0.1, -2}, {0, 0.1, -2}, {0.1, -0.1, -2}, 1, 0x3f), 0);
}

// Segments in the box.
TEST(ZtLPickFrustum3f, SegmentsByConfiguration) {
    const ZtLPos3f in0(0, 0, -2), in1(0.5, 0, -3);           // both inside, distances 1, 2
    const ZtLPos3f one0(0, 0, -2), one1(3, 0, -4);           // b clipped to (1, 0, -8/3)
    const ZtLPos3f two0(-3, 0, -2), two1(3, 0, -4);          // both clipped, midpoint inside
    const ZtLPos3f tie0(-0.5, 0, -2), tie1(0.5, 0, -2);      // equal distances both ways
    const ZtLPos3f slant0(-0.5, 0, -2), slant1(0.5, 0, -3);  // equal distances to the axis
    const ZtLPos3f far0(-1.5, 0.5, -2), far1(0.5, 0.5, -4);  // a clipped to (-1, 0.5, -2.5)
    const double n = kNone;
    const Case cases[] = {
        {"inside, plane 4", in0, in1, {}, kPos, 0, 1, 0x10081, in0, 1},
        {"inside, no output", in0, in1, {}, 0, 0, 1, 0x81, {n, 0, 0}, 0},
        {"inside, midpoint", in0, in1, {}, kPos | kMid, 0, 1, 0x40081, {0.25, 0, -2.5}, 1.5},
        {"inside, ends skip the midpoint", in0, in1, {}, kPos | kEnd | kMid, 0, 1, 0x10081, in0, 1},
        {"tie, first end", tie0, tie1, {}, kPos | kEnd, 0, 1, 0x10081, tie0, 1},
        {"tie to the axis, second end",
         slant0,
         slant1,
         {},
         kPos | kEnd | kCentre,
         0,
         1,
         0x20081,
         slant1,
         2},
        {"inside, centre line, nearest point", in0, in1, {}, kPos | kCentre, 0, 1, 0x81, in0, 1},
        {"one clipped, end", one0, one1, {}, kPos | kEnd, 0, 1, 0x10001, one0, 1},
        {"one clipped, midpoint off the piece",
         one0,
         one1,
         {},
         kPos | kMid,
         0,
         1,
         0x10001,
         one0,
         1},
        {"a clipped, b kept unless the midpoint is nearer",
         far0,
         far1,
         {},
         kPos | kEnd,
         0,
         1,
         0x20001,
         far1,
         3},
        {"a clipped and nearer, midpoint",
         far0,
         far1,
         {},
         kPos | kEnd | kMid,
         0,
         1,
         0x40001,
         {-0.5, 0.5, -3},
         2},
        {"both clipped, midpoint",
         two0,
         two1,
         {},
         kPos | kEnd | kMid,
         0,
         1,
         0x40001,
         {0, 0, -3},
         2},
        {"both clipped, nearest clipped end",
         two0,
         two1,
         {},
         kPos,
         0,
         1,
         0x01,
         {-1, 0, -8.0 / 3},
         5.0 / 3},
        {"both clipped, centre line", two0, two1, {}, kPos | kCentre, 0, 1, 0x01, {0, 0, -3}, 2},
        {"outside one plane", {2, 0, -2}, {3, 0, -3}, {}, kPos, 0, 0, 0, {n, 0, 0}, 0},
        {"the near limit does not apply", in0, in1, {}, kPos | kLimit, 5, 1, 0x10081, in0, 1},
    };
    const ZtLPickFrustum3f box = Box();
    for (const Case& k : cases) {
        ZtLPickFrustumContext3f ctx(0, 0x3f, k.options);
        ctx.nearLimit = k.nearLimit;
        Check(k, box.FindNearest(&ctx, k.a, k.b), ctx);
    }
}

TEST(ZtLPickFrustum3f, CullingNarrowsTheMask) {
    const ZtLPickFrustum3f box = Box();
    int mask = 0x3f;
    EXPECT_EQ(box.CanCull(ZtLBox3f({2, -1, -5}, {3, 1, -4}), &mask), 1);
    EXPECT_EQ(mask, 0x3f) << "unchanged when culled";
    EXPECT_EQ(box.CanCull(ZtLBox3f({-0.5, -0.5, -5}, {0.5, 0.5, -4}), &mask), 0);
    EXPECT_EQ(mask, 0) << "wholly inside every plane";
    mask = 0x3f;
    EXPECT_EQ(box.CanCull(ZtLBox3f({0.5, -0.5, -5}, {1.5, 0.5, -4}), &mask), 0);
    EXPECT_EQ(mask, 0x02) << "only the right plane is left";
    mask = 0x3d;
    EXPECT_EQ(box.CanCull(ZtLBox3f({2, -1, -5}, {3, 1, -4}), &mask), 0) << "right not tested";
    // Touching a plane from outside (corner distance 0) neither culls nor clears.
    mask = 0x3f;
    EXPECT_EQ(box.CanCull(ZtLBox3f({1, -0.5, -5}, {2, 0.5, -4}), &mask), 0);
    EXPECT_EQ(mask & 0x02, 0x02);

    const ZtLBox3f b({-0.5, -0.5, -5}, {0.5, 0.5, -2});
    EXPECT_EQ(box.MinDistance(b), 1.0);
    EXPECT_EQ(box.MaxDistance(b), 4.0);
}

TEST(ZtLPickFrustum3f, TransformsCarryThePicks) {
    const ZtLPickFrustum3f eye(ZtLFrustum3f(kHalfPi, 1.5, 1, 10).NarrowedBy(0.4, 0.6, 0.4, 0.6));
    const ZtLPos3f a(-0.3, -0.2, -4), b(0.4, -0.3, -5), c(0.1, 0.4, -3);
    ZtLPickFrustumContext3f ctx(1, 0x3f, kPos);
    ASSERT_EQ(eye.FindNearest(&ctx, a, b, c), 1);
    const ZtLPos3f hit = ctx.position;
    const double distance = ctx.distance;

    const ZtLMatrix3f rot(ZtLRotation3f(ZtLUnitVec3f(1, -2, 0.5), 1.1));
    const ZtLAffine3f rigid(rot, ZtLVec3f(4, -2, 7));
    const ZtLMatrix3f sheared(1, 0.2, 0, 0, 1.5, 0, 0.3, 0, 0.8);
    ZtLPickFrustum3f copy = eye;
    const ZtLPickFrustum3f moved[] = {copy.TranslatedBy(ZtLVec3f(1, 2, 3)),
                                      copy.RotatedBy(rot),
                                      copy.TransformedBy(rot),
                                      copy.TransformedBy(rigid),
                                      copy.TransformedBy(ZtLMatrix4f(rigid)),
                                      copy.TransformedBy(sheared),
                                      copy.ScaledBy(2.5),
                                      copy.ScaledBy(-2)};
    auto map = [&](int k, const ZtLPos3f& p) {
        switch (k) {
            case 0:
                return p + ZtLVec3f(1, 2, 3);
            case 1:
            case 2:
                return p * rot;
            case 3:
            case 4:
                return p * rigid;
            case 5:
                return p * sheared;
            case 6:
                return p.Vec().Multiply(2.5).Pos();
            default:
                return p.Vec().Multiply(-2).Pos();
        }
    };
    for (int k = 0; k < 8; ++k) {
        SCOPED_TRACE(k);
        // A scaling by -2 mirrors the scene, so what faced the eye faces away.
        const int cull = k == 7 ? 0 : 1;
        ZtLPickFrustumContext3f moved_ctx(cull, 0x3f, kPos);
        ASSERT_EQ(moved[k].FindNearest(&moved_ctx, map(k, a), map(k, b), map(k, c)), 1);
        EXPECT_TRUE(Near(moved_ctx.position, map(k, hit), 1e-12)) << Str(moved_ctx.position);
        // Distances are in the moved space: kept by rigid maps, scaled by scalings.
        const double factor = k == 6 ? 2.5 : k == 7 ? 2.0 : 1.0;
        if (k != 5) {
            EXPECT_NEAR(moved_ctx.distance, distance * factor, 1e-12);
        }
        EXPECT_EQ(moved[k].HasOrigin(), 1);
        EXPECT_LT(moved[k].GetCenterLine().DistanceFromLine(map(k, eye.GetOrigin())), 1e-12);
        // Culled from behind in the moved space as well.
        EXPECT_EQ(moved[k].Intersects(map(k, a), map(k, c), map(k, b), 1, 0x3f), k == 7 ? 1 : 0);
    }
    // In-place forms equal their copies; a general transform takes the path of what it holds,
    // and the form with a ready-made inverse does the same.
    ZtLPickFrustum3f inPlace = eye;
    inPlace.Transform(rigid);
    const ZtLTransform3f general(rigid);
    ZtLPickFrustum3f withInverse = eye;
    withInverse.Transform(general, general.Inverse());
    const ZtLPickFrustum3f viaGeneral = copy.TransformedBy(general);
    const ZtLPickFrustum3f viaTranslation =
        copy.TransformedBy(ZtLTransform3f::CreateTranslation(ZtLVec3f(1, 2, 3)));
    for (int i = 0; i < 6; ++i) {
        EXPECT_TRUE(inPlace.GetPlane(i) == moved[3].GetPlane(i)) << i;
        EXPECT_TRUE(viaGeneral.GetPlane(i).Equals(moved[3].GetPlane(i), 1e-15, 1e-14)) << i;
        EXPECT_TRUE(withInverse.GetPlane(i) == viaGeneral.GetPlane(i)) << i;
        EXPECT_TRUE(viaTranslation.GetPlane(i).Equals(moved[0].GetPlane(i), 1e-15, 1e-14)) << i;
    }
    EXPECT_TRUE(Near(viaGeneral.GetOrigin(), moved[3].GetOrigin(), 1e-14));
    EXPECT_TRUE(viaGeneral.GetCenterLine().Equals(moved[3].GetCenterLine(), 1e-15, 1e-14));
}

// Random triangles against random narrow pick volumes: hit or miss agrees with dense sampling of
// the triangle, the picked point is inside the volume, and no inside sample is nearer plane 4.
TEST(ZtLPickFrustum3f, AgreesWithDenseSampling) {
    std::mt19937 gen(11);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    const ZtLFrustum3f cameras[2] = {ZtLFrustum3f(1.0, 1.3, 1, 20),
                                     ZtLFrustum3f(ZtLFrustum3f::Orthographic, -2, 2, -2, 2, 1, 20)};
    const int kSteps = 48;
    int hits = 0;
    int misses = 0;
    for (int n = 0; n < 400; ++n) {
        const ZtLFrustum3f& camera = cameras[n % 2];
        const double x0 = 0.8 * unit(gen), y0 = 0.8 * unit(gen);
        const double w = 0.02 + 0.15 * unit(gen), h = 0.02 + 0.15 * unit(gen);
        const ZtLPickFrustum3f pick(camera.NarrowedBy(x0, x0 + w, y0, y0 + h));
        ZtLPos3f corner[3];
        for (ZtLPos3f& p : corner) {
            p = camera.ProjectPointToDist(ZtLPos2f(unit(gen), unit(gen)), 1 + 18 * unit(gen));
        }
        ZtLPickFrustumContext3f ctx(0, 0x3f, kPos);
        const int hit = pick.FindNearest(&ctx, corner[0], corner[1], corner[2]);

        // Sample the triangle: the smallest violation of the six planes, and the nearest inside
        // sample.
        double leastViolation = 1e300;
        double nearestInside = 1e300;
        const double edge =
            std::max({(corner[1] - corner[0]).Length(), (corner[2] - corner[1]).Length(),
                      (corner[0] - corner[2]).Length()});
        for (int i = 0; i <= kSteps; ++i) {
            for (int j = 0; i + j <= kSteps; ++j) {
                const double s = double(i) / kSteps, t = double(j) / kSteps;
                const ZtLPos3f p =
                    corner[0] + (corner[1] - corner[0]) * s + (corner[2] - corner[0]) * t;
                double violation = 0;
                for (int k = 0; k < 6; ++k) {
                    violation = std::max(violation, -pick.GetPlane(k).DistanceFromPlane(p));
                }
                leastViolation = std::min(leastViolation, violation);
                if (violation == 0) {
                    nearestInside = std::min(nearestInside, pick.GetPlane(4).DistanceFromPlane(p));
                }
            }
        }
        SCOPED_TRACE(n);
        if (hit) {
            ++hits;
            // Something of the triangle is inside: a sample is, or lies within a grid cell.
            EXPECT_LT(leastViolation, 2 * edge / kSteps);
            for (int k = 0; k < 6; ++k) {
                EXPECT_GT(pick.GetPlane(k).DistanceFromPlane(ctx.position), -1e-9) << k;
            }
            EXPECT_LE(ctx.distance, nearestInside + 1e-9);
        } else {
            ++misses;
            EXPECT_GT(leastViolation, 0.0) << "a sample inside the volume";
        }
    }
    EXPECT_GT(hits, 40);
    EXPECT_GT(misses, 40);
}

// The end-to-end pick: a camera, a model placed in the world, its bounds culled, the nearest of
// its triangles picked at a screen position.
TEST(ZtLPickFrustum3f, EndToEndPick) {
    const ZtLFrustum3f camera(kHalfPi, 1, 1, 100);
    // The pick volume around the screen position (0.52, 0.47), a hundredth of the screen wide;
    // its centre line is the sight line through (0.04, -0.06, -1).
    const ZtLPickFrustum3f world(camera.NarrowedBy(0.515, 0.525, 0.465, 0.475));

    // The model: two squares facing +z, at z = 0 and z = -2 in its own space, two triangles
    // each. It is turned about z and moved 10 along -z, so the squares face the eye at world
    // depths 10 and 12.
    const ZtLPos3f v[8] = {{-1, -1, 0},  {1, -1, 0},  {1, 1, 0},  {-1, 1, 0},
                           {-1, -1, -2}, {1, -1, -2}, {1, 1, -2}, {-1, 1, -2}};
    const int tris[4][3] = {{4, 5, 6}, {4, 6, 7}, {0, 1, 2}, {0, 2, 3}};
    const ZtLMatrix3f turn(ZtLRotation3f(ZtLUnitVec3f(0, 0, 1), 0.5));
    const ZtLAffine3f model(turn, ZtLVec3f(0, 0, -10));
    ZtLBox3f bounds;
    for (const ZtLPos3f& p : v) bounds.ExtendBy(p);

    // Into the model's space with the inverse of its placement; the whole model lies between
    // the near and far planes, so only the side planes are left to test.
    const ZtLPickFrustum3f local = ZtLPickFrustum3f(world).TransformedBy(model.Inverse());
    int mask = 0x3f;
    ASSERT_EQ(local.CanCull(bounds, &mask), 0);
    EXPECT_EQ(mask, 0x0f);

    ZtLPickFrustumContext3f best(0, mask, kPos | kCentre | kThrough);
    best.position = ZtLPos3f(0, 0, 0);
    best.distance = 1e300;
    int found = -1;
    for (int t = 0; t < 4; ++t) {
        ZtLPickFrustumContext3f ctx(0, mask, kPos | kCentre | kThrough);
        if (local.FindNearest(&ctx, v[tris[t][0]], v[tris[t][1]], v[tris[t][2]]) &&
            ctx.distance < best.distance) {
            best = ctx;
            found = t;
        }
    }
    // The front square is hit where the sight line reaches depth 10, in its first triangle.
    EXPECT_EQ(found, 2);
    EXPECT_TRUE(Near(best.position * model, ZtLPos3f(0.4, -0.6, -10), 1e-12))
        << Str(best.position * model);
    EXPECT_NEAR(best.distance, 9.0, 1e-12);

    // A model behind the camera is culled whole.
    const ZtLAffine3f behind(turn, ZtLVec3f(0, 0, 10));
    int all = 0x3f;
    EXPECT_EQ(ZtLPickFrustum3f(world).TransformedBy(behind.Inverse()).CanCull(bounds, &all), 1);
}
