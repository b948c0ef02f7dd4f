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
#include <random>

namespace {

const double kHalfPi = 1.5707963267948966;

bool Near(const ZtLBaseVec3f& a, const ZtLBaseVec3f& b, double tol) {
    return std::fabs(a[0] - b[0]) <= tol && std::fabs(a[1] - b[1]) <= tol &&
           std::fabs(a[2] - b[2]) <= tol;
}

// The box x, y in [-1, 1], z in [-10, -1] seen along -z: plane 4 is z = -1, so the distance of
// a point is -z - 1, and the centre line is the z axis.
ZtLPickFrustum3f Box() {
    return ZtLPickFrustum3f(ZtLFrustum3f(ZtLFrustum3f::Orthographic, -1, 1, -1, 1, 1, 10));
}

enum : int {
    kPos = ZtLPickEnum::WritePosition | ZtLPickEnum::WriteDistance,
    kCL = ZtLPickEnum::NearestToCentreLine,
    kVtx = ZtLPickEnum::SnapVertex0,
    kEdge = ZtLPickEnum::SnapEdge1,
    kEnd = ZtLPickEnum::SnapEnd1,
    kMid = ZtLPickEnum::SnapMidpoint,
    kLimit = ZtLPickEnum::UseNearLimit,
    kThrough = ZtLPickEnum::CentreLineThrough
};

// One query: options and near limit in; hit, result bits, position and distance expected (a
// position is checked only when it was asked for and hit).
struct Case {
    const char* name;
    int options;
    double limit;
    int hit, result;
    ZtLPos3f position;
    double distance;
};

void Check(const Case& k, int hit, const ZtLPickFrustumContext3f& ctx) {
    SCOPED_TRACE(k.name);
    ASSERT_EQ(hit, k.hit);
    if (!hit) return;
    EXPECT_EQ(ctx.result, k.result) << std::hex << ctx.result;
    if (k.options & kPos) {
        EXPECT_TRUE(Near(ctx.position, k.position, 1e-12));
        EXPECT_NEAR(ctx.distance, k.distance, 1e-12);
    }
}

}  // namespace

TEST(ZtLPickFrustum3f, BuiltFromAFrustumOrPlanes) {
    const ZtLFrustum3f camera(kHalfPi, 1, 1, 10);
    const ZtLPickFrustum3f pick(camera);
    ZtLPlane3f planes[6];
    camera.GetPlanes(planes);
    EXPECT_EQ(pick.GetNumPlanes(), 6);
    for (int i = 0; i < 6; ++i) EXPECT_TRUE(pick.GetPlane(i) == planes[i]) << i;
    EXPECT_TRUE(pick.HasOrigin() == 1 && Near(pick.GetOrigin(), ZtLPos3f(0, 0, 0), 0.0));
    EXPECT_TRUE(Near(pick.GetCenterLine().GetDirection(), ZtLVec3f(0, 0, -1), 1e-15));
    EXPECT_TRUE(Near(pick.GetRay().GetDirection(), ZtLVec3f(0, 0, -1), 1e-15));
    EXPECT_EQ(Box().HasOrigin(), 0);

    // A mirrored camera's planes all face outwards; the orientation step turns them round.
    ZtLFrustum3f(ZtLFrustum3f::Perspective, 1, -1, -1, 1, 1, 10).GetPlanes(planes);
    EXPECT_LT(planes[4].DistanceFromPlane(ZtLPos3f(0, 0, -5)), 0.0);
    const ZtLPickFrustum3f turned(ZtLFrustum3f(ZtLFrustum3f::Perspective, 1, -1, -1, 1, 1, 10));
    for (int i = 0; i < 6; ++i) EXPECT_TRUE(turned.GetPlane(i) == planes[i].Opposite()) << i;

    // From planes: no origin and no orientation step.
    const ZtLPickFrustum3f two(planes, 2);
    EXPECT_TRUE(two.GetNumPlanes() == 2 && two.HasOrigin() == 0 && two.GetPlane(1) == planes[1]);
    ZtLPickFrustumContext3f ctx(0, 0x3f, kPos);
    EXPECT_EQ(two.FindNearest(&ctx, ZtLPos3f(0.1, 0.2, -5)), 0) << "outward planes kept";
    EXPECT_EQ(ZtLPickFrustum3f().GetNumPlanes(), 0);
}

