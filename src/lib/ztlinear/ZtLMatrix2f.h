#ifndef ZTLINEAR_ZTLMATRIX2F_H
#define ZTLINEAR_ZTLMATRIX2F_H

// ZtLMatrix2f: a 2x2 matrix of doubles, the linear part of 2D transforms (ZtLAffine2f).
//
// Conventions shared by every transform of the library:
// - entries are stored row by row, m[row][column];
// - points and vectors are row vectors multiplied on the left: v' = v * M;
// - A * B applies A first, then B. MultRight(m) appends m after this transform, MultLeft(m)
//   puts m before it.
//
// The default matrix is the identity. Products and inversion test their operands for the exact
// identity first and then only copy. Products are computed into a temporary, so a = a * b is
// safe. Nothing allocates and nothing throws: inverting a matrix whose determinant is below 1e-12
// in magnitude (an absolute threshold, whatever the size of the entries) posts "Singular Matrix"
// (code 1, the matrix as data) through the ZtLMatrix component and yields the identity.

#include <ztlinear/ZtLExport.h>
#include <ztlinear/ZtLRotation2f.h>
#include <ztlinear/ZtLVec2f.h>
#include <ztutil/ZtUStringBuffer.h>

#include <cmath>
#include <type_traits>

class ZTL_EXPORT ZtLMatrix2f {
public:
    // The identity.
    constexpr ZtLMatrix2f() noexcept : m{{1.0, 0.0}, {0.0, 1.0}} {}
    // The four entries row by row.
    constexpr ZtLMatrix2f(double a00, double a01, double a10, double a11) noexcept
        : m{{a00, a01}, {a10, a11}} {}
    // Four doubles row by row.
    explicit ZtLMatrix2f(const double* p) noexcept { SetValue(p); }
    explicit ZtLMatrix2f(const double (*p)[2]) noexcept { SetValue(p); }
    // The matrix of a plane rotation (see SetValue(const ZtLRotation2f&)).
    explicit ZtLMatrix2f(const ZtLRotation2f& r) noexcept { SetValue(r); }

    ZtLMatrix2f& operator=(const double (*p)[2]) noexcept {
        SetValue(p);
        return *this;
    }
    ZtLMatrix2f& operator=(const ZtLRotation2f& r) noexcept {
        SetValue(r);
        return *this;
    }

    void SetValue(double a00, double a01, double a10, double a11) noexcept {
        *this = ZtLMatrix2f(a00, a01, a10, a11);
    }
    void SetValue(const double* p) noexcept { SetValue(p[0], p[1], p[2], p[3]); }
    void SetValue(const double (*p)[2]) noexcept { SetValue(p[0][0], p[0][1], p[1][0], p[1][1]); }
    void SetValue(const ZtLMatrix2f& other) noexcept { *this = other; }
    // The rotation (c, s) as rows (c, s), (-s, c); c and s are used as stored.
    void SetValue(const ZtLRotation2f& r) noexcept {
        const double c = r.GetCosAngle();
        const double s = r.GetSinAngle();
        SetValue(c, s, -s, c);
    }

    // Builders: each overwrites the whole matrix.
    void MakeIdentity() noexcept { *this = ZtLMatrix2f(); }
    void MakeRotation(const ZtLRotation2f& r) noexcept { SetValue(r); }
    // diag(s.x, s.y).
    void MakeScale(const ZtLVec2f& s) noexcept { SetValue(s[0], 0.0, 0.0, s[1]); }
    // diag(s, s).
    void MakeUniformScale(double s) noexcept { SetValue(s, 0.0, 0.0, s); }

    // Access: row i, entry (i, j), the whole array.
    double* operator[](int i) noexcept { return m[i]; }
    const double* operator[](int i) const noexcept { return m[i]; }
    double Get(int i, int j) const noexcept { return m[i][j]; }
    double (&GetValue() noexcept)[2][2] { return m; }
    const double (&GetValue() const noexcept)[2][2] { return m; }

    // Products. this = this * b (this transform, then b).
    inline ZtLMatrix2f& operator*=(const ZtLMatrix2f& b) noexcept;
    ZtLMatrix2f& MultRight(const ZtLMatrix2f& b) noexcept { return *this *= b; }
    // this = b * this (b, then this transform).
    inline ZtLMatrix2f& MultLeft(const ZtLMatrix2f& b) noexcept;
    // this = R(r) * this and this = this * R(r), R(r) the matrix built by SetValue(r).
    ZtLMatrix2f& RotateLeft(const ZtLRotation2f& r) noexcept { return MultLeft(ZtLMatrix2f(r)); }
    ZtLMatrix2f& RotateRight(const ZtLRotation2f& r) noexcept { return MultRight(ZtLMatrix2f(r)); }
    // this = diag(s) * this: row i is multiplied by s[i].
    ZtLMatrix2f& ScaleLeft(const ZtLVec2f& s) noexcept {
        for (int i = 0; i < 2; ++i)
            for (int j = 0; j < 2; ++j) m[i][j] *= s[i];
        return *this;
    }
    // this = this * diag(s): column j is multiplied by s[j].
    ZtLMatrix2f& ScaleRight(const ZtLVec2f& s) noexcept {
        for (int i = 0; i < 2; ++i)
            for (int j = 0; j < 2; ++j) m[i][j] *= s[j];
        return *this;
    }

    ZtLMatrix2f Transpose() const noexcept {
        return ZtLMatrix2f(m[0][0], m[1][0], m[0][1], m[1][1]);
    }
    // m00 m11 - m01 m10.
    double Determinant() const noexcept { return m[0][0] * m[1][1] - m[0][1] * m[1][0]; }

