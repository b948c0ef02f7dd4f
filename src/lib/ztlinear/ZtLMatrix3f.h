#ifndef ZTLINEAR_ZTLMATRIX3F_H
#define ZTLINEAR_ZTLMATRIX3F_H

// ZtLMatrix3f: a 3x3 matrix of doubles, the linear part of 3D transforms (rotation, scale,
// shear) and the homogeneous matrix of 2D transforms.
//
// Conventions shared by every transform of the library:
// - entries are stored row by row, m[row][column];
// - points and vectors are row vectors multiplied on the left: v' = v * M. Used as a 2D
//   homogeneous matrix, the translation sits in the last row;
// - A * B applies A first, then B. MultRight(m) appends m after this transform, MultLeft(m)
//   puts m before it.
//
// The default matrix is the identity. Products and inversion test their operands for the exact
// identity first and then only copy, since most transforms in use are the identity. Products
// are computed into a temporary, so a = a * b and a.MultLeft(a) are safe. Nothing allocates and
// nothing throws: inverting a singular matrix posts "Singular Matrix" (code 2, the matrix as
// data) through the ZtLMatrix component and yields the identity.

#include <ztlinear/ZtLExport.h>
#include <ztlinear/ZtLRotation3f.h>
#include <ztlinear/ZtLVec2f.h>
#include <ztlinear/ZtLVec3f.h>
#include <ztutil/ZtUStringBuffer.h>

#include <cmath>
#include <type_traits>

class ZtLAffine2f;
class ZtLMatrix2f;
class ZtLRotation2f;
class ZtLRotation3f;

class ZTL_EXPORT ZtLMatrix3f {
public:
    // The identity.
    constexpr ZtLMatrix3f() noexcept : m{{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}} {}
    // The nine entries row by row.
    constexpr ZtLMatrix3f(double a00, double a01, double a02, double a10, double a11, double a12,
                          double a20, double a21, double a22) noexcept
        : m{{a00, a01, a02}, {a10, a11, a12}, {a20, a21, a22}} {}
    // Nine doubles row by row.
    explicit ZtLMatrix3f(const double* p) noexcept { SetValue(p); }
    explicit ZtLMatrix3f(const double (*p)[3]) noexcept { SetValue(p); }
    // The rotation matrix of a quaternion (see SetValue(const ZtLRotation3f&)).
    explicit ZtLMatrix3f(const ZtLRotation3f& q) noexcept { SetValue(q); }
    // The 2D homogeneous matrix of a plane rotation (see SetValue(const ZtLRotation2f&)).
    explicit ZtLMatrix3f(const ZtLRotation2f& r) noexcept;

    ZtLMatrix3f& operator=(const double (*p)[3]) noexcept {
        SetValue(p);
        return *this;
    }
    ZtLMatrix3f& operator=(const ZtLRotation3f& q) noexcept {
        SetValue(q);
        return *this;
    }

    void SetValue(double a00, double a01, double a02, double a10, double a11, double a12,
                  double a20, double a21, double a22) noexcept {
        *this = ZtLMatrix3f(a00, a01, a02, a10, a11, a12, a20, a21, a22);
    }
    void SetValue(const double* p) noexcept {
        for (int i = 0; i < 3; ++i)
            for (int j = 0; j < 3; ++j) m[i][j] = p[3 * i + j];
    }
    void SetValue(const double (*p)[3]) noexcept {
        for (int i = 0; i < 3; ++i)
            for (int j = 0; j < 3; ++j) m[i][j] = p[i][j];
    }
    void SetValue(const ZtLMatrix3f& other) noexcept { *this = other; }
    // The row-vector rotation matrix of the quaternion (x, y, z, w), which is not normalised
    // first: m00 = 1 - 2y^2 - 2z^2, m01 = 2zw + 2xy, m02 = 2xz - 2yw, and so on.
    inline void SetValue(const ZtLRotation3f& q) noexcept;  // defined after the class
    // The plane rotation (c, s) as a 2D homogeneous matrix: rows (c, s, 0), (-s, c, 0), (0, 0, 1).
    void SetValue(const ZtLRotation2f& r) noexcept;

