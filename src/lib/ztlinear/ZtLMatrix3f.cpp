#include <ztlinear/ZtLAffine2f.h>
#include <ztlinear/ZtLMatrix.h>
#include <ztlinear/ZtLMatrix2f.h>
#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLRotation2f.h>
#include <ztlinear/ZtLRotation3f.h>
#include <ztutil/ZtUChecksum.h>
#include <ztutil/ZtUError.h>
#include <ztutil/ZtUSysError.h>

#include <cmath>

#include <ztlinear_detail/ZtLCroutLU.h>

namespace {

// One Jacobi rotation of the pair (a[i][j], a[k][l]).
inline void Rotate(double a[3][3], int i, int j, int k, int l, double s, double tau) noexcept {
    const double g = a[i][j];
    const double h = a[k][l];
    a[i][j] = g - s * (h + g * tau);
    a[k][l] = h + s * (g - h * tau);
}

}  // namespace

ZtLMatrix3f& ZtLMatrix3f::RotateLeft(const ZtLRotation3f& q) noexcept {
    return MultLeft(ZtLMatrix3f(q));
}

ZtLMatrix3f& ZtLMatrix3f::RotateRight(const ZtLRotation3f& q) noexcept {
    return MultRight(ZtLMatrix3f(q));
}

ZtLMatrix3f ZtLMatrix3f::Inverse() const noexcept {
    ZtLMatrix3f inv;
    if (IsIdentity()) return inv;

    // The six products of the determinant, summed by their own sign so that the cancellation in
    // det can be measured against the total magnitude P - N.
    const double terms[6] = {m[0][0] * m[1][1] * m[2][2],    m[0][1] * m[1][2] * m[2][0],
                             m[0][2] * m[1][0] * m[2][1],    -(m[0][2] * m[1][1] * m[2][0]),
                             -(m[0][1] * m[1][0] * m[2][2]), -(m[0][0] * m[1][2] * m[2][1])};
    double pos = 0.0;
    double neg = 0.0;
    for (double t : terms) {
        if (t >= 0.0)
            pos += t;
        else
            neg += t;
    }
    const double det = pos + neg;
    // Written so that 0/0 (all products zero) does not decline: such a matrix inverts to
    // non-finite values without a report.
    if (!(1e-15 > std::fabs(det / (pos - neg)))) {
        inv.m[0][0] = (m[1][1] * m[2][2] - m[1][2] * m[2][1]) / det;
        inv.m[0][1] = -(m[0][1] * m[2][2] - m[0][2] * m[2][1]) / det;
        inv.m[0][2] = (m[0][1] * m[1][2] - m[0][2] * m[1][1]) / det;
        inv.m[1][0] = -(m[1][0] * m[2][2] - m[1][2] * m[2][0]) / det;
        inv.m[1][1] = (m[0][0] * m[2][2] - m[0][2] * m[2][0]) / det;
        inv.m[1][2] = -(m[0][0] * m[1][2] - m[0][2] * m[1][0]) / det;
        inv.m[2][0] = (m[1][0] * m[2][1] - m[1][1] * m[2][0]) / det;
        inv.m[2][1] = -(m[0][0] * m[2][1] - m[0][1] * m[2][0]) / det;
        inv.m[2][2] = (m[0][0] * m[1][1] - m[0][1] * m[1][0]) / det;
        return inv;
    }

    double lu[3][3];
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) lu[i][j] = m[i][j];
    int perm[3];
    if (!ztl_detail::DecomposeLU(lu, perm)) {
        ZtUError::Post(ZtUSysError::Error, ZtLMatrix::GetComponent(), 2,
                       const_cast<ZtLMatrix3f*>(this), "Singular Matrix");
        return inv;
    }
    ztl_detail::SolveLUUnit(lu, perm, inv.m);
    return inv;
}

