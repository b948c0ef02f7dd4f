#include <ztlinear/ZtLFunction2d.h>

ZtLFunction2d::~ZtLFunction2d() = default;

ZtLFunctionWithDerivative2d::~ZtLFunctionWithDerivative2d() = default;

// ---------------------------------------------------------------------------------------------
// ZtLFunctionDerivative2d

ZtLFunctionDerivative2d::~ZtLFunctionDerivative2d() = default;

int ZtLFunctionDerivative2d::Value(double t, ZtLPos2f* value) {
    return m_function->Value(t, value);
}

int ZtLFunctionDerivative2d::Derivative(double t, ZtLVec2f* derivative) {
    return DerivativeInternal(t, derivative);
}

int ZtLFunctionDerivative2d::Values(double t, ZtLPos2f* value, ZtLVec2f* derivative) {
    const int derivativeResult = DerivativeInternal(t, derivative);
    const int valueResult = m_function->Value(t, value);
    return derivativeResult | valueResult;
}

int ZtLFunctionDerivative2d::DerivativeInternal(double t, ZtLVec2f* derivative) {
    const double h = (t + 1e-9) - t;
    ZtLPos2f forward;
    if (!m_function->Value(t + h, &forward)) return 0;
    ZtLPos2f backward;
    if (!m_function->Value(t - h, &backward)) return 0;
    *derivative = forward.Subtract(backward).Divide(h + h);
    return 1;
}

// ---------------------------------------------------------------------------------------------
// ZtLBoundedFunctionDerivative2d

ZtLBoundedFunctionDerivative2d::~ZtLBoundedFunctionDerivative2d() = default;

int ZtLBoundedFunctionDerivative2d::Value(double t, ZtLPos2f* value) {
    if (!ParameterInRange(t)) return 0;
    return m_function->Value(t, value);
}

int ZtLBoundedFunctionDerivative2d::Derivative(double t, ZtLVec2f* derivative) {
    if (!ParameterInRange(t)) return 0;
    return DerivativeInternal(t, derivative);
}

int ZtLBoundedFunctionDerivative2d::Values(double t, ZtLPos2f* value, ZtLVec2f* derivative) {
    if (!ParameterInRange(t)) return 0;
    const int valueResult = m_function->Value(t, value);
    const int derivativeResult = DerivativeInternal(t, derivative);
    return valueResult | derivativeResult;
}

int ZtLBoundedFunctionDerivative2d::DerivativeInternal(double t, ZtLVec2f* derivative) {
    const double h = (t + 1e-9) - t;
    double hp = h;
    double hm = h;
    if (t + h > m_upper) hp = 0.0;
    if (m_lower > t - h) hm = 0.0;
    if (hp == 0.0 && hm == 0.0) return 0;
    ZtLPos2f forward;
    if (!m_function->Value(t + hp, &forward)) return 0;
    ZtLPos2f backward;
    if (!m_function->Value(t - hm, &backward)) return 0;
    *derivative = forward.Subtract(backward).Divide(hm + hp);
    return 1;
}
