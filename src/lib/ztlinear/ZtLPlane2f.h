#ifndef ZTLINEAR_ZTLPLANE2F_H
#define ZTLINEAR_ZTLPLANE2F_H

#include <ztlinear/ZtLExport.h>
#include <ztlinear/ZtLVec2f.h>

#include <cmath>
#include <type_traits>

class ZtLAffine2f;
class ZtLBox2f;
class ZtLMatrix2f;

// ZtLPlane2f: an oriented line in the plane bounding a half-plane, the points p with
// normal . p = distance; the planar counterpart of ZtLPlane3f with the same rules. The unit
// normal points to the positive side and normal . p - distance is the signed distance of p.
// Nothing re-normalises a normal the caller puts in.
//
// Points are row vectors on the left (p' = p * M + t). A line follows the points it contains:
// TransformedByInverse(X) maps the line equation by X without inverting it, and TransformedBy(X)
// applies that to the inverse of X. Each in-place member equals its copying partner assigned
// back. RotatedBy is a non-const member although it leaves the line unchanged.
//
// A plain value of three doubles; the default constructor leaves them unset.
class ZTL_EXPORT ZtLPlane2f {
public:
    ZtLPlane2f() = default;
    ZtLPlane2f(const ZtLUnitVec2f& n, double d) noexcept : m_normal(n), m_distance(d) {}
    // The line with normal n through p.
    ZtLPlane2f(const ZtLUnitVec2f& n, const ZtLPos2f& p) noexcept
        : m_normal(n), m_distance(n.Dot(p.Vec())) {}

    const ZtLUnitVec2f& GetNormal() const noexcept { return m_normal; }
    double GetDistance() const noexcept { return m_distance; }
    ZtLUnitVec2f& EditNormal() noexcept { return m_normal; }
    void SetNormal(const ZtLUnitVec2f& n) noexcept { m_normal = n; }
    void SetDistance(double d) noexcept { m_distance = d; }
    void SetValue(const ZtLPlane2f& p) noexcept { *this = p; }
    void SetValue(const ZtLUnitVec2f& n, double d) noexcept { *this = ZtLPlane2f(n, d); }
    void SetValue(const ZtLUnitVec2f& n, const ZtLPos2f& p) noexcept { *this = ZtLPlane2f(n, p); }

    // normal . p - distance.
    double DistanceFromPlane(const ZtLPos2f& p) const noexcept {
        return m_normal.Dot(p.Vec()) - m_distance;
    }
    // On the line or in front of it (no tolerance).
    int IsInHalfspace(const ZtLPos2f& p) const noexcept { return DistanceFromPlane(p) >= 0.0; }
    // The foot of p on the line.
    ZtLPos2f ClosestPoint(const ZtLPos2f& p) const noexcept {
        return p - m_normal.Vec() * DistanceFromPlane(p);
    }
    // The largest and smallest signed distance of a corner of the box.
    double MaxDistanceFromPlane(const ZtLBox2f& b) const noexcept;
    double MinDistanceFromPlane(const ZtLBox2f& b) const noexcept;

    void Negate() noexcept { *this = Opposite(); }
    ZtLPlane2f Opposite() const noexcept { return ZtLPlane2f(-m_normal, -m_distance); }
    // Moves the line by d along its normal.
    void Offset(double d) noexcept { m_distance += d; }
    void Translate(const ZtLVec2f& v) noexcept { *this = TranslatedBy(v); }
    ZtLPlane2f TranslatedBy(const ZtLVec2f& v) const noexcept {
        return ZtLPlane2f(m_normal, m_distance + m_normal.Dot(v));
    }
    // The line through the image of its nearest point to the origin, with the normal mapped as
    // a row vector and normalised.
    void Rotate(const ZtLMatrix2f& m) noexcept { *this = RotatedBy(m); }
    ZtLPlane2f RotatedBy(const ZtLMatrix2f& m) noexcept;
    void Transform(const ZtLMatrix2f& m) noexcept { *this = TransformedBy(m); }
    ZtLPlane2f TransformedBy(const ZtLMatrix2f& m) const noexcept;
    void InverseTransform(const ZtLMatrix2f& m) noexcept { *this = TransformedByInverse(m); }
    // The normal becomes M * normal (a column vector) rescaled to unit length, the distance
    // rescaled alike.
    ZtLPlane2f TransformedByInverse(const ZtLMatrix2f& m) const noexcept;
    void Transform(const ZtLAffine2f& a) noexcept { *this = TransformedBy(a); }
    ZtLPlane2f TransformedBy(const ZtLAffine2f& a) const noexcept;
    void InverseTransform(const ZtLAffine2f& a) noexcept { *this = TransformedByInverse(a); }
    // The normal becomes L * normal and the distance distance - normal . t, both rescaled.
    ZtLPlane2f TransformedByInverse(const ZtLAffine2f& a) const noexcept;

    // Exact comparison of x, y and distance.
    int operator==(const ZtLPlane2f& p) const noexcept {
        return m_normal[0] == p.m_normal[0] && m_normal[1] == p.m_normal[1] &&
               m_distance == p.m_distance;
    }
    int operator!=(const ZtLPlane2f& p) const noexcept { return !(*this == p); }
    // tn >= 1 - normal . p.normal (inclusive) and |distance - p.distance| < td (strict).
    int Equals(const ZtLPlane2f& p, double tn, double td) const noexcept {
        return tn >= 1 - m_normal.Dot(p.m_normal.Vec()) &&
               std::fabs(m_distance - p.m_distance) < td;
    }

private:
    ZtLUnitVec2f m_normal;
    double m_distance;
};

static_assert(std::is_trivially_copyable<ZtLPlane2f>::value &&
                  sizeof(ZtLPlane2f) == 3 * sizeof(double),
              "a plane is a plain value of three doubles");

#endif
