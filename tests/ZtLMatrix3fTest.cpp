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

namespace {

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const ZtLMatrix3f kA(1, 2, 3, -4, 5, 6, 7, -8, 10);
const ZtLMatrix3f kB(0.5, -1, 2, 3, 0.25, -2, 1, 1, 4);

int g_posts = 0;
ZtUErrorReport g_last;
std::string g_message;
void Capture(const ZtUErrorReport& r) {
    ++g_posts;
    g_last = r;
    g_message = r.message;
}
// Routes the posts made during its lifetime to Capture.
struct ErrorCapture {
    ZtUError::Handler previous = ZtUError::SetHandler(&Capture);
    ErrorCapture() { g_posts = 0; }
    ~ErrorCapture() { ZtUError::SetHandler(previous); }
};

ZtLMatrix3f Random(std::mt19937& gen) {
    std::uniform_real_distribution<double> u(-2.0, 2.0);
    ZtLMatrix3f a;
    for (int i = 0; i < 9; ++i) a[i / 3][i % 3] = u(gen);
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

}  // namespace

TEST(ZtLMatrix3f, ProductsTakeTheExactIdentityShortCutsAndAreAliasingSafe) {
    ZtLMatrix3f withNaN = kB;
    withNaN[1][2] = kNaN;
    EXPECT_EQ(std::memcmp((ZtLMatrix3f() * withNaN).GetValue(), withNaN.GetValue(), 72), 0)
        << "identity * B copies B bit for bit";
    EXPECT_EQ(std::memcmp((withNaN * ZtLMatrix3f()).GetValue(), withNaN.GetValue(), 72), 0);
    ZtLMatrix3f nearId;
    nearId[2][2] = 1.0 + 2.220446049250313e-16;
    EXPECT_TRUE(std::isnan((nearId * withNaN)[0][2])) << "no short-cut for a near identity";

    EXPECT_EQ(kA * kB, ZtLMatrix3f(9.5, 2.5, 10, 19, 11.25, 6, -10.5, 1, 70));
    ZtLMatrix3f c = kA;
    EXPECT_EQ(c.MultRight(c), kA * kA);
    c = kA;
    EXPECT_EQ(c.MultLeft(kB), kB * kA);
    const ZtLVec3f s(2, -3, 0.5);
    c = kA;
    EXPECT_EQ(c.ScaleLeft(s), Diag(s) * kA);
    c = kA;
    EXPECT_EQ(c.ScaleRight(s), kA * Diag(s));
}

TEST(ZtLMatrix3f, VectorProductsBuildersAndDeterminant) {
    EXPECT_TRUE(ZtLVec3f::Equals(ZtLVec3f(1, -2, 3) * kA, ZtLVec3f(30, -32, 21), 0.0));
    EXPECT_TRUE(ZtLVec3f::Equals(ZtLVec3f(1, -2, 3).Multiply(kA), ZtLVec3f(30, -32, 21), 0.0));
    EXPECT_TRUE(ZtLPos3f::Equals(kA * ZtLPos3f(1, -2, 3), ZtLPos3f(6, 4, 53), 0.0));
    ZtLMatrix3f a;
    a.MakeTranslation(ZtLVec2f(5, 7));  // moves the 2D homogeneous point (1, 0, 1)
    EXPECT_TRUE(ZtLPos3f::Equals(ZtLPos3f(1, 0, 1) * a, ZtLPos3f(6, 7, 1), 0.0));
    EXPECT_EQ(kA.Determinant(), 253.0);
}

TEST(ZtLMatrix3f, ComparisonsAndTheirNaNRules) {
    ZtLMatrix3f a = kA;
    a[1][1] += 1e-9;
    EXPECT_TRUE(a.Equals(kA, 1e-9 + 1e-15));
    EXPECT_FALSE(a.Equals(kA, 1e-10));
    a = kA;
    a[0][1] = kNaN;
    EXPECT_TRUE(a != a) << "exact comparison: NaN is unequal";
    EXPECT_TRUE(a.Equals(kA, 0.0)) << "the tolerant test only fails on a difference above tol";
}

TEST(ZtLMatrix3f, InverseOfTheIdentityAndByCofactors) {
    EXPECT_TRUE(ZtLMatrix3f().Inverse().IsIdentity());
    // Ratio det / (P - N) = 1: cofactors, which give the reciprocals exactly.
    EXPECT_EQ(ZtLMatrix3f(1e-6, 0, 0, 0, 1e6, 0, 0, 0, 1).Inverse(),
              ZtLMatrix3f(1e6, 0, 0, 0, 1e-6, 0, 0, 0, 1));
    // Each cofactor is divided by det: 49 / 98 is 0.5 where 49 * (1 / 98) is not.
    EXPECT_EQ(ZtLMatrix3f(2, 0, 0, 0, 7, 0, 0, 0, 7).Inverse()[0][0], 0.5);
    std::mt19937 gen(7);
    for (int tested = 0; tested < 200;) {
        ZtLMatrix3f m = Random(gen);
        if (std::fabs(m.Determinant()) < 0.5) continue;  // well-conditioned ones only
        ++tested;
        const ZtLMatrix3f inv = m.Inverse();
        EXPECT_TRUE((m * inv).Equals(ZtLMatrix3f(), 1e-12)) << m.ToString().ToUtf8();
        m.Invert();
        EXPECT_EQ(m, inv);
    }
}

TEST(ZtLMatrix3f, InverseFallsBackToLUWhenTheDeterminantCancels) {
    // det = 2^52 - (2^52 - 1) = 1 against products of magnitude 2^53: the cofactor path (which
    // would give the exact adjugate) declines and the pivoting LU decomposition inverts.
    const double a = 67108864.0;  // 2^26
    const ZtLMatrix3f exact(a, 1 - a, 0, -a - 1, a, 0, 0, 0, 1);
    ErrorCapture capture;
    const ZtLMatrix3f inv = ZtLMatrix3f(a, a - 1, 0, a + 1, a, 0, 0, 0, 1).Inverse();
    EXPECT_EQ(g_posts, 0);
    EXPECT_TRUE(inv.Equals(exact, 1e-6 * a) && inv != exact) << inv.ToString().ToUtf8();
}

TEST(ZtLMatrix3f, SingularInverseWithEqualRowsPostsAndYieldsTheIdentity) {
    ErrorCapture capture;
    ZtLMatrix3f m(1, 2, 3, 1, 2, 3, 4, 5, 6);
    EXPECT_TRUE(m.Inverse().IsIdentity());
    ASSERT_EQ(g_posts, 1);
    EXPECT_EQ(g_last.severity, 1);
    EXPECT_EQ(g_last.component, ZtLMatrix::GetComponent());
    EXPECT_EQ(g_last.code, 2);
    EXPECT_EQ(g_last.data, static_cast<void*>(&m));
    EXPECT_EQ(g_message, "Singular Matrix");
    m.Invert();
    EXPECT_TRUE(m.IsIdentity());
}

TEST(ZtLMatrix3f, AllZeroDeterminantProductsGiveNonFiniteValuesWithoutAPost) {
    ErrorCapture capture;
    for (const ZtLMatrix3f& m :
         {ZtLMatrix3f(1, 2, 3, 0, 0, 0, 4, 5, 6), ZtLMatrix3f(0, 0, 0, 0, 0, 0, 0, 0, 0),
          ZtLMatrix3f(1, 0, 2, 3, 0, 4, 5, 0, 6)})
        EXPECT_TRUE(std::isnan(m.Inverse()[0][0])) << m.ToString().ToUtf8();
    EXPECT_EQ(g_posts, 0);
}

TEST(ZtLMatrix3f, QuaternionConversionsRoundTrip) {
    EXPECT_EQ(ZtLMatrix3f().ConvertRotation(), ZtLRotation3f(0, 0, 0, 1));

    // Near half turns about each axis reach the branches where the trace is not the largest.
    std::mt19937 gen(3);
    std::uniform_real_distribution<double> u(-1.0, 1.0);
    for (int n = 0; n < 103; ++n) {
        const ZtLRotation3f q =
            n < 3 ? ZtLRotation3f(
                        ZtLUnitVec3f(n == 0 ? 1 : 0.1, n == 1 ? 1 : 0.1, n == 2 ? 1 : 0.1), 3.0)
                  : ZtLRotation3f(u(gen), u(gen), u(gen), u(gen)).Normalized();
        const ZtLMatrix3f m(q);
        EXPECT_TRUE(Orthonormal(m, 1e-14));
        EXPECT_TRUE(m.ConvertRotation().EqualsNor(q, 1e-15)) << q.ToString().ToUtf8();
    }
}

TEST(ZtLMatrix3f, JacobiDiagonalisesSymmetricMatrices) {
    ZtLVec3f values;
    ZtLVec3f rows[3];
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
    EXPECT_EQ(values[0], 7.0);
}

TEST(ZtLMatrix3f, FactorRebuildsTheMatrixFromScaleAndRotations) {
    std::mt19937 gen(5);
    ZtLVec3f s;
    ZtLMatrix3f u, r;
    ZtLRotation3f qu, qr;
    for (int n = 0; n < 200; ++n) {
        const ZtLMatrix3f m = Random(gen);
        if (std::fabs(m.Determinant()) < 0.1) continue;
        m.Factor(&s, &u, &r);
        EXPECT_TRUE(Orthonormal(u, 1e-13) && Orthonormal(r, 1e-10));
        EXPECT_NEAR(r.Determinant(), 1.0, 1e-10) << "a proper rotation";
        EXPECT_EQ(s[0] < 0, m.Determinant() < 0) << "negative scales carry a reflection";
        EXPECT_TRUE((u.Transpose() * Diag(s) * u * r).Equals(m, 1e-12)) << m.ToString().ToUtf8();
        m.Factor(&s, &qu, &qr);
        EXPECT_TRUE(ZtLMatrix3f(qr).Equals(r, 1e-10));
    }
}

TEST(ZtLMatrix3f, FactorProjectionKeepsTheM12TermOfItsMiddleEntry) {
    // M' = rows (1, 0, 0), (2, 1, 0), (0, 0, 1), so N10 = -2, N11 = 1: P12 = 5 * -2 + 5 * 1 = -5
    // where m02 in the first term would give -1.
    ZtLMatrix3f p = kA;
    ZtLMatrix3f(1, 0, 3, 2, 1, 5, 0, 0, 7).FactorProjection(&p);
    EXPECT_EQ(p, ZtLMatrix3f(1, 0, 3, 0, 1, -5, 0, 0, 7));
}

TEST(ZtLMatrix3f, HashAndText) {
    EXPECT_NE(kA.CalcHashCode(), kA.Transpose().CalcHashCode()) << "entries hashed in order";
    EXPECT_EQ(ZtLMatrix3f(1, -2.5, 1e5, 0, 1.23456, 0, 0, 0, -0.00004).ToStringImpl().Str(),
              L"(1.0000, -2.5000, 100000.0000)\n(0.0000, 1.2346, 0.0000)\n(0.0000, 0.0000, "
              L"-0.0000)\n");
}