TEST(ZtLPickFrustum3f, ClassifyAndPoints) {
    const ZtLPickFrustum3f box = Box();
    EXPECT_EQ(box.Classify(ZtLPos3f(2, -3, -0.5), 0), 0x02 | 0x08 | 0x10);
    EXPECT_EQ(box.Classify(ZtLPos3f(2, -3, -0.5), 0x02), 0x08 | 0x10) << "excluded planes";
    EXPECT_EQ(box.Classify(ZtLPos3f(1, 1, -10), 0), 0) << "on the faces is inside";

    const ZtLPos3f in(0.5, 0.5, -3), out(1.5, 0, -3), onNear(0, 0, -1);
    const struct {
        Case k;
        ZtLPos3f p;
        int mask;
    } cases[] = {
        {{"inside", kPos, 0, 1, 0x80, in, 2}, in, 0x3f},
        {{"outside the right plane", kPos, 0, 0, 0, in, 0}, out, 0x3f},
        {{"the right plane not tested", kPos, 0, 1, 0x80, out, 2}, out, 0x3d},
        {{"on plane 4 with a limit of 0", kPos | kLimit, 0, 1, 0x80, onNear, 0}, onNear, 0x3f},
        {{"nearer than the limit", kPos | kLimit, 2.5, 0, 0, in, 0}, in, 0x3f},
        {{"beyond the limit", kPos | kLimit, 1.5, 1, 0x80, in, 2}, in, 0x3f},
    };
    for (const auto& c : cases) {
        ZtLPickFrustumContext3f ctx(0, c.mask, c.k.options);
        ctx.nearLimit = c.k.limit;
        Check(c.k, box.FindNearest(&ctx, c.p), ctx);
    }
}