    // The inverse (m11, -m01, -m10, m00) / det. The identity inverts to itself without
    // arithmetic. When 1e-12 > |det| (absolute: a tiny but regular matrix counts as singular)
    // posts "Singular Matrix" (code 1, this matrix as data) and returns the identity; a NaN
    // determinant is not caught.
    ZtLMatrix2f Inverse() const noexcept;
    // Replaces this matrix by its inverse.
    void Invert() noexcept { *this = Inverse(); }

    // Exact comparisons of all four entries (a NaN entry makes == false).
    bool operator==(const ZtLMatrix2f& b) const noexcept {
        return m[0][0] == b.m[0][0] && m[0][1] == b.m[0][1] && m[1][0] == b.m[1][0] &&
               m[1][1] == b.m[1][1];
    }
    bool operator!=(const ZtLMatrix2f& b) const noexcept { return !(*this == b); }
    // False as soon as one entry differs from b's by more than tol (NaN differences pass).
    bool Equals(const ZtLMatrix2f& b, double tol) const noexcept {
        for (int i = 0; i < 2; ++i)
            for (int j = 0; j < 2; ++j)
                if (std::fabs(m[i][j] - b.m[i][j]) > tol) return false;
        return true;
    }
    // Exact tests against the identity and the zero matrix.
    bool IsIdentity() const noexcept {
        return m[0][0] == 1.0 && m[0][1] == 0.0 && m[1][0] == 0.0 && m[1][1] == 1.0;
    }
    bool IsZero() const noexcept {
        return m[0][0] == 0.0 && m[0][1] == 0.0 && m[1][0] == 0.0 && m[1][1] == 0.0;
    }

    // The rotation whose (c, s) is the first row (m00, m01) divided by its length; the matrix is
    // taken to be a rotation. A zero first row gives NaNs.
    ZtLRotation2f ConvertRotation() const noexcept {
        const double length = std::sqrt(m[0][0] * m[0][0] + m[0][1] * m[0][1]);
        return ZtLRotation2f(m[0][0] / length, m[0][1] / length);
    }

    // Eigen-decomposition of this symmetric matrix (m10 is not read) by one Jacobi rotation,
    // which is exact in two dimensions. Writes the eigenvalues (in diagonal order) to values and
    // the rows of the eigenvector matrix V to rows[0..1]: column k of V is the unit eigenvector
    // of eigenvalue k, and V is a proper rotation. Returns 1.
    int Jacobi(ZtLVec2f* values, ZtLVec2f* const rows) const noexcept;

    // Writes this = U^T * diag(scale) * U * R with U and R proper rotations: the rows of U are
    // the eigenvectors of this * this^T and scale the square roots of its eigenvalues. When the
    // determinant is negative scale.y is negated, so that the reflection sits in the scale and R
    // stays a rotation. A zero scale gives infinities in R.
    void Factor(ZtLVec2f* scale, ZtLMatrix2f* u, ZtLMatrix2f* r) const noexcept;
    // The same factorisation with U and R converted by ConvertRotation.
    void Factor(ZtLVec2f* scale, ZtLRotation2f* u, ZtLRotation2f* r) const noexcept;

    // Hash of the four entries row by row.
    unsigned int CalcHashCode() const noexcept;
    // Two lines "(%.4f, %.4f)\n", one per row.
    ZtUWideStringBuffer ToString() const;
    ZtUWideStringBuffer ToStringImpl() const { return ToString(); }

private:
    double m[2][2];
};

static_assert(std::is_trivially_copyable<ZtLMatrix2f>::value &&
                  sizeof(ZtLMatrix2f) == 4 * sizeof(double),
              "a plain value of four doubles");

// A * B: A first, then B. Returns a copy of B when A is exactly the identity, else a copy of A
// when B is.
inline ZtLMatrix2f operator*(const ZtLMatrix2f& a, const ZtLMatrix2f& b) noexcept {
    if (a.IsIdentity()) return b;
    if (b.IsIdentity()) return a;
    return ZtLMatrix2f(a[0][0] * b[0][0] + a[0][1] * b[1][0], a[0][0] * b[0][1] + a[0][1] * b[1][1],
                       a[1][0] * b[0][0] + a[1][1] * b[1][0],
                       a[1][0] * b[0][1] + a[1][1] * b[1][1]);
}

inline ZtLMatrix2f& ZtLMatrix2f::operator*=(const ZtLMatrix2f& b) noexcept {
    *this = *this * b;
    return *this;
}

inline ZtLMatrix2f& ZtLMatrix2f::MultLeft(const ZtLMatrix2f& b) noexcept {
    *this = b * *this;
    return *this;
}

// Row-vector products, the form the library transforms with: (x m00 + y m10, x m01 + y m11).
inline ZtLVec2f operator*(const ZtLVec2f& v, const ZtLMatrix2f& a) noexcept {
    return ZtLVec2f(v[0] * a[0][0] + v[1] * a[1][0], v[0] * a[0][1] + v[1] * a[1][1]);
}
inline ZtLPos2f operator*(const ZtLPos2f& p, const ZtLMatrix2f& a) noexcept {
    return ZtLPos2f(p[0] * a[0][0] + p[1] * a[1][0], p[0] * a[0][1] + p[1] * a[1][1]);
}

// Column-vector products: (m00 x + m01 y, m10 x + m11 y), that is v * M^T.
inline ZtLVec2f operator*(const ZtLMatrix2f& a, const ZtLVec2f& v) noexcept {
    return ZtLVec2f(a[0][0] * v[0] + a[0][1] * v[1], a[1][0] * v[0] + a[1][1] * v[1]);
}
inline ZtLPos2f operator*(const ZtLMatrix2f& a, const ZtLPos2f& p) noexcept {
    return ZtLPos2f(a[0][0] * p[0] + a[0][1] * p[1], a[1][0] * p[0] + a[1][1] * p[1]);
}

#endif
