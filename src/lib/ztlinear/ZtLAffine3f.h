#ifndef ZTLINEAR_ZTLAFFINE3F_H
#define ZTLINEAR_ZTLAFFINE3F_H

// ZtLAffine3f: an affine map of 3D space: a linear part L (a 3x3 matrix) followed by a translation
// T.
//
// Conventions (shared by every transform of the library): points and vectors are row vectors on
// the left, so a point p maps to p.L + T and a free vector v to v.L; a * b applies a first, then
// b; MultRight(x) appends x after this map, MultLeft(x) puts it before. The default map is the
// identity. There is no projective part and no record of what kind of map this is (see
// ZtLTransform3f for that).

#include <ztlinear/ZtLExport.h>
#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLVec3f.h>

#include <cmath>
#include <type_traits>

class ZtLMatrix4f;
class ZtLRotation3f;

class ZTL_EXPORT ZtLAffine3f {
public:
    ZtLAffine3f() noexcept : m_linear(), m_translation(0.0, 0.0, 0.0) {}
    ZtLAffine3f(const ZtLMatrix3f& linear, const ZtLVec3f& translation) noexcept
        : m_linear(linear), m_translation(translation) {}
    // The upper-left 3x3 block and the translation row of m; column 3 is ignored.
    explicit ZtLAffine3f(const ZtLMatrix4f& m) noexcept { SetValue(m); }

    const ZtLMatrix3f& GetLinear() const noexcept { return m_linear; }
    ZtLMatrix3f& EditLinear() noexcept { return m_linear; }
    const ZtLVec3f& GetTranslation() const noexcept { return m_translation; }
    ZtLVec3f& EditTranslation() noexcept { return m_translation; }
    void SetLinear(const ZtLMatrix3f& linear) noexcept { m_linear = linear; }
    void SetTranslation(const ZtLVec3f& translation) noexcept { m_translation = translation; }
    ZtLAffine3f& SetValue(const ZtLAffine3f& a) noexcept { return *this = a; }
    ZtLAffine3f& SetValue(const ZtLMatrix4f& m) noexcept;

    // Builders: each overwrites both parts.
    ZtLAffine3f& MakeIdentity() noexcept {
        m_linear.MakeIdentity();
        m_translation = ZtLVec3f(0.0, 0.0, 0.0);
        return *this;
    }
    ZtLAffine3f& MakeRotation(const ZtLRotation3f& q) noexcept;
    ZtLAffine3f& MakeScale(const ZtLVec3f& s) noexcept {
        m_linear.MakeScale(s);
        m_translation = ZtLVec3f(0.0, 0.0, 0.0);
        return *this;
    }
    ZtLAffine3f& MakeUniformScale(double s) noexcept {
        m_linear.MakeUniformScale(s);
        m_translation = ZtLVec3f(0.0, 0.0, 0.0);
        return *this;
    }
    ZtLAffine3f& MakeTranslation(const ZtLVec3f& t) noexcept {
        m_linear.MakeIdentity();
        m_translation = t;
        return *this;
    }

    // this = this . a: (L.a.L, T.a.L + a.T). The operand may be this map itself.
    ZtLAffine3f& MultRight(const ZtLAffine3f& a) noexcept {
        const ZtLVec3f t = (m_translation * a.m_linear).Add(a.m_translation);
        m_linear = m_linear * a.m_linear;
        m_translation = t;
        return *this;
    }
    ZtLAffine3f& operator*=(const ZtLAffine3f& a) noexcept { return MultRight(a); }
    // this = this . m: (L.m, T.m).
    ZtLAffine3f& MultRight(const ZtLMatrix3f& m) noexcept {
        const ZtLVec3f t = m_translation * m;
        m_linear = m_linear * m;
        m_translation = t;
        return *this;
    }
    // this = this . M(q): (L.M(q), T.M(q)).
    ZtLAffine3f& RotateRight(const ZtLRotation3f& q) noexcept;
    // this = this . diag(s): columns of L and components of T scaled by s.
    ZtLAffine3f& ScaleRight(const ZtLVec3f& s) noexcept {
        m_linear.ScaleRight(s);
        m_translation =
            ZtLVec3f(m_translation[0] * s[0], m_translation[1] * s[1], m_translation[2] * s[2]);
        return *this;
    }
    // this = this followed by a translation by v: (L, T + v).
    ZtLAffine3f& TranslateRight(const ZtLVec3f& v) noexcept {
        m_translation += v;
        return *this;
    }
    // this = a . this: (a.L.L, T + a.T.L). The operand may be this map itself.
    ZtLAffine3f& MultLeft(const ZtLAffine3f& a) noexcept {
        const ZtLVec3f t = m_translation.Add(a.m_translation * m_linear);
        m_linear = a.m_linear * m_linear;
        m_translation = t;
        return *this;
    }
    // this = m . this: (m.L, T).
    ZtLAffine3f& MultLeft(const ZtLMatrix3f& m) noexcept {
        m_linear = m * m_linear;
        return *this;
    }
    // this = M(q) . this: (M(q).L, T).
    ZtLAffine3f& RotateLeft(const ZtLRotation3f& q) noexcept;
    // this = diag(s) . this: rows of L scaled by s, T unchanged.
    ZtLAffine3f& ScaleLeft(const ZtLVec3f& s) noexcept {
        m_linear.ScaleLeft(s);
        return *this;
    }
    // this = a translation by v, then this: (L, T + v.L).
    ZtLAffine3f& TranslateLeft(const ZtLVec3f& v) noexcept {
        m_translation += v * m_linear;
        return *this;
    }

