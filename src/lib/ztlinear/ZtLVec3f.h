#ifndef ZTLINEAR_ZTLVEC3F_H
#define ZTLINEAR_ZTLVEC3F_H

#include <ztlinear/ZtLExport.h>
#include <ztlinear/ZtLVec.h>
#include <ztutil/ZtUOption.h>
#include <ztutil/ZtUStringBuffer.h>

#include <cmath>
#include <type_traits>

// The 3D vector family: free vectors (ZtLVec3f), positions (ZtLPos3f) and directions of length
// one (ZtLUnitVec3f), three doubles x, y, z each, over the storage base ZtLBaseVec3f.
//
// The kinds are kept apart so that affine meaning is checked when the code is built: a position
// minus a position is a free vector, a position plus or minus a free vector is a position, and
// nothing else mixes positions with vectors. Arithmetic on unit vectors gives free vectors.
//
// Equality always takes a tolerance and differs by kind on purpose: free vectors compare per
// component (a box), positions by distance (a sphere), unit vectors by 1 - dot. The zero tests
// (IsZero, IsOrigin) are exact: -0.0 counts as zero, NaN does not.
//
// All four are plain values: trivially copyable, exactly three doubles, no virtual functions.
// Default construction leaves the components unset.
//
// Records: the XML elements "vec3f" (free and unit vectors alike) and "pos3f" with the values
// "x", "y", "z"; a position converts to and from a ZtUData 3D point and is kept in the registry as
// a "point3d" option. Reading a record keeps the old value when the input is bad.

class ZtLVec3f;
class ZtLPos3f;
class ZtLUnitVec3f;
class ZtLColor3f;
class ZtLMatrix3f;
class ZtUXMLDOMStream;

// Storage of three doubles. Reading is public; writing is protected, and each derived kind
// exposes what it allows (unit vectors keep their length).
class ZTL_EXPORT ZtLBaseVec3f : public ZtLVec {
public:
    constexpr double GetValue(int i) const noexcept { return m_v[i]; }
    constexpr double Get(int i) const noexcept { return m_v[i]; }
    constexpr double operator[](int i) const noexcept { return m_v[i]; }
    // The three doubles x, y, z.
    constexpr const double* GetValue() const noexcept { return m_v; }
    constexpr double GetX() const noexcept { return m_v[0]; }
    constexpr double GetY() const noexcept { return m_v[1]; }
    constexpr double GetZ() const noexcept { return m_v[2]; }

    // True when no component is infinite or NaN.
    bool IsFinite() const noexcept {
        return std::isfinite(m_v[0]) && std::isfinite(m_v[1]) && std::isfinite(m_v[2]);
    }

    // Checksum of x, y, z.
    unsigned int CalcHashCode() const noexcept;
    // "(x, y, z)", each with sixteen decimals in fixed notation.
    ZtUWideStringBuffer ToString() const;
    // Exchanges the values "x", "y", "z" with s inside an element opened by the caller. A reading
    // stream that reports an error leaves the value as it was.
    void SerialiseXMLInner(ZtUXMLDOMStream* s);

protected:
    ZtLBaseVec3f() = default;
    constexpr ZtLBaseVec3f(double x, double y, double z) noexcept : m_v{x, y, z} {}
    explicit constexpr ZtLBaseVec3f(const double* v) noexcept : m_v{v[0], v[1], v[2]} {}

    constexpr void Set(int i, double value) noexcept { m_v[i] = value; }
    constexpr void SetValue(double x, double y, double z) noexcept {
        m_v[0] = x;
        m_v[1] = y;
        m_v[2] = z;
    }
    constexpr void SetValue(const double* v) noexcept { SetValue(v[0], v[1], v[2]); }
    constexpr double* GetValue() noexcept { return m_v; }
    constexpr double& operator[](int i) noexcept { return m_v[i]; }

    double m_v[3];
};

