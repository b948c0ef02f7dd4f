#ifndef ZTLINEAR_ZTLPLANE3F_H
#define ZTLINEAR_ZTLPLANE3F_H

#include <ztlinear/ZtLExport.h>
#include <ztlinear/ZtLVec3f.h>

#include <type_traits>

class ZtLAffine3f;
class ZtLBox3f;
class ZtLLine3f;
class ZtLMatrix3f;
class ZtLMatrix4f;
class ZtLTransform3f;
class ZtUXMLDOMStream;

// ZtLPlane3f: an oriented plane, the points p with normal . p = distance. The unit normal points
// to the positive side; the signed distance of a point, normal . p - distance, is positive in
// front, negative behind and a true Euclidean distance. normal * distance is the point of the
// plane nearest the origin.
//
// Nothing re-normalises a normal put in through the (normal, distance) constructor, SetNormal or
// EditNormal: keeping it of unit length is the caller's duty.
//
// Transforms: a plane follows the points it contains. Points are row vectors on the left
// (p' = p * M + t). TransformedByInverse(X) is the core operation and never inverts X (it maps
// the plane equation by X itself); TransformedBy(X) applies it to the inverse of X, so a
// singular X is reported by that inverse. Each in-place member (Negate, Translate, Rotate,
// Transform, InverseTransform) equals its copying partner assigned back. RotatedBy is a
// non-const member although it leaves the plane unchanged.
//
// A plain value of four doubles; the default constructor leaves them unset.
class ZTL_EXPORT ZtLPlane3f {
public:
    ZtLPlane3f() = default;
    ZtLPlane3f(const ZtLUnitVec3f& n, double d) noexcept : m_normal(n), m_distance(d) {}
    // The plane with normal n through p.
    ZtLPlane3f(const ZtLUnitVec3f& n, const ZtLPos3f& p) noexcept
        : m_normal(n), m_distance(n.Dot(p.Vec())) {}

    const ZtLUnitVec3f& GetNormal() const noexcept { return m_normal; }
    double GetDistance() const noexcept { return m_distance; }
    ZtLUnitVec3f& EditNormal() noexcept { return m_normal; }
    // Replaces the normal only; the distance is kept.
    void SetNormal(const ZtLUnitVec3f& n) noexcept { m_normal = n; }
    void SetDistance(double d) noexcept { m_distance = d; }
    void SetValue(const ZtLPlane3f& p) noexcept { *this = p; }
    void SetValue(const ZtLUnitVec3f& n, double d) noexcept { *this = ZtLPlane3f(n, d); }
    void SetValue(const ZtLUnitVec3f& n, const ZtLPos3f& p) noexcept { *this = ZtLPlane3f(n, p); }
    // The plane through three points, its normal by the right-hand rule (p0, p1, p2
    // counter-clockwise seen from the positive side). Returns 0 and leaves the plane unchanged
    // only when the cross product is exactly zero: nearly collinear points still give a plane.
    int SetValue(const ZtLPos3f& p0, const ZtLPos3f& p1, const ZtLPos3f& p2) noexcept;

    // normal . p - distance.
    double DistanceFromPlane(const ZtLPos3f& p) const noexcept {
        return m_normal.Dot(p.Vec()) - m_distance;
    }
    // The point is on the plane or in front of it (no tolerance).
    int IsInHalfspace(const ZtLPos3f& p) const noexcept { return DistanceFromPlane(p) >= 0.0; }
    // The foot of p on the plane.
    ZtLPos3f ClosestPoint(const ZtLPos3f& p) const noexcept {
        return p - m_normal.Multiply(DistanceFromPlane(p));
    }
    // The largest and smallest signed distance of a corner of the box (the box is not tested
    // for emptiness).
    double MaxDistanceFromPlane(const ZtLBox3f& b) const noexcept;
    double MinDistanceFromPlane(const ZtLBox3f& b) const noexcept;

    void Negate() noexcept { *this = Opposite(); }
    // The same points with the other side positive.
    ZtLPlane3f Opposite() const noexcept { return ZtLPlane3f(-m_normal, -m_distance); }
    // Moves the plane by d along its normal.
    void Offset(double d) noexcept { m_distance += d; }

    void Translate(const ZtLVec3f& v) noexcept { *this = TranslatedBy(v); }
    ZtLPlane3f TranslatedBy(const ZtLVec3f& v) const noexcept {
        return ZtLPlane3f(m_normal, m_distance + m_normal.Dot(v));
    }
    // The plane through the image of its nearest point to the origin, with the normal mapped as
    // a row vector and normalised. Exact for rotations, not for general matrices.
    void Rotate(const ZtLMatrix3f& m) noexcept { *this = RotatedBy(m); }
    ZtLPlane3f RotatedBy(const ZtLMatrix3f& m) noexcept;

