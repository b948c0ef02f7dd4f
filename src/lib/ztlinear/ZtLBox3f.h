#ifndef ZTLINEAR_ZTLBOX3F_H
#define ZTLINEAR_ZTLBOX3F_H

#include <ztlinear/ZtLExport.h>
#include <ztlinear/ZtLVec3f.h>

#include <cmath>
#include <type_traits>

class ZtLAffine3f;
class ZtLMatrix3f;
class ZtLMatrix4f;
class ZtLTransform3f;
class ZtUXMLDOMStream;

// ZtLBox3f: an axis-aligned bounding box in space, stored as its min and max corners. Both
// corners belong to the box, so every containment and overlap test is inclusive.
//
// Emptiness is decided on the x axis alone: a box is empty when min.x > max.x, and y and z are
// not looked at (a box with x in order and y reversed is not empty, only invalid). The canonical
// empty box is (1, 1, 1)-(0, 0, 0); the default constructor, MakeEmpty and CreateEmpty make
// exactly that value.
//
// A transformed box is the axis-aligned box of the transformed box. Points are row vectors on
// the left (p' = p * M + t). The in-place members (Translate, Rotate, Transform) equal their
// copying partners assigned back.
//
// A plain value of six doubles, trivially copyable.
class ZTL_EXPORT ZtLBox3f {
public:
    // The canonical empty box.
    constexpr ZtLBox3f() noexcept : m_min(1.0, 1.0, 1.0), m_max(0.0, 0.0, 0.0) {}
    // min and max as given, unchecked.
    constexpr ZtLBox3f(const ZtLPos3f& min, const ZtLPos3f& max) noexcept
        : m_min(min), m_max(max) {}

    static constexpr ZtLBox3f CreateEmpty() noexcept { return ZtLBox3f(); }
    constexpr void MakeEmpty() noexcept { *this = ZtLBox3f(); }

    constexpr void SetValue(const ZtLPos3f& min, const ZtLPos3f& max) noexcept {
        m_min = min;
        m_max = max;
    }
    // The box of the single point p.
    constexpr void SetValue(const ZtLPos3f& p) noexcept { SetValue(p, p); }
    constexpr void SetValue(const ZtLBox3f& b) noexcept { *this = b; }

    constexpr const ZtLPos3f& GetMin() const noexcept { return m_min; }
    constexpr const ZtLPos3f& GetMax() const noexcept { return m_max; }
    constexpr void SetMin(const ZtLPos3f& p) noexcept { m_min = p; }
    constexpr void SetMax(const ZtLPos3f& p) noexcept { m_max = p; }
    constexpr ZtLPos3f& EditMin() noexcept { return m_min; }
    constexpr ZtLPos3f& EditMax() noexcept { return m_max; }

    // min.x > max.x; the other axes are not consulted.
    constexpr int GetIsEmpty() const noexcept { return m_min[0] > m_max[0]; }
    constexpr int IsEmpty() const noexcept { return GetIsEmpty(); }
    // Strictly positive extent on all three axes.
    constexpr int GetHasVolume() const noexcept {
        return m_max[0] > m_min[0] && m_max[1] > m_min[1] && m_max[2] > m_min[2];
    }
    constexpr int HasVolume() const noexcept { return GetHasVolume(); }
    // Non-empty and with a surface area that is not exactly 0.0.
    constexpr int GetHasSurfaceArea() const noexcept {
        return !GetIsEmpty() && Area2(GetSize()) != 0.0;
    }
    constexpr int HasSurfaceArea() const noexcept { return GetHasSurfaceArea(); }

    // (min + max) * 0.5.
    constexpr ZtLPos3f GetCenter() const noexcept {
        return ZtLPos3f((m_min[0] + m_max[0]) * 0.5, (m_min[1] + m_max[1]) * 0.5,
                        (m_min[2] + m_max[2]) * 0.5);
    }
    // max - min.
    constexpr ZtLVec3f GetSize() const noexcept { return m_max - m_min; }
    // 0.0 for an empty box.
    constexpr double GetVolume() const noexcept {
        if (GetIsEmpty()) return 0.0;
        const ZtLVec3f d = GetSize();
        return d[0] * d[1] * d[2];
    }
    constexpr double Volume() const noexcept { return GetVolume(); }
    // 2 (dx dy + dz dy + dx dz); 0.0 for an empty box.
    constexpr double GetSurfaceArea() const noexcept {
        return GetIsEmpty() ? 0.0 : Area2(GetSize());
    }
    constexpr double SurfaceArea() const noexcept { return GetSurfaceArea(); }

    // The eight corners: (min.x, min.y), (min.x, max.y), (max.x, max.y), (max.x, min.y) at
    // min.z, then the same four at max.z.
    void GetCorners(ZtLPos3f corners[8]) const noexcept;

