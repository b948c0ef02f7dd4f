#ifndef ZTLINEAR_ZTLINTERVAL_H
#define ZTLINEAR_ZTLINTERVAL_H

#include <limits>
#include <type_traits>

// ZtLInterval: a range of doubles whose two ends each have their own limit type: included
// (Closed), excluded (Open) or absent (Unbounded). An Unbounded end ignores its stored value and
// reads as -infinity or +infinity.
//
// The constructors and SetLimits keep max >= min by storing max(min, given max); EditMin and
// EditMax give raw access and do not. The default interval is the degenerate [0, 0].
//
// Membership and clamping keep two deliberate quirks: a NaN is contained in every interval (all
// comparisons with it are false, so no end rejects it), and Clamp returns an Open limit's own
// value although Contains rejects it.
//
// A plain value: two doubles and two type bytes, trivially copyable.
class ZtLInterval {
public:
    enum LimitType : unsigned char { Closed = 0, Open = 1, Unbounded = 2 };

    // [0, 0].
    constexpr ZtLInterval() noexcept
        : m_min(0.0), m_max(0.0), m_minType(Closed), m_maxType(Closed) {}
    // [a, max(a, b)] when closed, else (a, max(a, b)).
    constexpr ZtLInterval(double a, double b, bool closed) noexcept
        : m_min(a),
          m_max(b > a ? b : a),
          m_minType(closed ? Closed : Open),
          m_maxType(closed ? Closed : Open) {}
    constexpr ZtLInterval(double a, LimitType ta, double b, LimitType tb) noexcept
        : m_min(a), m_max(b > a ? b : a), m_minType(ta), m_maxType(tb) {}

    // min = a, max = max(a, b); the limit types are kept.
    constexpr void SetLimits(double a, double b) noexcept {
        m_min = a;
        m_max = b > a ? b : a;
    }
    constexpr void SetLimitTypes(LimitType ta, LimitType tb) noexcept {
        m_minType = ta;
        m_maxType = tb;
    }

    // Raw access to the stored limits; writing through them does not keep max >= min.
    constexpr double& EditMin() noexcept { return m_min; }
    constexpr double& EditMax() noexcept { return m_max; }
    constexpr LimitType& EditMinLimitType() noexcept { return m_minType; }
    constexpr LimitType& EditMaxLimitType() noexcept { return m_maxType; }
    constexpr LimitType GetMinLimitType() const noexcept { return m_minType; }
    constexpr LimitType GetMaxLimitType() const noexcept { return m_maxType; }

    // The lower limit, -infinity when that end is Unbounded.
    constexpr double GetMin() const noexcept {
        return m_minType == Unbounded ? -std::numeric_limits<double>::infinity() : m_min;
    }
    // The upper limit, +infinity when that end is Unbounded.
    constexpr double GetMax() const noexcept {
        return m_maxType == Unbounded ? std::numeric_limits<double>::infinity() : m_max;
    }

    // True unless a Closed or Open end rejects x. An Unbounded end, or a type byte holding any
    // other value, rejects nothing; a NaN is rejected by no end.
    constexpr bool Contains(double x) const noexcept {
        if (m_minType == Closed ? m_min > x : (m_minType == Open && m_min >= x)) return false;
        if (m_maxType == Closed ? x > m_max : (m_maxType == Open && x >= m_max)) return false;
        return true;
    }
    // x when contained; otherwise GetMin() when that is above x, else GetMax(). An Open limit is
    // returned as its own value, and a value equal to an Open lower limit goes to GetMax().
    constexpr double Clamp(double x) const noexcept {
        if (Contains(x)) return x;
        if (GetMin() > x) return GetMin();
        return GetMax();
    }

    // min == max exactly, whatever the limit types.
    constexpr bool IsDegenerate() const noexcept { return m_min == m_max; }
    // Each end Closed or Unbounded.
    constexpr bool IsClosed() const noexcept { return Bounding(m_minType) && Bounding(m_maxType); }
    // Both ends Open.
    constexpr bool IsOpen() const noexcept { return m_minType == Open && m_maxType == Open; }
    // Exactly one end Closed or Unbounded.
    constexpr bool IsHalfClosed() const noexcept {
        return Bounding(m_minType) != Bounding(m_maxType);
    }

private:
    static constexpr bool Bounding(LimitType t) noexcept { return t == Closed || t == Unbounded; }

    double m_min;
    double m_max;
    LimitType m_minType;
    LimitType m_maxType;
};

static_assert(std::is_trivially_copyable<ZtLInterval>::value && sizeof(ZtLInterval::LimitType) == 1,
              "an interval is a plain value with one-byte limit types");

#endif
