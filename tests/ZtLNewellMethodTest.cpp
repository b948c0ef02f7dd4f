#include <ztlinear/ZtLNewellMethod2f.h>
#include <ztlinear/ZtLNewellMethod3f.h>
#include <ztlinear/ZtLPlane3f.h>

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

TEST(ZtLNewellMethodTest, RegularPolygonsOfManySizesAndOrientations) {
    const double pi = 3.141592653589793;
    std::mt19937 rng(7);
    std::uniform_real_distribution<double> any(-1.0, 1.0);
    for (int n : {3, 4, 5, 6, 7, 12, 31, 64, 200, 1000}) {
        for (int trial = 0; trial < 8; ++trial) {
            // A regular n-gon of radius r about c, counter-clockwise seen from the normal.
            const ZtLUnitVec3f normal(any(rng), any(rng), any(rng));
            const ZtLUnitVec3f u(normal.Cross(ZtLVec3f(any(rng), any(rng), any(rng))));
            const ZtLVec3f v = normal.Cross(u);
            const double r = 0.1 + 10.0 * (any(rng) + 1.0), phase = any(rng);
            const ZtLPos3f c(100 * any(rng), 100 * any(rng), 100 * any(rng));
            const double area = 0.5 * n * r * r * std::sin(2.0 * pi / n), tol = 1e-9 * r * r * n;
            std::vector<ZtLPos3f> pts;
            ZtLNewellMethod2f flat, flatCw;
            for (int k = 0; k < n; ++k) {
                const double x = r * std::cos(phase + 2.0 * pi * k / n);
                const double y = r * std::sin(phase + 2.0 * pi * k / n);
                pts.push_back(c.Add(u.Multiply(x).Add(v.Multiply(y))));
                flat.AddPoint(x + c.GetX(), y + c.GetY());
                flatCw.AddPoint(x, -y);
            }
            ZtLNewellMethod3f ccw, cw;
            ASSERT_EQ(ccw.AddPoints(pts.data(), n), n);
            for (int k = n; k >= 0; --k) cw.AddPoint(pts[k % n]);  // clockwise, closed
            EXPECT_NEAR(ccw.ComputeArea(), area, tol) << n;
            EXPECT_NEAR(cw.ComputeArea(), area, tol) << n;
            const ZtLPlane3f up = ccw.ComputePlane(), down = cw.ComputePlane();
            EXPECT_LT(1.0 - up.GetNormal().Dot(normal), 1e-12) << n;
            EXPECT_LT(1.0 + down.GetNormal().Dot(normal), 1e-12) << n;
            EXPECT_NEAR(up.GetDistance(), normal.Dot(c.Vec()), 1e-9) << n;
            EXPECT_NEAR(down.GetDistance(), -normal.Dot(c.Vec()), 1e-9) << n;
            EXPECT_NEAR(flat.ComputeCross(), 2.0 * area, tol) << n;
            EXPECT_NEAR(flatCw.ComputeCross(), -2.0 * area, tol) << n;
            EXPECT_NEAR(flatCw.ComputeArea(), area, tol) << n;
        }
    }
}

TEST(ZtLNewellMethodTest, DegenerateInputAndTheCountRule) {
    ZtLNewellMethod3f m;
    EXPECT_EQ(m.AddPoint(0, 0, 0), 1);
    EXPECT_EQ(m.AddPoint(1, 0, 0), 2);
    EXPECT_EQ(m.ComputeArea(), 0.0);
    const ZtLPlane3f two = m.ComputePlane();  // too few points: z = 0
    EXPECT_EQ(two.GetNormal().GetZ(), 1.0);
    EXPECT_EQ(two.GetDistance(), 0.0);
    EXPECT_EQ(m.AddPoint(2, 0, 0), 3);  // collinear: nothing accumulated
    EXPECT_EQ(m.ComputeArea(), 0.0);
    EXPECT_TRUE(m.ComputePlane().GetNormal().IsZero());
    EXPECT_EQ(m.AddPoints(nullptr, 0), 0);  // not the count, and nothing added
    ZtLPos3f square[] = {{0, 0, 3}, {1, 0, 3}, {1, 1, 3}, {0, 1, 3}};
    m.Reset();
    EXPECT_EQ(m.AddPoints(square, 4), 4);
    EXPECT_EQ(m.ComputePlane().GetNormal().GetZ(), 1.0);
    EXPECT_EQ(m.ComputePlane().GetDistance(), 3.0);
    EXPECT_EQ(m.AddPoint(square[3]), 5);  // a repeated point counts but adds nothing
    EXPECT_EQ(m.ComputeArea(), 1.0);

    ZtLPos2f cw[] = {{0, 0}, {0, 1}, {1, 1}, {1, 0}};
    ZtLNewellMethod2f m2;
    EXPECT_EQ(m2.AddPoints(cw, 4), 4);
    EXPECT_EQ(m2.ComputeCross(), -2.0);
    EXPECT_EQ(m2.ComputeArea(), 1.0);
    EXPECT_EQ(m2.AddPoints(cw, -1), 0);
    m2.Reset();
    m2.AddPoints(cw, 2);
    EXPECT_EQ(m2.ComputeCross(), 0.0);
}