// Triangles in the box. T (a, b, c) crosses the right plane x = 1 with corner b outside; the
// clipped ring is, from its head, X on edge 1 at (1, -0.25, -2.125), c, a, and E on edge 0 at
// (1, -0.5, -1.625), at distances 1.125, 3, 1 and 0.625. The z axis meets T at (0, 0, -2.875).
// I (p, q, r) is wholly inside, q nearest; the z axis meets it at (0, 0, -3.25). S (s0, s1, s2)
// is inside, off the axis; its edge 0 passes nearest the axis, at s0.
TEST(ZtLPickFrustum3f, TrianglesByConfiguration) {
    const ZtLPos3f a(-0.5, -0.5, -2), b(1.5, -0.5, -1.5), c(-0.5, 0.5, -4);
    const ZtLPos3f e(1, -0.5, -1.625), axisT(0, 0, -2.875), axisI(0, 0, -3.25);
    const ZtLPos3f p(-0.5, -0.5, -3), q(0.5, -0.5, -2), r(0, 0.5, -4);
    const ZtLPos3f s0(0.2, 0.1, -2), s1(0.8, 0.1, -2), s2(0.2, 0.7, -3);
    const ZtLPos3f tris[3][3] = {{a, b, c}, {p, q, r}, {s0, s1, s2}};
    const struct {
        int tri;
        Case k;
    } cases[] = {
        // Nothing to clip, yet the triangle still goes through the clipper: Partial, no 0x80.
        {1, {"inside, plane 4", kPos, 0, 1, 0, q, 1}},
        {1, {"inside, no output asked", 0, 0, 1, 0, q, 1}},
        {1, {"inside, vertex snap", kPos | kVtx, 0, 1, 0x20, q, 1}},
        {1, {"inside, edge snap", kPos | kEdge, 0, 1, 0x03, q, 1}},
        {1, {"inside, near limit", kPos | kLimit, 1.5, 1, 0, q, 1}},
        {1, {"inside, centre line", kPos | kCL, 0, 1, 0, axisI, 2.25}},
        {1, {"inside, centre line, vertex snap", kPos | kCL | kVtx, 0, 1, 0x40, r, 3}},
        {0, {"clipped, plane 4", kPos, 0, 1, 0, e, 0.625}},
        {0, {"clipped, vertex snap", kPos | kVtx, 0, 1, 0x10, a, 1}},
        {0, {"clipped, edge snap", kPos | kEdge, 0, 1, 0x01, e, 0.625}},
        {0, {"clipped, vertex and edge snap", kPos | kVtx | kEdge, 0, 1, 0x10, a, 1}},
        {0, {"the limit keeps what reaches nearer", kPos | kLimit, 0.7, 1, 0, e, 0.625}},
        {0, {"the limit drops what does not", kPos | kLimit, 0.6, 0, 0, e, 0}},
        {0, {"clipped, centre line", kPos | kCL, 0, 1, 0, axisT, 1.875}},
        {0, {"clipped, centre line through", kPos | kCL | kThrough, 0, 1, 0, axisT, 1.875}},
        // a and c are equally far from the axis: c comes first in the ring.
        {0, {"clipped, centre line, vertex snap", kPos | kCL | kVtx, 0, 1, 0x40, c, 3}},
        // The ring edge nearest the axis is X -> c, on triangle edge 1.
        {0,
         {"clipped, centre line, edge", kPos | kCL | kEdge, 0, 1, 0x02, {0.1, 0.2, -3.25}, 2.25}},
        {2, {"off the axis, centre line through", kPos | kCL | kThrough, 0, 0, 0, s0, 0}},
        {2, {"off the axis, centre line", kPos | kCL, 0, 1, 0x01, s0, 1}},
    };
    const ZtLPickFrustum3f box = Box();
    for (const auto& k : cases) {
        ZtLPickFrustumContext3f ctx(0, 0x3f, k.k.options);
        ctx.nearLimit = k.k.limit;
        const ZtLPos3f* t = tris[k.tri];
        Check(k.k, box.FindNearest(&ctx, t[0], t[1], t[2]), ctx);
    }

    // The convenience form and Intersects.
    ZtLPos3f at;
    double distance = 0;
    EXPECT_EQ(box.FindNearest(a, b, c, 0, 0x3f, &at, &distance), 1);
    EXPECT_TRUE(Near(at, e, 1e-12) && std::fabs(distance - 0.625) < 1e-12);
    EXPECT_EQ(box.FindNearest(a, b, c, 0, 0x3f, nullptr, nullptr), 1);
    EXPECT_TRUE(box.Intersects(a, b, c, 0, 0x3f) == 1 && box.Intersects(p, q, r, 0, 0x3f) == 1);
    EXPECT_EQ(box.Intersects({2, 0, -2}, {3, 0, -2}, {2, 5, -9}, 0, 0x3f), 0);
    // Corners outside different planes, and the triangle still passes outside the box's edge.
    const ZtLPos3f m0(0.5, 3, -2), m1(3, 0.5, -2), m2(3, 3, -2);
    EXPECT_EQ(box.Intersects(m0, m1, m2, 0, 0x3f), 0);
    EXPECT_EQ(box.FindNearest(m0, m1, m2, 0, 0x3f, &at, &distance), 0);
    // A huge triangle wholly behind one plane is rejected.
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
    EXPECT_EQ(eye.Intersects(a, b, b, 1, 0x3f), 1) << "degenerate triangles are never culled";
    // Without an eye the near plane's normal (-z) stands in for the sight direction.
    const ZtLPickFrustum3f box = Box();
    EXPECT_EQ(box.Intersects({-0.1, -0.1, -2}, {0.1, -0.1, -2}, {0, 0.1, -2}, 1, 0x3f), 1);
    EXPECT_EQ(box.Intersects({-0.1, -0.1, -2}, {0, 0.1, -2}, {0.1, -0.1, -2}, 1, 0x3f), 0);
}

