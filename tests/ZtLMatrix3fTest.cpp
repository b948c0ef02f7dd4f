#include <ztlinear/ZtLMatrix.h>
#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLRotation3f.h>
#include <ztutil/ZtUError.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace {

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kHalfPi = 1.5707963267948966;

struct Report {
    int severity;
    ZtUComponent* component;
    int code;
    void* data;
    std::string message;
};
std::vector<Report> g_reports;
void Capture(const ZtUErrorReport& r) {
    g_reports.push_back({r.severity, r.component, r.code, r.data, r.message});
}

// Captures the posts made during its lifetime.
class ErrorCapture {
public:
    ErrorCapture() : m_previous(ZtUError::SetHandler(&Capture)) { g_reports.clear(); }
    ~ErrorCapture() { ZtUError::SetHandler(m_previous); }

private:
    ZtUError::Handler m_previous;
};

bool SameBits(const ZtLMatrix3f& a, const ZtLMatrix3f& b) {
    return std::memcmp(a.GetValue(), b.GetValue(), sizeof(double) * 9) == 0;
}

bool AllFinite(const ZtLMatrix3f& a) {
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            if (!std::isfinite(a[i][j])) return false;
    return true;
}

ZtLMatrix3f Random(std::mt19937& gen) {
    std::uniform_real_distribution<double> u(-2.0, 2.0);
    ZtLMatrix3f a;
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) a[i][j] = u(gen);
    return a;
}

ZtLMatrix3f Diag(const ZtLVec3f& s) {
    ZtLMatrix3f d;
    d.MakeScale(s);
    return d;
}

bool Orthonormal(const ZtLMatrix3f& a, double tol) {
    return (a * a.Transpose()).Equals(ZtLMatrix3f(), tol);
}

const ZtLMatrix3f kA(1, 2, 3, -4, 5, 6, 7, -8, 10);
const ZtLMatrix3f kB(0.5, -1, 2, 3, 0.25, -2, 1, 1, 4);

}  // namespace

TEST(ZtLMatrix3f, ProductsTakeTheExactIdentityShortCutsAndAreAliasingSafe) {
    const ZtLMatrix3f id;
    ZtLMatrix3f withNaN = kB;
    withNaN[1][2] = kNaN;
    EXPECT_TRUE(SameBits(id * withNaN, withNaN)) << "identity * B copies B, NaNs included";
    EXPECT_TRUE(SameBits(withNaN * id, withNaN));
    ZtLMatrix3f nearId;
    nearId[2][2] = 1.0 + 2.220446049250313e-16;
    EXPECT_FALSE(nearId.IsIdentity());
    EXPECT_TRUE(std::isnan((nearId * withNaN)[0][2])) << "no short-cut for a near identity";

    const ZtLMatrix3f ab = kA * kB;
    EXPECT_EQ(ab, ZtLMatrix3f(9.5, 2.5, 10, 19, 11.25, 6, -10.5, 1, 70));
    ZtLMatrix3f c = kA;
    c *= kB;
    EXPECT_EQ(c, ab);
    c = kA;
    c.MultRight(c);
    EXPECT_EQ(c, kA * kA);
    c = kA;
    c.MultLeft(kB);
    EXPECT_EQ(c, kB * kA);
    c = kA;
    c = c * c;
    EXPECT_EQ(c, kA * kA);

    const ZtLVec3f s(2, -3, 0.5);
    c = kA;
    EXPECT_EQ(c.ScaleLeft(s), Diag(s) * kA);
    c = kA;
    EXPECT_EQ(c.ScaleRight(s), kA * Diag(s));
    const ZtLRotation3f q(ZtLUnitVec3f(1, 2, 2), 0.7);
    c = kA;
    EXPECT_EQ(c.RotateLeft(q), ZtLMatrix3f(q) * kA);
    c = kA;
    EXPECT_EQ(c.RotateRight(q), kA * ZtLMatrix3f(q));
}

TEST(ZtLMatrix3f, RowAndColumnVectorProducts) {
    const ZtLVec3f v(1, -2, 3);
    const ZtLVec3f row = v * kA;
    EXPECT_TRUE(ZtLVec3f::Equals(row, ZtLVec3f(30, -32, 21), 0.0));
    const ZtLVec3f column = kA * v;
    EXPECT_TRUE(ZtLVec3f::Equals(column, ZtLVec3f(6, 4, 53), 0.0));
    EXPECT_TRUE(ZtLVec3f::Equals(kA.Transpose() * v, row, 0.0)) << "v * M is M^T in column form";
    const ZtLPos3f p(1, -2, 3);
    EXPECT_TRUE(ZtLPos3f::Equals(p * kA, ZtLPos3f(30, -32, 21), 0.0)) << "no translation";
    EXPECT_TRUE(ZtLPos3f::Equals(kA * p, ZtLPos3f(6, 4, 53), 0.0));
}

