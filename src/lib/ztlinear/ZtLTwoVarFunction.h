#ifndef ZTLINEAR_ZTLTWOVARFUNCTION_H
#define ZTLINEAR_ZTLTWOVARFUNCTION_H

#include <ztlinear/ZtLExport.h>
#include <ztlinear/ZtLVec2f.h>
#include <ztlinear/ZtLVec3f.h>

// Function objects of two scalar parameters (u, v), implemented by the host: a scalar field, a
// scalar field with its partial derivatives, a map into the plane and a map into space (a
// parametric surface).
//
// As with the one-parameter functions, every operation returns non-zero on success and 0 when
// the function cannot be evaluated at (u, v), and writes its results through the pointers given.
// The library itself never calls these operations.

// A scalar function f(u, v).
class ZTL_EXPORT ZtLTwoVarFunction {
public:
    ZtLTwoVarFunction() = default;
    ZtLTwoVarFunction(const ZtLTwoVarFunction&) = default;
    ZtLTwoVarFunction& operator=(const ZtLTwoVarFunction&) = default;
    virtual ~ZtLTwoVarFunction();

    // Writes f(u, v) to *value.
    virtual int Value(double u, double v, double* value) = 0;
};

// A scalar function f(u, v) with its partial derivatives.
class ZTL_EXPORT ZtLTwoVarFunctionWithDerivatives : public ZtLTwoVarFunction {
public:
    ZtLTwoVarFunctionWithDerivatives() = default;
    ZtLTwoVarFunctionWithDerivatives(const ZtLTwoVarFunctionWithDerivatives&) = default;
    ZtLTwoVarFunctionWithDerivatives& operator=(const ZtLTwoVarFunctionWithDerivatives&) = default;
    ~ZtLTwoVarFunctionWithDerivatives() override;

    int Value(double u, double v, double* value) override = 0;
    // Writes f(u, v), df/du and df/dv in one evaluation.
    virtual int Values(double u, double v, double* value, double* du, double* dv) = 0;
};

// A map of (u, v) into the plane.
class ZTL_EXPORT ZtLTwoVarFunction2d {
public:
    ZtLTwoVarFunction2d() = default;
    ZtLTwoVarFunction2d(const ZtLTwoVarFunction2d&) = default;
    ZtLTwoVarFunction2d& operator=(const ZtLTwoVarFunction2d&) = default;
    virtual ~ZtLTwoVarFunction2d();

    // Writes the image of (u, v) to *value.
    virtual int Value(double u, double v, ZtLPos2f* value) = 0;
};

// A map of (u, v) into space, such as a parametric surface.
class ZTL_EXPORT ZtLTwoVarFunction3d {
public:
    ZtLTwoVarFunction3d() = default;
    ZtLTwoVarFunction3d(const ZtLTwoVarFunction3d&) = default;
    ZtLTwoVarFunction3d& operator=(const ZtLTwoVarFunction3d&) = default;
    virtual ~ZtLTwoVarFunction3d();

    // Writes the image of (u, v) to *value.
    virtual int Value(double u, double v, ZtLPos3f* value) = 0;
};

#endif