    // (L^-1, (-T).L^-1) with L^-1 from ZtLMatrix3f::Inverse: a singular L posts "Singular Matrix"
    // (code 2) there and counts as the identity, so the result is (I, -T).
    ZtLAffine3f Inverse() const noexcept {
        const ZtLMatrix3f inv = m_linear.Inverse();
        return ZtLAffine3f(inv, m_translation.Negated() * inv);
    }
    ZtLAffine3f& Invert() noexcept { return *this = Inverse(); }

    // L = U^T.diag(scale).U.R as ZtLMatrix3f::Factor finds it (U the scale orientation, R the
    // rotation); translation = T.
    void Factor(ZtLVec3f* scale, ZtLMatrix3f* scaleOrientation, ZtLMatrix3f* rotation,
                ZtLVec3f* translation) const noexcept {
        m_linear.Factor(scale, scaleOrientation, rotation);
        *translation = m_translation;
    }
    void Factor(ZtLVec3f* scale, ZtLRotation3f* scaleOrientation, ZtLRotation3f* rotation,
                ZtLVec3f* translation) const noexcept;

    // Exact tests.
    bool IsIdentity() const noexcept {
        return m_linear.IsIdentity() && m_translation[0] == 0.0 && m_translation[1] == 0.0 &&
               m_translation[2] == 0.0;
    }
    friend bool operator==(const ZtLAffine3f& a, const ZtLAffine3f& b) noexcept {
        return a.m_linear == b.m_linear && a.m_translation[0] == b.m_translation[0] &&
               a.m_translation[1] == b.m_translation[1] && a.m_translation[2] == b.m_translation[2];
    }
    friend bool operator!=(const ZtLAffine3f& a, const ZtLAffine3f& b) noexcept {
        return !(a == b);
    }
    // False as soon as an entry of L differs by more than tol; then true only when every
    // component of T is within tol. So a NaN difference passes in L but fails in T.
    bool Equals(const ZtLAffine3f& a, double tol) const noexcept {
        for (int i = 0; i < 3; ++i)
            for (int j = 0; j < 3; ++j)
                if (std::fabs(m_linear[i][j] - a.m_linear[i][j]) > tol) return false;
        for (int k = 0; k < 3; ++k)
            if (!(tol >= std::fabs(m_translation[k] - a.m_translation[k]))) return false;
        return true;
    }

private:
    ZtLMatrix3f m_linear;
    ZtLVec3f m_translation;
};

// (a.L.b.L, a.T.b.L + b.T): a first, then b.
inline ZtLAffine3f operator*(const ZtLAffine3f& a, const ZtLAffine3f& b) noexcept {
    return ZtLAffine3f(a.GetLinear() * b.GetLinear(),
                       (a.GetTranslation() * b.GetLinear()).Add(b.GetTranslation()));
}
// p.L + T.
inline ZtLPos3f operator*(const ZtLPos3f& p, const ZtLAffine3f& a) noexcept {
    return (p * a.GetLinear()).Add(a.GetTranslation());
}
// v.L: a free vector takes no translation.
inline ZtLVec3f operator*(const ZtLVec3f& v, const ZtLAffine3f& a) noexcept {
    return v * a.GetLinear();
}

static_assert(std::is_trivially_copyable<ZtLAffine3f>::value &&
                  std::is_standard_layout<ZtLAffine3f>::value &&
                  sizeof(ZtLAffine3f) == 12 * sizeof(double),
              "an affine map is a plain value: nine doubles of L, then three of T");

#endif