TEST(ZtLMatrix3f, BuildersAndQueries) {
    ZtLMatrix3f a = kA;
    a.MakeIdentity();
    EXPECT_TRUE(a.IsIdentity());
    a.MakeUniformScale(3);
    EXPECT_EQ(a, ZtLMatrix3f(3, 0, 0, 0, 3, 0, 0, 0, 3));
    const double rows[3][3] = {{1, 2, 3}, {-4, 5, 6}, {7, -8, 10}};
    EXPECT_EQ(ZtLMatrix3f(rows), kA);
    EXPECT_EQ(ZtLMatrix3f(&rows[0][0]), kA);
    a = rows;
    EXPECT_EQ(a, kA);
    EXPECT_EQ(kA.Transpose(), ZtLMatrix3f(1, -4, 7, 2, 5, -8, 3, 6, 10));
    EXPECT_EQ(kA.Determinant(), 253.0);
    EXPECT_EQ(kA.Get(2, 1), -8.0);
    EXPECT_TRUE(ZtLMatrix3f(0, 0, 0, 0, 0, 0, 0, 0, -0.0).IsZero());
    EXPECT_FALSE(ZtLMatrix3f(0, 0, 0, 0, 1e-300, 0, 0, 0, 0).IsZero());
}

TEST(ZtLMatrix3f, ComparisonsAndTheirNaNRules) {
    ZtLMatrix3f a = kA;
    EXPECT_TRUE(a == kA);
    a[1][1] += 1e-9;
    EXPECT_TRUE(a != kA);
    EXPECT_TRUE(a.Equals(kA, 1e-9 + 1e-15));
    EXPECT_FALSE(a.Equals(kA, 1e-10));
    EXPECT_FALSE(a.Equals(kA, 0.0));

    ZtLMatrix3f n = kA;
    n[0][1] = kNaN;
    EXPECT_FALSE(n == n) << "exact comparison: NaN is unequal";
    EXPECT_TRUE(n != n);
    EXPECT_TRUE(n.Equals(kA, 0.0)) << "the tolerant test only fails on a difference above tol";
    EXPECT_TRUE(kA.Equals(n, 0.0));
}

TEST(ZtLMatrix3f, InverseOfTheIdentityAndByCofactors) {
    EXPECT_TRUE(ZtLMatrix3f().Inverse().IsIdentity());
    // Ratio det / (P - N) = 1: cofactors, which give the reciprocals exactly.
    const ZtLMatrix3f d(1e-6, 0, 0, 0, 1e6, 0, 0, 0, 1);
    EXPECT_EQ(d.Inverse(), ZtLMatrix3f(1e6, 0, 0, 0, 1e-6, 0, 0, 0, 1));
    EXPECT_TRUE((kA * kA.Inverse()).Equals(ZtLMatrix3f(), 1e-15));

    std::mt19937 gen(7);
    int tested = 0;
    while (tested < 200) {
        const ZtLMatrix3f m = Random(gen);
        if (std::fabs(m.Determinant()) < 0.5) continue;  // well-conditioned ones only
        ++tested;
        EXPECT_TRUE((m * m.Inverse()).Equals(ZtLMatrix3f(), 1e-12)) << m.ToString().ToUtf8();
        ZtLMatrix3f inv = m;
        inv.Invert();
        EXPECT_EQ(inv, m.Inverse());
    }
}

TEST(ZtLMatrix3f, InverseFallsBackToLUWhenTheDeterminantCancels) {
    // det = 2^52 - (2^52 - 1) = 1 against products of magnitude 2^53: the cofactor path declines
    // and the pivoting LU decomposition inverts.
    const double a = 67108864.0;  // 2^26
    const ZtLMatrix3f m(a, a - 1, 0, a + 1, a, 0, 0, 0, 1);
    ErrorCapture capture;
    const ZtLMatrix3f inv = m.Inverse();
    EXPECT_TRUE(g_reports.empty());
    EXPECT_TRUE(inv.Equals(ZtLMatrix3f(a, 1 - a, 0, -a - 1, a, 0, 0, 0, 1), 1e-6 * a))
        << inv.ToString().ToUtf8();
    EXPECT_NE(inv, ZtLMatrix3f(a, 1 - a, 0, -a - 1, a, 0, 0, 0, 1))
        << "the exact adjugate would be the cofactor path";
}

