#ifndef ZTLINEAR_ZTLFUNCTION2D_H
#define ZTLINEAR_ZTLFUNCTION2D_H

#include <ztlinear/ZtLExport.h>
#include <ztlinear/ZtLVec2f.h>

// Function objects of one scalar parameter with values in the plane (planar curves), and
// adapters that give any such curve a numeric derivative (its tangent vector).
//
// The conventions are those of the scalar functions (ZtLFunction.h): non-zero results for
// success, outputs written only on success, wrapped curves not owned, and the step
// h = (t + 1e-9) - t. The difference of two sampled positions is a free vector, divided by the
// spacing of the samples.

// A planar curve c(t).
class ZTL_EXPORT ZtLFunction2d {
public:
    ZtLFunction2d() = default;
    ZtLFunction2d(const ZtLFunction2d&) = default;
    ZtLFunction2d& operator=(const ZtLFunction2d&) = default;
    virtual ~ZtLFunction2d();

    // Writes c(t) to *value.
    virtual int Value(double t, ZtLPos2f* value) = 0;
};

// A planar curve with its first derivative.
class ZTL_EXPORT ZtLFunctionWithDerivative2d : public ZtLFunction2d {
public:
    ZtLFunctionWithDerivative2d() = default;
    ZtLFunctionWithDerivative2d(const ZtLFunctionWithDerivative2d&) = default;
    ZtLFunctionWithDerivative2d& operator=(const ZtLFunctionWithDerivative2d&) = default;
    ~ZtLFunctionWithDerivative2d() override;

    int Value(double t, ZtLPos2f* value) override = 0;
    // Writes c'(t) to *derivative.
    virtual int Derivative(double t, ZtLVec2f* derivative) = 0;
    // Writes c(t) and c'(t).
    virtual int Values(double t, ZtLPos2f* value, ZtLVec2f* derivative) = 0;
};

// The derivative of a wrapped curve by the central difference (c(t+h) - c(t-h)) / 2h.
class ZTL_EXPORT ZtLFunctionDerivative2d : public ZtLFunctionWithDerivative2d {
public:
    explicit ZtLFunctionDerivative2d(ZtLFunction2d* function) noexcept : m_function(function) {}
    ZtLFunctionDerivative2d(const ZtLFunctionDerivative2d&) = default;
    ZtLFunctionDerivative2d(ZtLFunctionDerivative2d&&) = default;
    ZtLFunctionDerivative2d& operator=(const ZtLFunctionDerivative2d&) = default;
    ZtLFunctionDerivative2d& operator=(ZtLFunctionDerivative2d&&) = default;
    ~ZtLFunctionDerivative2d() override;

    // Forwards to the wrapped curve.
    int Value(double t, ZtLPos2f* value) override;
    // Fails when either sample fails; *derivative is then left as it was.
    int Derivative(double t, ZtLVec2f* derivative) override;
    // The derivative first, then the value at t; the result is the OR of the two results.
    int Values(double t, ZtLPos2f* value, ZtLVec2f* derivative) override;

private:
    int DerivativeInternal(double t, ZtLVec2f* derivative);

    ZtLFunction2d* m_function;
};

// The derivative of a wrapped curve restricted to [lower, upper] (both ends included), never
// sampling the curve outside; one-sided next to the bounds, failing outside them. The bounds
// are stored as given.
class ZTL_EXPORT ZtLBoundedFunctionDerivative2d : public ZtLFunctionWithDerivative2d {
public:
    ZtLBoundedFunctionDerivative2d(ZtLFunction2d* function, double lower, double upper) noexcept
        : m_function(function), m_lower(lower), m_upper(upper) {}
    ZtLBoundedFunctionDerivative2d(const ZtLBoundedFunctionDerivative2d&) = default;
    ZtLBoundedFunctionDerivative2d(ZtLBoundedFunctionDerivative2d&&) = default;
    ZtLBoundedFunctionDerivative2d& operator=(const ZtLBoundedFunctionDerivative2d&) = default;
    ZtLBoundedFunctionDerivative2d& operator=(ZtLBoundedFunctionDerivative2d&&) = default;
    ~ZtLBoundedFunctionDerivative2d() override;

    int Value(double t, ZtLPos2f* value) override;
    // Fails as well when neither step fits into the bounds.
    int Derivative(double t, ZtLVec2f* derivative) override;
    // The value at t first, then the derivative; the result is the OR of the two results.
    int Values(double t, ZtLPos2f* value, ZtLVec2f* derivative) override;

private:
    bool ParameterInRange(double t) const noexcept { return m_lower <= t && t <= m_upper; }
    int DerivativeInternal(double t, ZtLVec2f* derivative);

    ZtLFunction2d* m_function;
    double m_lower;
    double m_upper;
};

#endif
