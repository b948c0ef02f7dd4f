#ifndef ZTLINEAR_ZTLBOX2F_H
#define ZTLINEAR_ZTLBOX2F_H

#include <ztlinear/ZtLExport.h>
#include <ztlinear/ZtLVec2f.h>

#include <type_traits>

class ZtLAffine2f;
class ZtLMatrix2f;

// ZtLBox2f: an axis-aligned box in the plane, stored as its min and max corners; the planar
// counterpart of ZtLBox3f with the same rules. Both corners belong to the box. A box is empty
// when min.x > max.x (y is not looked at); the canonical empty box is (1, 1)-(0, 0), made by the
// default constructor, MakeEmpty and CreateEmpty.
//
// Points are row vectors on the left (p' = p * M + t); a transformed box is the tight
// axis-aligned box of the transformed box, and an empty box stays as it is. The in-place members
// equal their copying partners assigned back.
//
// A plain value of four doubles, trivially copyable.
class ZTL_EXPORT ZtLBox2f {
public:
    // The canonical empty box.
    constexpr ZtLBox2f() noexcept : m_min(1.0, 1.0), m_max(0.0, 0.0) {}
    // min and max as given, unchecked.
    constexpr ZtLBox2f(const ZtLPos2f& min, const ZtLPos2f& max) noexcept
        : m_min(min), m_max(max) {}
    // (0, 0)-(w, h).
    constexpr ZtLBox2f(double w, double h) noexcept : m_min(0.0, 0.0), m_max(w, h) {}

    static constexpr ZtLBox2f CreateEmpty() noexcept { return ZtLBox2f(); }
    constexpr void MakeEmpty() noexcept { *this = ZtLBox2f(); }

    constexpr void SetValue(const ZtLPos2f& min, const ZtLPos2f& max) noexcept {
        m_min = min;
        m_max = max;
    }
    // The box of the single point p.
    constexpr void SetValue(const ZtLPos2f& p) noexcept { SetValue(p, p); }
    constexpr void SetValue(const ZtLBox2f& b) noexcept { *this = b; }

    constexpr const ZtLPos2f& GetMin() const noexcept { return m_min; }
    constexpr const ZtLPos2f& GetMax() const noexcept { return m_max; }
    constexpr void SetMin(const ZtLPos2f& p) noexcept { m_min = p; }
    constexpr void SetMax(const ZtLPos2f& p) noexcept { m_max = p; }
    constexpr ZtLPos2f& EditMin() noexcept { return m_min; }
    constexpr ZtLPos2f& EditMax() noexcept { return m_max; }

    // min.x > max.x; y is not consulted.
    constexpr int GetIsEmpty() const noexcept { return m_min[0] > m_max[0]; }
    constexpr int IsEmpty() const noexcept { return GetIsEmpty(); }
    // Strictly positive extent on both axes.
    constexpr int GetHasArea() const noexcept { return m_max[0] > m_min[0] && m_max[1] > m_min[1]; }
    constexpr int HasArea() const noexcept { return GetHasArea(); }

    constexpr ZtLPos2f GetCenter() const noexcept {
        return ZtLPos2f((m_min[0] + m_max[0]) * 0.5, (m_min[1] + m_max[1]) * 0.5);
    }
    // max - min.
    constexpr ZtLVec2f GetSize() const noexcept { return m_max - m_min; }
    constexpr double GetWidth() const noexcept { return GetSize()[0]; }
    constexpr double GetHeight() const noexcept { return GetSize()[1]; }
    // max.x = min.x + w.
    constexpr void SetWidth(double w) noexcept { m_max = ZtLPos2f(m_min[0] + w, m_max[1]); }
    // max.y = min.y + h.
    constexpr void SetHeight(double h) noexcept { m_max = ZtLPos2f(m_max[0], m_min[1] + h); }
    // dx * dy; 0.0 for an empty box.
    constexpr double GetArea() const noexcept {
        if (GetIsEmpty()) return 0.0;
        const ZtLVec2f d = GetSize();
        return d[0] * d[1];
    }
    constexpr double Area() const noexcept { return GetArea(); }

    // A copy with min - (d, d) and max + (d, d). Emptiness is not tested: the empty box grown by
    // 1 is (0, 0)-(1, 1), and a box shrunk past its size becomes empty.
    constexpr ZtLBox2f Grow(double d) const noexcept {
        return ZtLBox2f(m_min - ZtLVec2f(d, d), m_max + ZtLVec2f(d, d));
    }
    // A copy of the same size with its min at p.
    constexpr ZtLBox2f MoveTo(const ZtLPos2f& p) const noexcept {
        return ZtLBox2f(p, m_max + (p - m_min));
    }

