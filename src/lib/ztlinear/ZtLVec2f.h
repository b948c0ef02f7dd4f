#ifndef ZTLINEAR_ZTLVEC2F_H
#define ZTLINEAR_ZTLVEC2F_H

#include <ztlinear/ZtLExport.h>
#include <ztlinear/ZtLVec.h>
#include <ztutil/ZtUOption.h>
#include <ztutil/ZtUStringBuffer.h>

#include <cmath>
#include <type_traits>

// The 2D vector family: free vectors (ZtLVec2f), positions (ZtLPos2f) and directions of length
// one (ZtLUnitVec2f), two doubles x, y each, over the storage base ZtLBaseVec2f.
//
// The rules of the 3D family hold with two components: affine arithmetic only (a position minus
// a position is a vector, a position plus or minus a vector is a position), equality with a
// tolerance that differs by kind (per-component box for vectors, circle for positions,
// 1 - dot for unit vectors), exact zero tests. The cross product of two 2D vectors is the
// scalar x1*y2 - y1*x2.
//
// Signed angles differ from 3D: the sign comes from the dot product of the reference with the
// second direction, so the reference is the direction perpendicular to the first one on the side
// that counts as positive; and the angle is always acos of the clamped dot product.
//
// All four are plain values: trivially copyable, exactly two doubles, no virtual functions.
// Default construction leaves the components unset.
//
// Records: the XML elements "vec2f" and "pos2f" with the values "x", "y" (unit vectors have none
// of their own); a position converts to and from a ZtUData 2D point and is kept in the registry
// as a "point2d" option. Reading a record keeps the old value when the input is bad.

class ZtLVec2f;
class ZtLPos2f;
class ZtLUnitVec2f;
class ZtUXMLDOMStream;

// Storage of two doubles. Reading is public; writing is protected, and each derived kind exposes
// what it allows (unit vectors keep their length).
class ZTL_EXPORT ZtLBaseVec2f : public ZtLVec {
public:
    constexpr double GetValue(int i) const noexcept { return m_v[i]; }
    constexpr double Get(int i) const noexcept { return m_v[i]; }
    constexpr double operator[](int i) const noexcept { return m_v[i]; }
    // The two doubles x, y.
    constexpr const double* GetValue() const noexcept { return m_v; }
    constexpr double GetX() const noexcept { return m_v[0]; }
    constexpr double GetY() const noexcept { return m_v[1]; }

    // True when no component is infinite or NaN.
    bool IsFinite() const noexcept { return std::isfinite(m_v[0]) && std::isfinite(m_v[1]); }

    // Checksum of x, y.
    unsigned int CalcHashCode() const noexcept;
    // "(x, y)", each with sixteen decimals in fixed notation.
    ZtUWideStringBuffer ToString() const;
    // Exchanges the values "x", "y" with s inside an element opened by the caller. A reading
    // stream that reports an error leaves the value as it was.
    void SerialiseXMLInner(ZtUXMLDOMStream* s);

protected:
    ZtLBaseVec2f() = default;
    constexpr ZtLBaseVec2f(double x, double y) noexcept : m_v{x, y} {}
    explicit constexpr ZtLBaseVec2f(const double* v) noexcept : m_v{v[0], v[1]} {}

    constexpr void Set(int i, double value) noexcept { m_v[i] = value; }
    constexpr void SetValue(double x, double y) noexcept {
        m_v[0] = x;
        m_v[1] = y;
    }
    constexpr void SetValue(const double* v) noexcept { SetValue(v[0], v[1]); }
    constexpr double* GetValue() noexcept { return m_v; }
    constexpr double& operator[](int i) noexcept { return m_v[i]; }

    double m_v[2];
};

// A free vector in the plane.
class ZTL_EXPORT ZtLVec2f : public ZtLBaseVec2f {
public:
    ZtLVec2f() = default;
    constexpr ZtLVec2f(double x, double y) noexcept : ZtLBaseVec2f(x, y) {}
    explicit constexpr ZtLVec2f(const double* v) noexcept : ZtLBaseVec2f(v) {}

