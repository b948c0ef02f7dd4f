#ifndef ZTLINEAR_ZTLMATHS_H
#define ZTLINEAR_ZTLMATHS_H

#include <ztlinear/ZtLExport.h>

#include <cmath>
#include <cstdint>
#include <cstring>

class ZtUComponent;

// Scalar maths of the library, and the ZtLMaths component.
//
// A class with no instances: every operation is static, none posts an error or reads the
// tolerances of ZtLVec (tolerances are passed in). Arguments outside a function's domain give
// what the floating-point formula gives (NaN, infinities).
//
// Min and Max return the first argument only when it is strictly smaller (larger): on a tie, or
// when either argument is NaN, they return the second. Equals and IsZero are inclusive
// (tol >= |a - b|) and false for a NaN difference.
class ZTL_EXPORT ZtLMaths {
public:
    // Component start and stop (counted; the first and last pair with the error system).
    static void Initialise();
    static void Terminate();
    static int IsInitialised();
    static ZtUComponent* GetComponent();

    static double sqrt(double x) noexcept { return std::sqrt(x); }
    static double abs(double x) noexcept { return std::fabs(x); }
    // Computed in double from the widened argument, then rounded to float.
    static float sqrt(float x) noexcept {
        return static_cast<float>(std::sqrt(static_cast<double>(x)));
    }
    static float abs(float x) noexcept {
        return static_cast<float>(std::fabs(static_cast<double>(x)));
    }

    static constexpr double Min(double a, double b) noexcept { return a < b ? a : b; }
    static constexpr double Max(double a, double b) noexcept { return a > b ? a : b; }
    static constexpr float Min(float a, float b) noexcept { return a < b ? a : b; }
    static constexpr float Max(float a, float b) noexcept { return a > b ? a : b; }
    static constexpr int Min(int a, int b) noexcept { return a < b ? a : b; }
    static constexpr int Max(int a, int b) noexcept { return a > b ? a : b; }
    static constexpr long Min(long a, long b) noexcept { return a < b ? a : b; }
    static constexpr long Max(long a, long b) noexcept { return a > b ? a : b; }
    static constexpr long long Min(long long a, long long b) noexcept { return a < b ? a : b; }
    static constexpr long long Max(long long a, long long b) noexcept { return a > b ? a : b; }

    static bool Equals(double a, double b, double tol) noexcept { return tol >= std::fabs(a - b); }
    // The difference is rounded to float before it is compared.
    static bool Equals(float a, float b, float tol) noexcept {
        const float d = a - b;
        return tol >= std::fabs(d);
    }
    static bool IsZero(double v, double tol) noexcept { return tol >= std::fabs(v); }
    static bool IsZero(float v, float tol) noexcept { return tol >= std::fabs(v); }

    static bool IsFinite(double x) noexcept { return std::isfinite(x); }
    static bool IsNaN(double x) noexcept { return std::isnan(x); }
    // |x| with the sign bit of s.
    static double CopySign(double x, double s) noexcept { return std::copysign(x, s); }

    // Positive infinity, bits 0x7FF0000000000000.
    static double Infinity() noexcept { return FromBits(0x7FF0000000000000ULL); }
    // The quiet NaN with bits 0x7FF8000000000000.
    static double QuietNaN() noexcept { return FromBits(0x7FF8000000000000ULL); }
    // The largest finite double. Not an infinity: callers use it for an unbounded value that still
    // compares and subtracts as a number.
    static constexpr double Infinite() noexcept { return 1.7976931348623157e+308; }

    static constexpr double DegToRad(double d) noexcept { return d * 0.017453292519943295; }
    static constexpr double RadToDeg(double r) noexcept { return r * 57.29577951308232; }

    // log(sqrt(x*x - 1) + x).
    static double acosh(double x) noexcept { return std::log(std::sqrt(x * x - 1) + x); }
    // log(sqrt(x*x + 1) + x) for every x: large negative arguments lose precision.
    static double asinh(double x) noexcept { return std::log(std::sqrt(x * x + 1) + x); }
    // 0.5 * log((x + 1) / (1 - x)).
    static double atanh(double x) noexcept { return 0.5 * std::log((x + 1) / (1 - x)); }

    // Nearest integer, halves away from zero (2.5 gives 3, -2.5 gives -3).
    static double Round(double x) noexcept {
        return x < 0 ? std::ceil(x - 0.5) : std::floor(x + 0.5);
    }

    // n! as a double: 0! to 9! from a table, beyond by multiplying 9! by 10, 11, ..., n.
    // A negative n gives NaN.
    static double fact(long n) noexcept;

    // n over k: 1 when k == 0 or n == k, 0 when n == 0 or n < k, otherwise
    // fact(n) / (fact(k) * fact(n - k)).
    static double binomial(long n, long k) noexcept;

    // The 1-based position of the lowest set bit of v; 0 for 0. The most negative value gives
    // the width of long in bits.
    static int ffs(long v) noexcept;

    // The smallest power of two not below n; 0 for 0 and 1 for any other n <= 1. For n above
    // 2^30 no int power of two qualifies and the result is 0.
    static int CeilPower2(int n) noexcept;

    // Real roots of a*x^2 + b*x + c = 0; returns how many were written (0, 1 or 2). r1 is written
    // first, r2 only with two roots. With two roots r1 is the root of larger magnitude, polished
    // by one Newton step, and r2 = c / (r1 * a); they are not sorted. Zero tests are exact.
    static int FindQuadraticRoots(double a, double b, double c, double* r1, double* r2) noexcept;

private:
    ZtLMaths();

    static double FromBits(std::uint64_t bits) noexcept {
        double d;
        std::memcpy(&d, &bits, sizeof d);
        return d;
    }
};

#endif