ZtLRotation3f ZtLMatrix3f::ConvertRotation() const noexcept {
    const double trace = m[0][0] + m[1][1] + m[2][2];
    int i = m[0][0] > m[1][1] ? 0 : 1;
    if (!(m[i][i] > m[2][2])) i = 2;
    double q[4];
    if (trace > m[i][i]) {
        const double s = 0.5 * std::sqrt(trace + 1.0);
        const double f = 1.0 / (4.0 * s);
        q[0] = (m[1][2] - m[2][1]) * f;
        q[1] = (m[2][0] - m[0][2]) * f;
        q[2] = (m[0][1] - m[1][0]) * f;
        q[3] = s;
    } else {
        const int j = (i + 1) % 3;
        const int k = (j + 1) % 3;
        q[i] = 0.5 * std::sqrt(m[i][i] - m[j][j] - m[k][k] + 1.0);
        const double f = 1.0 / (4.0 * q[i]);
        q[j] = (m[i][j] + m[j][i]) * f;
        q[k] = (m[k][i] + m[i][k]) * f;
        q[3] = (m[j][k] - m[k][j]) * f;
    }
    return ZtLRotation3f(q);
}

int ZtLMatrix3f::Jacobi(ZtLVec3f* values, ZtLVec3f* const rows) const noexcept {
    double a[3][3];
    double v[3][3] = {{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}};
    double d[3];
    double b[3];
    double z[3] = {0.0, 0.0, 0.0};
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) a[i][j] = m[i][j];
        b[i] = d[i] = a[i][i];
    }
    for (int sweep = 1; sweep <= 50; ++sweep) {
        const double sm = std::fabs(a[0][1]) + std::fabs(a[0][2]) + std::fabs(a[1][2]);
        if (sm == 0.0) {
            *values = ZtLVec3f(d[0], d[1], d[2]);
            for (int i = 0; i < 3; ++i) rows[i] = ZtLVec3f(v[i][0], v[i][1], v[i][2]);
            return 1;
        }
        const double threshold = sweep < 4 ? 0.2 * sm / 9.0 : 0.0;
        for (int p = 0; p < 2; ++p) {
            for (int q = p + 1; q < 3; ++q) {
                const double g = 100.0 * std::fabs(a[p][q]);
                if (sweep > 4 && std::fabs(d[p]) + g == std::fabs(d[p]) &&
                    std::fabs(d[q]) + g == std::fabs(d[q])) {
                    a[p][q] = 0.0;
                } else if (std::fabs(a[p][q]) > threshold) {
                    double h = d[q] - d[p];
                    double t;
                    if (std::fabs(h) + g == std::fabs(h)) {
                        t = a[p][q] / h;
                    } else {
                        const double theta = 0.5 * h / a[p][q];
                        t = 1.0 / (std::fabs(theta) + std::sqrt(1.0 + theta * theta));
                        if (theta < 0.0) t = -t;
                    }
                    const double c = 1.0 / std::sqrt(1.0 + t * t);
                    const double s = t * c;
                    const double tau = s / (1.0 + c);
                    h = t * a[p][q];
                    z[p] -= h;
                    z[q] += h;
                    d[p] -= h;
                    d[q] += h;
                    a[p][q] = 0.0;
                    for (int j = 0; j < p; ++j) Rotate(a, j, p, j, q, s, tau);
                    for (int j = p + 1; j < q; ++j) Rotate(a, p, j, j, q, s, tau);
                    for (int j = q + 1; j < 3; ++j) Rotate(a, p, j, q, j, s, tau);
                    for (int j = 0; j < 3; ++j) Rotate(v, j, p, j, q, s, tau);
                }
            }
        }
        for (int p = 0; p < 3; ++p) {
            b[p] += z[p];
            d[p] = b[p];
            z[p] = 0.0;
        }
    }
    return 0;
}

void ZtLMatrix3f::Factor(ZtLVec3f* scale, ZtLMatrix3f* u, ZtLMatrix3f* r) const noexcept {
    // Everything is computed into locals first: an output may be this matrix.
    const ZtLMatrix3f a = *this * Transpose();
    ZtLVec3f values;
    ZtLVec3f rows[3];
    a.Jacobi(&values, rows);
    // The rows of U are the eigenvectors, the columns of the Jacobi matrix.
    ZtLMatrix3f mu;
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) mu.m[i][j] = rows[j][i];
    const double sign = Determinant() < 0.0 ? -1.0 : 1.0;
    const ZtLVec3f s(sign * std::sqrt(values[0]), sign * std::sqrt(values[1]),
                     sign * std::sqrt(values[2]));
    ZtLMatrix3f mr = mu.Transpose();
    mr.ScaleRight(ZtLVec3f(1.0 / s[0], 1.0 / s[1], 1.0 / s[2]));
    mr = mr * mu * *this;
    *scale = s;
    *u = mu;
    *r = mr;
}

