#include <ztlinear/ZtLTwoVarFunction.h>

ZtLTwoVarFunction::~ZtLTwoVarFunction() = default;

ZtLTwoVarFunctionWithDerivatives::~ZtLTwoVarFunctionWithDerivatives() = default;

ZtLTwoVarFunction2d::~ZtLTwoVarFunction2d() = default;

ZtLTwoVarFunction3d::~ZtLTwoVarFunction3d() = default;
