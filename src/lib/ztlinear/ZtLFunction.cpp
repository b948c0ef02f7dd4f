#include <ztlinear/ZtLFunction.h>

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
    const double h = (t + 1e-9) - t;
    double forward;
    if (!m_function->Value(t + h, &forward)) return 0;
    double backward;
    if (!m_function->Value(t - h, &backward)) return 0;
    *derivative = (forward - backward) / (h + h);
    return 1;
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
    const double h = (t + 1e-9) - t;
    double hp = h;
    double hm = h;
    if (t + h > m_upper) hp = 0.0;
    if (m_lower > t - h) hm = 0.0;
    if (hp == 0.0 && hm == 0.0) return 0;
    double forward;
    if (!m_function->Value(t + hp, &forward)) return 0;
    double backward;
    if (!m_function->Value(t - hm, &backward)) return 0;
    *derivative = (forward - backward) / (hm + hp);
    return 1;
}