    using ZtLBaseVec2f::GetValue;
    using ZtLBaseVec2f::Set;
    using ZtLBaseVec2f::SetValue;
    using ZtLBaseVec2f::operator[];
    constexpr double* EditValue() noexcept { return m_v; }

    // The same storage seen as a position.
    const ZtLPos2f& Pos() const noexcept;
    ZtLPos2f& Pos() noexcept;

    // Per component: tol >= |a_i - b_i| for each i (inclusive; NaN makes it false).
    static bool Equals(const ZtLVec2f& a, const ZtLVec2f& b, double tol) noexcept {
        return tol >= std::fabs(a.m_v[0] - b.m_v[0]) && tol >= std::fabs(a.m_v[1] - b.m_v[1]);
    }
    bool Equals(const ZtLVec2f& v, double tol) const noexcept { return Equals(*this, v, tol); }

    // Exact: both components compare equal to 0.0.
    constexpr bool GetIsZero() const noexcept { return m_v[0] == 0.0 && m_v[1] == 0.0; }
    constexpr bool IsZero() const noexcept { return GetIsZero(); }
    constexpr void MakeZero() noexcept { SetValue(0.0, 0.0); }

    double Length() const noexcept { return std::sqrt(Length2()); }
    double CalcLength() const noexcept { return Length(); }
    constexpr double Length2() const noexcept { return m_v[0] * m_v[0] + m_v[1] * m_v[1]; }

    // Divides by the length and returns it; a zero-length vector is left unchanged (returns 0).
    double Normalize() noexcept {
        const double length = Length();
        if (length != 0.0) {
            m_v[0] /= length;
            m_v[1] /= length;
        }
        return length;
    }
    ZtLVec2f Normalized() const noexcept {
        ZtLVec2f v(*this);
        v.Normalize();
        return v;
    }

    constexpr void Negate() noexcept { SetValue(-m_v[0], -m_v[1]); }
    constexpr ZtLVec2f Negated() const noexcept { return ZtLVec2f(-m_v[0], -m_v[1]); }
    constexpr ZtLVec2f operator-() const noexcept { return Negated(); }
    // Componentwise reciprocal; a zero component becomes an infinity.
    constexpr void Invert() noexcept { SetValue(1 / m_v[0], 1 / m_v[1]); }
    constexpr ZtLVec2f Inverse() const noexcept { return ZtLVec2f(1 / m_v[0], 1 / m_v[1]); }

    constexpr double Dot(const ZtLVec2f& v) const noexcept {
        return m_v[0] * v.m_v[0] + m_v[1] * v.m_v[1];
    }
    // x * v.y - y * v.x: positive when v lies counter-clockwise of this.
    constexpr double Cross(const ZtLVec2f& v) const noexcept {
        return m_v[0] * v.m_v[1] - m_v[1] * v.m_v[0];
    }