// Segments in the box: "in" both ends inside at distances 1 and 2; "one" b clipped to
// (1, 0, -8/3); "two" both clipped, to (-1, 0, -8/3) and (1, 0, -10/3); "tie" equal distances;
// "slant" equally far from the axis; "clipA" a clipped to (-1, 0.5, -2.5).
TEST(ZtLPickFrustum3f, SegmentsByConfiguration) {
    const ZtLPos3f segs[6][2] = {{{0, 0, -2}, {0.5, 0, -3}},    {{0, 0, -2}, {3, 0, -4}},
                                 {{-3, 0, -2}, {3, 0, -4}},     {{-0.5, 0, -2}, {0.5, 0, -2}},
                                 {{-0.5, 0, -2}, {0.5, 0, -3}}, {{-1.5, 0.5, -2}, {0.5, 0.5, -4}}};
    enum { kIn, kOne, kTwo, kTie, kSlant, kClipA };
    const ZtLPos3f in0 = segs[kIn][0];
    const struct {
        int seg;
        Case k;
    } cases[] = {
        {kIn, {"inside, plane 4", kPos, 0, 1, 0x10081, in0, 1}},
        {kIn, {"inside, no output", 0, 0, 1, 0x81, in0, 1}},
        {kIn, {"inside, midpoint", kPos | kMid, 0, 1, 0x40081, {0.25, 0, -2.5}, 1.5}},
        {kIn, {"inside, ends skip the midpoint", kPos | kEnd | kMid, 0, 1, 0x10081, in0, 1}},
        {kIn, {"inside, centre line", kPos | kCL, 0, 1, 0x81, in0, 1}},
        {kIn, {"the near limit does not apply", kPos | kLimit, 5, 1, 0x10081, in0, 1}},
        {kTie, {"tie, first end", kPos | kEnd, 0, 1, 0x10081, segs[kTie][0], 1}},
        {kSlant,
         {"tie to the axis, second end", kPos | kEnd | kCL, 0, 1, 0x20081, segs[kSlant][1], 2}},
        {kOne, {"one clipped, end", kPos | kEnd, 0, 1, 0x10001, in0, 1}},
        {kOne, {"one clipped, midpoint off the piece", kPos | kMid, 0, 1, 0x10001, in0, 1}},
        {kClipA, {"a clipped, b kept", kPos | kEnd, 0, 1, 0x20001, segs[kClipA][1], 3}},
        {kClipA,
         {"a clipped and nearer, midpoint", kPos | kEnd | kMid, 0, 1, 0x40001, {-0.5, 0.5, -3}, 2}},
        {kTwo, {"both clipped, midpoint", kPos | kEnd | kMid, 0, 1, 0x40001, {0, 0, -3}, 2}},
        {kTwo, {"both clipped, nearest end", kPos, 0, 1, 0x01, {-1, 0, -8.0 / 3}, 5.0 / 3}},
        {kTwo, {"both clipped, centre line", kPos | kCL, 0, 1, 0x01, {0, 0, -3}, 2}},
    };
    const ZtLPickFrustum3f box = Box();
    for (const auto& k : cases) {
        ZtLPickFrustumContext3f ctx(0, 0x3f, k.k.options);
        ctx.nearLimit = k.k.limit;
        Check(k.k, box.FindNearest(&ctx, segs[k.seg][0], segs[k.seg][1]), ctx);
    }
    ZtLPickFrustumContext3f ctx(0, 0x3f, kPos);
    EXPECT_EQ(box.FindNearest(&ctx, ZtLPos3f(2, 0, -2), ZtLPos3f(3, 0, -3)), 0);
}

TEST(ZtLPickFrustum3f, CullingNarrowsTheMask) {
    const ZtLPickFrustum3f box = Box();
    const struct {
        ZtLBox3f bounds;
        int mask, culled, reduced;
    } cases[] = {
        {ZtLBox3f({2, -1, -5}, {3, 1, -4}), 0x3f, 1, 0x3f},           // behind the right plane
        {ZtLBox3f({2, -1, -5}, {3, 1, -4}), 0x3d, 0, 0x0c},           // not tested; y = +-1 touched
        {ZtLBox3f({-0.5, -0.5, -5}, {0.5, 0.5, -4}), 0x3f, 0, 0x00},  // inside every plane
        {ZtLBox3f({0.5, -0.5, -5}, {1.5, 0.5, -4}), 0x3f, 0, 0x02},   // across the right plane
        {ZtLBox3f({1, -0.5, -5}, {2, 0.5, -4}), 0x3f, 0, 0x02},       // touching it from outside
    };
    for (const auto& c : cases) {
        int mask = c.mask;
        EXPECT_EQ(box.CanCull(c.bounds, &mask), c.culled);
        EXPECT_EQ(mask, c.reduced);
    }
    const ZtLBox3f b({-0.5, -0.5, -5}, {0.5, 0.5, -2});
    EXPECT_TRUE(box.MinDistance(b) == 1.0 && box.MaxDistance(b) == 4.0);
}