// A free vector: a displacement or direction of any length.
class ZTL_EXPORT ZtLVec3f : public ZtLBaseVec3f {
public:
    ZtLVec3f() = default;
    constexpr ZtLVec3f(double x, double y, double z) noexcept : ZtLBaseVec3f(x, y, z) {}
    explicit constexpr ZtLVec3f(const double* v) noexcept : ZtLBaseVec3f(v) {}

    using ZtLBaseVec3f::GetValue;
    using ZtLBaseVec3f::Set;
    using ZtLBaseVec3f::SetValue;
    using ZtLBaseVec3f::operator[];
    constexpr double* EditValue() noexcept { return m_v; }

    // The same storage seen as a position.
    const ZtLPos3f& Pos() const noexcept;
    ZtLPos3f& Pos() noexcept;
    // The same storage seen as a colour (x, y, z as red, green, blue; see <ztlinear/ZtLColor3f.h>).
    const ZtLColor3f& Color() const noexcept;
    ZtLColor3f& Color() noexcept;

    // Per component: tol >= |a_i - b_i| for each i (inclusive; NaN makes it false).
    static bool Equals(const ZtLVec3f& a, const ZtLVec3f& b, double tol) noexcept {
        return tol >= std::fabs(a.m_v[0] - b.m_v[0]) && tol >= std::fabs(a.m_v[1] - b.m_v[1]) &&
               tol >= std::fabs(a.m_v[2] - b.m_v[2]);
    }
    bool Equals(const ZtLVec3f& v, double tol) const noexcept { return Equals(*this, v, tol); }

    // Exact: all three components compare equal to 0.0.
    constexpr bool GetIsZero() const noexcept {
        return m_v[0] == 0.0 && m_v[1] == 0.0 && m_v[2] == 0.0;
    }
    constexpr bool IsZero() const noexcept { return GetIsZero(); }
    constexpr void MakeZero() noexcept { SetValue(0.0, 0.0, 0.0); }

    double Length() const noexcept { return std::sqrt(Length2()); }
    double CalcLength() const noexcept { return Length(); }
    constexpr double Length2() const noexcept {
        return m_v[0] * m_v[0] + m_v[1] * m_v[1] + m_v[2] * m_v[2];
    }

    // Divides by the length and returns it; a zero-length vector is left unchanged (returns 0).
    double Normalize() noexcept {
        const double length = Length();
        if (length != 0.0) {
            m_v[0] /= length;
            m_v[1] /= length;
            m_v[2] /= length;
        }
        return length;
    }
    ZtLVec3f Normalized() const noexcept {
        ZtLVec3f v(*this);
        v.Normalize();
        return v;
    }

    constexpr void Negate() noexcept { SetValue(-m_v[0], -m_v[1], -m_v[2]); }
    constexpr ZtLVec3f Negated() const noexcept { return ZtLVec3f(-m_v[0], -m_v[1], -m_v[2]); }
    constexpr ZtLVec3f operator-() const noexcept { return Negated(); }
    // Componentwise reciprocal; a zero component becomes an infinity.
    constexpr void Invert() noexcept { SetValue(1 / m_v[0], 1 / m_v[1], 1 / m_v[2]); }
    constexpr ZtLVec3f Inverse() const noexcept {
        return ZtLVec3f(1 / m_v[0], 1 / m_v[1], 1 / m_v[2]);
    }
    // A copy with the absolute value of each component.
    ZtLVec3f Abs() const noexcept {
        return ZtLVec3f(std::fabs(m_v[0]), std::fabs(m_v[1]), std::fabs(m_v[2]));
    }

    constexpr double Dot(const ZtLVec3f& v) const noexcept {
        return m_v[0] * v.m_v[0] + m_v[1] * v.m_v[1] + m_v[2] * v.m_v[2];
    }
    constexpr ZtLVec3f Cross(const ZtLVec3f& v) const noexcept {
        return ZtLVec3f(m_v[1] * v.m_v[2] - m_v[2] * v.m_v[1],
                        m_v[2] * v.m_v[0] - m_v[0] * v.m_v[2],
                        m_v[0] * v.m_v[1] - m_v[1] * v.m_v[0]);
    }

