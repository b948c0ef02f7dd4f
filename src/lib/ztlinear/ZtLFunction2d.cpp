#include <ztlinear/ZtLFunction2d.h>

#include <ztlinear_detail/ZtLNumericDerivative.h>

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
    return ztl_detail::CentralDifference<ZtLPos2f>(*m_function, t, derivative);
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
    return ztl_detail::BoundedDifference<ZtLPos2f>(*m_function, t, m_lower, m_upper, derivative);
}
