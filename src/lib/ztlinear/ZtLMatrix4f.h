#ifndef ZTLINEAR_ZTLMATRIX4F_H
#define ZTLINEAR_ZTLMATRIX4F_H

// ZtLMatrix4f: a homogeneous 4x4 matrix of doubles: an affine map with its translation in the last
// row, or a projective map with a non-trivial last column.
//
// Conventions (shared by every transform of the library):
// - entries are stored row by row, m[row][column];
// - points and vectors are row vectors multiplied on the left: the point (x, y, z) is extended to
//   (x, y, z, 1), multiplied as p.M and divided by the resulting w;
// - the translation is row 3 (m30, m31, m32), the projective terms are column 3;
// - A * B applies A first, then B; MultRight(B) appends B after this matrix, MultLeft(B) puts it
//   before.
// A matrix is affine when its column 3 is exactly (0, 0, 0, 1). The default matrix is the
// identity. Inverting a singular matrix posts "Singular Matrix" (ZtLMatrix component, code 3)
// and gives the identity; nothing else reports.

#include <ztlinear/ZtLExport.h>
#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLVec3f.h>
#include <ztutil/ZtUStringBuffer.h>

#include <cmath>
#include <type_traits>

class ZtLAffine3f;
class ZtLMatrix4f;
class ZtLRotation3f;

// The product a.b (a first, then b). An operand that is exactly the identity gives a copy of the
// other one.
ZTL_EXPORT ZtLMatrix4f operator*(const ZtLMatrix4f& a, const ZtLMatrix4f& b) noexcept;

class ZTL_EXPORT ZtLMatrix4f {
public:
    ZtLMatrix4f() noexcept { MakeIdentity(); }
    ZtLMatrix4f(double a00, double a01, double a02, double a03, double a10, double a11, double a12,
                double a13, double a20, double a21, double a22, double a23, double a30, double a31,
                double a32, double a33) noexcept {
        SetValue(a00, a01, a02, a03, a10, a11, a12, a13, a20, a21, a22, a23, a30, a31, a32, a33);
    }
    // Sixteen doubles, row by row.
    explicit ZtLMatrix4f(const double* p) noexcept { SetValue(p); }
    explicit ZtLMatrix4f(const double (*p)[4]) noexcept { SetValue(p); }
    // The affine matrix whose upper 3x3 block is the rotation's matrix.
    explicit ZtLMatrix4f(const ZtLRotation3f& q) noexcept { MakeRotation(q); }
    // The affine matrix with linear part l and translation t.
    ZtLMatrix4f(const ZtLMatrix3f& l, const ZtLVec3f& t) noexcept { MakeAffine(l, t); }
    explicit ZtLMatrix4f(const ZtLAffine3f& a) noexcept { MakeAffine(a); }

    ZtLMatrix4f& operator=(const double* p) noexcept { return SetValue(p); }
    ZtLMatrix4f& operator=(const double (*p)[4]) noexcept { return SetValue(p); }
    ZtLMatrix4f& operator=(const ZtLRotation3f& q) noexcept { return MakeRotation(q); }
    ZtLMatrix4f& operator=(const ZtLAffine3f& a) noexcept { return MakeAffine(a); }

    ZtLMatrix4f& SetValue(double a00, double a01, double a02, double a03, double a10, double a11,
                          double a12, double a13, double a20, double a21, double a22, double a23,
                          double a30, double a31, double a32, double a33) noexcept {
        m[0][0] = a00, m[0][1] = a01, m[0][2] = a02, m[0][3] = a03;
        m[1][0] = a10, m[1][1] = a11, m[1][2] = a12, m[1][3] = a13;
        m[2][0] = a20, m[2][1] = a21, m[2][2] = a22, m[2][3] = a23;
        m[3][0] = a30, m[3][1] = a31, m[3][2] = a32, m[3][3] = a33;
        return *this;
    }
    ZtLMatrix4f& SetValue(const double* p) noexcept {
        for (int i = 0; i < 4; ++i)
            for (int j = 0; j < 4; ++j) m[i][j] = p[4 * i + j];
        return *this;
    }
    ZtLMatrix4f& SetValue(const double (*p)[4]) noexcept {
        for (int i = 0; i < 4; ++i)
            for (int j = 0; j < 4; ++j) m[i][j] = p[i][j];
        return *this;
    }
    ZtLMatrix4f& SetValue(const ZtLMatrix4f& other) noexcept { return *this = other; }
    ZtLMatrix4f& SetValue(const ZtLMatrix3f& l, const ZtLVec3f& t) noexcept {
        return MakeAffine(l, t);
    }
    ZtLMatrix4f& SetValue(const ZtLAffine3f& a) noexcept { return MakeAffine(a); }
    ZtLMatrix4f& SetValue(const ZtLRotation3f& q) noexcept { return MakeRotation(q); }

