#include <ztlinear/ZtLAffine3f.h>
#include <ztlinear/ZtLLine3f.h>
#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLMatrix4f.h>
#include <ztlinear/ZtLPlane3f.h>
#include <ztlinear/ZtLTransform3f.h>

#include <cmath>

namespace {

// The line through the images of point and point + direction, both mapped as positions.
template <class X>
ZtLLine3f MapLine(const ZtLPos3f& point, const ZtLUnitVec3f& direction, const X& x) noexcept {
    const ZtLPos3f q0 = point * x;
    const ZtLPos3f q1 = (point + direction.Vec()) * x;
    ZtLUnitVec3f d;
    d.SetAndNormalize(q1 - q0);
    return ZtLLine3f(q0, d);
}

template <class X>
ZtLRay3f MapRay(const ZtLPos3f& start, const ZtLUnitVec3f& direction, const X& x) noexcept {
    const ZtLPos3f q0 = start * x;
    const ZtLPos3f q1 = (start + direction.Vec()) * x;
    ZtLUnitVec3f d;
    d.SetAndNormalize(q1 - q0);
    return ZtLRay3f(q0, d);
}

}  // namespace

int ZtLLine3f::SetValue(const ZtLPlane3f& a, const ZtLPlane3f& b) noexcept {
    const ZtLUnitVec3f& na = a.GetNormal();
    const ZtLUnitVec3f& nb = b.GetNormal();
    const ZtLVec3f u = na.Cross(nb);
    const double length = u.Length();
    if (ZtLVec::m_resnor >= length) return 0;
    // Solve in the coordinate plane across the dominant axis i0 of the direction.
    const double ux = std::fabs(u[0]);
    const double uy = std::fabs(u[1]);
    const double uz = std::fabs(u[2]);
    const int i0 = (ux >= uy && ux >= uz) ? 0 : (uy >= ux && uy >= uz) ? 1 : 2;
    const int i1 = (i0 + 1) % 3;
    const int i2 = (i0 + 2) % 3;
    const double ea = -a.GetDistance();
    const double eb = -b.GetDistance();
    m_point.Set(i1, (na[i2] * eb - nb[i2] * ea) / u[i0]);
    m_point.Set(i2, (nb[i1] * ea - na[i1] * eb) / u[i0]);
    m_point.Set(i0, 0.0);
    m_direction.SetUnitValue(u.Multiply(1 / length));
    return 1;
}

int ZtLLine3f::Intersects(const ZtLPlane3f& pl) const noexcept {
    return !(m_direction.Dot(pl.GetNormal()) == 0.0);
}

int ZtLLine3f::IntersectParameter(const ZtLPlane3f& pl, double* t) const noexcept {
    const double den = pl.GetNormal().Dot(m_direction);
    if (den == 0.0) return 0;
    *t = (pl.GetDistance() - pl.GetNormal().Dot(m_point.Vec())) / den;
    return 1;
}

int ZtLLine3f::Intersect(const ZtLPlane3f& pl, ZtLPos3f* p) const noexcept {
    double t;
    if (!IntersectParameter(pl, &t)) return 0;
    *p = Evaluate(t);
    return 1;
}

int ZtLLine3f::ClosestPointsParameters(const ZtLLine3f& o, double* s, double* t) const noexcept {
    const ZtLVec3f& d = m_direction;
    const ZtLVec3f& e = o.m_direction;
    const ZtLVec3f& p = m_point.Vec();
    const ZtLVec3f& q = o.m_point.Vec();
    const double a = d.Dot(d);
    const double b = e.Dot(d);
    const double c = e.Dot(e);
    const double dw = d.Dot(p) - d.Dot(q);
    const double ew = e.Dot(p) - e.Dot(q);
    const double den = c * a - b * b;
    if (den == 0.0) return 0;
    *s = (b * ew - c * dw) / den;
    *t = (a * ew - b * dw) / den;
    return 1;
}

int ZtLLine3f::ClosestPoints(const ZtLLine3f& o, ZtLPos3f* p, ZtLPos3f* q) const noexcept {
    double s;
    double t;
    if (!ClosestPointsParameters(o, &s, &t)) return 0;
    *p = m_point + m_direction.Multiply(s);
    *q = o.m_point + o.m_direction.Multiply(t);
    return 1;
}

