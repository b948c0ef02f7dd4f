#ifndef ZTFUZZ_ZTFUZZVALUES_H
#define ZTFUZZ_ZTFUZZVALUES_H

// Value types built from raw fuzz input: vectors, matrices and transforms of every kind.

#include "ZtFuzzInput.h"

#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLMatrix4f.h>
#include <ztlinear/ZtLRotation3f.h>
#include <ztlinear/ZtLTransform3f.h>
#include <ztlinear/ZtLVec3f.h>

inline ZtLVec3f ZtFuzzVec3(ZtFuzzInput& in) {
    double v[3];
    in.Doubles(v, 3);
    return ZtLVec3f(v[0], v[1], v[2]);
}

inline ZtLMatrix3f ZtFuzzMat3(ZtFuzzInput& in) {
    double v[9];
    in.Doubles(v, 9);
    return ZtLMatrix3f(v);
}

inline ZtLMatrix4f ZtFuzzMat4(ZtFuzzInput& in) {
    double v[16];
    in.Doubles(v, 16);
    return ZtLMatrix4f(v);
}

// A transform of the kind the selector names, built from raw operands.
inline ZtLTransform3f ZtFuzzTransform(ZtFuzzInput& in) {
    ZtLTransform3f x;
    switch (in.Byte() % 8) {
        case 0: {
            double q[4];
            in.Doubles(q, 4);
            x.MakeRotation(ZtLRotation3f(q));
            break;
        }
        case 1:
            x.MakeUniformScale(in.Double());
            break;
        case 2:
            x.MakeScale(ZtFuzzVec3(in));
            break;
        case 3:
            x.MakeLinear(ZtFuzzMat3(in));
            break;
        case 4:
            x.MakeTranslation(ZtFuzzVec3(in));
            break;
        case 5: {
            const ZtLMatrix3f m = ZtFuzzMat3(in);
            x.MakeAffine(m, ZtFuzzVec3(in));
            break;
        }
        case 6:
            x.SetValue(ZtFuzzMat4(in));
            break;
        default: {
            double q[4];
            in.Doubles(q, 4);
            x.SetValue(ZtLRotation3f(q), ZtFuzzVec3(in));
            break;
        }
    }
    return x;
}

inline ZtLPos3f ZtFuzzPos3(ZtFuzzInput& in) {
    double v[3];
    in.Doubles(v, 3);
    return ZtLPos3f(v[0], v[1], v[2]);
}

// A unit vector as stored, not normalised: whatever the input holds.
inline ZtLUnitVec3f ZtFuzzRawUnit3(ZtFuzzInput& in) {
    double v[3];
    in.Doubles(v, 3);
    ZtLUnitVec3f u;
    u.SetUnitValue(v[0], v[1], v[2]);
    return u;
}

#endif
