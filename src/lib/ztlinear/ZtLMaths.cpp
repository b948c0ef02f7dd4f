#include <ztlinear/ZtLMaths.h>

#include <ztlinear_detail/ZtLComponentSupport.h>

#include <cmath>

namespace {
ZtUComponent g_record;
constexpr const char kIdent[] = "@(#)$Id: //depot/ztlinear/main/src/lib/ztlinear/ZtLMaths.cpp#1 $";

constexpr double kFactorials[10] = {1, 1, 2, 6, 24, 120, 720, 5040, 40320, 362880};
}  // namespace

void ZtLMaths::Initialise() { ztl_detail::StartComponent(g_record, "ZtLMaths", kIdent); }

void ZtLMaths::Terminate() { ztl_detail::StopComponent(g_record); }

int ZtLMaths::IsInitialised() { return g_record.IsInitialised(); }

ZtUComponent* ZtLMaths::GetComponent() { return &g_record; }

double ZtLMaths::fact(long n) noexcept {
    if (n < 0) return QuietNaN();
    if (n <= 9) return kFactorials[n];
    double product = kFactorials[9];
    // From 171! on the product is infinite and stays so: stop there rather than count on up to
    // n, which for a large n would not finish.
    for (long i = 10; i <= n && product != Infinity(); ++i) product *= static_cast<double>(i);
    return product;
}

double ZtLMaths::binomial(long n, long k) noexcept {
    if (k == 0) return 1;
    if (n == k) return 1;
    if (n == 0) return 0;
    if (n < k) return 0;
    const double fn = fact(n);
    const double fnk = fact(n - k);
    const double fk = fact(k);
    return fn / (fk * fnk);
}

int ZtLMaths::ffs(long v) noexcept {
    if (v == 0) return 0;
    // Shifting the unsigned image finds the same lowest bit as an arithmetic shift would.
    unsigned long bits = static_cast<unsigned long>(v);
    int position = 1;
    while ((bits & 1UL) == 0) {
        bits >>= 1;
        ++position;
    }
    return position;
}

int ZtLMaths::CeilPower2(int n) noexcept {
    if (n == 0) return 0;
    if (n <= 1) return 1;
    if (n > (1 << 30)) return 0;  // doubling past 2^30 would overflow int
    int p = 1;
    while (p < n) p *= 2;
    return p;
}

int ZtLMaths::FindQuadraticRoots(double a, double b, double c, double* r1, double* r2) noexcept {
    if (a == 0.0) {
        if (b == 0.0) return 0;
        *r1 = -(c / b);
        return 1;
    }
    if (c == 0.0) {
        *r1 = 0.0;
        if (b == 0.0) return 1;
        *r2 = -(b / a);
        return 2;
    }
    const double d = b * b - a * 4 * c;
    if (d < 0.0) return 0;
    if (d == 0.0) {
        *r1 = b / (a * -2);
        return 1;
    }
    // s takes the sign of -b so that s - b adds magnitudes: x is the root of larger magnitude.
    double s = std::sqrt(d);
    if (b > 0.0) s = -s;
    double x = (s - b) / (a + a);
    const double slope = (a + a) * x + b;
    if (slope != 0.0) x = x - (x * a * x + x * b + c) / slope;
    *r1 = x;
    *r2 = c / (x * a);  // the product of the roots is c / a
    return 2;
}