    // Row i.
    double* operator[](int i) noexcept { return m[i]; }
    const double* operator[](int i) const noexcept { return m[i]; }
    double Get(int i, int j) const noexcept { return m[i][j]; }
    double (&GetValue() noexcept)[4][4] { return m; }
    const double (&GetValue() const noexcept)[4][4] { return m; }

    // Builders: each overwrites the whole matrix with an affine matrix.
    ZtLMatrix4f& MakeIdentity() noexcept {
        return SetValue(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1);
    }
    ZtLMatrix4f& MakeRotation(const ZtLRotation3f& q) noexcept;
    ZtLMatrix4f& MakeScale(const ZtLVec3f& s) noexcept {
        return SetValue(s[0], 0, 0, 0, 0, s[1], 0, 0, 0, 0, s[2], 0, 0, 0, 0, 1);
    }
    // Identity with row 3 = (t, 1).
    ZtLMatrix4f& MakeTranslation(const ZtLVec3f& t) noexcept {
        return SetValue(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, t[0], t[1], t[2], 1);
    }
    ZtLMatrix4f& MakeLinear(const ZtLMatrix3f& l) noexcept {
        return MakeAffine(l, ZtLVec3f(0.0, 0.0, 0.0));
    }
    // Rows 0-2 are the rows of l with 0 appended, row 3 is (t, 1).
    ZtLMatrix4f& MakeAffine(const ZtLMatrix3f& l, const ZtLVec3f& t) noexcept {
        return SetValue(l[0][0], l[0][1], l[0][2], 0, l[1][0], l[1][1], l[1][2], 0, l[2][0],
                        l[2][1], l[2][2], 0, t[0], t[1], t[2], 1);
    }
    ZtLMatrix4f& MakeAffine(const ZtLAffine3f& a) noexcept;

    // Products; the operand may be this matrix itself.
    ZtLMatrix4f& operator*=(const ZtLMatrix4f& b) noexcept { return MultRight(b); }
    // this = this . b
    ZtLMatrix4f& MultRight(const ZtLMatrix4f& b) noexcept { return *this = *this * b; }
    // this = b . this
    ZtLMatrix4f& MultLeft(const ZtLMatrix4f& b) noexcept { return *this = b * *this; }
    // The 3x3 operand acts as the affine matrix with that linear part and no translation.
    ZtLMatrix4f& MultRight(const ZtLMatrix3f& b) noexcept;
    ZtLMatrix4f& MultLeft(const ZtLMatrix3f& b) noexcept;
    ZtLMatrix4f& RotateRight(const ZtLRotation3f& q) noexcept;
    ZtLMatrix4f& RotateLeft(const ZtLRotation3f& q) noexcept;
    // this = this . diag(s, 1): column j of the first three is multiplied by s[j].
    ZtLMatrix4f& ScaleRight(const ZtLVec3f& s) noexcept {
        for (int i = 0; i < 4; ++i)
            for (int j = 0; j < 3; ++j) m[i][j] *= s[j];
        return *this;
    }
    // this = diag(s, 1) . this: row i of the first three is multiplied by s[i].
    ZtLMatrix4f& ScaleLeft(const ZtLVec3f& s) noexcept {
        for (int i = 0; i < 3; ++i)
            for (int j = 0; j < 4; ++j) m[i][j] *= s[i];
        return *this;
    }
    // this = this . T(v): entries 0-2 of every row gain m[i][3] * v.
    ZtLMatrix4f& TranslateRight(const ZtLVec3f& v) noexcept {
        for (int i = 0; i < 4; ++i)
            for (int j = 0; j < 3; ++j) m[i][j] += m[i][3] * v[j];
        return *this;
    }
    // this = T(v) . this: row 3 becomes v0.row0 + v1.row1 + v2.row2 + row3.
    ZtLMatrix4f& TranslateLeft(const ZtLVec3f& v) noexcept {
        for (int j = 0; j < 4; ++j)
            m[3][j] = v[0] * m[0][j] + v[1] * m[1][j] + v[2] * m[2][j] + m[3][j];
        return *this;
    }

