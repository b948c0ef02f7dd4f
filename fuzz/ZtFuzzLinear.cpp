// Fuzzes the numeric entry points of the scalar maths and the linear transforms with raw doubles
// (NaN, infinities, denormals and huge values included): the quadratic roots and the integer
// functions, every Inverse and Factor, Jacobi, the rotation constructions and conversions, and
// ZtLTransform3f::Evaluate on transforms of every kind, and the numeric derivatives of a function.
//
// Input: one selector byte, then the raw operands. Only the stated domains of the integer
// functions are kept (CeilPower2 at most 2^30, fact and binomial of non-negative values).
// Checked: no crash, no hang, no undefined behaviour, and outputs that must stay untouched stay
// untouched (the roots not found, the eigen-decomposition that did not converge).

#include "ZtFuzzInput.h"
#include "ZtFuzzValues.h"

#include <ztlinear/ZtLAffine2f.h>
#include <ztlinear/ZtLAffine3f.h>
#include <ztlinear/ZtLFunction.h>
#include <ztlinear/ZtLMaths.h>
#include <ztlinear/ZtLMatrix2f.h>
#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLMatrix4f.h>
#include <ztlinear/ZtLRotation2f.h>
#include <ztlinear/ZtLRotation3f.h>
#include <ztlinear/ZtLTransform3f.h>

#include <climits>
#include <cstdint>
#include <cstring>

