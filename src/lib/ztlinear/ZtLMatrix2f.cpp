#include <ztlinear/ZtLMatrix.h>
#include <ztlinear/ZtLMatrix2f.h>
#include <ztutil/ZtUChecksum.h>
#include <ztutil/ZtUError.h>
#include <ztutil/ZtUSysError.h>

#include <cmath>

ZtLMatrix2f ZtLMatrix2f::Inverse() const noexcept {
    if (IsIdentity()) return ZtLMatrix2f();
    const double det = m[0][0] * m[1][1] - m[0][1] * m[1][0];
    if (1e-12 > std::fabs(det)) {
        ZtUError::Post(ZtUSysError::Error, ZtLMatrix::GetComponent(), 1,
                       const_cast<ZtLMatrix2f*>(this), "Singular Matrix");
        return ZtLMatrix2f();
    }
    return ZtLMatrix2f(m[1][1] / det, -m[0][1] / det, -m[1][0] / det, m[0][0] / det);
}

int ZtLMatrix2f::Jacobi(ZtLVec2f* values, ZtLVec2f* const rows) const noexcept {
    double d0 = m[0][0];
    double d1 = m[1][1];
    const double a = m[0][1];
    if (a == 0.0) {
        *values = ZtLVec2f(d0, d1);
        rows[0] = ZtLVec2f(1.0, 0.0);
        rows[1] = ZtLVec2f(0.0, 1.0);
        return 1;
    }
    // The plane rotation that annihilates a, with the same formulas as the 3x3 sweep so that a
    // block-diagonal 3x3 matrix and its 2x2 block decompose alike.
    const double g = 100.0 * std::fabs(a);
    const double h = d1 - d0;
    double t;
    if (std::fabs(h) + g == std::fabs(h)) {
        t = a / h;
    } else {
        const double theta = 0.5 * h / a;
        t = 1.0 / (std::fabs(theta) + std::sqrt(1.0 + theta * theta));
        if (theta < 0.0) t = -t;
    }
    const double c = 1.0 / std::sqrt(1.0 + t * t);
    const double s = t * c;
    const double tau = s / (1.0 + c);
    const double shift = t * a;
    d0 -= shift;
    d1 += shift;
    // The identity rotated: the diagonal comes out as 1 - s tau (the cosine, in the form the
    // incremental update produces).
    const double diagonal = 1.0 - s * tau;
    *values = ZtLVec2f(d0, d1);
    rows[0] = ZtLVec2f(diagonal, s);
    rows[1] = ZtLVec2f(-s, diagonal);
    return 1;
}

void ZtLMatrix2f::Factor(ZtLVec2f* scale, ZtLMatrix2f* u, ZtLMatrix2f* r) const noexcept {
    // Everything is computed into locals first: an output may be this matrix.
    const ZtLMatrix2f a = *this * Transpose();
    ZtLVec2f values;
    ZtLVec2f rows[2];
    a.Jacobi(&values, rows);
    // The rows of U are the eigenvectors, the columns of the Jacobi matrix.
    const ZtLMatrix2f mu(rows[0][0], rows[1][0], rows[0][1], rows[1][1]);
    // Negating both factors would leave the sign of the determinant as it is in two dimensions,
    // so a reflection goes into the second factor alone.
    const double sign = Determinant() < 0.0 ? -1.0 : 1.0;
    const ZtLVec2f s(std::sqrt(values[0]), sign * std::sqrt(values[1]));
    ZtLMatrix2f mr = mu.Transpose();
    mr.ScaleRight(ZtLVec2f(1.0 / s[0], 1.0 / s[1]));
    mr = mr * mu * *this;
    *scale = s;
    *u = mu;
    *r = mr;
}

void ZtLMatrix2f::Factor(ZtLVec2f* scale, ZtLRotation2f* u, ZtLRotation2f* r) const noexcept {
    ZtLMatrix2f mu;
    ZtLMatrix2f mr;
    Factor(scale, &mu, &mr);
    *u = mu.ConvertRotation();
    *r = mr.ConvertRotation();
}

unsigned int ZtLMatrix2f::CalcHashCode() const noexcept {
    ZtUChecksum sum;
    for (int i = 0; i < 2; ++i)
        for (int j = 0; j < 2; ++j) sum.AddFloat(m[i][j]);
    return sum.End();
}

ZtUWideStringBuffer ZtLMatrix2f::ToString() const {
    ZtUWideStringBuffer text;
    text.Format(L"(%.4f, %.4f)\n(%.4f, %.4f)\n", m[0][0], m[0][1], m[1][0], m[1][1]);
    return text;
}
