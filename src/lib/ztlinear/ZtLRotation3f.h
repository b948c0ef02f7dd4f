#ifndef ZTLINEAR_ZTLROTATION3F_H
#define ZTLINEAR_ZTLROTATION3F_H

// ZtLRotation3f: a 3D rotation held as a quaternion (x, y, z, w) = (axis sin(a/2), cos(a/2)),
// angles in radians.
//
// It follows the row-vector convention of the library's transforms: a * b rotates by a, then by
// b, so the matrix of a * b is the matrix of a times the matrix of b (ZtLMatrix3f(q) and
// ZtLMatrix3f::ConvertRotation convert). No invariant is kept: the raw setters store what they
// are given, and only the products, Normalize, Normalized and Slerp renormalise. The default
// constructor leaves the components unset; CreateIdentity() gives (0, 0, 0, 1).
//
// Tolerances: the constructions from directions, GetValue and AngleBetween read ZtLVec's resop,
// FactorEulerXYZ its resabs, at each call.

#include <ztlinear/ZtLExport.h>
#include <ztlinear/ZtLVec3f.h>
#include <ztutil/ZtUStringBuffer.h>

#include <cmath>
#include <type_traits>

class ZtUXMLDOMStream;

class ZTL_EXPORT ZtLRotation3f {
public:
    // Leaves the four components unset.
    ZtLRotation3f() = default;
    // The quaternion (a, b, c, d) = (x, y, z, w), stored unchanged.
    constexpr ZtLRotation3f(double a, double b, double c, double d) noexcept : q{a, b, c, d} {}
    explicit ZtLRotation3f(const double* p) noexcept : q{p[0], p[1], p[2], p[3]} {}
    // The rotation by angle about axis; the axis is used as given, without normalising.
    ZtLRotation3f(const ZtLUnitVec3f& axis, double angle) noexcept { SetValue(axis, angle); }
    // The shortest rotation taking from to to.
    ZtLRotation3f(const ZtLUnitVec3f& from, const ZtLUnitVec3f& to) noexcept { SetValue(from, to); }
    // The rotation about axis taking the projection of from to that of to (projections onto the
    // plane normal to axis).
    ZtLRotation3f(const ZtLUnitVec3f& axis, const ZtLUnitVec3f& from,
                  const ZtLUnitVec3f& to) noexcept {
        SetValue(axis, from, to);
    }

    void SetValue(double a, double b, double c, double d) noexcept {
        q[0] = a;
        q[1] = b;
        q[2] = c;
        q[3] = d;
    }
    void SetValue(const double* p) noexcept { SetValue(p[0], p[1], p[2], p[3]); }
    void SetValue(const ZtLUnitVec3f& axis, double angle) noexcept {
        const double s = std::sin(angle / 2.0);
        SetValue(axis[0] * s, axis[1] * s, axis[2] * s, std::cos(angle / 2.0));
    }
    // Same direction (1 - from.to below resop): the identity. Opposite directions (1 + from.to
    // below resop): a half turn about from x X, or about from x Y when the former is shorter
    // than resop. Otherwise the rotation about from x to by the angle between them.
    void SetValue(const ZtLUnitVec3f& from, const ZtLUnitVec3f& to) noexcept;
    // The identity when from or to is parallel to axis (within resop), or when their projections
    // point the same way; a half turn about axis when the projections are opposite.
    void SetValue(const ZtLUnitVec3f& axis, const ZtLUnitVec3f& from,
                  const ZtLUnitVec3f& to) noexcept;

    // The rotation by az about Z, then ay about Y, then ax about X: (qz * qy) * qx.
    void SetEulerXYZ(double ax, double ay, double az) noexcept;
    static ZtLRotation3f CreateFromEulerAngles(double ax, double ay, double az) noexcept {
        ZtLRotation3f r;
        r.SetEulerXYZ(ax, ay, az);
        return r;
    }
    // The angles of SetEulerXYZ for this rotation. Rotations about a single coordinate axis give
    // that angle wrapped into (-pi, pi]; at gimbal lock (y w + x z within resabs of +-1/2) ax is
    // 0 and ay is +-pi/2. Always returns true.
    bool FactorEulerXYZ(double* ax, double* ay, double* az) const noexcept;

    // The angle 2 acos(w), writing the unit axis; for a vector part not longer than resop the
    // angle 0 and the axis (0, 0, 1). w is not clamped: |w| > 1 gives NaN.
    double GetValue(ZtLUnitVec3f* axis) const noexcept;

    static ZtLRotation3f CreateIdentity() noexcept { return ZtLRotation3f(0.0, 0.0, 0.0, 1.0); }
    void MakeIdentity() noexcept { SetValue(0.0, 0.0, 0.0, 1.0); }

