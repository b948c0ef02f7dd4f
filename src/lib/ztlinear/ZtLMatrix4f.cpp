#include <ztlinear/ZtLAffine3f.h>
#include <ztlinear/ZtLMatrix.h>
#include <ztlinear/ZtLMatrix4f.h>
#include <ztlinear/ZtLRotation3f.h>
#include <ztutil/ZtUChecksum.h>
#include <ztutil/ZtUError.h>

#include <cmath>

#include <ztlinear_detail/ZtLCroutLU.h>

namespace {

// Inverts an affine matrix through the cofactors of its 3x3 block. The positive and the
// negative products of the determinant are summed apart so that cancellation can be measured;
// the path declines (returns false) when the determinant is lost in it, or when every product is
// zero, and the caller falls back on the LU path.
bool InvertAffine(const double (&m)[4][4], double (&inv)[4][4]) {
    const double terms[6] = {m[0][0] * m[1][1] * m[2][2],    m[0][1] * m[1][2] * m[2][0],
                             m[0][2] * m[1][0] * m[2][1],    -(m[0][2] * m[1][1] * m[2][0]),
                             -(m[0][1] * m[1][0] * m[2][2]), -(m[0][0] * m[1][2] * m[2][1])};
    double pos = 0.0, neg = 0.0;
    for (double t : terms) {
        if (t >= 0.0)
            pos += t;
        else
            neg += t;
    }
    const double det = pos + neg;
    const double spread = pos - neg;
    if (spread == 0.0 || 1e-15 > std::fabs(det / spread)) return false;

    double l[3][3];
    l[0][0] = (m[1][1] * m[2][2] - m[1][2] * m[2][1]) / det;
    l[0][1] = -(m[0][1] * m[2][2] - m[0][2] * m[2][1]) / det;
    l[0][2] = (m[0][1] * m[1][2] - m[0][2] * m[1][1]) / det;
    l[1][0] = -(m[1][0] * m[2][2] - m[1][2] * m[2][0]) / det;
    l[1][1] = (m[0][0] * m[2][2] - m[0][2] * m[2][0]) / det;
    l[1][2] = -(m[0][0] * m[1][2] - m[0][2] * m[1][0]) / det;
    l[2][0] = (m[1][0] * m[2][1] - m[1][1] * m[2][0]) / det;
    l[2][1] = -(m[0][0] * m[2][1] - m[0][1] * m[2][0]) / det;
    l[2][2] = (m[0][0] * m[1][1] - m[0][1] * m[1][0]) / det;
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) inv[i][j] = l[i][j];
        inv[i][3] = 0.0;
    }
    // Row 3 is -(T . L^-1).
    for (int j = 0; j < 3; ++j)
        inv[3][j] = -(m[3][0] * l[0][j] + m[3][1] * l[1][j] + m[3][2] * l[2][j]);
    inv[3][3] = 1.0;
    return true;
}

}  // namespace

ZtLMatrix4f& ZtLMatrix4f::MakeRotation(const ZtLRotation3f& q) noexcept {
    return MakeLinear(ZtLMatrix3f(q));
}

ZtLMatrix4f& ZtLMatrix4f::MakeAffine(const ZtLAffine3f& a) noexcept {
    return MakeAffine(a.GetLinear(), a.GetTranslation());
}

ZtLMatrix4f operator*(const ZtLMatrix4f& a, const ZtLMatrix4f& b) noexcept {
    if (a.IsIdentity()) return b;
    if (b.IsIdentity()) return a;
    ZtLMatrix4f c;
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j)
            c[i][j] = a[i][0] * b[0][j] + a[i][1] * b[1][j] + a[i][2] * b[2][j] + a[i][3] * b[3][j];
    return c;
}

ZtLMatrix4f& ZtLMatrix4f::MultRight(const ZtLMatrix3f& b) noexcept {
    // Columns 0-2 of every row go through the 3x3 block; column 3 is unchanged.
    for (int i = 0; i < 4; ++i) {
        const double x = m[i][0], y = m[i][1], z = m[i][2];
        for (int j = 0; j < 3; ++j) m[i][j] = x * b[0][j] + y * b[1][j] + z * b[2][j];
    }
    return *this;
}

ZtLMatrix4f& ZtLMatrix4f::MultLeft(const ZtLMatrix3f& b) noexcept {
    // Rows 0-2 become combinations of rows 0-2; row 3 is unchanged.
    double r[3][4];
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 4; ++j)
            r[i][j] = b[i][0] * m[0][j] + b[i][1] * m[1][j] + b[i][2] * m[2][j];
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 4; ++j) m[i][j] = r[i][j];
    return *this;
}

ZtLMatrix4f& ZtLMatrix4f::RotateRight(const ZtLRotation3f& q) noexcept {
    return MultRight(ZtLMatrix3f(q));
}

ZtLMatrix4f& ZtLMatrix4f::RotateLeft(const ZtLRotation3f& q) noexcept {
    return MultLeft(ZtLMatrix3f(q));
}