    constexpr ZtLVec2f Add(const ZtLVec2f& v) const noexcept {
        return ZtLVec2f(m_v[0] + v.m_v[0], m_v[1] + v.m_v[1]);
    }
    constexpr ZtLVec2f Subtract(const ZtLVec2f& v) const noexcept {
        return ZtLVec2f(m_v[0] - v.m_v[0], m_v[1] - v.m_v[1]);
    }
    constexpr ZtLVec2f Multiply(const ZtLVec2f& v) const noexcept {
        return ZtLVec2f(m_v[0] * v.m_v[0], m_v[1] * v.m_v[1]);
    }
    constexpr ZtLVec2f Divide(const ZtLVec2f& v) const noexcept {
        return ZtLVec2f(m_v[0] / v.m_v[0], m_v[1] / v.m_v[1]);
    }
    constexpr ZtLVec2f Add(double s) const noexcept { return ZtLVec2f(m_v[0] + s, m_v[1] + s); }
    constexpr ZtLVec2f Subtract(double s) const noexcept {
        return ZtLVec2f(m_v[0] - s, m_v[1] - s);
    }
    constexpr ZtLVec2f Multiply(double s) const noexcept {
        return ZtLVec2f(m_v[0] * s, m_v[1] * s);
    }
    // Divides each component by s (not a multiplication by 1/s).
    constexpr ZtLVec2f Divide(double s) const noexcept { return ZtLVec2f(m_v[0] / s, m_v[1] / s); }
    constexpr ZtLVec2f& operator+=(const ZtLVec2f& v) noexcept { return *this = Add(v); }
    constexpr ZtLVec2f& operator-=(const ZtLVec2f& v) noexcept { return *this = Subtract(v); }
    constexpr ZtLVec2f& operator*=(const ZtLVec2f& v) noexcept { return *this = Multiply(v); }
    constexpr ZtLVec2f& operator/=(const ZtLVec2f& v) noexcept { return *this = Divide(v); }
    constexpr ZtLVec2f& operator+=(double s) noexcept { return *this = Add(s); }
    constexpr ZtLVec2f& operator-=(double s) noexcept { return *this = Subtract(s); }
    constexpr ZtLVec2f& operator*=(double s) noexcept { return *this = Multiply(s); }
    constexpr ZtLVec2f& operator/=(double s) noexcept { return *this = Divide(s); }

    static constexpr ZtLVec2f CreateZero() noexcept { return ZtLVec2f(0.0, 0.0); }
    static constexpr ZtLVec2f CreateX() noexcept { return ZtLVec2f(1.0, 0.0); }
    static constexpr ZtLVec2f CreateY() noexcept { return ZtLVec2f(0.0, 1.0); }
    static constexpr ZtLVec2f X() noexcept { return CreateX(); }
    static constexpr ZtLVec2f Y() noexcept { return CreateY(); }

    // Both directions normalised (a zero vector stays zero), then tol >= 1 - dot.
    bool DirEquals(const ZtLVec2f& v, double tol) const noexcept;
    // This direction normalised, then tol >= 1 - dot.
    bool DirEquals(const ZtLUnitVec2f& u, double tol) const noexcept;

    // ZtLUnitVec2f::Angle of the normalised operands.
    double Angle(const ZtLVec2f& v) const noexcept;
    // The angle between the normalised operands, negative when ref . v < 0 (ref and v taken as
    // given, not normalised).
    double AngleWithRef(const ZtLVec2f& v, const ZtLVec2f& ref) const noexcept;

    ZtUWideStringBuffer ToStringImpl() const { return ToString(); }
    // The record "vec2f" with "x", "y"; reading keeps the old value on bad input.
    void SerialiseXML(ZtUXMLDOMStream* s);
};

// A position (point) in the plane. Only vectors are added to or subtracted from it.
class ZTL_EXPORT ZtLPos2f : public ZtLBaseVec2f {
public:
    ZtLPos2f() = default;
    constexpr ZtLPos2f(double x, double y) noexcept : ZtLBaseVec2f(x, y) {}
    explicit constexpr ZtLPos2f(const double* v) noexcept : ZtLBaseVec2f(v) {}
    // The point held by d when it is a 2D point; a datum of any other kind leaves the components
    // unset (the assignment below keeps the previous value instead).
    explicit ZtLPos2f(const ZtUData& d) noexcept;
    // Takes the point held by d when it is a 2D point; a datum of any other kind changes nothing.
    // (A template taking exactly ZtUData, so that neither a braced list nor a number converts to
    // a datum here.)
    template <class Data, class = std::enable_if_t<std::is_same<Data, ZtUData>::value>>
    ZtLPos2f& operator=(const Data& d) noexcept {
        if (d.IsPoint2D()) SetValue(d.GetPoint2D());
        return *this;
    }
    // A ZtUData 2D point of the components.
    ZtUData ToData() const;