    constexpr ZtLVec3f Add(const ZtLVec3f& v) const noexcept {
        return ZtLVec3f(m_v[0] + v.m_v[0], m_v[1] + v.m_v[1], m_v[2] + v.m_v[2]);
    }
    constexpr ZtLVec3f Subtract(const ZtLVec3f& v) const noexcept {
        return ZtLVec3f(m_v[0] - v.m_v[0], m_v[1] - v.m_v[1], m_v[2] - v.m_v[2]);
    }
    constexpr ZtLVec3f Multiply(const ZtLVec3f& v) const noexcept {
        return ZtLVec3f(m_v[0] * v.m_v[0], m_v[1] * v.m_v[1], m_v[2] * v.m_v[2]);
    }
    // The row vector times the matrix (this * m), as the free operator* of ZtLMatrix3f.h.
    ZtLVec3f Multiply(const ZtLMatrix3f& m) const noexcept;
    constexpr ZtLVec3f Divide(const ZtLVec3f& v) const noexcept {
        return ZtLVec3f(m_v[0] / v.m_v[0], m_v[1] / v.m_v[1], m_v[2] / v.m_v[2]);
    }
    constexpr ZtLVec3f Add(double s) const noexcept {
        return ZtLVec3f(m_v[0] + s, m_v[1] + s, m_v[2] + s);
    }
    constexpr ZtLVec3f Subtract(double s) const noexcept {
        return ZtLVec3f(m_v[0] - s, m_v[1] - s, m_v[2] - s);
    }
    constexpr ZtLVec3f Multiply(double s) const noexcept {
        return ZtLVec3f(m_v[0] * s, m_v[1] * s, m_v[2] * s);
    }
    // Divides each component by s (not a multiplication by 1/s).
    constexpr ZtLVec3f Divide(double s) const noexcept {
        return ZtLVec3f(m_v[0] / s, m_v[1] / s, m_v[2] / s);
    }
    constexpr ZtLVec3f& operator+=(const ZtLVec3f& v) noexcept { return *this = Add(v); }
    constexpr ZtLVec3f& operator-=(const ZtLVec3f& v) noexcept { return *this = Subtract(v); }
    constexpr ZtLVec3f& operator*=(const ZtLVec3f& v) noexcept { return *this = Multiply(v); }
    constexpr ZtLVec3f& operator/=(const ZtLVec3f& v) noexcept { return *this = Divide(v); }
    constexpr ZtLVec3f& operator+=(double s) noexcept { return *this = Add(s); }
    constexpr ZtLVec3f& operator-=(double s) noexcept { return *this = Subtract(s); }
    constexpr ZtLVec3f& operator*=(double s) noexcept { return *this = Multiply(s); }
    constexpr ZtLVec3f& operator/=(double s) noexcept { return *this = Divide(s); }

    static constexpr ZtLVec3f CreateZero() noexcept { return ZtLVec3f(0.0, 0.0, 0.0); }
    static constexpr ZtLVec3f CreateX() noexcept { return ZtLVec3f(1.0, 0.0, 0.0); }
    static constexpr ZtLVec3f CreateY() noexcept { return ZtLVec3f(0.0, 1.0, 0.0); }
    static constexpr ZtLVec3f CreateZ() noexcept { return ZtLVec3f(0.0, 0.0, 1.0); }
    static constexpr ZtLVec3f X() noexcept { return CreateX(); }
    static constexpr ZtLVec3f Y() noexcept { return CreateY(); }
    static constexpr ZtLVec3f Z() noexcept { return CreateZ(); }

    // Both directions normalised (a zero vector stays zero), then tol >= 1 - dot.
    bool DirEquals(const ZtLVec3f& v, double tol) const noexcept;
    // This direction normalised, then tol >= 1 - dot.
    bool DirEquals(const ZtLUnitVec3f& u, double tol) const noexcept;