double ZtLMatrix4f::Determinant() const noexcept {
    // Laplace expansion along the first two rows: 2x2 minors of rows 0-1 times the
    // complementary minors of rows 2-3.
    const double s0 = m[0][0] * m[1][1] - m[1][0] * m[0][1];
    const double s1 = m[0][0] * m[1][2] - m[1][0] * m[0][2];
    const double s2 = m[0][0] * m[1][3] - m[1][0] * m[0][3];
    const double s3 = m[0][1] * m[1][2] - m[1][1] * m[0][2];
    const double s4 = m[0][1] * m[1][3] - m[1][1] * m[0][3];
    const double s5 = m[0][2] * m[1][3] - m[1][2] * m[0][3];
    const double c5 = m[2][2] * m[3][3] - m[3][2] * m[2][3];
    const double c4 = m[2][1] * m[3][3] - m[3][1] * m[2][3];
    const double c3 = m[2][1] * m[3][2] - m[3][1] * m[2][2];
    const double c2 = m[2][0] * m[3][3] - m[3][0] * m[2][3];
    const double c1 = m[2][0] * m[3][2] - m[3][0] * m[2][2];
    const double c0 = m[2][0] * m[3][1] - m[3][0] * m[2][1];
    return s0 * c5 - s1 * c4 + s2 * c3 + s3 * c2 - s4 * c1 + s5 * c0;
}

ZtLMatrix4f ZtLMatrix4f::Inverse() const noexcept {
    ZtLMatrix4f result;
    if (IsIdentity()) return result;
    if (IsAffine() && InvertAffine(m, result.m)) return result;

    double lu[4][4];
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) lu[i][j] = m[i][j];
    int perm[4];
    if (!ztl_detail::DecomposeLU(lu, perm)) {
        ZtUError::Post(ZtUSysError::Error, ZtLMatrix::GetComponent(), 3,
                       const_cast<ZtLMatrix4f*>(this), "Singular Matrix");
        return result;
    }
    ztl_detail::SolveLUUnit(lu, perm, result.m);
    return result;
}

ZtLRotation3f ZtLMatrix4f::ConvertRotation() const noexcept {
    return GetLinear().ConvertRotation();
}

void ZtLMatrix4f::FactorProjection(ZtLMatrix4f* projection) const noexcept {
    ZtLMatrix4f affine(*this);
    affine.m[0][3] = 0.0;
    affine.m[1][3] = 0.0;
    affine.m[2][3] = 0.0;
    affine.m[3][3] = 1.0;
    const ZtLMatrix4f n = affine.Inverse();
    ZtLMatrix4f p;
    for (int i = 0; i < 4; ++i)
        p.m[i][3] =
            m[0][3] * n.m[i][0] + m[1][3] * n.m[i][1] + m[2][3] * n.m[i][2] + m[3][3] * n.m[i][3];
    *projection = p;
}

void ZtLMatrix4f::Factor(ZtLVec3f* scale, ZtLMatrix3f* scaleOrientation, ZtLMatrix3f* rotation,
                         ZtLVec3f* translation) const noexcept {
    GetLinear().Factor(scale, scaleOrientation, rotation);
    *translation = GetTranslation();
}

void ZtLMatrix4f::Factor(ZtLVec3f* scale, ZtLRotation3f* scaleOrientation, ZtLRotation3f* rotation,
                         ZtLVec3f* translation) const noexcept {
    GetLinear().Factor(scale, scaleOrientation, rotation);
    *translation = GetTranslation();
}

void ZtLMatrix4f::Factor(ZtLVec3f* scale, ZtLMatrix3f* scaleOrientation, ZtLMatrix3f* rotation,
                         ZtLVec3f* translation, ZtLMatrix4f* projection) const noexcept {
    FactorProjection(projection);
    Factor(scale, scaleOrientation, rotation, translation);
}

void ZtLMatrix4f::Factor(ZtLVec3f* scale, ZtLRotation3f* scaleOrientation, ZtLRotation3f* rotation,
                         ZtLVec3f* translation, ZtLMatrix4f* projection) const noexcept {
    FactorProjection(projection);
    Factor(scale, scaleOrientation, rotation, translation);
}

unsigned int ZtLMatrix4f::CalcHashCode() const noexcept {
    ZtUChecksum sum;
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) sum.AddFloat(m[i][j]);
    return sum.End();
}

ZtUWideStringBuffer ZtLMatrix4f::ToString() const {
    ZtUWideStringBuffer text;
    text.Format(
        L"(%.4f, %.4f, %.4f, %.4f)\n(%.4f, %.4f, %.4f, %.4f)\n(%.4f, %.4f, %.4f, %.4f)\n"
        L"(%.4f, %.4f, %.4f, %.4f)\n",
        m[0][0], m[0][1], m[0][2], m[0][3], m[1][0], m[1][1], m[1][2], m[1][3], m[2][0], m[2][1],
        m[2][2], m[2][3], m[3][0], m[3][1], m[3][2], m[3][3]);
    return text;
}