    // 0 for an empty box, else min <= p <= max on every axis. Intersects(p) is the same test.
    constexpr int Contains(const ZtLPos3f& p) const noexcept {
        return !GetIsEmpty() && p[0] >= m_min[0] && p[0] <= m_max[0] && p[1] >= m_min[1] &&
               p[1] <= m_max[1] && p[2] >= m_min[2] && p[2] <= m_max[2];
    }
    constexpr int Intersects(const ZtLPos3f& p) const noexcept { return Contains(p); }
    // 0 when either box is empty, else b lies within this box on every axis.
    constexpr int Contains(const ZtLBox3f& b) const noexcept {
        return !GetIsEmpty() && !b.GetIsEmpty() && b.m_min[0] >= m_min[0] &&
               b.m_min[1] >= m_min[1] && b.m_min[2] >= m_min[2] && b.m_max[0] <= m_max[0] &&
               b.m_max[1] <= m_max[1] && b.m_max[2] <= m_max[2];
    }
    // 0 when either box is empty, else the boxes overlap on every axis (touching faces count).
    constexpr int Intersects(const ZtLBox3f& b) const noexcept {
        return !GetIsEmpty() && !b.GetIsEmpty() && b.m_max[0] >= m_min[0] &&
               b.m_min[0] <= m_max[0] && b.m_max[1] >= m_min[1] && b.m_min[1] <= m_max[1] &&
               b.m_max[2] >= m_min[2] && b.m_min[2] <= m_max[2];
    }
    // The common part of the two boxes, or the canonical empty box when they do not overlap or
    // when this box has y or z reversed.
    ZtLBox3f Intersection(const ZtLBox3f& b) const noexcept;

    // Union with a box: an empty operand contributes nothing (of two empty boxes, this one is
    // kept); otherwise the per-axis min and max.
    ZtLBox3f Union(const ZtLBox3f& b) const noexcept {
        ZtLBox3f r(*this);
        r.ExtendBy(b);
        return r;
    }
    void ExtendBy(const ZtLBox3f& b) noexcept;
    // Union with a point: the box of p alone when this box is empty. Otherwise per axis, p
    // replaces min when it is not >= min, else max when it is not <= max; so a NaN coordinate
    // replaces min.
    ZtLBox3f Union(const ZtLPos3f& p) const noexcept {
        ZtLBox3f r(*this);
        r.ExtendBy(p);
        return r;
    }
    void ExtendBy(const ZtLPos3f& p) noexcept;

    // Both corners moved by v (an empty box too).
    constexpr void Translate(const ZtLVec3f& v) noexcept { *this = TranslatedBy(v); }
    constexpr ZtLBox3f TranslatedBy(const ZtLVec3f& v) const noexcept {
        return ZtLBox3f(m_min + v, m_max + v);
    }
    // The box of the box mapped by M: the tight per-axis bound of the eight mapped corners,
    // computed without mapping them. An empty box stays as it is.
    void Rotate(const ZtLMatrix3f& m) noexcept { *this = RotatedBy(m); }
    ZtLBox3f RotatedBy(const ZtLMatrix3f& m) const noexcept { return TransformedBy(m); }
    void Transform(const ZtLMatrix3f& m) noexcept { *this = TransformedBy(m); }
    ZtLBox3f TransformedBy(const ZtLMatrix3f& m) const noexcept;
    // The same tight bound for p -> p * L + t.
    void Transform(const ZtLAffine3f& a) noexcept { *this = TransformedBy(a); }
    ZtLBox3f TransformedBy(const ZtLAffine3f& a) const noexcept;
    // An affine matrix (last column exactly (0, 0, 0, 1)) takes the tight affine bound; any other
    // matrix gives the box of the eight corners mapped with the projective divide.
    void Transform(const ZtLMatrix4f& m) noexcept { *this = TransformedBy(m); }
    ZtLBox3f TransformedBy(const ZtLMatrix4f& m) const noexcept;
    // Dispatches on the traits: the identity leaves the box, a projective transform takes the
    // 4x4 path, a pure translation moves the corners, a linear one the 3x3 path, and any other
    // the affine path.
    void Transform(const ZtLTransform3f& x) noexcept { *this = TransformedBy(x); }
    ZtLBox3f TransformedBy(const ZtLTransform3f& x) const noexcept;

    // Exact comparison of the six doubles.
    constexpr bool operator==(const ZtLBox3f& b) const noexcept {
        return m_min[0] == b.m_min[0] && m_min[1] == b.m_min[1] && m_min[2] == b.m_min[2] &&
               m_max[0] == b.m_max[0] && m_max[1] == b.m_max[1] && m_max[2] == b.m_max[2];
    }
    constexpr bool operator!=(const ZtLBox3f& b) const noexcept { return !(*this == b); }
    // Both corners within distance tol of b's.
    bool Equals(const ZtLBox3f& b, double tol) const noexcept {
        return m_min.Equals(b.m_min, tol) && m_max.Equals(b.m_max, tol);
    }

    // 0 when a coordinate is not finite; else 1 for an empty box, and for a non-empty one 1 when
    // y and z are in order too.
    int IsValid() const noexcept {
        if (!m_min.IsFinite() || !m_max.IsFinite()) return 0;
        return GetIsEmpty() || (m_min[1] <= m_max[1] && m_min[2] <= m_max[2]);
    }
    // True when min > max on some axis.
    static constexpr bool IsInvalidConstructorArgs(const ZtLPos3f& min,
                                                   const ZtLPos3f& max) noexcept {
        return min[0] > max[0] || min[1] > max[1] || min[2] > max[2];
    }

    // Writes or reads the element "box3f" holding "min" and "max", each a "pos3f". A failed read
    // leaves this box unchanged.
    void SerialiseXML(ZtUXMLDOMStream* s);

private:
    static constexpr double Area2(const ZtLVec3f& d) noexcept {
        return 2 * (d[0] * d[1] + d[2] * d[1] + d[0] * d[2]);
    }
    // The tight box of this box under p -> p * linear + t.
    ZtLBox3f Affine(const ZtLMatrix3f& linear, const ZtLVec3f& t) const noexcept;

    ZtLPos3f m_min;
    ZtLPos3f m_max;
};

static_assert(std::is_trivially_copyable<ZtLBox3f>::value && sizeof(ZtLBox3f) == 6 * sizeof(double),
              "a box is a plain value of six doubles");

#endif
