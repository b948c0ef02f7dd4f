// Fuzzes the geometric primitives and picking with raw doubles (NaN, infinities, denormals and
// huge values included): the box, plane, line, ray, segment and frustum transforms, plane and
// line intersections, every FindNearest form with arbitrary option bits, plane masks and plane
// sets (counts within 0..6), Intersects, CanCull and the box distances, and Newell's method.
//
// Input: one selector byte, then the raw operands. Checked: no crash, hang or undefined
// behaviour (the triangle clipper's fixed storage above all); queries answer 0 or 1; a query that
// misses or fails leaves its outputs untouched.

#include "ZtFuzzInput.h"
#include "ZtFuzzValues.h"

#include <ztlinear/ZtLAffine2f.h>
#include <ztlinear/ZtLAffine3f.h>
#include <ztlinear/ZtLBox2f.h>
#include <ztlinear/ZtLBox3f.h>
#include <ztlinear/ZtLFrustum3f.h>
#include <ztlinear/ZtLLine3f.h>
#include <ztlinear/ZtLMatrix2f.h>
#include <ztlinear/ZtLNewellMethod2f.h>
#include <ztlinear/ZtLNewellMethod3f.h>
#include <ztlinear/ZtLPickFrustum3f.h>
#include <ztlinear/ZtLPlane2f.h>
#include <ztlinear/ZtLPlane3f.h>

