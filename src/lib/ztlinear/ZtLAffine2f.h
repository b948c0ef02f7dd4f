#ifndef ZTLINEAR_ZTLAFFINE2F_H
#define ZTLINEAR_ZTLAFFINE2F_H

#include <ztlinear/ZtLExport.h>
#include <ztlinear/ZtLMatrix2f.h>
#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLRotation2f.h>
#include <ztlinear/ZtLVec2f.h>

#include <cmath>
#include <type_traits>

// An affine map of the plane: a linear part L (a 2x2 matrix) followed by a translation T.
//
// Conventions (shared by every transform of the library): points and vectors are row vectors on
// the left, so a point p maps to p.L + T and a free vector v to v.L; a * b applies a first, then
// b; MultRight(x) appends x after this map, MultLeft(x) puts it before. The default map is the
// identity. As a 2D homogeneous 3x3 matrix the map is L in the upper-left block, T in the last
// row and (0, 0, 1) in the last column.
class ZTL_EXPORT ZtLAffine2f {
public:
    ZtLAffine2f() noexcept : m_linear(), m_translation(0.0, 0.0) {}
    ZtLAffine2f(const ZtLMatrix2f& linear, const ZtLVec2f& translation) noexcept
        : m_linear(linear), m_translation(translation) {}
    // The 2D homogeneous matrix m: its upper-left 2x2 block and (m20, m21); the last column is
    // ignored.
    explicit ZtLAffine2f(const ZtLMatrix3f& m) noexcept { SetValue(m); }

    const ZtLMatrix2f& GetLinear() const noexcept { return m_linear; }
    ZtLMatrix2f& EditLinear() noexcept { return m_linear; }
    const ZtLVec2f& GetTranslation() const noexcept { return m_translation; }
    ZtLVec2f& EditTranslation() noexcept { return m_translation; }
    void SetLinear(const ZtLMatrix2f& linear) noexcept { m_linear = linear; }
    void SetTranslation(const ZtLVec2f& translation) noexcept { m_translation = translation; }
    ZtLAffine2f& SetValue(const ZtLAffine2f& a) noexcept { return *this = a; }
    ZtLAffine2f& SetValue(const ZtLMatrix3f& m) noexcept {
        m_linear.SetValue(m[0][0], m[0][1], m[1][0], m[1][1]);
        m_translation = ZtLVec2f(m[2][0], m[2][1]);
        return *this;
    }
    // The 2D homogeneous matrix of this map.
    ZtLMatrix3f GetMatrix() const noexcept {
        return ZtLMatrix3f(m_linear[0][0], m_linear[0][1], 0.0, m_linear[1][0], m_linear[1][1], 0.0,
                           m_translation[0], m_translation[1], 1.0);
    }

    // Builders: each overwrites both parts.
    ZtLAffine2f& MakeIdentity() noexcept {
        m_linear.MakeIdentity();
        m_translation = ZtLVec2f(0.0, 0.0);
        return *this;
    }
    ZtLAffine2f& MakeRotation(const ZtLRotation2f& r) noexcept {
        m_linear.MakeRotation(r);
        m_translation = ZtLVec2f(0.0, 0.0);
        return *this;
    }
    ZtLAffine2f& MakeScale(const ZtLVec2f& s) noexcept {
        m_linear.MakeScale(s);
        m_translation = ZtLVec2f(0.0, 0.0);
        return *this;
    }
    ZtLAffine2f& MakeUniformScale(double s) noexcept {
        m_linear.MakeUniformScale(s);
        m_translation = ZtLVec2f(0.0, 0.0);
        return *this;
    }
    ZtLAffine2f& MakeTranslation(const ZtLVec2f& t) noexcept {
        m_linear.MakeIdentity();
        m_translation = t;
        return *this;
    }