TEST(ZtLMatrix3f, SingularInverseWithEqualRowsPostsAndYieldsTheIdentity) {
    ErrorCapture capture;
    ZtLMatrix3f m(1, 2, 3, 1, 2, 3, 4, 5, 6);
    const ZtLMatrix3f inv = m.Inverse();
    EXPECT_TRUE(inv.IsIdentity());
    ASSERT_EQ(g_reports.size(), 1u);
    EXPECT_EQ(g_reports[0].severity, 1);
    EXPECT_EQ(g_reports[0].component, ZtLMatrix::GetComponent());
    EXPECT_EQ(g_reports[0].code, 2);
    EXPECT_EQ(g_reports[0].data, static_cast<void*>(&m));
    EXPECT_EQ(g_reports[0].message, "Singular Matrix");

    m.Invert();
    EXPECT_TRUE(m.IsIdentity());
    EXPECT_EQ(g_reports.size(), 2u);
}

TEST(ZtLMatrix3f, AllZeroDeterminantProductsGiveNonFiniteValuesWithoutAPost) {
    ErrorCapture capture;
    for (const ZtLMatrix3f& m :
         {ZtLMatrix3f(1, 2, 3, 0, 0, 0, 4, 5, 6), ZtLMatrix3f(0, 0, 0, 0, 0, 0, 0, 0, 0),
          ZtLMatrix3f(1, 0, 2, 3, 0, 4, 5, 0, 6)}) {
        EXPECT_FALSE(AllFinite(m.Inverse())) << m.ToString().ToUtf8();
    }
    EXPECT_TRUE(g_reports.empty());
}

TEST(ZtLMatrix3f, QuaternionConversionsRoundTrip) {
    const ZtLRotation3f id = ZtLMatrix3f().ConvertRotation();
    EXPECT_EQ(id, ZtLRotation3f(0, 0, 0, 1));

    // Row-vector form: a quarter turn about Z takes X to Y.
    const ZtLMatrix3f z90(ZtLRotation3f(ZtLUnitVec3f::Z(), kHalfPi));
    EXPECT_TRUE(ZtLVec3f::Equals(ZtLVec3f(1, 0, 0) * z90, ZtLVec3f(0, 1, 0), 1e-15));

    // Random rotations, and half turns about each axis that reach every branch of the
    // conversion (trace at most the largest diagonal entry).
    std::mt19937 gen(3);
    std::uniform_real_distribution<double> u(-1.0, 1.0);
    std::vector<ZtLRotation3f> cases = {ZtLRotation3f(ZtLUnitVec3f(1, 0.1, 0.1), 3.0),
                                        ZtLRotation3f(ZtLUnitVec3f(0.1, 1, 0.1), 3.0),
                                        ZtLRotation3f(ZtLUnitVec3f(0.1, 0.1, 1), 3.0)};
    for (int i = 0; i < 100; ++i)
        cases.push_back(ZtLRotation3f(u(gen), u(gen), u(gen), u(gen)).Normalized());
    for (const ZtLRotation3f& q : cases) {
        const ZtLMatrix3f m(q);
        EXPECT_TRUE(Orthonormal(m, 1e-14));
        EXPECT_NEAR(m.Determinant(), 1.0, 1e-14);
        const ZtLRotation3f back = m.ConvertRotation();
        EXPECT_TRUE(back.EqualsNor(q, 1e-15)) << q.ToString().ToUtf8();
        EXPECT_TRUE(ZtLMatrix3f(back).Equals(m, 1e-15));
    }
}