namespace {

void Maths(ZtFuzzInput& in) {
    const double a = in.Double(), b = in.Double(), c = in.Double();
    double r1, r2;
    ZtFuzzPoison(&r1);
    ZtFuzzPoison(&r2);
    double poison;
    ZtFuzzPoison(&poison);
    const int n = ZtLMaths::FindQuadraticRoots(a, b, c, &r1, &r2);
    ZT_FUZZ_CHECK(n >= 0 && n <= 2);
    if (n < 1) ZT_FUZZ_CHECK(ZtFuzzSameBits(r1, poison));
    if (n < 2) ZT_FUZZ_CHECK(ZtFuzzSameBits(r2, poison));

    const std::int32_t i = in.Int32();
    const int p = ZtLMaths::CeilPower2(i > (1 << 30) ? (1 << 30) : i);
    ZT_FUZZ_CHECK(p >= 0 && p <= (1 << 30));
    // Any non-negative long (32 or 64 bits, whichever this platform has).
    const long n1 = static_cast<long>(in.Nat64() & static_cast<std::uint64_t>(LONG_MAX));
    const long n2 = static_cast<long>(in.Nat64() & static_cast<std::uint64_t>(LONG_MAX));
    (void)ZtLMaths::fact(n1);
    (void)ZtLMaths::binomial(n1, n2);
    (void)ZtLMaths::ffs(static_cast<long>(in.Int32()));
    (void)ZtLMaths::Round(a);
    (void)ZtLMaths::acosh(a);
    (void)ZtLMaths::asinh(b);
    (void)ZtLMaths::atanh(c);
}

void Matrix2(ZtFuzzInput& in) {
    double v[4];
    in.Doubles(v, 4);
    const ZtLMatrix2f m(v);
    (void)m.Inverse();
    ZtLVec2f values[1], rows[2];
    ZtFuzzPoison(&values);
    ZtFuzzPoison(&rows);
    ZT_FUZZ_CHECK(m.Jacobi(values, rows) == 1);
    ZtLVec2f scale;
    ZtLMatrix2f u, r;
    ZtLRotation2f qu, qr;
    m.Factor(&scale, &u, &r);
    m.Factor(&scale, &qu, &qr);
    const ZtLAffine2f a(m, ZtLVec2f(in.Double(), in.Double()));
    (void)a.Inverse();
    ZtLVec2f t;
    a.Factor(&scale, &u, &r, &t);
    a.Factor(&scale, &qu, &qr, &t);
}

void Matrix3(ZtFuzzInput& in) {
    const ZtLMatrix3f m = ZtFuzzMat3(in);
    (void)m.Inverse();
    (void)m.Determinant();
    (void)m.ConvertRotation();
    ZtLVec3f values[1], rows[3];
    ZtFuzzPoison(&values);
    ZtFuzzPoison(&rows);
    const ZtLVec3f valuesBefore = values[0];
    const int converged = m.Jacobi(values, rows);
    ZT_FUZZ_CHECK(converged == 0 || converged == 1);
    if (!converged) ZT_FUZZ_CHECK(ZtFuzzSameBits(values[0], valuesBefore));
    ZtLVec3f scale;
    ZtLMatrix3f u, r;
    ZtLRotation3f qu, qr;
    m.Factor(&scale, &u, &r);
    m.Factor(&scale, &qu, &qr);
    // The same matrix as a 2D homogeneous transform.
    ZtLVec2f scale2, t2;
    ZtLMatrix2f u2, r2;
    ZtLRotation2f qu2, qr2;
    ZtLMatrix3f projection;
    m.FactorProjection(&projection);
    m.Factor(&scale2, &u2, &r2, &t2);
    m.Factor(&scale2, &qu2, &qr2, &t2, &projection);
    const ZtLAffine3f a(m, ZtFuzzVec3(in));
    (void)a.Inverse();
    ZtLVec3f t;
    a.Factor(&scale, &u, &r, &t);
    a.Factor(&scale, &qu, &qr, &t);
}

void Matrix4(ZtFuzzInput& in) {
    const ZtLMatrix4f m = ZtFuzzMat4(in);
    (void)m.Inverse();
    ZtLMatrix4f projection;
    m.FactorProjection(&projection);
    ZtLVec3f scale, t;
    ZtLMatrix3f u, r;
    ZtLRotation3f qu, qr;
    m.Factor(&scale, &u, &r, &t);
    m.Factor(&scale, &qu, &qr, &t);
    m.Factor(&scale, &u, &r, &t, &projection);
    m.Factor(&scale, &qu, &qr, &t, &projection);
}

void Rotations(ZtFuzzInput& in) {
    double q[4];
    in.Doubles(q, 4);
    const ZtLRotation3f raw(q);
    const ZtLUnitVec3f from(in.Double(), in.Double(), in.Double());
    const ZtLUnitVec3f to(in.Double(), in.Double(), in.Double());
    const ZtLUnitVec3f axis(in.Double(), in.Double(), in.Double());
    const double angle = in.Double();
    ZtLRotation3f a(from, to), b(axis, from, to), c(axis, angle);
    double ax, ay, az;
    (void)raw.FactorEulerXYZ(&ax, &ay, &az);
    ZtLUnitVec3f out;
    (void)raw.GetValue(&out);
    (void)raw.AngleBetween(a, &out);
    (void)raw.Slerp(b, angle);
    (void)(raw * c);
    (void)raw.Normalized();
    (void)ZtLMatrix3f(raw).ConvertRotation();
    (void)ZtLRotation3f::CreateFromEulerAngles(q[0], q[1], q[2]);

    const ZtLUnitVec2f from2(in.Double(), in.Double()), to2(in.Double(), in.Double());
    const ZtLRotation2f r2(from2, to2), raw2(q[2], q[3]);
    (void)raw2.GetValue();
    (void)(raw2 * r2);
}

void Transforms(ZtFuzzInput& in) {
    const ZtLTransform3f x = ZtFuzzTransform(in);
    const ZtLTransform3f y = ZtFuzzTransform(in);
    const double tol = in.Double();
    ZtLTransform3f e(x);
    e.Evaluate(tol);
    ZtLTransform3f e2(e);
    e2.Evaluate(tol);
    (void)x.Inverse();
    (void)e.Inverse();
    ZtLTransform3f p = x * y;
    p.Evaluate(tol);
    p.MultLeft(y.Inverse());
    ZtLVec3f scale, t;
    ZtLMatrix3f u, r;
    ZtLRotation3f qu, qr;
    ZtLMatrix4f projection;
    x.Factor(&scale, &u, &r, &t);
    x.Factor(&scale, &qu, &qr, &t);
    x.Factor(&scale, &u, &r, &t, &projection);
    x.Factor(&scale, &qu, &qr, &t, &projection);
    x.FactorProjection(&projection);
    (void)(ZtLPos3f(in.Double(), in.Double(), in.Double()) * p);
}

// A cubic with raw coefficients that fails (returns 0) where its value is not finite, as a host's
// function may.
class Cubic : public ZtLFunction {
public:
    explicit Cubic(ZtFuzzInput& in) { in.Doubles(m_c, 4); }
    int Value(double t, double* value) override {
        const double v = ((m_c[0] * t + m_c[1]) * t + m_c[2]) * t + m_c[3];
        if (!(v - v == 0.0)) return 0;
        *value = v;
        return 1;
    }

private:
    double m_c[4];
};

void Functions(ZtFuzzInput& in) {
    Cubic f(in);
    const double t = in.Double(), lower = in.Double(), upper = in.Double();
    ZtLFunctionDerivative d(&f);
    ZtLBoundedFunctionDerivative b(&f, lower, upper);
    double value, derivative;
    (void)d.Value(t, &value);
    (void)d.Derivative(t, &derivative);
    (void)d.Values(t, &value, &derivative);
    (void)b.Value(t, &value);
    (void)b.Derivative(t, &derivative);
    (void)b.Values(t, &value, &derivative);
}

using Op = void (*)(ZtFuzzInput&);
const Op kOps[] = {&Maths, &Matrix2, &Matrix3, &Matrix4, &Rotations, &Transforms, &Functions};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ZtFuzzQuietErrors();
    ZtFuzzInput in(data, size);
    kOps[in.Byte() % (sizeof kOps / sizeof kOps[0])](in);
    return 0;
}
