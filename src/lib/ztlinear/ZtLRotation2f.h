#ifndef ZTLINEAR_ZTLROTATION2F_H
#define ZTLINEAR_ZTLROTATION2F_H

// ZtLRotation2f: a rotation of the plane held as the cosine c and sine s of its angle (radians,
// counter-clockwise positive).
//
// It follows the row-vector convention of the library's transforms: its matrix is
// (c, s; -s, c), so the row vector (x, y) maps to (x c - y s, x s + y c), and a * b rotates by
// a, then by b. No invariant is kept: (c, s) given directly is stored unchanged, and only the
// product renormalises. The default constructor leaves both values unset; MakeIdentity() gives
// (1, 0).
//
// Tolerances: the construction from two directions and GetValue read ZtLVec's resop at each
// call.

#include <ztlinear/ZtLExport.h>
#include <ztlinear/ZtLVec2f.h>

#include <cmath>
#include <type_traits>

class ZtUReadStream;
class ZtUWriteStream;

class ZTL_EXPORT ZtLRotation2f {
public:
    // Leaves c and s unset.
    ZtLRotation2f() = default;
    // The rotation by angle: (cos angle, sin angle).
    explicit ZtLRotation2f(double angle) noexcept { SetValue(angle); }
    // The pair (c, s), stored unchanged.
    constexpr ZtLRotation2f(double c, double s) noexcept : m_c(c), m_s(s) {}
    // The rotation taking from to to (see SetValue).
    ZtLRotation2f(const ZtLUnitVec2f& from, const ZtLUnitVec2f& to) noexcept { SetValue(from, to); }

    void SetValue(double angle) noexcept {
        m_c = std::cos(angle);
        m_s = std::sin(angle);
    }
    void SetValue(double c, double s) noexcept {
        m_c = c;
        m_s = s;
    }
    // With d = from . to: exactly (1, 0) when d is within resop of 1, exactly (-1, 0) (a half
    // turn) when within resop of -1; otherwise (d, sqrt(1 - d^2)), the sine negated when to lies
    // clockwise of from.
    void SetValue(const ZtLUnitVec2f& from, const ZtLUnitVec2f& to) noexcept;

    static constexpr ZtLRotation2f CreateIdentity() noexcept { return ZtLRotation2f(1.0, 0.0); }
    void MakeIdentity() noexcept { SetValue(1.0, 0.0); }

    constexpr double GetCosAngle() const noexcept { return m_c; }
    constexpr double GetSinAngle() const noexcept { return m_s; }
    // The angle acos(c) in [0, pi], negated when s < -resop: a sine that is negative by no more
    // than resop counts as positive, so a half turn never comes out as -pi. c is not clamped.
    double GetValue() const noexcept;

    // This rotation, then r: (c r.c - s r.s, r.s c + s r.c), renormalised to length one.
    ZtLRotation2f operator*(const ZtLRotation2f& r) const noexcept {
        const double c = m_c * r.m_c - m_s * r.m_s;
        const double s = r.m_s * m_c + m_s * r.m_c;
        const double length = std::sqrt(c * c + s * s);
        return ZtLRotation2f(c / length, s / length);
    }
    ZtLRotation2f& operator*=(const ZtLRotation2f& r) noexcept { return *this = *this * r; }

    // (c, -s).
    constexpr ZtLRotation2f Inverse() const noexcept { return ZtLRotation2f(m_c, -m_s); }
    void Invert() noexcept { m_s = -m_s; }

    // Exact comparisons of c and s.
    constexpr bool operator==(const ZtLRotation2f& r) const noexcept {
        return m_c == r.m_c && m_s == r.m_s;
    }
    constexpr bool operator!=(const ZtLRotation2f& r) const noexcept { return !(*this == r); }
    // Exactly (1, 0).
    constexpr bool IsIdentity() const noexcept { return m_c == 1.0 && m_s == 0.0; }
    // tol >= 1 - (c r.c + s r.s): one minus the cosine of the angle between the rotations.
    bool Equals(const ZtLRotation2f& r, double tol) const noexcept {
        return tol >= 1.0 - (m_c * r.m_c + m_s * r.m_s);
    }

private:
    double m_c;
    double m_s;
};

static_assert(std::is_trivially_copyable<ZtLRotation2f>::value &&
                  sizeof(ZtLRotation2f) == 2 * sizeof(double),
              "a plain value of two doubles");

// Row form, v * M(r): (x c - y s, x s + y c), the rotation of v by r.
inline ZtLVec2f operator*(const ZtLVec2f& v, const ZtLRotation2f& r) noexcept {
    const double c = r.GetCosAngle();
    const double s = r.GetSinAngle();
    return ZtLVec2f(v[0] * c - v[1] * s, v[0] * s + v[1] * c);
}
// Column form, M(r) * v: (c x + s y, -s x + c y), for a unit r the rotation by the inverse.
inline ZtLVec2f operator*(const ZtLRotation2f& r, const ZtLVec2f& v) noexcept {
    const double c = r.GetCosAngle();
    const double s = r.GetSinAngle();
    return ZtLVec2f(c * v[0] + s * v[1], -s * v[0] + c * v[1]);
}

// The stream record: two doubles, c then s.
ZTL_EXPORT ZtUWriteStream& operator<<(ZtUWriteStream& stream, const ZtLRotation2f& r);
// Reads c and s; r is changed only when both were read.
ZTL_EXPORT ZtUReadStream& operator>>(ZtUReadStream& stream, ZtLRotation2f& r);

#endif