    // ZtLUnitVec3f::Angle and AngleWithRef of the normalised operands.
    double Angle(const ZtLVec3f& v) const noexcept;
    double AngleWithRef(const ZtLVec3f& v, const ZtLVec3f& ref) const noexcept;

    ZtUWideStringBuffer ToStringImpl() const { return ToString(); }
    // The record "vec3f" with "x", "y", "z"; reading keeps the old value on bad input.
    void SerialiseXML(ZtUXMLDOMStream* s);
};

// A position (point). Only vectors are added to or subtracted from it.
class ZTL_EXPORT ZtLPos3f : public ZtLBaseVec3f {
public:
    ZtLPos3f() = default;
    constexpr ZtLPos3f(double x, double y, double z) noexcept : ZtLBaseVec3f(x, y, z) {}
    explicit constexpr ZtLPos3f(const double* v) noexcept : ZtLBaseVec3f(v) {}
    // The point held by d when it is a 3D point; a datum of any other kind leaves the components
    // unset (the assignment below keeps the previous value instead).
    explicit ZtLPos3f(const ZtUData& d) noexcept;
    // Takes the point held by d when it is a 3D point; a datum of any other kind changes nothing.
    // (A template taking exactly ZtUData, so that neither a braced list nor a number converts to
    // a datum here.)
    template <class Data, class = std::enable_if_t<std::is_same<Data, ZtUData>::value>>
    ZtLPos3f& operator=(const Data& d) noexcept {
        if (d.IsPoint3D()) SetValue(d.GetPoint3D());
        return *this;
    }
    // A ZtUData 3D point of the components.
    ZtUData ToData() const;

    using ZtLBaseVec3f::GetValue;
    using ZtLBaseVec3f::Set;
    using ZtLBaseVec3f::SetValue;
    using ZtLBaseVec3f::operator[];
    constexpr double* EditValue() noexcept { return m_v; }

    // The same storage seen as a free vector (from the origin).
    const ZtLVec3f& Vec() const noexcept { return reinterpret_cast<const ZtLVec3f&>(*this); }
    ZtLVec3f& Vec() noexcept { return reinterpret_cast<ZtLVec3f&>(*this); }

    // By distance: tol*tol >= |a - b|^2 (a sphere, unlike the box of ZtLVec3f::Equals).
    static bool Equals(const ZtLPos3f& a, const ZtLPos3f& b, double tol) noexcept {
        return tol * tol >= a.DistanceTo2(b);
    }
    bool Equals(const ZtLPos3f& p, double tol) const noexcept { return Equals(*this, p, tol); }

    // Exact: all three components compare equal to 0.0.
    constexpr bool GetIsOrigin() const noexcept {
        return m_v[0] == 0.0 && m_v[1] == 0.0 && m_v[2] == 0.0;
    }
    constexpr bool IsOrigin() const noexcept { return GetIsOrigin(); }
    static constexpr ZtLPos3f GetOrigin() noexcept { return ZtLPos3f(0.0, 0.0, 0.0); }
    static constexpr ZtLPos3f Origin() noexcept { return GetOrigin(); }
    constexpr void MakeOrigin() noexcept { SetValue(0.0, 0.0, 0.0); }

    // Distance from the origin, and its square.
    double Distance() const noexcept { return std::sqrt(Distance2()); }
    double CalcDistance() const noexcept { return Distance(); }
    constexpr double Distance2() const noexcept {
        return m_v[0] * m_v[0] + m_v[1] * m_v[1] + m_v[2] * m_v[2];
    }
    // Distance to p, and its square.
    double DistanceTo(const ZtLPos3f& p) const noexcept { return std::sqrt(DistanceTo2(p)); }
    constexpr double DistanceTo2(const ZtLPos3f& p) const noexcept;

