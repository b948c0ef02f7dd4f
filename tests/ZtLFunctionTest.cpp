#include <ztlinear/ZtLFunction.h>
#include <ztlinear/ZtLFunction2d.h>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <vector>

namespace {
// Host functions that record every parameter they are asked for and fail where told to.
struct Recorder {
    bool Sample(double t) {
        samples.push_back(t);
        return !failAt(t);
    }
    std::vector<double> samples;
    std::function<bool(double)> failAt = [](double) { return false; };
};
struct Square : ZtLFunction, Recorder {
    int Value(double t, double* v) override { return Sample(t) ? (*v = t * t, 1) : 0; }
};
struct Parabola : ZtLFunction2d, Recorder {  // (t^2, 3t)
    int Value(double t, ZtLPos2f* p) override {
        return Sample(t) ? (*p = ZtLPos2f(t * t, 3 * t), 1) : 0;
    }
};

double Step(double t) { return (t + 1e-9) - t; }
constexpr double kUnset = -12345.0;
using Samples = std::vector<double>;
}  // namespace

TEST(ZtLFunctionDerivativeTest, CentralDifferenceWithTheExactStep) {
    for (double t : {3.0, 0.0, -2.5, 0.1}) {
        Square f;
        ZtLFunctionDerivative adapter(&f);
        double d = kUnset;
        const double h = Step(t);
        ASSERT_TRUE(adapter.Derivative(t, &d));
        EXPECT_EQ(f.samples, (Samples{t + h, t - h}));
        EXPECT_EQ(d, ((t + h) * (t + h) - (t - h) * (t - h)) / (h + h));
        EXPECT_NEAR(d, 2.0 * t, 1e-6);
    }
}

TEST(ZtLFunctionDerivativeTest, FailuresAndTheOredResultOfValues) {
    const double t = 3.0, h = Step(t);
    struct Case {
        std::function<bool(double)> failAt;
        bool derivative, values, valueWritten, derivativeWritten;
        Samples valuesSamples;  // the derivative is taken first, and stops at its first failure
    } cases[] = {
        {[](double) { return false; }, true, true, true, true, {t + h, t - h, t}},
        {[=](double s) { return s == t + h; }, false, true, true, false, {t + h, t}},
        {[=](double s) { return s == t - h; }, false, true, true, false, {t + h, t - h, t}},
        {[=](double s) { return s == t; }, true, true, false, true, {t + h, t - h, t}},
        {[](double) { return true; }, false, false, false, false, {t + h, t}},
    };
    for (const Case& c : cases) {
        Square f;
        f.failAt = c.failAt;
        ZtLFunctionDerivative adapter(&f);
        double v = kUnset, d = kUnset;
        EXPECT_EQ(adapter.Derivative(t, &d) != 0, c.derivative);
        d = kUnset;
        f.samples.clear();
        EXPECT_EQ(adapter.Values(t, &v, &d) != 0, c.values);
        EXPECT_EQ(v != kUnset, c.valueWritten);
        EXPECT_EQ(d != kUnset, c.derivativeWritten);
        EXPECT_EQ(f.samples, c.valuesSamples);
    }
}

TEST(ZtLBoundedFunctionDerivativeTest, OneSidedAtTheBoundsAndSilentOutside) {
    const struct {
        double t, plus, minus;           // expected forward and backward steps on [0, 1]
    } cases[] = {{1.0, 0.0, Step(1.0)},  // f(1) and f(1 - h), divided by h
                 {0.0, Step(0.0), 0.0},
                 {0.5, Step(0.5), Step(0.5)},
                 {1.0 - 0.5e-9, 0.0, Step(1.0 - 0.5e-9)}};
    for (const auto& c : cases) {
        Square f;
        ZtLBoundedFunctionDerivative adapter(&f, 0.0, 1.0);
        double d = kUnset;
        ASSERT_TRUE(adapter.Derivative(c.t, &d));
        EXPECT_EQ(f.samples, (Samples{c.t + c.plus, c.t - c.minus}));
        const double fp = (c.t + c.plus) * (c.t + c.plus), fm = (c.t - c.minus) * (c.t - c.minus);
        EXPECT_EQ(d, (fp - fm) / (c.minus + c.plus));
    }
    for (double t : {1.5, -0.5, std::nextafter(1.0, 2.0), std::nan("")}) {
        Square f;
        ZtLBoundedFunctionDerivative adapter(&f, 0.0, 1.0);
        double v = kUnset, d = kUnset;
        EXPECT_FALSE(adapter.Value(t, &v) || adapter.Derivative(t, &d) ||
                     adapter.Values(t, &v, &d));
        EXPECT_TRUE(f.samples.empty());
        EXPECT_EQ(v + d, 2 * kUnset);
    }
    // A single-point interval: the value is there, but no step fits; Values ORs the two.
    Square f;
    ZtLBoundedFunctionDerivative point(&f, 2.0, 2.0);
    double v = kUnset, d = kUnset;
    EXPECT_FALSE(point.Derivative(2.0, &d));
    EXPECT_TRUE(point.Values(2.0, &v, &d));
    EXPECT_EQ(f.samples, (Samples{2.0}));  // the value first, then no sample for the derivative
    EXPECT_EQ(v, 4.0);
    EXPECT_EQ(d, kUnset);
}

TEST(ZtLBoundedFunctionDerivativeTest, NeverSamplesOutsideItsBounds) {
    const double lower = -0.75, upper = 0.3;
    Square f;
    Parabola c;
    ZtLBoundedFunctionDerivative adapter(&f, lower, upper);
    ZtLBoundedFunctionDerivative2d adapter2d(&c, lower, upper);
    for (int i = 0; i <= 300; ++i) {
        // Evenly spread, then within a step of each bound.
        const double t = i <= 200 ? std::fmin(lower + (upper - lower) * i / 200, upper)
                                  : (i % 2 ? lower + (i - 200) * 2e-11 : upper - (i - 200) * 2e-11);
        double v, d;
        ZtLPos2f p;
        ZtLVec2f dp;
        ASSERT_TRUE(adapter.Values(t, &v, &d) && adapter2d.Values(t, &p, &dp));
        EXPECT_NEAR(d, 2 * t, 1e-6);
        EXPECT_NEAR(dp.GetX(), 2 * t, 1e-6);
        EXPECT_NEAR(dp.GetY(), 3.0, 1e-6);
    }
    for (const Samples& s : {f.samples, c.samples}) {
        for (double t : s) ASSERT_TRUE(lower <= t && t <= upper) << t;
    }
}

TEST(ZtLFunctionDerivative2dTest, DifferenceOfPositionsOverTheSpacing) {
    const double t = 1.0, h = Step(t);
    Parabola c;
    ZtLFunctionDerivative2d central(&c);
    ZtLBoundedFunctionDerivative2d bounded(&c, 0.0, 1.0);
    ZtLVec2f d;
    ASSERT_TRUE(central.Derivative(t, &d));
    EXPECT_EQ(d.GetX(), ((t + h) * (t + h) - (t - h) * (t - h)) / (h + h));
    EXPECT_EQ(d.GetY(), (3 * (t + h) - 3 * (t - h)) / (h + h));
    ASSERT_TRUE(bounded.Derivative(t, &d));
    EXPECT_EQ(d.GetX(), (t * t - (t - h) * (t - h)) / h);
    EXPECT_EQ(c.samples, (Samples{t + h, t - h, t, t - h}));
}