namespace {

ZtLBox3f Box3(ZtFuzzInput& in) {
    const ZtLPos3f a = ZtFuzzPos3(in);
    return ZtLBox3f(a, ZtFuzzPos3(in));
}

ZtLPlane3f Plane3(ZtFuzzInput& in) {
    const ZtLUnitVec3f n = ZtFuzzRawUnit3(in);
    return ZtLPlane3f(n, in.Double());
}

ZtLMatrix2f Mat2(ZtFuzzInput& in) {
    double v[4];
    in.Doubles(v, 4);
    return ZtLMatrix2f(v);
}

ZtLAffine3f Affine3(ZtFuzzInput& in) {
    const ZtLMatrix3f m = ZtFuzzMat3(in);
    return ZtLAffine3f(m, ZtFuzzVec3(in));
}

void Boxes(ZtFuzzInput& in) {
    const ZtLBox3f box = Box3(in);
    (void)box.TransformedBy(ZtFuzzMat3(in));
    (void)box.TransformedBy(Affine3(in));
    (void)box.TransformedBy(ZtFuzzMat4(in));
    (void)box.TransformedBy(ZtFuzzTransform(in));
    const ZtLBox3f other = Box3(in);
    (void)box.Intersection(other);
    (void)box.Union(other).Union(ZtFuzzPos3(in));
    ZtLPos3f corners[8];
    box.GetCorners(corners);

    double v[4];
    in.Doubles(v, 4);
    const ZtLBox2f box2(ZtLPos2f(v[0], v[1]), ZtLPos2f(v[2], v[3]));
    const ZtLMatrix2f m2 = Mat2(in);
    (void)box2.TransformedBy(m2);
    (void)box2.TransformedBy(ZtLAffine2f(m2, ZtLVec2f(in.Double(), in.Double())));
}

void Planes(ZtFuzzInput& in) {
    const ZtLPlane3f p = Plane3(in);
    (void)p.TransformedBy(ZtFuzzMat3(in));
    (void)p.TransformedByInverse(ZtFuzzMat3(in));
    const ZtLAffine3f a = Affine3(in);
    (void)p.TransformedBy(a);
    (void)p.TransformedByInverse(a);
    const ZtLMatrix4f m = ZtFuzzMat4(in);
    (void)p.TransformedBy(m);
    (void)p.TransformedByInverse(m);
    const ZtLTransform3f x = ZtFuzzTransform(in);
    (void)p.TransformedBy(x);
    (void)p.TransformedByInverse(x);

    const ZtLPlane3f q = Plane3(in);
    ZtLLine3f line;
    ZtFuzzPoison(&line);
    const ZtLLine3f before = line;
    if (!p.Intersect(q, &line)) ZT_FUZZ_CHECK(ZtFuzzSameBits(line, before));
    ZtLLine3f line2;
    ZtFuzzPoison(&line2);
    if (!line2.SetValue(p, q)) ZT_FUZZ_CHECK(ZtFuzzSameBits(line2, before));
    const ZtLPos3f p0 = ZtFuzzPos3(in), p1 = ZtFuzzPos3(in), p2 = ZtFuzzPos3(in);
    ZtLPlane3f three;
    ZtFuzzPoison(&three);
    const ZtLPlane3f threeBefore = three;
    if (!three.SetValue(p0, p1, p2)) ZT_FUZZ_CHECK(ZtFuzzSameBits(three, threeBefore));
    ZtLVec3f w;
    (void)ZtLPlane3f::IsPointInTriangle(ZtFuzzPos3(in), p0, p1, p2, &w);
    (void)ZtLPlane3f::IsPointInTriangle(ZtFuzzPos3(in), p.GetNormal(), p0, p1, p2, &w);
    const ZtLBox3f box = Box3(in);
    (void)p.MinDistanceFromPlane(box);
    (void)p.MaxDistanceFromPlane(box);

    const ZtLPlane2f p2d(ZtLUnitVec2f(in.Double(), in.Double()), in.Double());
    const ZtLMatrix2f m2 = Mat2(in);
    (void)p2d.TransformedBy(m2);
    (void)p2d.TransformedByInverse(m2);
    const ZtLAffine2f a2(m2, ZtLVec2f(in.Double(), in.Double()));
    (void)p2d.TransformedBy(a2);
    (void)p2d.TransformedByInverse(a2);
}

void Lines(ZtFuzzInput& in) {
    const ZtLPos3f s = ZtFuzzPos3(in), e = ZtFuzzPos3(in);
    const ZtLLine3f line(s, e);
    const ZtLRay3f ray(s, ZtFuzzRawUnit3(in));
    const ZtLSegment3f segment(s, e);
    const ZtLMatrix3f m3 = ZtFuzzMat3(in);
    const ZtLAffine3f a = Affine3(in);
    const ZtLMatrix4f m4 = ZtFuzzMat4(in);
    const ZtLTransform3f x = ZtFuzzTransform(in);
    (void)line.TransformedBy(m3);
    (void)line.TransformedBy(a);
    (void)line.TransformedBy(m4);
    (void)line.TransformedBy(x);
    (void)ray.TransformedBy(m3);
    (void)ray.TransformedBy(a);
    (void)ray.TransformedBy(m4);
    (void)ray.TransformedBy(x);
    (void)segment.TransformedBy(m3);
    (void)segment.TransformedBy(a);
    (void)segment.TransformedBy(m4);
    (void)segment.TransformedBy(x);

    const ZtLPlane3f plane = Plane3(in);
    const ZtLLine3f other(ZtFuzzPos3(in), ZtFuzzRawUnit3(in));
    ZtLPos3f p, q, poison;
    ZtFuzzPoison(&p);
    ZtFuzzPoison(&q);
    ZtFuzzPoison(&poison);
    double t = 0.0;
    (void)line.IntersectParameter(plane, &t);
    if (!line.Intersect(plane, &p)) ZT_FUZZ_CHECK(ZtFuzzSameBits(p, poison));
    ZtFuzzPoison(&p);
    if (!line.ClosestPoints(other, &p, &q)) {
        ZT_FUZZ_CHECK(ZtFuzzSameBits(p, poison));
        ZT_FUZZ_CHECK(ZtFuzzSameBits(q, poison));
    }
    ZtFuzzPoison(&p);
    if (!segment.Intersect(plane, &p)) ZT_FUZZ_CHECK(ZtFuzzSameBits(p, poison));
    ZtFuzzPoison(&p);
    if (!ray.Intersect(plane, &p)) ZT_FUZZ_CHECK(ZtFuzzSameBits(p, poison));
    (void)ray.IntersectParameter(plane, &t);
    (void)line.DistanceFromLine(ZtFuzzPos3(in));
}

ZtLFrustum3f Frustum(ZtFuzzInput& in) {
    const std::uint8_t kind = in.Byte();
    double v[6];
    in.Doubles(v, 6);
    ZtLFrustum3f f;
    if (kind & 2) {
        f.MakePerspective(v[0], v[1], v[2], v[3]);
    } else {
        const auto type = (kind & 1) ? ZtLFrustum3f::Orthographic : ZtLFrustum3f::Perspective;
        f.SetValue(type, v[0], v[1], v[2], v[3], v[4], v[5]);
    }
    if (kind & 4) f.Narrow(in.Double(), in.Double(), in.Double(), in.Double());
    return f;
}

void Frustums(ZtFuzzInput& in) {
    const ZtLFrustum3f f = Frustum(in);
    ZtLPlane3f planes[6];
    f.GetPlanes(planes);
    ZtLPos3f corners[8];
    f.GetCorners(corners);
    (void)f.GetDepth();
    (void)f.IsReflected();
    (void)f.ContainsPoint(ZtFuzzPos3(in));
    const ZtLPos2f screen(in.Double(), in.Double());
    const double dist = in.Double();
    (void)f.ProjectPointToLine(screen);
    (void)f.ProjectClipPointToLine(screen);
    (void)f.ProjectPointToDist(screen, dist);
    (void)f.ProjectClipPointToDist(screen, dist);
    (void)f.GetDistPlane(dist);
    ZtLMatrix4f m, inverse;
    f.GetMatrixAndInverse(&m, &inverse);
    ZtLAffine3f view;
    f.GetMatrices(&view, &m);
    (void)f.RotatedBy(ZtFuzzMat3(in));
    (void)f.TransformedBy(ZtFuzzMat3(in));
    (void)f.TransformedBy(Affine3(in));
    (void)f.TransformedBy(ZtFuzzTransform(in)).GetMatrix();
}

void Pick(ZtFuzzInput& in) {
    const std::uint8_t how = in.Byte();
    ZtLPickFrustum3f pick;
    if (how & 1) {
        pick = ZtLPickFrustum3f(Frustum(in));
    } else {
        ZtLPlane3f planes[6];
        const int count = in.Byte() % 7;
        for (int i = 0; i < count; ++i) planes[i] = Plane3(in);
        pick = ZtLPickFrustum3f(planes, count);
    }
    switch ((how >> 1) & 7) {
        case 1:
            pick.Transform(ZtFuzzTransform(in));
            break;
        case 2: {
            const ZtLTransform3f x = ZtFuzzTransform(in);
            pick.Transform(x, x.Inverse());
            break;
        }
        case 3:
            pick.Transform(ZtFuzzMat4(in));
            break;
        case 4:
            pick.Transform(Affine3(in));
            break;
        case 5:
            pick.Rotate(ZtFuzzMat3(in));
            break;
        case 6:
            pick.Scale(in.Double());
            break;
        case 7:
            pick.Translate(ZtFuzzVec3(in));
            break;
        default:
            break;
    }

    ZtLPickFrustumContext3f context(in.Int32(), in.Int32(), in.Int32());
    context.nearLimit = in.Double();
    const ZtLPos3f a = ZtFuzzPos3(in), b = ZtFuzzPos3(in), c = ZtFuzzPos3(in);
    for (int form = 0; form < 3; ++form) {
        ZtFuzzPoison(&context.position);
        ZtFuzzPoison(&context.distance);
        const ZtLPickFrustumContext3f before = context;
        const int hit = form == 0   ? pick.FindNearest(&context, a)
                        : form == 1 ? pick.FindNearest(&context, a, b)
                                    : pick.FindNearest(&context, a, b, c);
        ZT_FUZZ_CHECK(hit == 0 || hit == 1);
        if (!hit) {
            ZT_FUZZ_CHECK(ZtFuzzSameBits(context.position, before.position));
            ZT_FUZZ_CHECK(ZtFuzzSameBits(context.distance, before.distance));
        }
    }
    ZtLPos3f position, positionBefore;
    double distance, distanceBefore;
    ZtFuzzPoison(&position);
    ZtFuzzPoison(&distance);
    positionBefore = position;
    distanceBefore = distance;
    const int hit =
        pick.FindNearest(a, b, c, context.cullBackFaces, context.planeMask,
                         (how & 0x10) ? &position : nullptr, (how & 0x20) ? &distance : nullptr);
    ZT_FUZZ_CHECK(hit == 0 || hit == 1);
    if (!hit || !(how & 0x10)) ZT_FUZZ_CHECK(ZtFuzzSameBits(position, positionBefore));
    if (!hit || !(how & 0x20)) ZT_FUZZ_CHECK(ZtFuzzSameBits(distance, distanceBefore));
    const int crossing = pick.Intersects(a, b, c, context.cullBackFaces, context.planeMask);
    ZT_FUZZ_CHECK(crossing == 0 || crossing == 1);

    const ZtLBox3f box = Box3(in);
    int mask = context.planeMask;
    const int culled = pick.CanCull(box, &mask);
    ZT_FUZZ_CHECK(culled == 0 || culled == 1);
    if (culled) ZT_FUZZ_CHECK(mask == context.planeMask);
    ZT_FUZZ_CHECK((mask & ~context.planeMask) == 0);
    (void)pick.MinDistance(box);
    (void)pick.MaxDistance(box);
    (void)pick.Classify(a, context.options);
    (void)pick.GetRay();
}

void Newell(ZtFuzzInput& in) {
    ZtLNewellMethod3f n3;
    ZtLNewellMethod2f n2;
    const int count = in.Byte() % 16;
    for (int i = 0; i < count; ++i) {
        const ZtLPos3f p = ZtFuzzPos3(in);
        n3.AddPoint(p);
        n2.AddPoint(ZtLPos2f(p[0], p[1]));
    }
    (void)n3.ComputeArea();
    (void)n2.ComputeArea();
}

using Op = void (*)(ZtFuzzInput&);
const Op kOps[] = {&Boxes, &Planes, &Lines, &Frustums, &Pick, &Newell};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ZtFuzzQuietErrors();
    ZtFuzzInput in(data, size);
    kOps[in.Byte() % (sizeof kOps / sizeof kOps[0])](in);
    return 0;
}
