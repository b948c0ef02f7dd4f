#ifndef ZTLINEAR_ZTLBASEVEC4F_H
#define ZTLINEAR_ZTLBASEVEC4F_H

#include <ztlinear/ZtLVec.h>

// Storage base of the four-component homogeneous vectors: four doubles in order and nothing
// else (no virtual table, trivially copyable).
//
// Everyone may read the components; constructors and setters are protected so that each derived
// type decides what it exposes. The default constructor leaves the components unset.
class ZtLBaseVec4f : public ZtLVec {
public:
    constexpr double GetValue(int i) const noexcept { return m_v[i]; }
    constexpr double Get(int i) const noexcept { return m_v[i]; }
    constexpr double operator[](int i) const noexcept { return m_v[i]; }
    // The four components in order.
    constexpr const double* GetValue() const noexcept { return m_v; }

protected:
    ZtLBaseVec4f() noexcept = default;
    constexpr ZtLBaseVec4f(double a, double b, double c, double d) noexcept : m_v{a, b, c, d} {}
    constexpr explicit ZtLBaseVec4f(const double* v) noexcept : m_v{v[0], v[1], v[2], v[3]} {}

    constexpr void Set(int i, double value) noexcept { m_v[i] = value; }
    constexpr void SetValue(const double* v) noexcept {
        m_v[0] = v[0];
        m_v[1] = v[1];
        m_v[2] = v[2];
        m_v[3] = v[3];
    }
    constexpr void SetValue(double a, double b, double c, double d) noexcept {
        m_v[0] = a;
        m_v[1] = b;
        m_v[2] = c;
        m_v[3] = d;
    }
    constexpr double* GetValue() noexcept { return m_v; }
    constexpr double& operator[](int i) noexcept { return m_v[i]; }

    double m_v[4];
};

#endif
