#include <ztlinear/ZtLNewellMethod2f.h>
#include <ztlinear/ZtLNewellMethod3f.h>

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

namespace {
constexpr double kPi = 3.141592653589793;

double RegularArea(int n, double r) { return 0.5 * n * r * r * std::sin(2.0 * kPi / n); }

// A regular n-gon of radius r about c in the plane spanned by u and v (counter-clockwise seen
// from u x v).
std::vector<ZtLPos3f> RegularPolygon(int n, double r, const ZtLPos3f& c, const ZtLVec3f& u,
                                     const ZtLVec3f& v, double phase) {
    std::vector<ZtLPos3f> pts;
    for (int k = 0; k < n; ++k) {
        const double a = phase + 2.0 * kPi * k / n;
        pts.push_back(c.Add(u.Multiply(r * std::cos(a)).Add(v.Multiply(r * std::sin(a)))));
    }
    return pts;
}
}  // namespace

TEST(ZtLNewellMethod3fTest, RegularPolygonsInManyOrientations) {
    std::mt19937 rng(7);
    std::uniform_real_distribution<double> any(-1.0, 1.0);
    for (int n : {3, 4, 5, 6, 7, 12, 31, 64, 200, 1000}) {
        for (int trial = 0; trial < 8; ++trial) {
            const ZtLUnitVec3f normal(any(rng), any(rng), any(rng));
            const ZtLUnitVec3f u(normal.Cross(ZtLVec3f(any(rng), any(rng), any(rng))));
            const ZtLVec3f v = normal.Cross(u);
            const double r = 0.1 + 10.0 * (any(rng) + 1.0);
            const ZtLPos3f c(100 * any(rng), 100 * any(rng), 100 * any(rng));
            std::vector<ZtLPos3f> pts = RegularPolygon(n, r, c, u, v, any(rng));
            ZtLNewellMethod3f ccw;
            ASSERT_EQ(ccw.AddPoints(pts.data(), n), n);
            EXPECT_NEAR(ccw.ComputeArea(), RegularArea(n, r), 1e-9 * r * r * n) << n;
            // Clockwise, closed by repeating the first vertex: the same area.
            ZtLNewellMethod3f cw;
            for (int k = n; k >= 0; --k) cw.AddPoint(pts[k % n]);
            EXPECT_NEAR(cw.ComputeArea(), RegularArea(n, r), 1e-9 * r * r * n) << n;
        }
    }
}

TEST(ZtLNewellMethod3fTest, DegenerateInputAndTheCountRule) {
    ZtLNewellMethod3f m;
    EXPECT_EQ(m.AddPoint(0, 0, 0), 1);
    EXPECT_EQ(m.AddPoint(1, 0, 0), 2);
    EXPECT_EQ(m.ComputeArea(), 0.0);
    EXPECT_EQ(m.AddPoint(2, 0, 0), 3);  // collinear: nothing accumulated
    EXPECT_EQ(m.ComputeArea(), 0.0);
    EXPECT_EQ(m.AddPoints(nullptr, 0), 0);  // not the count, and nothing added
    ZtLPos3f square[] = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
    m.Reset();
    EXPECT_EQ(m.AddPoints(square, 4), 4);
    EXPECT_EQ(m.ComputeArea(), 1.0);
    EXPECT_EQ(m.AddPoint(square[3]), 5);  // a repeated point counts but adds nothing
    EXPECT_EQ(m.ComputeArea(), 1.0);
}

TEST(ZtLNewellMethod2fTest, RegularPolygonsSignedByOrientation) {
    for (int n : {3, 4, 5, 8, 17, 100, 1000}) {
        for (double phase : {0.0, 0.3, 2.0}) {
            const double r = 2.5, cx = -40.0, cy = 7.0;
            ZtLNewellMethod2f ccw, cw;
            for (int k = 0; k < n; ++k) {
                const double a = phase + 2.0 * kPi * k / n, b = phase - 2.0 * kPi * k / n;
                ccw.AddPoint(cx + r * std::cos(a), cy + r * std::sin(a));
                cw.AddPoint(cx + r * std::cos(b), cy + r * std::sin(b));
            }
            EXPECT_NEAR(ccw.ComputeCross(), 2.0 * RegularArea(n, r), 1e-9 * n) << n;
            EXPECT_NEAR(cw.ComputeCross(), -2.0 * RegularArea(n, r), 1e-9 * n) << n;
            EXPECT_NEAR(cw.ComputeArea(), RegularArea(n, r), 1e-9 * n) << n;
        }
    }
    ZtLPos2f square[] = {{0, 0}, {0, 1}, {1, 1}, {1, 0}};  // clockwise
    ZtLNewellMethod2f m;
    EXPECT_EQ(m.AddPoints(square, 4), 4);
    EXPECT_EQ(m.ComputeCross(), -2.0);
    EXPECT_EQ(m.ComputeArea(), 1.0);
    EXPECT_EQ(m.AddPoints(square, -1), 0);
    m.Reset();
    m.AddPoints(square, 2);
    EXPECT_EQ(m.ComputeCross(), 0.0);
}