    constexpr ZtLPos3f Add(const ZtLVec3f& v) const noexcept;
    constexpr ZtLPos3f Subtract(const ZtLVec3f& v) const noexcept;
    // This minus p.
    constexpr ZtLVec3f Subtract(const ZtLPos3f& p) const noexcept {
        return ZtLVec3f(m_v[0] - p.m_v[0], m_v[1] - p.m_v[1], m_v[2] - p.m_v[2]);
    }
    constexpr ZtLPos3f& operator+=(const ZtLVec3f& v) noexcept { return *this = Add(v); }
    constexpr ZtLPos3f& operator-=(const ZtLVec3f& v) noexcept { return *this = Subtract(v); }

    ZtUWideStringBuffer ToStringImpl() const { return ToString(); }
    // The record "pos3f" with "x", "y", "z"; reading keeps the old value on bad input.
    void SerialiseXML(ZtUXMLDOMStream* s);

    // The point option: a set of class "point3d" named name, holding the linear float options
    // "x", "y", "z" with the components of def as defaults, the given profile and validator. The
    // set is registered on parent, or in the registry at the dotted path name, with
    // flags | ZtUOptionStructured; the registry owns it.
    static ZtUOptionSet* DefinePoint3DOption(ZtUExOptionSet* parent, const char* name,
                                             const ZtLPos3f& def, ZtUOptionSet::Profile profile,
                                             unsigned int flags, ZtUOptionValidator* validator);
    static ZtUOptionSet* DefinePoint3DOption(const char* name, const ZtLPos3f& def,
                                             ZtUOptionSet::Profile profile, unsigned int flags,
                                             ZtUOptionValidator* validator);
    // The point option name of set (under the caller's lock), or at the dotted path name in the
    // registry (under the option lock, taken for the call).
    static ZtLPos3f GetPoint3DOption(ZtUOptionSet* set, const char* name);
    static ZtLPos3f GetPoint3DOption(const char* name);
    static void SetPoint3DOption(ZtUOptionSet* set, const char* name, const ZtLPos3f& p);
    static void SetPoint3DOption(const char* name, const ZtLPos3f& p);
};

// A direction: length one, or exactly (0, 0, 0) when made from a zero vector. Every constructor
// and SetValue normalise; SetUnitValue and EditUnitValue store without normalising, and the
// caller vouches for the length.
class ZTL_EXPORT ZtLUnitVec3f : public ZtLBaseVec3f {
public:
    ZtLUnitVec3f() = default;
    ZtLUnitVec3f(double x, double y, double z) noexcept { SetAndNormalize(x, y, z); }
    explicit ZtLUnitVec3f(const double* v) noexcept { SetAndNormalize(v); }
    explicit ZtLUnitVec3f(const ZtLVec3f& v) noexcept { SetAndNormalize(v); }

    constexpr double GetValue(int i) const noexcept { return m_v[i]; }
    constexpr const double* GetValue() const noexcept { return m_v; }
    constexpr double operator[](int i) const noexcept { return m_v[i]; }

    // Read access as a free vector.
    const ZtLVec3f& Vec() const noexcept { return reinterpret_cast<const ZtLVec3f&>(*this); }
    operator const ZtLVec3f&() const noexcept { return Vec(); }

    // Stores (x, y, z) / L with L = sqrt(x*x + y*y + z*z), or (0, 0, 0) when L is 0; returns L.
    double SetAndNormalize(double x, double y, double z) noexcept {
        const double length = std::sqrt(x * x + y * y + z * z);
        if (length == 0.0) {
            ZtLBaseVec3f::SetValue(0.0, 0.0, 0.0);
        } else {
            ZtLBaseVec3f::SetValue(x / length, y / length, z / length);
        }
        return length;
    }
    double SetAndNormalize(const double* v) noexcept { return SetAndNormalize(v[0], v[1], v[2]); }
    double SetAndNormalize(const ZtLVec3f& v) noexcept {
        return SetAndNormalize(v.GetX(), v.GetY(), v.GetZ());
    }
    void SetValue(double x, double y, double z) noexcept { SetAndNormalize(x, y, z); }
    void SetValue(const double* v) noexcept { SetAndNormalize(v); }
    void SetValue(const ZtLVec3f& v) noexcept { SetAndNormalize(v); }
    void Normalize() noexcept { SetAndNormalize(m_v[0], m_v[1], m_v[2]); }