void ZtLMatrix3f::Factor(ZtLVec3f* scale, ZtLRotation3f* u, ZtLRotation3f* r) const noexcept {
    ZtLMatrix3f mu;
    ZtLMatrix3f mr;
    Factor(scale, &mu, &mr);
    *u = mu.ConvertRotation();
    *r = mr.ConvertRotation();
}

void ZtLMatrix3f::FactorProjection(ZtLMatrix3f* projection) const noexcept {
    ZtLMatrix3f affine = *this;
    affine.m[0][2] = 0.0;
    affine.m[1][2] = 0.0;
    affine.m[2][2] = 1.0;
    const ZtLMatrix3f n = affine.Inverse();
    ZtLMatrix3f p;
    p.m[0][2] = m[0][2] * n.m[0][0] + m[1][2] * n.m[0][1] + m[2][2] * n.m[0][2];
    p.m[1][2] = m[1][2] * n.m[1][0] + m[1][2] * n.m[1][1] + m[2][2] * n.m[1][2];
    p.m[2][2] = m[0][2] * n.m[2][0] + m[1][2] * n.m[2][1] + m[2][2] * n.m[2][2];
    *projection = p;
}

ZtLMatrix3f::ZtLMatrix3f(const ZtLRotation2f& r) noexcept { SetValue(r); }

void ZtLMatrix3f::SetValue(const ZtLRotation2f& r) noexcept {
    const double c = r.GetCosAngle();
    const double s = r.GetSinAngle();
    *this = ZtLMatrix3f(c, s, 0.0, -s, c, 0.0, 0.0, 0.0, 1.0);
}

void ZtLMatrix3f::MakeRotation(const ZtLRotation2f& r) noexcept { SetValue(r); }

void ZtLMatrix3f::Factor(ZtLVec2f* scale, ZtLMatrix2f* u, ZtLMatrix2f* r,
                         ZtLVec2f* translation) const {
    ZtLAffine2f(*this).Factor(scale, u, r, translation);
}

void ZtLMatrix3f::Factor(ZtLVec2f* scale, ZtLRotation2f* u, ZtLRotation2f* r,
                         ZtLVec2f* translation) const {
    ZtLAffine2f(*this).Factor(scale, u, r, translation);
}

void ZtLMatrix3f::Factor(ZtLVec2f* scale, ZtLMatrix2f* u, ZtLMatrix2f* r, ZtLVec2f* translation,
                         ZtLMatrix3f* projection) const {
    // The affine part is read before the projection is written: it may be this matrix.
    const ZtLAffine2f affine(*this);
    FactorProjection(projection);
    affine.Factor(scale, u, r, translation);
}

void ZtLMatrix3f::Factor(ZtLVec2f* scale, ZtLRotation2f* u, ZtLRotation2f* r, ZtLVec2f* translation,
                         ZtLMatrix3f* projection) const {
    const ZtLAffine2f affine(*this);
    FactorProjection(projection);
    affine.Factor(scale, u, r, translation);
}

unsigned int ZtLMatrix3f::CalcHashCode() const noexcept {
    ZtUChecksum sum;
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) sum.AddFloat(m[i][j]);
    return sum.End();
}

ZtUWideStringBuffer ZtLMatrix3f::ToString() const {
    ZtUWideStringBuffer text;
    text.Format(L"(%.4f, %.4f, %.4f)\n(%.4f, %.4f, %.4f)\n(%.4f, %.4f, %.4f)\n", m[0][0], m[0][1],
                m[0][2], m[1][0], m[1][1], m[1][2], m[2][0], m[2][1], m[2][2]);
    return text;
}

ZtLVec3f ZtLVec3f::Multiply(const ZtLMatrix3f& m) const noexcept { return *this * m; }