    // Builders: each overwrites the whole matrix.
    void MakeIdentity() noexcept { *this = ZtLMatrix3f(); }
    void MakeRotation(const ZtLRotation3f& q) noexcept { SetValue(q); }
    void MakeRotation(const ZtLRotation2f& r) noexcept;
    // diag(s.x, s.y, s.z).
    void MakeScale(const ZtLVec3f& s) noexcept {
        *this = ZtLMatrix3f(s[0], 0.0, 0.0, 0.0, s[1], 0.0, 0.0, 0.0, s[2]);
    }
    // diag(s.x, s.y, 1): a 2D homogeneous scale.
    void MakeScale(const ZtLVec2f& s) noexcept {
        *this = ZtLMatrix3f(s[0], 0.0, 0.0, 0.0, s[1], 0.0, 0.0, 0.0, 1.0);
    }
    // diag(s, s, s).
    void MakeUniformScale(double s) noexcept {
        *this = ZtLMatrix3f(s, 0.0, 0.0, 0.0, s, 0.0, 0.0, 0.0, s);
    }
    // The identity with row 2 = (t.x, t.y, 1): a 2D homogeneous translation.
    void MakeTranslation(const ZtLVec2f& t) noexcept {
        *this = ZtLMatrix3f(1.0, 0.0, 0.0, 0.0, 1.0, 0.0, t[0], t[1], 1.0);
    }

    // Access: row i, entry (i, j), the whole array.
    double* operator[](int i) noexcept { return m[i]; }
    const double* operator[](int i) const noexcept { return m[i]; }
    double Get(int i, int j) const noexcept { return m[i][j]; }
    double GetImpl(int i, int j) const noexcept { return m[i][j]; }
    double (&GetValue() noexcept)[3][3] { return m; }
    const double (&GetValue() const noexcept)[3][3] { return m; }

    // Products. this = this * b (this transform, then b).
    // Declared inline here too: defined after the class, and used (MultRight) before that; a
    // member of an imported Windows DLL class must be known inline at its first use.
    inline ZtLMatrix3f& operator*=(const ZtLMatrix3f& b) noexcept;
    ZtLMatrix3f& MultRight(const ZtLMatrix3f& b) noexcept { return *this *= b; }
    // this = b * this (b, then this transform).
    inline ZtLMatrix3f& MultLeft(const ZtLMatrix3f& b) noexcept;
    // this = R(q) * this and this = this * R(q), R(q) the matrix built by SetValue(q).
    ZtLMatrix3f& RotateLeft(const ZtLRotation3f& q) noexcept;
    ZtLMatrix3f& RotateRight(const ZtLRotation3f& q) noexcept;
    // this = diag(s) * this: row i is multiplied by s[i].
    ZtLMatrix3f& ScaleLeft(const ZtLVec3f& s) noexcept {
        for (int i = 0; i < 3; ++i)
            for (int j = 0; j < 3; ++j) m[i][j] *= s[i];
        return *this;
    }
    // this = this * diag(s): column j is multiplied by s[j].
    ZtLMatrix3f& ScaleRight(const ZtLVec3f& s) noexcept {
        for (int i = 0; i < 3; ++i)
            for (int j = 0; j < 3; ++j) m[i][j] *= s[j];
        return *this;
    }

    ZtLMatrix3f Transpose() const noexcept {
        return ZtLMatrix3f(m[0][0], m[1][0], m[2][0], m[0][1], m[1][1], m[2][1], m[0][2], m[1][2],
                           m[2][2]);
    }
    // m00 m11 m22 + m01 m12 m20 + m02 m10 m21 - m00 m12 m21 - m10 m01 m22 - m02 m11 m20, in this
    // order of terms.
    double Determinant() const noexcept {
        return m[0][0] * m[1][1] * m[2][2] + m[0][1] * m[1][2] * m[2][0] +
               m[0][2] * m[1][0] * m[2][1] - m[0][0] * m[1][2] * m[2][1] -
               m[1][0] * m[0][1] * m[2][2] - m[0][2] * m[1][1] * m[2][0];
    }

    // The inverse. The identity inverts to itself without arithmetic. Otherwise the adjugate over
    // the determinant, unless the determinant is below 1e-15 relative to the sum of the
    // magnitudes of its six products; then an LU decomposition with partial pivoting. A matrix
    // the LU decomposition finds singular posts "Singular Matrix" (code 2, this matrix as data)
    // and inverts to the identity. A matrix whose six determinant products are all zero (such as
    // one with a zero row) passes the relative test as 0/0 and yields infinities and NaNs
    // without a post.
    ZtLMatrix3f Inverse() const noexcept;
    // Replaces this matrix by its inverse.
    void Invert() noexcept { *this = Inverse(); }