    // Unchecked stores: the caller guarantees length one (or zero).
    constexpr void SetUnitValue(double x, double y, double z) noexcept {
        ZtLBaseVec3f::SetValue(x, y, z);
    }
    constexpr void SetUnitValue(const ZtLVec3f& v) noexcept {
        ZtLBaseVec3f::SetValue(v.GetValue());
    }
    constexpr double* EditUnitValue() noexcept { return m_v; }

    // tol >= 1 - (a . b).
    static bool Equals(const ZtLUnitVec3f& a, const ZtLUnitVec3f& b, double tol) noexcept {
        return tol >= 1 - a.Dot(b);
    }
    bool Equals(const ZtLUnitVec3f& u, double tol) const noexcept { return Equals(*this, u, tol); }
    // v normalised, then tol >= 1 - dot.
    bool DirEquals(const ZtLVec3f& v, double tol) const noexcept {
        return Equals(*this, ZtLUnitVec3f(v), tol);
    }

    // Exact zero tests.
    static constexpr bool IsZero(double x, double y, double z) noexcept {
        return x == 0.0 && y == 0.0 && z == 0.0;
    }
    constexpr bool GetIsZero() const noexcept { return IsZero(m_v[0], m_v[1], m_v[2]); }
    constexpr bool IsZero() const noexcept { return GetIsZero(); }

    double Dot(const ZtLVec3f& v) const noexcept { return Vec().Dot(v); }
    ZtLVec3f Cross(const ZtLVec3f& v) const noexcept { return Vec().Cross(v); }
    ZtLVec3f Add(const ZtLVec3f& v) const noexcept { return Vec().Add(v); }
    ZtLVec3f Subtract(const ZtLVec3f& v) const noexcept { return Vec().Subtract(v); }
    ZtLVec3f Multiply(const ZtLVec3f& v) const noexcept { return Vec().Multiply(v); }
    ZtLVec3f Divide(const ZtLVec3f& v) const noexcept { return Vec().Divide(v); }
    ZtLVec3f Add(double s) const noexcept { return Vec().Add(s); }
    ZtLVec3f Subtract(double s) const noexcept { return Vec().Subtract(s); }
    ZtLVec3f Multiply(double s) const noexcept { return Vec().Multiply(s); }
    ZtLVec3f Divide(double s) const noexcept { return Vec().Divide(s); }

    constexpr void Negate() noexcept { ZtLBaseVec3f::SetValue(-m_v[0], -m_v[1], -m_v[2]); }
    constexpr ZtLUnitVec3f Negated() const noexcept {
        ZtLUnitVec3f u(*this);
        u.Negate();
        return u;
    }
    constexpr ZtLUnitVec3f operator-() const noexcept { return Negated(); }

    static ZtLUnitVec3f CreateX() noexcept { return Unit(1.0, 0.0, 0.0); }
    static ZtLUnitVec3f CreateY() noexcept { return Unit(0.0, 1.0, 0.0); }
    static ZtLUnitVec3f CreateZ() noexcept { return Unit(0.0, 0.0, 1.0); }
    static ZtLUnitVec3f X() noexcept { return CreateX(); }
    static ZtLUnitVec3f Y() noexcept { return CreateY(); }
    static ZtLUnitVec3f Z() noexcept { return CreateZ(); }

    // acos of the dot product clamped to [-1, 1]: in [0, pi], never NaN for finite input.
    double Angle(const ZtLUnitVec3f& u) const noexcept;
    // The signed angle from this to u in [-pi, pi]: positive unless ref . (this x u) < 0. Near
    // parallel directions (|dot| >= 0.70710678118655) use asin of the cross product's length,
    // where acos loses precision.
    double AngleWithRef(const ZtLUnitVec3f& u, const ZtLUnitVec3f& ref) const noexcept;