    using ZtLBaseVec2f::GetValue;
    using ZtLBaseVec2f::Set;
    using ZtLBaseVec2f::SetValue;
    using ZtLBaseVec2f::operator[];
    constexpr double* EditValue() noexcept { return m_v; }

    // The same storage seen as a free vector (from the origin).
    const ZtLVec2f& Vec() const noexcept { return reinterpret_cast<const ZtLVec2f&>(*this); }
    ZtLVec2f& Vec() noexcept { return reinterpret_cast<ZtLVec2f&>(*this); }

    // By distance: tol*tol >= dx*dx + dy*dy (a circle, unlike the box of ZtLVec2f::Equals).
    static bool Equals(const ZtLPos2f& a, const ZtLPos2f& b, double tol) noexcept {
        return tol * tol >= a.DistanceTo2(b);
    }
    bool Equals(const ZtLPos2f& p, double tol) const noexcept { return Equals(*this, p, tol); }

    // Exact: both components compare equal to 0.0.
    constexpr bool GetIsOrigin() const noexcept { return m_v[0] == 0.0 && m_v[1] == 0.0; }
    constexpr bool IsOrigin() const noexcept { return GetIsOrigin(); }
    static constexpr ZtLPos2f GetOrigin() noexcept { return ZtLPos2f(0.0, 0.0); }
    static constexpr ZtLPos2f Origin() noexcept { return GetOrigin(); }
    constexpr void MakeOrigin() noexcept { SetValue(0.0, 0.0); }

    // Distance from the origin, and its square.
    double Distance() const noexcept { return std::sqrt(Distance2()); }
    double CalcDistance() const noexcept { return Distance(); }
    constexpr double Distance2() const noexcept { return m_v[0] * m_v[0] + m_v[1] * m_v[1]; }
    // Distance to p, and its square.
    double DistanceTo(const ZtLPos2f& p) const noexcept { return std::sqrt(DistanceTo2(p)); }
    constexpr double DistanceTo2(const ZtLPos2f& p) const noexcept;

    constexpr ZtLPos2f Add(const ZtLVec2f& v) const noexcept;
    constexpr ZtLPos2f Subtract(const ZtLVec2f& v) const noexcept;
    // This minus p.
    constexpr ZtLVec2f Subtract(const ZtLPos2f& p) const noexcept {
        return ZtLVec2f(m_v[0] - p.m_v[0], m_v[1] - p.m_v[1]);
    }
    constexpr ZtLPos2f& operator+=(const ZtLVec2f& v) noexcept { return *this = Add(v); }
    constexpr ZtLPos2f& operator-=(const ZtLVec2f& v) noexcept { return *this = Subtract(v); }

    // ((a.x + b.x) * 0.5, (a.y + b.y) * 0.5).
    static constexpr ZtLPos2f CentreOfTwoPoints(const ZtLPos2f& a, const ZtLPos2f& b) noexcept {
        return ZtLPos2f((a.m_v[0] + b.m_v[0]) * 0.5, (a.m_v[1] + b.m_v[1]) * 0.5);
    }
    // -atan2(a.y - b.y, a.x - b.x): the direction angle of a seen from b, negated.
    static double AngleOfTwoPoints(const ZtLPos2f& a, const ZtLPos2f& b) noexcept {
        return -std::atan2(a.m_v[1] - b.m_v[1], a.m_v[0] - b.m_v[0]);
    }

    ZtUWideStringBuffer ToStringImpl() const { return ToString(); }
    // The record "pos2f" with "x", "y"; reading keeps the old value on bad input.
    void SerialiseXML(ZtUXMLDOMStream* s);