    // The point p.M divided by w = x.m03 + y.m13 + z.m23 + m33 (no test of w: w = 0 gives
    // infinities).
    friend ZtLPos3f operator*(const ZtLPos3f& p, const ZtLMatrix4f& a) noexcept {
        const double x = p[0], y = p[1], z = p[2];
        const double(&m)[4][4] = a.m;
        const double f = 1.0 / (x * m[0][3] + y * m[1][3] + z * m[2][3] + m[3][3]);
        return ZtLPos3f((x * m[0][0] + y * m[1][0] + z * m[2][0] + m[3][0]) * f,
                        (x * m[0][1] + y * m[1][1] + z * m[2][1] + m[3][1]) * f,
                        (x * m[0][2] + y * m[1][2] + z * m[2][2] + m[3][2]) * f);
    }
    // The column form M.p divided by w = m30.x + m31.y + m32.z + m33.
    friend ZtLPos3f operator*(const ZtLMatrix4f& a, const ZtLPos3f& p) noexcept {
        const double x = p[0], y = p[1], z = p[2];
        const double(&m)[4][4] = a.m;
        const double f = 1.0 / (m[3][0] * x + m[3][1] * y + m[3][2] * z + m[3][3]);
        return ZtLPos3f((m[0][0] * x + m[0][1] * y + m[0][2] * z + m[0][3]) * f,
                        (m[1][0] * x + m[1][1] * y + m[1][2] * z + m[1][3]) * f,
                        (m[2][0] * x + m[2][1] * y + m[2][2] * z + m[2][3]) * f);
    }
    // p.M without the division: writes the first three homogeneous coordinates to out and
    // returns w.
    double MultLeftW(const ZtLPos3f& p, ZtLVec3f* out) const noexcept {
        const double x = p[0], y = p[1], z = p[2];
        *out = ZtLVec3f(x * m[0][0] + y * m[1][0] + z * m[2][0] + m[3][0],
                        x * m[0][1] + y * m[1][1] + z * m[2][1] + m[3][1],
                        x * m[0][2] + y * m[1][2] + z * m[2][2] + m[3][2]);
        return x * m[0][3] + y * m[1][3] + z * m[2][3] + m[3][3];
    }
    // M.p without the division: writes the first three homogeneous coordinates to out and
    // returns w.
    double MultRightW(const ZtLPos3f& p, ZtLVec3f* out) const noexcept {
        const double x = p[0], y = p[1], z = p[2];
        *out = ZtLVec3f(m[0][0] * x + m[0][1] * y + m[0][2] * z + m[0][3],
                        m[1][0] * x + m[1][1] * y + m[1][2] * z + m[1][3],
                        m[2][0] * x + m[2][1] * y + m[2][2] * z + m[2][3]);
        return m[3][0] * x + m[3][1] * y + m[3][2] * z + m[3][3];
    }
    // The free vector v times the upper 3x3 block: no translation, no division.
    ZtLVec3f multVecAffineMatrix(const ZtLVec3f& v) const noexcept {
        const double x = v[0], y = v[1], z = v[2];
        return ZtLVec3f(x * m[0][0] + y * m[1][0] + z * m[2][0],
                        x * m[0][1] + y * m[1][1] + z * m[2][1],
                        x * m[0][2] + y * m[1][2] + z * m[2][2]);
    }

    ZtLMatrix4f Transpose() const noexcept {
        return ZtLMatrix4f(m[0][0], m[1][0], m[2][0], m[3][0], m[0][1], m[1][1], m[2][1], m[3][1],
                           m[0][2], m[1][2], m[2][2], m[3][2], m[0][3], m[1][3], m[2][3], m[3][3]);
    }
    double Determinant() const noexcept;
    // The identity is returned as it stands; an affine matrix is inverted through its 3x3 block
    // when that is well conditioned, anything else by LU decomposition with partial pivoting.
    // A singular matrix posts "Singular Matrix" (code 3, this matrix as data) and gives the
    // identity.
    ZtLMatrix4f Inverse() const noexcept;
    ZtLMatrix4f& Invert() noexcept { return *this = Inverse(); }