    // Components x, y, z, w.
    double GetA() const noexcept { return q[0]; }
    double GetB() const noexcept { return q[1]; }
    double GetC() const noexcept { return q[2]; }
    double GetD() const noexcept { return q[3]; }
    double GetIndexedValue(int i) const noexcept { return q[i]; }
    const double* GetValue() const noexcept { return q; }
    double* EditValue() noexcept { return q; }

    // This rotation, then r; the result is normalised.
    ZtLRotation3f operator*(const ZtLRotation3f& r) const noexcept {
        const double ax = q[0], ay = q[1], az = q[2], aw = q[3];
        const double bx = r.q[0], by = r.q[1], bz = r.q[2], bw = r.q[3];
        ZtLRotation3f c(
            bx * aw + ax * bw + az * by - bz * ay, by * aw + ay * bw + bz * ax - az * bx,
            bz * aw + az * bw + ay * bx - by * ax, aw * bw - ax * bx - ay * by - az * bz);
        c.Normalize();
        return c;
    }
    ZtLRotation3f& operator*=(const ZtLRotation3f& r) noexcept {
        *this = *this * r;
        return *this;
    }

    // The conjugate (-x, -y, -z, w), which inverts a unit quaternion.
    ZtLRotation3f Inverse() const noexcept { return ZtLRotation3f(-q[0], -q[1], -q[2], q[3]); }
    void Invert() noexcept { *this = Inverse(); }

    // Divides the four components by the length; a zero quaternion becomes NaNs.
    void Normalize() noexcept {
        const double length = std::sqrt(Length2());
        for (double& v : q) v /= length;
    }
    ZtLRotation3f Normalized() const noexcept {
        ZtLRotation3f r(*this);
        r.Normalize();
        return r;
    }

    // Spherical interpolation from this (t = 0) to r (t = 1) along the shorter arc; nearly equal
    // rotations blend linearly. The result is normalised.
    ZtLRotation3f Slerp(const ZtLRotation3f& r, double t) const noexcept;

    // The angle in [0, pi] of the rotation from this to r (Inverse() * r), writing its axis when
    // axis is not null; angle 0 and axis (0, 0, 1) when they agree within resop.
    double AngleBetween(const ZtLRotation3f& r, ZtLUnitVec3f* axis) const noexcept;

    // Exact comparisons of the four components; (0, 0, 0, -1) is not the identity.
    bool operator==(const ZtLRotation3f& r) const noexcept {
        return q[0] == r.q[0] && q[1] == r.q[1] && q[2] == r.q[2] && q[3] == r.q[3];
    }
    bool operator!=(const ZtLRotation3f& r) const noexcept { return !(*this == r); }
    bool IsIdentity() const noexcept {
        return q[0] == 0.0 && q[1] == 0.0 && q[2] == 0.0 && q[3] == 1.0;
    }
    // Per component: false when x, y or z differs by more than tol, then true when w differs by
    // at most tol. A NaN difference thus passes in x, y and z but fails in w.
    bool EqualsAbs(const ZtLRotation3f& r, double tol) const noexcept {
        if (std::fabs(q[0] - r.q[0]) > tol || std::fabs(q[1] - r.q[1]) > tol ||
            std::fabs(q[2] - r.q[2]) > tol)
            return false;
        return tol >= std::fabs(q[3] - r.q[3]);
    }
    // True when |this . r| is within tol of 1, so q and -q (the same rotation) compare equal.
    bool EqualsNor(const ZtLRotation3f& r, double tol) const noexcept {
        return tol >= std::fabs(std::fabs(Dot(r)) - 1.0);
    }

    // Hash of x, y, z, w.
    unsigned int CalcHashCode() const noexcept;
    // The Euler angles of FactorEulerXYZ in degrees: "(%.4f, %.4f, %.4f)" for X, Y, Z.
    ZtUWideStringBuffer ToString() const;
    ZtUWideStringBuffer ToStringImpl() const { return ToString(); }
    // Element "rotation" holding element "quaternion" with the values "a", "b", "c", "d". A read
    // starts from the identity and changes this rotation only when the stream has no error.
    void SerialiseXML(ZtUXMLDOMStream* s);

private:
    double Length2() const noexcept {
        return q[0] * q[0] + q[1] * q[1] + q[2] * q[2] + q[3] * q[3];
    }
    double Dot(const ZtLRotation3f& r) const noexcept {
        return q[0] * r.q[0] + q[1] * r.q[1] + q[2] * r.q[2] + q[3] * r.q[3];
    }
    // v * M(r), the row-vector rotation of v.
    static ZtLVec3f MultVecRot(const ZtLVec3f& v, const ZtLRotation3f& r) noexcept;
    // M(r) * v, the column form: for a unit r the inverse rotation.
    static ZtLVec3f MultRotVec(const ZtLRotation3f& r, const ZtLVec3f& v) noexcept;

    double q[4];
};

static_assert(std::is_trivially_copyable<ZtLRotation3f>::value &&
                  sizeof(ZtLRotation3f) == 4 * sizeof(double),
              "a plain value of four doubles");

#endif
