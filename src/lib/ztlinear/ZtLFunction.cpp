#include <ztlinear/ZtLFunction.h>

#include <ztlinear_detail/ZtLNumericDerivative.h>

ZtLFunction::~ZtLFunction() = default;

ZtLFunctionWithDerivative::~ZtLFunctionWithDerivative() = default;

// ---------------------------------------------------------------------------------------------
// ZtLFunctionDerivative

ZtLFunctionDerivative::~ZtLFunctionDerivative() = default;

int ZtLFunctionDerivative::Value(double t, double* value) { return m_function->Value(t, value); }

int ZtLFunctionDerivative::Derivative(double t, double* derivative) {
    return DerivativeInternal(t, derivative);
}

int ZtLFunctionDerivative::Values(double t, double* value, double* derivative) {
    const int derivativeResult = DerivativeInternal(t, derivative);
    const int valueResult = m_function->Value(t, value);
    return derivativeResult | valueResult;
}

int ZtLFunctionDerivative::DerivativeInternal(double t, double* derivative) {
    return ztl_detail::CentralDifference<double>(*m_function, t, derivative);
}

// ---------------------------------------------------------------------------------------------
// ZtLBoundedFunctionDerivative

ZtLBoundedFunctionDerivative::~ZtLBoundedFunctionDerivative() = default;

int ZtLBoundedFunctionDerivative::Value(double t, double* value) {
    if (!ParameterInRange(t)) return 0;
    return m_function->Value(t, value);
}

int ZtLBoundedFunctionDerivative::Derivative(double t, double* derivative) {
    if (!ParameterInRange(t)) return 0;
    return DerivativeInternal(t, derivative);
}

int ZtLBoundedFunctionDerivative::Values(double t, double* value, double* derivative) {
    if (!ParameterInRange(t)) return 0;
    const int valueResult = m_function->Value(t, value);
    const int derivativeResult = DerivativeInternal(t, derivative);
    return valueResult | derivativeResult;
}

int ZtLBoundedFunctionDerivative::DerivativeInternal(double t, double* derivative) {
    return ztl_detail::BoundedDifference<double>(*m_function, t, m_lower, m_upper, derivative);
}
