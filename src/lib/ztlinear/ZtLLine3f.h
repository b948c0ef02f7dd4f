#ifndef ZTLINEAR_ZTLLINE3F_H
#define ZTLINEAR_ZTLLINE3F_H

#include <ztlinear/ZtLExport.h>
#include <ztlinear/ZtLVec3f.h>

#include <type_traits>

class ZtLAffine3f;
class ZtLMatrix3f;
class ZtLMatrix4f;
class ZtLPlane3f;
class ZtLTransform3f;
class ZtLRay3f;
class ZtLSegment3f;

// Straight paths in space: the infinite line ZtLLine3f, the half-line ZtLRay3f and the segment
// ZtLSegment3f. None of them allocates, posts or throws; a query that fails returns 0 or false
// and leaves its outputs untouched unless its comment says otherwise.
//
// Points are row vectors on the left (p' = p * M + t); a path is mapped by mapping its points as
// positions, so the 4x4 and general transforms include their projective divide. Each in-place
// member (Negate, Translate, Rotate, Transform) equals its copying partner assigned back.
// RotatedBy of all three, and TranslatedBy of the line and the ray, are non-const members
// although they leave the object unchanged.
//
// Plain values of six doubles; the default constructors leave them unset.

// ZtLLine3f: an infinite line, stored as a unit direction and the foot of the perpendicular from
// the origin, so the point at parameter t is point + direction * t with t a signed length.
// "Projected" below means q replaced by q - direction * (direction . q). SetNormalizedValue and
// SetValue(plane, plane) store a point that is not projected.
class ZTL_EXPORT ZtLLine3f {
public:
    ZtLLine3f() = default;
    // The line through p along d (d kept as given).
    ZtLLine3f(const ZtLPos3f& p, const ZtLUnitVec3f& d) noexcept { SetValue(p, d); }
    // The line through p0 and p1, directed from p0 to p1.
    ZtLLine3f(const ZtLPos3f& p0, const ZtLPos3f& p1) noexcept { SetValue(p0, p1); }
    explicit ZtLLine3f(const ZtLRay3f& r) noexcept { SetValue(r); }
    explicit ZtLLine3f(const ZtLSegment3f& s) noexcept { SetValue(s); }
    ZtLLine3f& operator=(const ZtLRay3f& r) noexcept {
        SetValue(r);
        return *this;
    }
    ZtLLine3f& operator=(const ZtLSegment3f& s) noexcept {
        SetValue(s);
        return *this;
    }

    void SetValue(const ZtLPos3f& p, const ZtLUnitVec3f& d) noexcept {
        m_direction = d;
        m_point = Project(p);
    }
    void SetValue(const ZtLPos3f& p0, const ZtLPos3f& p1) noexcept {
        m_direction.SetAndNormalize(p1 - p0);
        m_point = Project(p0);
    }
    inline void SetValue(const ZtLRay3f& r) noexcept;
    inline void SetValue(const ZtLSegment3f& s) noexcept;
    // Stores p and d unchanged, d taken as of unit length; p is not projected.
    void SetNormalizedValue(const ZtLPos3f& p, const ZtLVec3f& d) noexcept {
        m_point = p;
        m_direction.SetUnitValue(d);
    }
    // The line in which two planes meet, found in the coordinate plane across the dominant axis
    // of the direction, with the point in that coordinate plane (not projected). Returns 0 and
    // leaves the line unchanged when the normals' cross product is not longer than resnor.
    int SetValue(const ZtLPlane3f& a, const ZtLPlane3f& b) noexcept;

    const ZtLPos3f& GetPoint() const noexcept { return m_point; }
    const ZtLUnitVec3f& GetDirection() const noexcept { return m_direction; }

    // |point|: the distance of the line from the origin while the point is projected.
    double DistanceFromOrigin() const noexcept { return m_point.Distance(); }
    ZtLPos3f Evaluate(double t) const noexcept { return m_point + m_direction.Multiply(t); }
    double ClosestPointParameter(const ZtLPos3f& p) const noexcept {
        return m_direction.Dot(p - m_point);
    }
    ZtLPos3f ClosestPoint(const ZtLPos3f& p) const noexcept {
        return m_point + m_direction.Multiply(m_direction.Dot(p - m_point));
    }
    double DistanceFromLine(const ZtLPos3f& p) const noexcept {
        return (p - ClosestPoint(p)).Length();
    }

