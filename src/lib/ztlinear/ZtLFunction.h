#ifndef ZTLINEAR_ZTLFUNCTION_H
#define ZTLINEAR_ZTLFUNCTION_H

#include <ztlinear/ZtLExport.h>

// Function objects of one scalar parameter with scalar values, and adapters that give any such
// function a numeric derivative.
//
// These are the only polymorphic classes of the library: the host derives its functions from
// the abstract interfaces. Every operation returns non-zero on success and 0 when the function
// cannot be evaluated at that parameter; results go through caller-supplied pointers, and an
// output is written only by an operation that succeeds.
//
// The adapters keep a pointer to the function they wrap and never own it: the wrapped object
// must outlive the adapter, and copying an adapter copies the pointer (and the bounds).
//
// Step of the differences: h = (t + 1e-9) - t, the representable increment nearest to 1e-9 at
// t, so that t + h and t - h are exact and the divisor is the true spacing of the samples.

// A scalar function f(t).
class ZTL_EXPORT ZtLFunction {
public:
    ZtLFunction() = default;
    ZtLFunction(const ZtLFunction&) = default;
    ZtLFunction& operator=(const ZtLFunction&) = default;
    virtual ~ZtLFunction();

    // Writes f(t) to *value.
    virtual int Value(double t, double* value) = 0;
};

// A scalar function with its first derivative.
class ZTL_EXPORT ZtLFunctionWithDerivative : public ZtLFunction {
public:
    ZtLFunctionWithDerivative() = default;
    ZtLFunctionWithDerivative(const ZtLFunctionWithDerivative&) = default;
    ZtLFunctionWithDerivative& operator=(const ZtLFunctionWithDerivative&) = default;
    ~ZtLFunctionWithDerivative() override;

    int Value(double t, double* value) override = 0;
    // Writes f'(t) to *derivative.
    virtual int Derivative(double t, double* derivative) = 0;
    // Writes f(t) and f'(t).
    virtual int Values(double t, double* value, double* derivative) = 0;
};

// The derivative of a wrapped function by the central difference (f(t+h) - f(t-h)) / 2h.
class ZTL_EXPORT ZtLFunctionDerivative : public ZtLFunctionWithDerivative {
public:
    explicit ZtLFunctionDerivative(ZtLFunction* function) noexcept : m_function(function) {}
    ZtLFunctionDerivative(const ZtLFunctionDerivative&) = default;
    ZtLFunctionDerivative(ZtLFunctionDerivative&&) = default;
    ZtLFunctionDerivative& operator=(const ZtLFunctionDerivative&) = default;
    ZtLFunctionDerivative& operator=(ZtLFunctionDerivative&&) = default;
    ~ZtLFunctionDerivative() override;

    // Forwards to the wrapped function.
    int Value(double t, double* value) override;
    // Fails when either sample fails; *derivative is then left as it was.
    int Derivative(double t, double* derivative) override;
    // The derivative first, then the value at t. The result is the OR of the two results: it is
    // non-zero when either succeeded, so a caller that needs both cannot rely on it alone.
    int Values(double t, double* value, double* derivative) override;

private:
    int DerivativeInternal(double t, double* derivative);

    ZtLFunction* m_function;
};

// The derivative of a wrapped function restricted to [lower, upper] (both ends included).
//
// Every operation fails without calling the function and without writing anything when t lies
// outside the bounds, and the function is never sampled outside them: a step that would leave
// the interval is dropped, making the difference one-sided with the value at t as one sample.
// The bounds are stored as given; lower <= upper is not checked.
class ZTL_EXPORT ZtLBoundedFunctionDerivative : public ZtLFunctionWithDerivative {
public:
    ZtLBoundedFunctionDerivative(ZtLFunction* function, double lower, double upper) noexcept
        : m_function(function), m_lower(lower), m_upper(upper) {}
    ZtLBoundedFunctionDerivative(const ZtLBoundedFunctionDerivative&) = default;
    ZtLBoundedFunctionDerivative(ZtLBoundedFunctionDerivative&&) = default;
    ZtLBoundedFunctionDerivative& operator=(const ZtLBoundedFunctionDerivative&) = default;
    ZtLBoundedFunctionDerivative& operator=(ZtLBoundedFunctionDerivative&&) = default;
    ~ZtLBoundedFunctionDerivative() override;

    int Value(double t, double* value) override;
    // Fails as well when neither step fits into the bounds (an interval narrower than h).
    int Derivative(double t, double* derivative) override;
    // The value at t first, then the derivative; the result is the OR of the two results.
    int Values(double t, double* value, double* derivative) override;

private:
    bool ParameterInRange(double t) const noexcept { return m_lower <= t && t <= m_upper; }
    int DerivativeInternal(double t, double* derivative);

    ZtLFunction* m_function;
    double m_lower;
    double m_upper;
};

#endif