int ZtLLine3f::Intersect(const ZtLPos3f& p0, const ZtLPos3f& p1, const ZtLPos3f& p2, ZtLPos3f* p,
                         ZtLVec3f* w) const noexcept {
    ZtLVec3f c = (p1 - p0).Cross(p2 - p0);
    if (c.Normalize() < ZtLVec::m_resop) return 0;
    const double den = m_direction.Dot(c);
    if (-ZtLVec::m_resnor < den && den < ZtLVec::m_resnor) return 0;
    const double t = (p0 - m_point).Dot(c) / den;
    *p = m_point + m_direction.Multiply(t);
    ZtLUnitVec3f n;
    n.SetUnitValue(c);
    return ZtLPlane3f::IsPointInTriangle(*p, n, p0, p1, p2, w);
}

int ZtLLine3f::IntersectParameter(const ZtLPos3f& p0, const ZtLPos3f& p1, const ZtLPos3f& p2,
                                  const ZtLUnitVec3f& n, double t, ZtLPos3f* p,
                                  ZtLVec3f* w) const noexcept {
    *p = m_point + m_direction.Multiply(t);
    return ZtLPlane3f::IsPointInTriangle(*p, n, p0, p1, p2, w);
}

ZtLLine3f ZtLLine3f::RotatedBy(const ZtLMatrix3f& m) noexcept {
    ZtLLine3f r;
    r.m_direction.SetUnitValue(m_direction.Vec() * m);
    r.m_point = r.Project(m_point * m);
    return r;
}

ZtLLine3f ZtLLine3f::TransformedBy(const ZtLMatrix3f& m) const noexcept {
    return MapLine(m_point, m_direction, m);
}

ZtLRay3f ZtLRay3f::TransformedBy(const ZtLMatrix3f& m) const noexcept {
    return MapRay(m_start, m_direction, m);
}

bool ZtLRay3f::IntersectParameter(const ZtLPlane3f& pl, double* t) const noexcept {
    const double den = pl.GetNormal().Dot(m_direction);
    if (den == 0.0) return false;
    *t = (pl.GetDistance() - pl.GetNormal().Dot(m_start.Vec())) / den;
    return !(*t < 0);
}

bool ZtLRay3f::Intersect(const ZtLPlane3f& pl, ZtLPos3f* p) const noexcept {
    double t;
    if (!IntersectParameter(pl, &t)) return false;
    *p = m_start + m_direction.Multiply(t);
    return true;
}

bool ZtLSegment3f::Intersect(const ZtLPlane3f& pl, ZtLPos3f* p) const noexcept {
    const ZtLVec3f e = m_end - m_start;
    const double den = pl.GetNormal().Dot(e);
    if (den == 0.0) return false;
    const double t = (pl.GetDistance() - pl.GetNormal().Dot(m_start.Vec())) / den;
    if (t < 0 || t > 1) return false;
    *p = m_start + e * t;
    return true;
}

ZtLSegment3f ZtLSegment3f::TransformedBy(const ZtLMatrix3f& m) const noexcept {
    return ZtLSegment3f(m_start * m, m_end * m);
}

ZtLLine3f ZtLLine3f::TransformedBy(const ZtLAffine3f& a) const noexcept {
    return MapLine(m_point, m_direction, a);
}
ZtLRay3f ZtLRay3f::TransformedBy(const ZtLAffine3f& a) const noexcept {
    return MapRay(m_start, m_direction, a);
}
ZtLSegment3f ZtLSegment3f::TransformedBy(const ZtLAffine3f& a) const noexcept {
    return ZtLSegment3f(m_start * a, m_end * a);
}

ZtLLine3f ZtLLine3f::TransformedBy(const ZtLMatrix4f& m) const noexcept {
    return MapLine(m_point, m_direction, m);
}
ZtLRay3f ZtLRay3f::TransformedBy(const ZtLMatrix4f& m) const noexcept {
    return MapRay(m_start, m_direction, m);
}
ZtLSegment3f ZtLSegment3f::TransformedBy(const ZtLMatrix4f& m) const noexcept {
    return ZtLSegment3f(m_start * m, m_end * m);
}

ZtLLine3f ZtLLine3f::TransformedBy(const ZtLTransform3f& x) const noexcept {
    return MapLine(m_point, m_direction, x);
}
ZtLRay3f ZtLRay3f::TransformedBy(const ZtLTransform3f& x) const noexcept {
    return MapRay(m_start, m_direction, x);
}
ZtLSegment3f ZtLSegment3f::TransformedBy(const ZtLTransform3f& x) const noexcept {
    return ZtLSegment3f(m_start * x, m_end * x);
}