    // 1 unless the direction is exactly perpendicular to the normal (a line in the plane counts
    // as intersecting; a NaN gives 1).
    int Intersects(const ZtLPlane3f& pl) const noexcept;
    // The parameter where the line meets the plane; 0 (t untouched) when the denominator
    // normal . direction is exactly 0.
    int IntersectParameter(const ZtLPlane3f& pl, double* t) const noexcept;
    int Intersect(const ZtLPlane3f& pl, ZtLPos3f* p) const noexcept;

    // Parameters of the mutually closest points: point + direction * s on this line and
    // o.point + o.direction * t on o. Returns 0 (outputs untouched) only when the determinant is
    // exactly zero; there is no tolerance.
    int ClosestPointsParameters(const ZtLLine3f& o, double* s, double* t) const noexcept;
    int ClosestPoints(const ZtLLine3f& o, ZtLPos3f* p, ZtLPos3f* q) const noexcept;

    // The line against the triangle p0 p1 p2: 0 for a degenerate triangle or a line parallel to
    // it within resnor. Otherwise the meeting point is written to p, and the result is the
    // point-in-triangle test, which also writes the barycentric weights to w when not null.
    int Intersect(const ZtLPos3f& p0, const ZtLPos3f& p1, const ZtLPos3f& p2, ZtLPos3f* p,
                  ZtLVec3f* w) const noexcept;
    // The point at parameter t, always written to p, tested against the triangle p0 p1 p2 of
    // unit normal n.
    int IntersectParameter(const ZtLPos3f& p0, const ZtLPos3f& p1, const ZtLPos3f& p2,
                           const ZtLUnitVec3f& n, double t, ZtLPos3f* p,
                           ZtLVec3f* w) const noexcept;

    // Reverses the direction; the point stays.
    void Negate() noexcept { *this = Opposite(); }
    ZtLLine3f Opposite() const noexcept {
        ZtLLine3f r(*this);
        r.m_direction.Negate();
        return r;
    }
    void Translate(const ZtLVec3f& v) noexcept { *this = TranslatedBy(v); }
    ZtLLine3f TranslatedBy(const ZtLVec3f& v) noexcept {
        return ZtLLine3f(m_point + v, m_direction);
    }
    // The direction mapped as a free vector and stored without normalising (exact for
    // rotations), the point mapped and projected.
    void Rotate(const ZtLMatrix3f& m) noexcept { *this = RotatedBy(m); }
    ZtLLine3f RotatedBy(const ZtLMatrix3f& m) noexcept;
    // Maps point and point + direction as positions; the direction between the images is
    // normalised and the image of the point projected.
    void Transform(const ZtLMatrix3f& m) noexcept { *this = TransformedBy(m); }
    ZtLLine3f TransformedBy(const ZtLMatrix3f& m) const noexcept;
    void Transform(const ZtLAffine3f& a) noexcept { *this = TransformedBy(a); }
    ZtLLine3f TransformedBy(const ZtLAffine3f& a) const noexcept;
    void Transform(const ZtLMatrix4f& m) noexcept { *this = TransformedBy(m); }
    ZtLLine3f TransformedBy(const ZtLMatrix4f& m) const noexcept;
    void Transform(const ZtLTransform3f& x) noexcept { *this = TransformedBy(x); }
    ZtLLine3f TransformedBy(const ZtLTransform3f& x) const noexcept;

    // Exact comparison of the six doubles.
    bool operator==(const ZtLLine3f& o) const noexcept {
        return Same(m_point, o.m_point) && Same(m_direction, o.m_direction);
    }
    bool operator!=(const ZtLLine3f& o) const noexcept { return !(*this == o); }
    // tn >= 1 - direction . o.direction and tp^2 >= |point - o.point|^2.
    int Equals(const ZtLLine3f& o, double tn, double tp) const noexcept {
        return tn >= 1 - m_direction.Dot(o.m_direction) && m_point.Equals(o.m_point, tp);
    }

private:
    friend class ZtLRay3f;
    friend class ZtLSegment3f;
    ZtLPos3f Project(const ZtLPos3f& q) const noexcept {
        return q - m_direction.Multiply(m_direction.Dot(q.Vec()));
    }
    static bool Same(const ZtLBaseVec3f& a, const ZtLBaseVec3f& b) noexcept {
        return a[0] == b[0] && a[1] == b[1] && a[2] == b[2];
    }

