#ifndef ZTLINEAR_ZTLHVEC2F_H
#define ZTLINEAR_ZTLHVEC2F_H

#include <ztlinear/ZtLVec.h>
#include <ztlinear/ZtLVec2f.h>

#include <cmath>

// A planar point with a weight (x, y, w), for use with projective 3x3 matrices:
// three doubles and nothing else (no virtual table, trivially copyable).
//
// Arithmetic is componentwise over all three components, the weight included.
// The Cartesian position is (x/w, y/w); a weight of zero stands for a point at
// infinity, whose direction Pos() returns as is. The default constructor leaves
// the components unset.
class ZtLHVec2f : public ZtLVec {
public:
    ZtLHVec2f() noexcept = default;
    constexpr ZtLHVec2f(double x, double y, double w) noexcept : m_v{x, y, w} {}
    constexpr explicit ZtLHVec2f(const double* v) noexcept : m_v{v[0], v[1], v[2]} {}

    constexpr double GetValue(int i) const noexcept { return m_v[i]; }
    constexpr double Get(int i) const noexcept { return m_v[i]; }
    constexpr double operator[](int i) const noexcept { return m_v[i]; }
    constexpr double& operator[](int i) noexcept { return m_v[i]; }
    // The three components x, y, w in order.
    constexpr const double* GetValue() const noexcept { return m_v; }
    constexpr double* GetValue() noexcept { return m_v; }
    constexpr double* EditValue() noexcept { return m_v; }

    constexpr double GetX() const noexcept { return m_v[0]; }
    constexpr double GetY() const noexcept { return m_v[1]; }
    constexpr double GetW() const noexcept { return m_v[2]; }

    constexpr void Set(int i, double value) noexcept { m_v[i] = value; }
    constexpr void SetValue(const double* v) noexcept { SetValue(v[0], v[1], v[2]); }
    constexpr void SetValue(double x, double y, double w) noexcept {
        m_v[0] = x;
        m_v[1] = y;
        m_v[2] = w;
    }

    // True when every component, the weight included, differs by at most tol (a
    // NaN difference makes it false).
    static bool Equals(const ZtLHVec2f& a, const ZtLHVec2f& b, double tol) noexcept {
        return tol >= std::fabs(a.m_v[0] - b.m_v[0]) && tol >= std::fabs(a.m_v[1] - b.m_v[1]) &&
               tol >= std::fabs(a.m_v[2] - b.m_v[2]);
    }
    bool Equals(const ZtLHVec2f& other, double tol) const noexcept {
        return Equals(*this, other, tol);
    }

    // Exact test: -0.0 counts as zero, NaN does not.
    constexpr bool IsZero() const noexcept {
        return m_v[0] == 0.0 && m_v[1] == 0.0 && m_v[2] == 0.0;
    }
    constexpr void MakeZero() noexcept { SetValue(0.0, 0.0, 0.0); }

    // (p.x*w, p.y*w, w).
    void SetFromPoint(const ZtLPos2f& p, double w) noexcept { SetValue(p[0] * w, p[1] * w, w); }

    // The Cartesian position: x and y divided by w, or taken unchanged when w ==
    // 0.
    ZtLPos2f Pos() const noexcept {
        const double w = m_v[2];
        if (w == 0.0) return ZtLPos2f(m_v[0], m_v[1]);
        return ZtLPos2f(m_v[0] / w, m_v[1] / w);
    }

    constexpr ZtLHVec2f operator-() const noexcept { return ZtLHVec2f(-m_v[0], -m_v[1], -m_v[2]); }
    constexpr ZtLHVec2f& operator+=(const ZtLHVec2f& v) noexcept {
        for (int i = 0; i < 3; ++i) m_v[i] += v.m_v[i];
        return *this;
    }
    constexpr ZtLHVec2f& operator-=(const ZtLHVec2f& v) noexcept {
        for (int i = 0; i < 3; ++i) m_v[i] -= v.m_v[i];
        return *this;
    }
    constexpr ZtLHVec2f& operator*=(const ZtLHVec2f& v) noexcept {
        for (int i = 0; i < 3; ++i) m_v[i] *= v.m_v[i];
        return *this;
    }
    constexpr ZtLHVec2f& operator/=(const ZtLHVec2f& v) noexcept {
        for (int i = 0; i < 3; ++i) m_v[i] /= v.m_v[i];
        return *this;
    }
    constexpr ZtLHVec2f& operator+=(double s) noexcept {
        for (double& c : m_v) c += s;
        return *this;
    }
    constexpr ZtLHVec2f& operator-=(double s) noexcept {
        for (double& c : m_v) c -= s;
        return *this;
    }
    constexpr ZtLHVec2f& operator*=(double s) noexcept {
        for (double& c : m_v) c *= s;
        return *this;
    }
    constexpr ZtLHVec2f& operator/=(double s) noexcept {
        for (double& c : m_v) c /= s;
        return *this;
    }

private:
    double m_v[3];
};

#endif