TEST(ZtLPickFrustum3f, TransformsCarryThePicks) {
    const ZtLPickFrustum3f eye(ZtLFrustum3f(kHalfPi, 1.5, 1, 10).NarrowedBy(0.4, 0.6, 0.4, 0.6));
    const ZtLPos3f a(-0.3, -0.2, -4), b(0.4, -0.3, -5), c(0.1, 0.4, -3);  // c is nearest

    const ZtLMatrix3f rot(ZtLRotation3f(ZtLUnitVec3f(1, -2, 0.5), 1.1));
    const ZtLAffine3f rigid(rot, ZtLVec3f(4, -2, 7));
    const ZtLMatrix3f shear(1, 0.2, 0, 0, 1.5, 0, 0.3, 0, 0.8);
    const ZtLVec3f t(1, 2, 3);
    ZtLPickFrustum3f copy = eye;
    ZtLPickFrustum3f inPlace = eye;
    inPlace.Transform(ZtLTransform3f(rigid), ZtLTransform3f(rigid).Inverse());
    auto linear = [](const ZtLMatrix3f& m) { return ZtLAffine3f(m, ZtLVec3f(0, 0, 0)); };
    ZtLMatrix3f up, mirror;
    up.MakeUniformScale(2.5);
    mirror.MakeUniformScale(-2);
    // Distances are in the moved space: kept by rigid maps, scaled by scalings.
    const struct {
        ZtLPickFrustum3f moved;
        ZtLAffine3f map;
        double distance;  // < 0: not checked
    } cases[] = {{copy.TranslatedBy(t), ZtLAffine3f(ZtLMatrix3f(), t), 2},
                 {copy.RotatedBy(rot), linear(rot), 2},
                 {copy.TransformedBy(rigid), rigid, 2},
                 {copy.TransformedBy(ZtLMatrix4f(rigid)), rigid, 2},
                 {copy.TransformedBy(ZtLTransform3f(rigid)), rigid, 2},
                 {inPlace, rigid, 2},
                 {copy.TransformedBy(shear), linear(shear), -1},
                 {copy.ScaledBy(2.5), linear(up), 5},
                 // Mirrored: what faced the eye faces away.
                 {copy.ScaledBy(-2), linear(mirror), 4}};
    for (const auto& k : cases) {
        const ZtLAffine3f& m = k.map;
        const bool mirrored = k.distance == 4;
        ZtLPickFrustumContext3f ctx(mirrored ? 0 : 1, 0x3f, kPos);
        ASSERT_EQ(k.moved.FindNearest(&ctx, a * m, b * m, c * m), 1);
        EXPECT_TRUE(Near(ctx.position, c * m, 1e-12));
        if (k.distance > 0) {
            EXPECT_NEAR(ctx.distance, k.distance, 1e-12);
        }
        EXPECT_EQ(k.moved.HasOrigin(), 1);
        EXPECT_LT(k.moved.GetCenterLine().DistanceFromLine(eye.GetOrigin() * m), 1e-12);
        EXPECT_EQ(k.moved.Intersects(a * m, c * m, b * m, 1, 0x3f), mirrored ? 1 : 0);
    }
    for (int i = 0; i < 6; ++i) EXPECT_TRUE(inPlace.GetPlane(i) == cases[4].moved.GetPlane(i));
    // Rotate maps the eye in column form, rot * origin, where the planes take origin . rot.
    const ZtLPos3f eyeAt(1, 2, 3);
    EXPECT_TRUE(Near(copy.TranslatedBy(eyeAt.Vec()).RotatedBy(rot).GetOrigin(), rot * eyeAt, 0));
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
    for (int n = 0; n < 400; ++n) {
        const ZtLFrustum3f& camera = cameras[n % 2];
        const double x0 = 0.8 * unit(gen), y0 = 0.8 * unit(gen);
        const double w = 0.02 + 0.15 * unit(gen), h = 0.02 + 0.15 * unit(gen);
        const ZtLPickFrustum3f pick(camera.NarrowedBy(x0, x0 + w, y0, y0 + h));
        ZtLPos3f v[3];
        for (ZtLPos3f& p : v) {
            p = camera.ProjectPointToDist(ZtLPos2f(unit(gen), unit(gen)), 1 + 18 * unit(gen));
        }
        ZtLPickFrustumContext3f ctx(0, 0x3f, kPos);
        const int hit = pick.FindNearest(&ctx, v[0], v[1], v[2]);

        auto violation = [&](const ZtLPos3f& p) {
            double worst = 0;
            for (int k = 0; k < 6; ++k)
                worst = std::max(worst, -pick.GetPlane(k).DistanceFromPlane(p));
            return worst;
        };
        // The least violation of the planes over the samples, and the nearest inside sample.
        double leastViolation = 1e300;
        double nearestInside = 1e300;
        for (int i = 0; i <= kSteps; ++i) {
            for (int j = 0; i + j <= kSteps; ++j) {
                const ZtLPos3f p = v[0] + (v[1] - v[0]) * (double(i) / kSteps) +
                                   (v[2] - v[0]) * (double(j) / kSteps);
                leastViolation = std::min(leastViolation, violation(p));
                if (violation(p) == 0) {
                    nearestInside = std::min(nearestInside, pick.GetPlane(4).DistanceFromPlane(p));
                }
            }
        }
        SCOPED_TRACE(n);
        if (hit) {
            ++hits;
            // Something of the triangle is inside: a sample, or a point within a grid cell.
            const double edge =
                std::max({(v[1] - v[0]).Length(), (v[2] - v[1]).Length(), (v[0] - v[2]).Length()});
            EXPECT_LT(leastViolation, 2 * edge / kSteps);
            EXPECT_LT(violation(ctx.position), 1e-9) << "the picked point is inside";
            EXPECT_LE(ctx.distance, nearestInside + 1e-9);
        } else {
            EXPECT_GT(leastViolation, 0.0) << "a sample inside the volume";
        }
    }
    EXPECT_TRUE(hits > 40 && hits < 360) << hits;
}