    // The upper-left 3x3 block, the linear part of an affine matrix.
    ZtLMatrix3f GetLinear() const noexcept {
        return ZtLMatrix3f(m[0][0], m[0][1], m[0][2], m[1][0], m[1][1], m[1][2], m[2][0], m[2][1],
                           m[2][2]);
    }
    void GetLinear(ZtLMatrix3f* l) const noexcept { *l = GetLinear(); }
    // Row 3 without its last entry.
    ZtLVec3f GetTranslation() const noexcept { return ZtLVec3f(m[3][0], m[3][1], m[3][2]); }
    // The quaternion of the upper 3x3 block, taken to be a rotation.
    ZtLRotation3f ConvertRotation() const noexcept;

    // Exact tests.
    bool IsIdentity() const noexcept {
        for (int i = 0; i < 4; ++i)
            for (int j = 0; j < 4; ++j)
                if (m[i][j] != (i == j ? 1.0 : 0.0)) return false;
        return true;
    }
    bool IsZero() const noexcept {
        for (int i = 0; i < 4; ++i)
            for (int j = 0; j < 4; ++j)
                if (m[i][j] != 0.0) return false;
        return true;
    }
    // Column 3 is exactly (0, 0, 0, 1).
    bool IsAffine() const noexcept {
        return m[0][3] == 0.0 && m[1][3] == 0.0 && m[2][3] == 0.0 && m[3][3] == 1.0;
    }
    friend bool operator==(const ZtLMatrix4f& a, const ZtLMatrix4f& b) noexcept {
        for (int i = 0; i < 4; ++i)
            for (int j = 0; j < 4; ++j)
                if (!(a.m[i][j] == b.m[i][j])) return false;
        return true;
    }
    friend bool operator!=(const ZtLMatrix4f& a, const ZtLMatrix4f& b) noexcept {
        return !(a == b);
    }
    // False as soon as one |difference| exceeds tol; a NaN difference does not fail the test.
    bool Equals(const ZtLMatrix4f& b, double tol) const noexcept {
        for (int i = 0; i < 4; ++i)
            for (int j = 0; j < 4; ++j)
                if (std::fabs(m[i][j] - b.m[i][j]) > tol) return false;
        return true;
    }

    // M = P' . P with P' affine (this matrix with column 3 set to (0, 0, 0, 1)) and P the
    // identity except for its column 3, which carries the projective part: p = P'^-1 . c where
    // c is this matrix's column 3. A singular P' posts "Singular Matrix" (code 3) and is taken
    // as the identity.
    void FactorProjection(ZtLMatrix4f* projection) const noexcept;
    // The affine part factored as ZtLMatrix3f::Factor factors the upper 3x3 block (scale, scale
    // orientation, rotation), with the translation row as translation. The forms with a
    // projection output first split off the projective part with FactorProjection; the affine
    // part they factor is the same.
    void Factor(ZtLVec3f* scale, ZtLMatrix3f* scaleOrientation, ZtLMatrix3f* rotation,
                ZtLVec3f* translation) const noexcept;
    void Factor(ZtLVec3f* scale, ZtLRotation3f* scaleOrientation, ZtLRotation3f* rotation,
                ZtLVec3f* translation) const noexcept;
    void Factor(ZtLVec3f* scale, ZtLMatrix3f* scaleOrientation, ZtLMatrix3f* rotation,
                ZtLVec3f* translation, ZtLMatrix4f* projection) const noexcept;
    void Factor(ZtLVec3f* scale, ZtLRotation3f* scaleOrientation, ZtLRotation3f* rotation,
                ZtLVec3f* translation, ZtLMatrix4f* projection) const noexcept;

    // The sixteen entries row by row.
    unsigned int CalcHashCode() const noexcept;
    // Four lines "(a, b, c, d)\n" with four decimals per entry.
    ZtUWideStringBuffer ToString() const;
    ZtUWideStringBuffer ToStringImpl() const { return ToString(); }

private:
    double m[4][4];
};

static_assert(std::is_trivially_copyable<ZtLMatrix4f>::value &&
                  std::is_standard_layout<ZtLMatrix4f>::value &&
                  sizeof(ZtLMatrix4f) == 16 * sizeof(double),
              "a 4x4 matrix is a plain value of exactly sixteen doubles");

#endif