    ZtUWideStringBuffer ToStringImpl() const { return ToString(); }
    // The record of a free vector ("vec3f" with "x", "y", "z"). What is read is stored as it
    // stands, like SetUnitValue, so that a unit vector written comes back bit for bit; reading
    // keeps the old value on bad input.
    void SerialiseXML(ZtUXMLDOMStream* s);

private:
    static ZtLUnitVec3f Unit(double x, double y, double z) noexcept {
        ZtLUnitVec3f u;
        u.SetUnitValue(x, y, z);
        return u;
    }
};

static_assert(sizeof(ZtLVec3f) == 3 * sizeof(double) && sizeof(ZtLPos3f) == 3 * sizeof(double) &&
                  sizeof(ZtLUnitVec3f) == 3 * sizeof(double),
              "3D vectors hold exactly their three doubles");
static_assert(std::is_standard_layout<ZtLVec3f>::value &&
                  std::is_standard_layout<ZtLPos3f>::value &&
                  std::is_standard_layout<ZtLUnitVec3f>::value,
              "3D vectors are standard layout");
static_assert(std::is_trivially_copyable<ZtLVec3f>::value &&
                  std::is_trivially_copyable<ZtLPos3f>::value &&
                  std::is_trivially_copyable<ZtLUnitVec3f>::value,
              "3D vectors are trivially copyable");

inline const ZtLPos3f& ZtLVec3f::Pos() const noexcept {
    return reinterpret_cast<const ZtLPos3f&>(*this);
}
inline ZtLPos3f& ZtLVec3f::Pos() noexcept { return reinterpret_cast<ZtLPos3f&>(*this); }
inline const ZtLColor3f& ZtLVec3f::Color() const noexcept {
    return reinterpret_cast<const ZtLColor3f&>(*this);
}
inline ZtLColor3f& ZtLVec3f::Color() noexcept { return reinterpret_cast<ZtLColor3f&>(*this); }

constexpr double ZtLPos3f::DistanceTo2(const ZtLPos3f& p) const noexcept {
    return Subtract(p).Length2();
}
constexpr ZtLPos3f ZtLPos3f::Add(const ZtLVec3f& v) const noexcept {
    return ZtLPos3f(m_v[0] + v.GetX(), m_v[1] + v.GetY(), m_v[2] + v.GetZ());
}
constexpr ZtLPos3f ZtLPos3f::Subtract(const ZtLVec3f& v) const noexcept {
    return ZtLPos3f(m_v[0] - v.GetX(), m_v[1] - v.GetY(), m_v[2] - v.GetZ());
}

// Operator forms of the arithmetic above.
constexpr ZtLVec3f operator+(const ZtLVec3f& a, const ZtLVec3f& b) noexcept { return a.Add(b); }
constexpr ZtLVec3f operator-(const ZtLVec3f& a, const ZtLVec3f& b) noexcept {
    return a.Subtract(b);
}
constexpr ZtLVec3f operator*(const ZtLVec3f& v, double s) noexcept { return v.Multiply(s); }
constexpr ZtLVec3f operator*(double s, const ZtLVec3f& v) noexcept {
    return ZtLVec3f(s * v.GetX(), s * v.GetY(), s * v.GetZ());
}
constexpr ZtLVec3f operator/(const ZtLVec3f& v, double s) noexcept { return v.Divide(s); }
constexpr ZtLPos3f operator+(const ZtLPos3f& p, const ZtLVec3f& v) noexcept { return p.Add(v); }
constexpr ZtLPos3f operator-(const ZtLPos3f& p, const ZtLVec3f& v) noexcept {
    return p.Subtract(v);
}
constexpr ZtLVec3f operator-(const ZtLPos3f& a, const ZtLPos3f& b) noexcept {
    return a.Subtract(b);
}

#endif