    ZtLPos3f m_point;
    ZtLUnitVec3f m_direction;
};

// ZtLRay3f: a half-line from start along a unit direction; parameters below 0 lie outside it.
class ZTL_EXPORT ZtLRay3f {
public:
    ZtLRay3f() = default;
    ZtLRay3f(const ZtLPos3f& s, const ZtLUnitVec3f& d) noexcept : m_start(s), m_direction(d) {}
    // From p0 towards p1.
    ZtLRay3f(const ZtLPos3f& p0, const ZtLPos3f& p1) noexcept { SetValue(p0, p1); }

    void SetValue(const ZtLPos3f& s, const ZtLUnitVec3f& d) noexcept {
        m_start = s;
        m_direction = d;
    }
    void SetValue(const ZtLPos3f& p0, const ZtLPos3f& p1) noexcept {
        m_start = p0;
        m_direction.SetAndNormalize(p1 - p0);
    }

    const ZtLPos3f& GetStart() const noexcept { return m_start; }
    const ZtLUnitVec3f& GetDirection() const noexcept { return m_direction; }

    // Reverses the direction from the same start.
    void Negate() noexcept { *this = Opposite(); }
    ZtLRay3f Opposite() const noexcept { return ZtLRay3f(m_start, -m_direction); }
    void Translate(const ZtLVec3f& v) noexcept { *this = TranslatedBy(v); }
    ZtLRay3f TranslatedBy(const ZtLVec3f& v) noexcept { return ZtLRay3f(m_start + v, m_direction); }
    // start' = start * X; direction' = (start + direction) * X - start * X, normalised.
    void Rotate(const ZtLMatrix3f& m) noexcept { *this = RotatedBy(m); }
    ZtLRay3f RotatedBy(const ZtLMatrix3f& m) noexcept { return TransformedBy(m); }
    void Transform(const ZtLMatrix3f& m) noexcept { *this = TransformedBy(m); }
    ZtLRay3f TransformedBy(const ZtLMatrix3f& m) const noexcept;
    void Transform(const ZtLAffine3f& a) noexcept { *this = TransformedBy(a); }
    ZtLRay3f TransformedBy(const ZtLAffine3f& a) const noexcept;
    void Transform(const ZtLMatrix4f& m) noexcept { *this = TransformedBy(m); }
    ZtLRay3f TransformedBy(const ZtLMatrix4f& m) const noexcept;
    void Transform(const ZtLTransform3f& x) noexcept { *this = TransformedBy(x); }
    ZtLRay3f TransformedBy(const ZtLTransform3f& x) const noexcept;

    // false (t untouched) when normal . direction is exactly 0; otherwise t is written, also
    // when negative, and the result is t >= 0 (a NaN t counts as ahead).
    bool IntersectParameter(const ZtLPlane3f& pl, double* t) const noexcept;
    // The meeting point when it lies ahead of the start (t >= 0); else false, p untouched.
    bool Intersect(const ZtLPlane3f& pl, ZtLPos3f* p) const noexcept;

    bool operator==(const ZtLRay3f& o) const noexcept {
        return ZtLLine3f::Same(m_start, o.m_start) && ZtLLine3f::Same(m_direction, o.m_direction);
    }
    bool operator!=(const ZtLRay3f& o) const noexcept { return !(*this == o); }
    // tn >= 1 - direction . o.direction and tp^2 >= |start - o.start|^2.
    int Equals(const ZtLRay3f& o, double tn, double tp) const noexcept {
        return tn >= 1 - m_direction.Dot(o.m_direction) && m_start.Equals(o.m_start, tp);
    }

private:
    ZtLPos3f m_start;
    ZtLUnitVec3f m_direction;
};