    // The point option: a set of class "point2d" named name, holding the linear float options
    // "x", "y" with the components of def as defaults, the given profile and validator. The set
    // is registered on parent, or in the registry at the dotted path name, with
    // flags | ZtUOptionStructured; the registry owns it.
    static ZtUOptionSet* DefinePoint2DOption(ZtUExOptionSet* parent, const char* name,
                                             const ZtLPos2f& def, ZtUOptionSet::Profile profile,
                                             unsigned int flags, ZtUOptionValidator* validator);
    static ZtUOptionSet* DefinePoint2DOption(const char* name, const ZtLPos2f& def,
                                             ZtUOptionSet::Profile profile, unsigned int flags,
                                             ZtUOptionValidator* validator);
    // The point option name of set (under the caller's lock), or at the dotted path name in the
    // registry (under the option lock, taken for the call).
    static ZtLPos2f GetPoint2DOption(ZtUOptionSet* set, const char* name);
    static ZtLPos2f GetPoint2DOption(const char* name);
    static void SetPoint2DOption(ZtUOptionSet* set, const char* name, const ZtLPos2f& p);
    static void SetPoint2DOption(const char* name, const ZtLPos2f& p);
};

// A direction in the plane: length one, or exactly (0, 0) when made from a zero vector. Every
// constructor and SetValue normalise; SetUnitValue and EditUnitValue store without normalising,
// and the caller vouches for the length. Arithmetic goes through Vec().
class ZTL_EXPORT ZtLUnitVec2f : public ZtLBaseVec2f {
public:
    ZtLUnitVec2f() = default;
    ZtLUnitVec2f(double x, double y) noexcept { SetAndNormalize(x, y); }
    explicit ZtLUnitVec2f(const double* v) noexcept { SetAndNormalize(v); }
    explicit ZtLUnitVec2f(const ZtLVec2f& v) noexcept { SetAndNormalize(v.GetX(), v.GetY()); }

    constexpr double GetValue(int i) const noexcept { return m_v[i]; }
    constexpr const double* GetValue() const noexcept { return m_v; }
    constexpr const double& operator[](int i) const noexcept { return m_v[i]; }

    // Read access as a free vector.
    const ZtLVec2f& Vec() const noexcept { return reinterpret_cast<const ZtLVec2f&>(*this); }
    operator const ZtLVec2f&() const noexcept { return Vec(); }

    // Stores (x, y) / L with L = sqrt(x*x + y*y), or (0, 0) when L is 0; returns L.
    double SetAndNormalize(double x, double y) noexcept {
        const double length = std::sqrt(x * x + y * y);
        if (length == 0.0) {
            ZtLBaseVec2f::SetValue(0.0, 0.0);
        } else {
            ZtLBaseVec2f::SetValue(x / length, y / length);
        }
        return length;
    }
    double SetAndNormalize(const double* v) noexcept { return SetAndNormalize(v[0], v[1]); }
    void SetValue(double x, double y) noexcept { SetAndNormalize(x, y); }
    void SetValue(const double* v) noexcept { SetAndNormalize(v); }
    void Normalize() noexcept { SetAndNormalize(m_v[0], m_v[1]); }

    // Unchecked stores: the caller guarantees length one (or zero).
    constexpr void SetUnitValue(double x, double y) noexcept { ZtLBaseVec2f::SetValue(x, y); }
    constexpr void SetUnitValue(const ZtLVec2f& v) noexcept {
        ZtLBaseVec2f::SetValue(v.GetX(), v.GetY());
    }
    constexpr double* EditUnitValue() noexcept { return m_v; }

    // tol >= 1 - (a . b).
    static bool Equals(const ZtLUnitVec2f& a, const ZtLUnitVec2f& b, double tol) noexcept {
        return tol >= 1 - a.Dot(b);
    }
    bool Equals(const ZtLUnitVec2f& u, double tol) const noexcept { return Equals(*this, u, tol); }
    // v normalised, then tol >= 1 - dot.
    bool DirEquals(const ZtLVec2f& v, double tol) const noexcept {
        return Equals(*this, ZtLUnitVec2f(v), tol);
    }

    // Exact: both components compare equal to 0.0.
    constexpr bool IsZero() const noexcept { return m_v[0] == 0.0 && m_v[1] == 0.0; }