// The end-to-end pick: a camera, a model placed in the world, its bounds culled, the nearest of
// its triangles picked at a screen position.
TEST(ZtLPickFrustum3f, EndToEndPick) {
    const ZtLFrustum3f camera(kHalfPi, 1, 1, 100);
    // The pick volume around the screen position (0.52, 0.47), a hundredth of the screen wide;
    // its centre line is the sight line through (0.04, -0.06, -1).
    const ZtLPickFrustum3f world(camera.NarrowedBy(0.515, 0.525, 0.465, 0.475));

    // The model: two squares facing +z at z = 0 and z = -2, two triangles each, turned about z
    // and moved 10 along -z: they face the eye at depths 10 and 12.
    const ZtLPos3f v[8] = {{-1, -1, 0},  {1, -1, 0},  {1, 1, 0},  {-1, 1, 0},
                           {-1, -1, -2}, {1, -1, -2}, {1, 1, -2}, {-1, 1, -2}};
    const int tris[4][3] = {{4, 5, 6}, {4, 6, 7}, {0, 1, 2}, {0, 2, 3}};
    const ZtLRotation3f turn(ZtLUnitVec3f(0, 0, 1), 0.5);
    const ZtLTransform3f model(turn, ZtLVec3f(0, 0, -10));
    ZtLBox3f bounds;
    for (const ZtLPos3f& p : v) bounds.ExtendBy(p);

    // Into the model's space; the model lies between the near and far planes, so only the side
    // planes are left to test.
    const ZtLPickFrustum3f local = ZtLPickFrustum3f(world).TransformedBy(model.Inverse());
    int mask = 0x3f;
    ASSERT_EQ(local.CanCull(bounds, &mask), 0);
    EXPECT_EQ(mask, 0x0f);

    ZtLPickFrustumContext3f ctx(0, mask, kPos | kCL | kThrough);
    ZtLPos3f hit(0, 0, 0);
    double nearest = 1e300;
    int found = -1;
    for (int t = 0; t < 4; ++t) {
        if (local.FindNearest(&ctx, v[tris[t][0]], v[tris[t][1]], v[tris[t][2]]) &&
            ctx.distance < nearest) {
            hit = ctx.position;
            nearest = ctx.distance;
            found = t;
        }
    }
    // The front square is hit where the sight line reaches depth 10, in its first triangle.
    EXPECT_EQ(found, 2);
    EXPECT_TRUE(Near(hit * model, ZtLPos3f(0.4, -0.6, -10), 1e-12));
    EXPECT_NEAR(nearest, 9.0, 1e-12);

    // A model behind the camera is culled whole.
    const ZtLTransform3f behind(turn, ZtLVec3f(0, 0, 10));
    int all = 0x3f;
    EXPECT_EQ(ZtLPickFrustum3f(world).TransformedBy(behind.Inverse()).CanCull(bounds, &all), 1);
}