    // 0 for an empty box, else min <= p <= max on both axes. Intersects(p) is the same test.
    constexpr int Contains(const ZtLPos2f& p) const noexcept {
        return !GetIsEmpty() && p[0] >= m_min[0] && p[0] <= m_max[0] && p[1] >= m_min[1] &&
               p[1] <= m_max[1];
    }
    constexpr int Intersects(const ZtLPos2f& p) const noexcept { return Contains(p); }
    // 0 when either box is empty, else b lies within this box on both axes.
    constexpr int Contains(const ZtLBox2f& b) const noexcept {
        return !GetIsEmpty() && !b.GetIsEmpty() && b.m_min[0] >= m_min[0] &&
               b.m_min[1] >= m_min[1] && b.m_max[0] <= m_max[0] && b.m_max[1] <= m_max[1];
    }
    // 0 when either box is empty, else the boxes overlap on both axes (touching edges count).
    constexpr int Intersects(const ZtLBox2f& b) const noexcept {
        return !GetIsEmpty() && !b.GetIsEmpty() && b.m_max[0] >= m_min[0] &&
               b.m_min[0] <= m_max[0] && b.m_max[1] >= m_min[1] && b.m_min[1] <= m_max[1];
    }
    // The common part, or the canonical empty box when they do not overlap or when this box has
    // y reversed.
    ZtLBox2f Intersection(const ZtLBox2f& b) const noexcept;

    // As ZtLBox3f: an empty operand contributes nothing; a point replaces min when it is not
    // >= min (so a NaN does), else max when it is not <= max.
    ZtLBox2f Union(const ZtLBox2f& b) const noexcept {
        ZtLBox2f r(*this);
        r.ExtendBy(b);
        return r;
    }
    void ExtendBy(const ZtLBox2f& b) noexcept;
    ZtLBox2f Union(const ZtLPos2f& p) const noexcept {
        ZtLBox2f r(*this);
        r.ExtendBy(p);
        return r;
    }
    void ExtendBy(const ZtLPos2f& p) noexcept;

    // Both corners moved by v.
    constexpr void Translate(const ZtLVec2f& v) noexcept { *this = TranslatedBy(v); }
    constexpr ZtLBox2f TranslatedBy(const ZtLVec2f& v) const noexcept {
        return ZtLBox2f(m_min + v, m_max + v);
    }
    void Rotate(const ZtLMatrix2f& m) noexcept { *this = RotatedBy(m); }
    ZtLBox2f RotatedBy(const ZtLMatrix2f& m) const noexcept { return TransformedBy(m); }
    void Transform(const ZtLMatrix2f& m) noexcept { *this = TransformedBy(m); }
    ZtLBox2f TransformedBy(const ZtLMatrix2f& m) const noexcept;
    void Transform(const ZtLAffine2f& a) noexcept { *this = TransformedBy(a); }
    ZtLBox2f TransformedBy(const ZtLAffine2f& a) const noexcept;

    // Exact comparison of the four doubles.
    constexpr bool operator==(const ZtLBox2f& b) const noexcept {
        return m_min[0] == b.m_min[0] && m_min[1] == b.m_min[1] && m_max[0] == b.m_max[0] &&
               m_max[1] == b.m_max[1];
    }
    constexpr bool operator!=(const ZtLBox2f& b) const noexcept { return !(*this == b); }
    // Both corners within distance tol of b's.
    bool Equals(const ZtLBox2f& b, double tol) const noexcept {
        return m_min.Equals(b.m_min, tol) && m_max.Equals(b.m_max, tol);
    }

    // 0 when a coordinate is not finite; else 1 for an empty box, and for a non-empty one 1 when
    // y is in order too.
    int IsValid() const noexcept {
        if (!m_min.IsFinite() || !m_max.IsFinite()) return 0;
        return GetIsEmpty() || m_min[1] <= m_max[1];
    }
    // True when min > max on some axis.
    static constexpr bool IsInvalidConstructorArgs(const ZtLPos2f& min,
                                                   const ZtLPos2f& max) noexcept {
        return min[0] > max[0] || min[1] > max[1];
    }

private:
    // The tight box of this box under p -> p * linear + t.
    ZtLBox2f Affine(const ZtLMatrix2f& linear, const ZtLVec2f& t) const noexcept;

    ZtLPos2f m_min;
    ZtLPos2f m_max;
};

static_assert(std::is_trivially_copyable<ZtLBox2f>::value && sizeof(ZtLBox2f) == 4 * sizeof(double),
              "a box is a plain value of four doubles");

#endif
