#include <ztlinear/ZtLIntersect.h>
#include <ztlinear/ZtLLine3f.h>
#include <ztlinear/ZtLPlane3f.h>

int ZtLIntersect::Contains(const ZtLPlane3f& pl, const ZtLPos3f& p) noexcept {
    return pl.GetNormal().Dot(p.Vec()) - pl.GetDistance() >= 0.0;
}

int ZtLIntersect::ContainsTol(const ZtLPlane3f& pl, const ZtLPos3f& p, double tol) noexcept {
    return pl.GetNormal().Dot(p.Vec()) - pl.GetDistance() >= -tol;
}

int ZtLIntersect::Intersects(const ZtLLine3f& l, const ZtLPlane3f& pl) noexcept {
    return l.Intersects(pl);
}

int ZtLIntersect::Intersects(const ZtLPlane3f& pl, const ZtLLine3f& l) noexcept {
    return l.Intersects(pl);
}

int ZtLIntersect::Intersect(const ZtLLine3f& l, const ZtLPlane3f& pl, ZtLPos3f* p) noexcept {
    return l.Intersect(pl, p);
}

int ZtLIntersect::Intersect(const ZtLPlane3f& pl, const ZtLLine3f& l, ZtLPos3f* p) noexcept {
    return l.Intersect(pl, p);
}

unsigned int ZtLIntersect::ClassifyTol(const ZtLPos3f& p, const ZtLPlane3f& pl,
                                       double tol) noexcept {
    const double s = pl.GetNormal().Dot(p.Vec()) - pl.GetDistance();
    if (-tol > s) return kSeparate;
    if (s > tol) return kInFront;
    return kOnPlane;
}

unsigned int ZtLIntersect::ClassifyTol(const ZtLLine3f& a, const ZtLLine3f& b, double t1,
                                       double t2) noexcept {
    ZtLPos3f p;
    return ClassifyTol(a, b, &p, t1, t2);
}

unsigned int ZtLIntersect::ClassifyTol(const ZtLLine3f& a, const ZtLLine3f& b, ZtLPos3f* p,
                                       double t1, double t2) noexcept {
    if (a.Equals(b, t1, t2)) return kEqual;
    ZtLPos3f pa;
    ZtLPos3f pb;
    if (!a.ClosestPoints(b, &pa, &pb)) return kSeparate;
    if (!(t1 * t1 > pa.DistanceTo2(pb))) return kSeparate;
    *p = pa + (pb - pa) * 0.5;
    return kCrossing;
}

int ZtLIntersect::IntersectsTol(const ZtLLine3f& a, const ZtLLine3f& b, double tol) noexcept {
    ZtLPos3f p;
    return IntersectTol(a, b, &p, tol);
}

int ZtLIntersect::IntersectTol(const ZtLLine3f& a, const ZtLLine3f& b, ZtLPos3f* p,
                               double tol) noexcept {
    ZtLPos3f pa;
    ZtLPos3f pb;
    if (!a.ClosestPoints(b, &pa, &pb)) return 0;
    if (!(tol * tol > pa.DistanceTo2(pb))) return 0;
    *p = pa + (pb - pa) * 0.5;
    return 1;
}
