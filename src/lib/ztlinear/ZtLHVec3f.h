#ifndef ZTLINEAR_ZTLHVEC3F_H
#define ZTLINEAR_ZTLHVEC3F_H

#include <ztlinear/ZtLBaseVec4f.h>
#include <ztlinear/ZtLVec3f.h>

#include <cmath>

// A spatial point with a weight (x, y, z, w), for use with projective 4x4 matrices.
//
// Arithmetic is componentwise over all four components, the weight included. The Cartesian
// position is (x/w, y/w, z/w); a weight of zero stands for a point at infinity, whose direction
// Pos() returns as is. The default constructor leaves the components unset.
class ZtLHVec3f : public ZtLBaseVec4f {
public:
    ZtLHVec3f() noexcept = default;
    constexpr ZtLHVec3f(double x, double y, double z, double w) noexcept
        : ZtLBaseVec4f(x, y, z, w) {}
    constexpr explicit ZtLHVec3f(const double* v) noexcept : ZtLBaseVec4f(v) {}

    using ZtLBaseVec4f::GetValue;
    using ZtLBaseVec4f::operator[];
    using ZtLBaseVec4f::Set;
    using ZtLBaseVec4f::SetValue;
    constexpr double* EditValue() noexcept { return m_v; }

    constexpr double GetX() const noexcept { return m_v[0]; }
    constexpr double GetY() const noexcept { return m_v[1]; }
    constexpr double GetZ() const noexcept { return m_v[2]; }
    constexpr double GetW() const noexcept { return m_v[3]; }

    // True when every component, the weight included, differs by at most tol (a NaN difference
    // makes it false).
    static bool Equals(const ZtLHVec3f& a, const ZtLHVec3f& b, double tol) noexcept {
        return tol >= std::fabs(a.m_v[0] - b.m_v[0]) && tol >= std::fabs(a.m_v[1] - b.m_v[1]) &&
               tol >= std::fabs(a.m_v[2] - b.m_v[2]) && tol >= std::fabs(a.m_v[3] - b.m_v[3]);
    }
    bool Equals(const ZtLHVec3f& other, double tol) const noexcept {
        return Equals(*this, other, tol);
    }

    // Exact test: -0.0 counts as zero, NaN does not.
    constexpr bool IsZero() const noexcept {
        return m_v[0] == 0.0 && m_v[1] == 0.0 && m_v[2] == 0.0 && m_v[3] == 0.0;
    }
    constexpr void MakeZero() noexcept { SetValue(0.0, 0.0, 0.0, 0.0); }

    // (p.x*w, p.y*w, p.z*w, w).
    void SetFromPoint(const ZtLPos3f& p, double w) noexcept {
        SetValue(p[0] * w, p[1] * w, p[2] * w, w);
    }

    // The Cartesian position: each of x, y, z divided by w, or taken unchanged when w == 0.
    ZtLPos3f Pos() const noexcept {
        const double w = m_v[3];
        if (w == 0.0) return ZtLPos3f(m_v[0], m_v[1], m_v[2]);
        return ZtLPos3f(m_v[0] / w, m_v[1] / w, m_v[2] / w);
    }

    constexpr ZtLHVec3f operator-() const noexcept {
        return ZtLHVec3f(-m_v[0], -m_v[1], -m_v[2], -m_v[3]);
    }
    constexpr ZtLHVec3f& operator+=(const ZtLHVec3f& v) noexcept {
        for (int i = 0; i < 4; ++i) m_v[i] += v.m_v[i];
        return *this;
    }
    constexpr ZtLHVec3f& operator-=(const ZtLHVec3f& v) noexcept {
        for (int i = 0; i < 4; ++i) m_v[i] -= v.m_v[i];
        return *this;
    }
    constexpr ZtLHVec3f& operator*=(const ZtLHVec3f& v) noexcept {
        for (int i = 0; i < 4; ++i) m_v[i] *= v.m_v[i];
        return *this;
    }
    constexpr ZtLHVec3f& operator/=(const ZtLHVec3f& v) noexcept {
        for (int i = 0; i < 4; ++i) m_v[i] /= v.m_v[i];
        return *this;
    }
    constexpr ZtLHVec3f& operator+=(double s) noexcept {
        for (double& c : m_v) c += s;
        return *this;
    }
    constexpr ZtLHVec3f& operator-=(double s) noexcept {
        for (double& c : m_v) c -= s;
        return *this;
    }
    constexpr ZtLHVec3f& operator*=(double s) noexcept {
        for (double& c : m_v) c *= s;
        return *this;
    }
    constexpr ZtLHVec3f& operator/=(double s) noexcept {
        for (double& c : m_v) c /= s;
        return *this;
    }
};

#endif