    // Exact comparisons of all nine entries (a NaN entry makes == false).
    bool operator==(const ZtLMatrix3f& b) const noexcept {
        for (int i = 0; i < 3; ++i)
            for (int j = 0; j < 3; ++j)
                if (!(m[i][j] == b.m[i][j])) return false;
        return true;
    }
    bool operator!=(const ZtLMatrix3f& b) const noexcept { return !(*this == b); }
    // False as soon as one entry differs from b's by more than tol. A NaN difference is not
    // "more than tol", so NaN entries do not make the matrices differ.
    bool Equals(const ZtLMatrix3f& b, double tol) const noexcept {
        for (int i = 0; i < 3; ++i)
            for (int j = 0; j < 3; ++j) {
                if (std::fabs(m[i][j] - b.m[i][j]) > tol) return false;
            }
        return true;
    }
    // Exact tests against the identity and the zero matrix.
    bool IsIdentity() const noexcept {
        return m[0][0] == 1.0 && m[0][1] == 0.0 && m[0][2] == 0.0 && m[1][0] == 0.0 &&
               m[1][1] == 1.0 && m[1][2] == 0.0 && m[2][0] == 0.0 && m[2][1] == 0.0 &&
               m[2][2] == 1.0;
    }
    bool IsZero() const noexcept {
        for (int i = 0; i < 3; ++i)
            for (int j = 0; j < 3; ++j)
                if (!(m[i][j] == 0.0)) return false;
        return true;
    }

    // The quaternion of this matrix, which is taken to be orthonormal (not normalised after).
    ZtLRotation3f ConvertRotation() const noexcept;

    // Eigen-decomposition of this symmetric matrix (only the upper triangle is read) by cyclic
    // Jacobi rotations. On convergence writes the three eigenvalues (unsorted, in diagonal
    // order) to values[0] and the rows of the eigenvector matrix V to rows[0..2]: column k of V
    // is the unit eigenvector of eigenvalue k. Returns 1 on convergence; after 50 sweeps without
    // it returns 0 and writes nothing.
    int Jacobi(ZtLVec3f* values, ZtLVec3f* const rows) const noexcept;

    // Writes this = U^T * diag(scale) * U * R with U and R orthonormal: the rows of U are the
    // eigenvectors of this * this^T, scale the square roots of its eigenvalues (all negated when
    // the determinant is negative, so that R is a proper rotation). A zero scale gives infinities
    // in R.
    void Factor(ZtLVec3f* scale, ZtLMatrix3f* u, ZtLMatrix3f* r) const noexcept;
    // The same factorisation with U and R returned as quaternions.
    void Factor(ZtLVec3f* scale, ZtLRotation3f* u, ZtLRotation3f* r) const noexcept;

    // Factorisation of this matrix as a 2D homogeneous transform: the upper-left 2x2 block is the
    // linear part and (m20, m21) the translation, factored by ZtLAffine2f::Factor.
    void Factor(ZtLVec2f* scale, ZtLMatrix2f* u, ZtLMatrix2f* r, ZtLVec2f* translation) const;
    void Factor(ZtLVec2f* scale, ZtLRotation2f* u, ZtLRotation2f* r, ZtLVec2f* translation) const;
    // The same, after splitting the projective part off into projection (FactorProjection).
    void Factor(ZtLVec2f* scale, ZtLMatrix2f* u, ZtLMatrix2f* r, ZtLVec2f* translation,
                ZtLMatrix3f* projection) const;
    void Factor(ZtLVec2f* scale, ZtLRotation2f* u, ZtLRotation2f* r, ZtLVec2f* translation,
                ZtLMatrix3f* projection) const;

    // The projective part of this 2D homogeneous matrix: the identity with its last column
    // computed from the inverse N of this matrix with its last column set to (0, 0, 1). The
    // middle entry is m12 N10 + m12 N11 + m22 N12: its first term takes m12, not m02, and
    // records made with it depend on that. A singular N posts "Singular Matrix".
    void FactorProjection(ZtLMatrix3f* projection) const noexcept;