    void Transform(const ZtLMatrix3f& m) noexcept { *this = TransformedBy(m); }
    ZtLPlane3f TransformedBy(const ZtLMatrix3f& m) const noexcept;
    void InverseTransform(const ZtLMatrix3f& m) noexcept { *this = TransformedByInverse(m); }
    // The normal becomes M * normal (a column vector) rescaled to unit length, the distance is
    // rescaled alike. A matrix that maps the normal to zero gives non-finite fields.
    ZtLPlane3f TransformedByInverse(const ZtLMatrix3f& m) const noexcept;

    void Transform(const ZtLAffine3f& a) noexcept { *this = TransformedBy(a); }
    ZtLPlane3f TransformedBy(const ZtLAffine3f& a) const noexcept;
    void InverseTransform(const ZtLAffine3f& a) noexcept { *this = TransformedByInverse(a); }
    // The normal becomes L * normal and the distance distance - normal . t, both rescaled so
    // that the normal has unit length.
    ZtLPlane3f TransformedByInverse(const ZtLAffine3f& a) const noexcept;

    void Transform(const ZtLMatrix4f& m) noexcept { *this = TransformedBy(m); }
    ZtLPlane3f TransformedBy(const ZtLMatrix4f& m) const noexcept;
    void InverseTransform(const ZtLMatrix4f& m) noexcept { *this = TransformedByInverse(m); }
    // The plane equation (normal, -distance) mapped by M as a column vector, rescaled so that
    // the normal has unit length.
    ZtLPlane3f TransformedByInverse(const ZtLMatrix4f& m) const noexcept;

    void Transform(const ZtLTransform3f& x) noexcept { *this = TransformedBy(x); }
    ZtLPlane3f TransformedBy(const ZtLTransform3f& x) const noexcept;
    void InverseTransform(const ZtLTransform3f& x) noexcept { *this = TransformedByInverse(x); }
    // Dispatches on the traits: the identity copies the plane, a projective transform takes the
    // 4x4 path, a linear one the 3x3 path, a pure translation by t gives TranslatedBy(-t), and
    // any other the affine path.
    ZtLPlane3f TransformedByInverse(const ZtLTransform3f& x) const noexcept;

    // Exact comparison of x, y, z and distance; a NaN makes the planes unequal.
    int operator==(const ZtLPlane3f& p) const noexcept {
        return m_normal[0] == p.m_normal[0] && m_normal[1] == p.m_normal[1] &&
               m_normal[2] == p.m_normal[2] && m_distance == p.m_distance;
    }
    int operator!=(const ZtLPlane3f& p) const noexcept { return !(*this == p); }
    // tn >= 1 - normal . p.normal (inclusive) and |distance - p.distance| < td (strict).
    int Equals(const ZtLPlane3f& p, double tn, double td) const noexcept;

    // The line in which the two planes meet, its point the one nearest the origin. Returns false
    // and leaves the line unchanged when the normals point the same way within resnor. Opposite
    // normals are not rejected: they give non-finite line fields.
    bool Intersect(const ZtLPlane3f& o, ZtLLine3f* line) const noexcept;

    // Writes or reads the element "plane" with "distance" and the normal as a "vec3f". A failed
    // read leaves the plane unchanged.
    void SerialiseXML(ZtUXMLDOMStream* s);

    // Whether p, taken to lie in the triangle's plane, is inside the triangle p0 p1 p2 or on its
    // edges; w, when not null, receives the barycentric weights of p0, p1, p2. A triangle whose
    // cross product is shorter than resop gives 0.
    static int IsPointInTriangle(const ZtLPos3f& p, const ZtLPos3f& p0, const ZtLPos3f& p1,
                                 const ZtLPos3f& p2, ZtLVec3f* w) noexcept;
    // The same with the triangle's unit normal n given: p is projected along the dominant axis
    // of n, and whether it lies in the plane is not tested.
    static int IsPointInTriangle(const ZtLPos3f& p, const ZtLUnitVec3f& n, const ZtLPos3f& p0,
                                 const ZtLPos3f& p1, const ZtLPos3f& p2, ZtLVec3f* w) noexcept;

private:
    // The plane of the points q whose image q * linear + t lies on this plane.
    ZtLPlane3f InverseAffine(const ZtLMatrix3f& linear, const ZtLVec3f& t) const noexcept;

    ZtLUnitVec3f m_normal;
    double m_distance;
};

static_assert(std::is_trivially_copyable<ZtLPlane3f>::value &&
                  sizeof(ZtLPlane3f) == 4 * sizeof(double),
              "a plane is a plain value of four doubles");

#endif