TEST(ZtLMatrix3f, JacobiDiagonalisesSymmetricMatrices) {
    ZtLVec3f values;
    ZtLVec3f rows[3];
    ASSERT_EQ(ZtLMatrix3f(3, 0, 0, 0, -1, 0, 0, 0, 2).Jacobi(&values, rows), 1);
    EXPECT_TRUE(ZtLVec3f::Equals(values, ZtLVec3f(3, -1, 2), 0.0)) << "unsorted, diagonal order";
    EXPECT_TRUE(ZtLVec3f::Equals(rows[1], ZtLVec3f(0, 1, 0), 0.0));

    std::mt19937 gen(11);
    for (int n = 0; n < 200; ++n) {
        ZtLMatrix3f a = Random(gen);
        for (int i = 0; i < 3; ++i)
            for (int j = 0; j < i; ++j) a[i][j] = a[j][i];
        ASSERT_EQ(a.Jacobi(&values, rows), 1);
        const ZtLMatrix3f v(rows[0][0], rows[0][1], rows[0][2], rows[1][0], rows[1][1], rows[1][2],
                            rows[2][0], rows[2][1], rows[2][2]);
        EXPECT_TRUE(Orthonormal(v, 1e-14));
        // A V = V diag(values): column k of V is the eigenvector of values[k].
        EXPECT_TRUE((a * v).Equals(v * Diag(values), 1e-13)) << a.ToString().ToUtf8();
    }

    // No convergence: 0, and the outputs are left as they were.
    values = ZtLVec3f(7, 7, 7);
    EXPECT_EQ(ZtLMatrix3f(1, kNaN, 0, kNaN, 1, 0, 0, 0, 1).Jacobi(&values, rows), 0);
    EXPECT_TRUE(ZtLVec3f::Equals(values, ZtLVec3f(7, 7, 7), 0.0));
}

TEST(ZtLMatrix3f, FactorRebuildsTheMatrixFromScaleAndRotations) {
    std::mt19937 gen(5);
    for (int n = 0; n < 200; ++n) {
        const ZtLMatrix3f m = Random(gen);
        if (std::fabs(m.Determinant()) < 0.1) continue;
        ZtLVec3f s;
        ZtLMatrix3f u;
        ZtLMatrix3f r;
        m.Factor(&s, &u, &r);
        EXPECT_TRUE(Orthonormal(u, 1e-13));
        EXPECT_TRUE(Orthonormal(r, 1e-10));
        EXPECT_NEAR(r.Determinant(), 1.0, 1e-10) << "a proper rotation";
        EXPECT_EQ(s[0] < 0, m.Determinant() < 0) << "negative scales carry a reflection";
        EXPECT_TRUE((u.Transpose() * Diag(s) * u * r).Equals(m, 1e-12)) << m.ToString().ToUtf8();

        ZtLRotation3f qu;
        ZtLRotation3f qr;
        m.Factor(&s, &qu, &qr);
        EXPECT_TRUE(ZtLMatrix3f(qr).Equals(r, 1e-10));
    }
    ZtLMatrix3f m = kA;  // outputs may alias the matrix itself
    ZtLVec3f s;
    ZtLMatrix3f r;
    m.Factor(&s, &m, &r);
    EXPECT_TRUE((m.Transpose() * Diag(s) * m * r).Equals(kA, 1e-12));
}

TEST(ZtLMatrix3f, FactorProjectionKeepsTheM12TermOfItsMiddleEntry) {
    // M' = rows (1, 0, 0), (2, 1, 0), (0, 0, 1), so N has N10 = -2, N11 = 1: P12 = 5 * -2 + 5 * 1
    // = -5 where m02 in the first term would give -1.
    const ZtLMatrix3f m(1, 0, 3, 2, 1, 5, 0, 0, 7);
    ZtLMatrix3f p = kA;
    m.FactorProjection(&p);
    EXPECT_EQ(p, ZtLMatrix3f(1, 0, 3, 0, 1, -5, 0, 0, 7));

    ErrorCapture capture;
    ZtLMatrix3f(1, 2, 0, 1, 2, 0, 4, 5, 9).FactorProjection(&p);
    EXPECT_EQ(g_reports.size(), 1u) << "a singular affine part posts";
    EXPECT_EQ(p, ZtLMatrix3f(1, 0, 0, 0, 1, 0, 0, 0, 9));
}

TEST(ZtLMatrix3f, HashAndText) {
    EXPECT_EQ(kA.CalcHashCode(), ZtLMatrix3f(kA).CalcHashCode());
    EXPECT_NE(kA.CalcHashCode(), kA.Transpose().CalcHashCode()) << "entries hashed in order";
    EXPECT_EQ(ZtLMatrix3f().CalcHashCode(), ZtLMatrix3f(1, 0, 0, 0, 1, 0, 0, 0, 1).CalcHashCode());
    EXPECT_EQ(
        std::wstring(
            ZtLMatrix3f(1, -2.5, 1e5, 0, 1.23456, 0, 0, 0, -0.00004).ToStringImpl().GetString()),
        L"(1.0000, -2.5000, 100000.0000)\n(0.0000, 1.2346, 0.0000)\n(0.0000, 0.0000, "
        L"-0.0000)\n");
}