    // Hash of the nine entries row by row.
    unsigned int CalcHashCode() const noexcept;
    // Three lines "(%.4f, %.4f, %.4f)\n", one per row.
    ZtUWideStringBuffer ToString() const;
    ZtUWideStringBuffer ToStringImpl() const { return ToString(); }

private:
    double m[3][3];
};

static_assert(std::is_trivially_copyable<ZtLMatrix3f>::value &&
                  sizeof(ZtLMatrix3f) == 9 * sizeof(double),
              "a plain value of nine doubles");

// Inline so that clients converting rotations in a loop pay no call into the library.
inline void ZtLMatrix3f::SetValue(const ZtLRotation3f& q) noexcept {
    const double x = q.GetA();
    const double y = q.GetB();
    const double z = q.GetC();
    const double w = q.GetD();
    m[0][0] = 1.0 - 2.0 * y * y - 2.0 * z * z;
    m[1][1] = 1.0 - 2.0 * z * z - 2.0 * x * x;
    m[2][2] = 1.0 - 2.0 * x * x - 2.0 * y * y;
    m[0][1] = 2.0 * z * w + 2.0 * x * y;
    m[1][0] = 2.0 * x * y - 2.0 * z * w;
    m[0][2] = 2.0 * x * z - 2.0 * y * w;
    m[2][0] = 2.0 * y * w + 2.0 * x * z;
    m[1][2] = 2.0 * x * w + 2.0 * y * z;
    m[2][1] = 2.0 * y * z - 2.0 * x * w;
}

// A * B: A first, then B. Returns a copy of B when A is exactly the identity, else a copy of A
// when B is.
inline ZtLMatrix3f operator*(const ZtLMatrix3f& a, const ZtLMatrix3f& b) noexcept {
    if (a.IsIdentity()) return b;
    if (b.IsIdentity()) return a;
    ZtLMatrix3f c;
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            c[i][j] = a[i][0] * b[0][j] + a[i][1] * b[1][j] + a[i][2] * b[2][j];
    return c;
}

inline ZtLMatrix3f& ZtLMatrix3f::operator*=(const ZtLMatrix3f& b) noexcept {
    *this = *this * b;
    return *this;
}

inline ZtLMatrix3f& ZtLMatrix3f::MultLeft(const ZtLMatrix3f& b) noexcept {
    *this = b * *this;
    return *this;
}

// Row-vector products, the form the library transforms with: r[j] = sum_i v[i] M[i][j]. A 3x3
// matrix has no translation, so positions and free vectors map alike.
inline ZtLVec3f operator*(const ZtLVec3f& v, const ZtLMatrix3f& a) noexcept {
    return ZtLVec3f(v[0] * a[0][0] + v[1] * a[1][0] + v[2] * a[2][0],
                    v[0] * a[0][1] + v[1] * a[1][1] + v[2] * a[2][1],
                    v[0] * a[0][2] + v[1] * a[1][2] + v[2] * a[2][2]);
}
inline ZtLPos3f operator*(const ZtLPos3f& p, const ZtLMatrix3f& a) noexcept {
    return ZtLPos3f(p[0] * a[0][0] + p[1] * a[1][0] + p[2] * a[2][0],
                    p[0] * a[0][1] + p[1] * a[1][1] + p[2] * a[2][1],
                    p[0] * a[0][2] + p[1] * a[1][2] + p[2] * a[2][2]);
}

// Column-vector products: r[i] = sum_j M[i][j] v[j], that is v * M^T.
inline ZtLVec3f operator*(const ZtLMatrix3f& a, const ZtLVec3f& v) noexcept {
    return ZtLVec3f(a[0][0] * v[0] + a[0][1] * v[1] + a[0][2] * v[2],
                    a[1][0] * v[0] + a[1][1] * v[1] + a[1][2] * v[2],
                    a[2][0] * v[0] + a[2][1] * v[1] + a[2][2] * v[2]);
}
inline ZtLPos3f operator*(const ZtLMatrix3f& a, const ZtLPos3f& p) noexcept {
    return ZtLPos3f(a[0][0] * p[0] + a[0][1] * p[1] + a[0][2] * p[2],
                    a[1][0] * p[0] + a[1][1] * p[1] + a[1][2] * p[2],
                    a[2][0] * p[0] + a[2][1] * p[1] + a[2][2] * p[2]);
}

#endif