    // this = this . a: (L.a.L, T.a.L + a.T). The operand may be this map itself.
    ZtLAffine2f& MultRight(const ZtLAffine2f& a) noexcept {
        const ZtLVec2f t = (m_translation * a.m_linear).Add(a.m_translation);
        m_linear = m_linear * a.m_linear;
        m_translation = t;
        return *this;
    }
    ZtLAffine2f& operator*=(const ZtLAffine2f& a) noexcept { return MultRight(a); }
    // this = this . m: (L.m, T.m).
    ZtLAffine2f& MultRight(const ZtLMatrix2f& m) noexcept {
        const ZtLVec2f t = m_translation * m;
        m_linear = m_linear * m;
        m_translation = t;
        return *this;
    }
    // this = this . M(r): (L.M(r), T.M(r)).
    ZtLAffine2f& RotateRight(const ZtLRotation2f& r) noexcept { return MultRight(ZtLMatrix2f(r)); }
    // this = this . diag(s): columns of L and components of T scaled by s.
    ZtLAffine2f& ScaleRight(const ZtLVec2f& s) noexcept {
        m_linear.ScaleRight(s);
        m_translation = ZtLVec2f(m_translation[0] * s[0], m_translation[1] * s[1]);
        return *this;
    }
    // this = this followed by a translation by v: (L, T + v).
    ZtLAffine2f& TranslateRight(const ZtLVec2f& v) noexcept {
        m_translation += v;
        return *this;
    }
    // this = a . this: (a.L.L, T + a.T.L). The operand may be this map itself.
    ZtLAffine2f& MultLeft(const ZtLAffine2f& a) noexcept {
        const ZtLVec2f t = m_translation.Add(a.m_translation * m_linear);
        m_linear = a.m_linear * m_linear;
        m_translation = t;
        return *this;
    }
    // this = m . this: (m.L, T).
    ZtLAffine2f& MultLeft(const ZtLMatrix2f& m) noexcept {
        m_linear = m * m_linear;
        return *this;
    }
    // this = M(r) . this: (M(r).L, T).
    ZtLAffine2f& RotateLeft(const ZtLRotation2f& r) noexcept { return MultLeft(ZtLMatrix2f(r)); }
    // this = diag(s) . this: rows of L scaled by s, T unchanged.
    ZtLAffine2f& ScaleLeft(const ZtLVec2f& s) noexcept {
        m_linear.ScaleLeft(s);
        return *this;
    }
    // this = a translation by v, then this: (L, T + v.L).
    ZtLAffine2f& TranslateLeft(const ZtLVec2f& v) noexcept {
        m_translation += v * m_linear;
        return *this;
    }

    // (L^-1, (-T).L^-1) with L^-1 from ZtLMatrix2f::Inverse: a singular L posts "Singular Matrix"
    // (code 1) there and counts as the identity, so the result is (I, -T).
    ZtLAffine2f Inverse() const noexcept {
        const ZtLMatrix2f inv = m_linear.Inverse();
        return ZtLAffine2f(inv, m_translation.Negated() * inv);
    }
    ZtLAffine2f& Invert() noexcept { return *this = Inverse(); }

    // L = U^T.diag(scale).U.R as ZtLMatrix2f::Factor finds it (U the scale orientation, R the
    // rotation); translation = T.
    void Factor(ZtLVec2f* scale, ZtLMatrix2f* scaleOrientation, ZtLMatrix2f* rotation,
                ZtLVec2f* translation) const noexcept {
        const ZtLVec2f t = m_translation;
        m_linear.Factor(scale, scaleOrientation, rotation);
        *translation = t;
    }
    // The same with U and R converted by ZtLMatrix2f::ConvertRotation.
    void Factor(ZtLVec2f* scale, ZtLRotation2f* scaleOrientation, ZtLRotation2f* rotation,
                ZtLVec2f* translation) const noexcept {
        const ZtLVec2f t = m_translation;
        m_linear.Factor(scale, scaleOrientation, rotation);
        *translation = t;
    }

    // Exact tests.
    bool IsIdentity() const noexcept {
        return m_linear.IsIdentity() && m_translation[0] == 0.0 && m_translation[1] == 0.0;
    }
    friend bool operator==(const ZtLAffine2f& a, const ZtLAffine2f& b) noexcept {
        return a.m_linear == b.m_linear && a.m_translation[0] == b.m_translation[0] &&
               a.m_translation[1] == b.m_translation[1];
    }
    friend bool operator!=(const ZtLAffine2f& a, const ZtLAffine2f& b) noexcept {
        return !(a == b);
    }
    // False as soon as an entry of L differs by more than tol; then true only when every
    // component of T is within tol. So a NaN difference passes in L but fails in T.
    bool Equals(const ZtLAffine2f& a, double tol) const noexcept {
        if (!m_linear.Equals(a.m_linear, tol)) return false;
        return tol >= std::fabs(m_translation[0] - a.m_translation[0]) &&
               tol >= std::fabs(m_translation[1] - a.m_translation[1]);
    }

private:
    ZtLMatrix2f m_linear;
    ZtLVec2f m_translation;
};

// (a.L.b.L, a.T.b.L + b.T): a first, then b.
inline ZtLAffine2f operator*(const ZtLAffine2f& a, const ZtLAffine2f& b) noexcept {
    return ZtLAffine2f(a.GetLinear() * b.GetLinear(),
                       (a.GetTranslation() * b.GetLinear()).Add(b.GetTranslation()));
}
// p.L + T.
inline ZtLPos2f operator*(const ZtLPos2f& p, const ZtLAffine2f& a) noexcept {
    return (p * a.GetLinear()).Add(a.GetTranslation());
}
// v.L: a free vector takes no translation.
inline ZtLVec2f operator*(const ZtLVec2f& v, const ZtLAffine2f& a) noexcept {
    return v * a.GetLinear();
}

static_assert(std::is_trivially_copyable<ZtLAffine2f>::value &&
                  std::is_standard_layout<ZtLAffine2f>::value &&
                  sizeof(ZtLAffine2f) == 6 * sizeof(double),
              "an affine map is a plain value: four doubles of L, then two of T");

#endif