// ZtLSegment3f: the path from start to end. No direction is stored; GetDirection normalises
// end - start on every call.
class ZTL_EXPORT ZtLSegment3f {
public:
    ZtLSegment3f() = default;
    ZtLSegment3f(const ZtLPos3f& s, const ZtLPos3f& e) noexcept : m_start(s), m_end(e) {}

    void SetValue(const ZtLPos3f& s, const ZtLPos3f& e) noexcept {
        m_start = s;
        m_end = e;
    }
    const ZtLPos3f& GetStart() const noexcept { return m_start; }
    const ZtLPos3f& GetEnd() const noexcept { return m_end; }
    // end - start normalised ((0, 0, 0) for a segment of zero length).
    ZtLUnitVec3f GetDirection() const noexcept { return ZtLUnitVec3f(m_end - m_start); }

    // The signed length from start to the foot of p: not a fraction, and not clamped to the
    // segment.
    double ClosestPointParameter(const ZtLPos3f& p) const noexcept {
        return GetDirection().Dot(p - m_start);
    }
    // The meeting point with the plane when it lies on the segment, both ends included. A
    // segment parallel to the plane (exactly) gives false, also when it lies in the plane.
    bool Intersect(const ZtLPlane3f& pl, ZtLPos3f* p) const noexcept;

    // Exchanges start and end.
    void Negate() noexcept { *this = Opposite(); }
    ZtLSegment3f Opposite() const noexcept { return ZtLSegment3f(m_end, m_start); }
    void Translate(const ZtLVec3f& v) noexcept { *this = TranslatedBy(v); }
    ZtLSegment3f TranslatedBy(const ZtLVec3f& v) const noexcept {
        return ZtLSegment3f(m_start + v, m_end + v);
    }
    // Both ends mapped as positions.
    void Rotate(const ZtLMatrix3f& m) noexcept { *this = RotatedBy(m); }
    ZtLSegment3f RotatedBy(const ZtLMatrix3f& m) noexcept { return TransformedBy(m); }
    void Transform(const ZtLMatrix3f& m) noexcept { *this = TransformedBy(m); }
    ZtLSegment3f TransformedBy(const ZtLMatrix3f& m) const noexcept;
    void Transform(const ZtLAffine3f& a) noexcept { *this = TransformedBy(a); }
    ZtLSegment3f TransformedBy(const ZtLAffine3f& a) const noexcept;
    void Transform(const ZtLMatrix4f& m) noexcept { *this = TransformedBy(m); }
    ZtLSegment3f TransformedBy(const ZtLMatrix4f& m) const noexcept;
    void Transform(const ZtLTransform3f& x) noexcept { *this = TransformedBy(x); }
    ZtLSegment3f TransformedBy(const ZtLTransform3f& x) const noexcept;

    bool operator==(const ZtLSegment3f& o) const noexcept {
        return ZtLLine3f::Same(m_start, o.m_start) && ZtLLine3f::Same(m_end, o.m_end);
    }
    bool operator!=(const ZtLSegment3f& o) const noexcept { return !(*this == o); }
    // te^2 >= |end - o.end|^2 and ts^2 >= |start - o.start|^2: the first tolerance is the ends'.
    int Equals(const ZtLSegment3f& o, double te, double ts) const noexcept {
        return m_end.Equals(o.m_end, te) && m_start.Equals(o.m_start, ts);
    }

private:
    ZtLPos3f m_start;
    ZtLPos3f m_end;
};

inline void ZtLLine3f::SetValue(const ZtLRay3f& r) noexcept {
    SetValue(r.GetStart(), r.GetDirection());
}
inline void ZtLLine3f::SetValue(const ZtLSegment3f& s) noexcept {
    SetValue(s.GetStart(), s.GetEnd());
}

static_assert(std::is_trivially_copyable<ZtLLine3f>::value &&
                  std::is_trivially_copyable<ZtLRay3f>::value &&
                  std::is_trivially_copyable<ZtLSegment3f>::value &&
                  sizeof(ZtLLine3f) == 6 * sizeof(double) &&
                  sizeof(ZtLRay3f) == 6 * sizeof(double) &&
                  sizeof(ZtLSegment3f) == 6 * sizeof(double),
              "paths are plain values of six doubles");

#endif