    double Dot(const ZtLVec2f& v) const noexcept { return Vec().Dot(v); }
    // x * v.y - y * v.x.
    double Cross(const ZtLVec2f& v) const noexcept { return Vec().Cross(v); }

    constexpr void Negate() noexcept { ZtLBaseVec2f::SetValue(-m_v[0], -m_v[1]); }
    constexpr ZtLUnitVec2f operator-() const noexcept {
        ZtLUnitVec2f u(*this);
        u.Negate();
        return u;
    }

    static ZtLUnitVec2f X() noexcept { return Unit(1.0, 0.0); }
    static ZtLUnitVec2f Y() noexcept { return Unit(0.0, 1.0); }

    // acos of the dot product clamped to [-1, 1]: in [0, pi], never NaN for finite input.
    double Angle(const ZtLUnitVec2f& u) const noexcept;
    // Angle(u) when ref . u >= 0, otherwise its negation.
    double AngleWithRef(const ZtLUnitVec2f& u, const ZtLUnitVec2f& ref) const noexcept;

private:
    static ZtLUnitVec2f Unit(double x, double y) noexcept {
        ZtLUnitVec2f u;
        u.SetUnitValue(x, y);
        return u;
    }
};

static_assert(sizeof(ZtLVec2f) == 2 * sizeof(double) && sizeof(ZtLPos2f) == 2 * sizeof(double) &&
                  sizeof(ZtLUnitVec2f) == 2 * sizeof(double),
              "2D vectors hold exactly their two doubles");
static_assert(std::is_standard_layout<ZtLVec2f>::value &&
                  std::is_standard_layout<ZtLPos2f>::value &&
                  std::is_standard_layout<ZtLUnitVec2f>::value,
              "2D vectors are standard layout");
static_assert(std::is_trivially_copyable<ZtLVec2f>::value &&
                  std::is_trivially_copyable<ZtLPos2f>::value &&
                  std::is_trivially_copyable<ZtLUnitVec2f>::value,
              "2D vectors are trivially copyable");

inline const ZtLPos2f& ZtLVec2f::Pos() const noexcept {
    return reinterpret_cast<const ZtLPos2f&>(*this);
}
inline ZtLPos2f& ZtLVec2f::Pos() noexcept { return reinterpret_cast<ZtLPos2f&>(*this); }

constexpr double ZtLPos2f::DistanceTo2(const ZtLPos2f& p) const noexcept {
    return Subtract(p).Length2();
}
constexpr ZtLPos2f ZtLPos2f::Add(const ZtLVec2f& v) const noexcept {
    return ZtLPos2f(m_v[0] + v.GetX(), m_v[1] + v.GetY());
}
constexpr ZtLPos2f ZtLPos2f::Subtract(const ZtLVec2f& v) const noexcept {
    return ZtLPos2f(m_v[0] - v.GetX(), m_v[1] - v.GetY());
}

// Operator forms of the arithmetic above.
constexpr ZtLVec2f operator+(const ZtLVec2f& a, const ZtLVec2f& b) noexcept { return a.Add(b); }
constexpr ZtLVec2f operator-(const ZtLVec2f& a, const ZtLVec2f& b) noexcept {
    return a.Subtract(b);
}
constexpr ZtLVec2f operator*(const ZtLVec2f& v, double s) noexcept { return v.Multiply(s); }
constexpr ZtLVec2f operator*(double s, const ZtLVec2f& v) noexcept { return v.Multiply(s); }
constexpr ZtLVec2f operator/(const ZtLVec2f& v, double s) noexcept { return v.Divide(s); }
constexpr ZtLPos2f operator+(const ZtLPos2f& p, const ZtLVec2f& v) noexcept { return p.Add(v); }
constexpr ZtLPos2f operator-(const ZtLPos2f& p, const ZtLVec2f& v) noexcept {
    return p.Subtract(v);
}
constexpr ZtLVec2f operator-(const ZtLPos2f& a, const ZtLPos2f& b) noexcept {
    return a.Subtract(b);
}

#endif
