#include <ztlinear/ZtLFunction.h>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <utility>
#include <vector>

namespace {
// A host function that records every parameter it is asked for and fails where told to.
class CountingFunction : public ZtLFunction {
public:
    explicit CountingFunction(std::function<double(double)> f) : m_f(std::move(f)) {}
    int Value(double t, double* value) override {
        samples.push_back(t);
        if (failAt && failAt(t)) return 0;
        *value = m_f(t);
        return 1;
    }
    std::vector<double> samples;
    std::function<bool(double)> failAt;

private:
    std::function<double(double)> m_f;
};

double Step(double t) { return (t + 1e-9) - t; }
double Square(double t) { return t * t; }
constexpr double kUnset = -12345.0;
}  // namespace

TEST(ZtLFunctionDerivativeTest, CentralDifferenceSamplesBothSidesWithTheExactStep) {
    for (double t : {3.0, 0.0, -2.5, 0.1, 1e6}) {
        CountingFunction f(Square);
        ZtLFunctionDerivative adapter(&f);
        double d = kUnset;
        ASSERT_TRUE(adapter.Derivative(t, &d)) << t;
        const double h = Step(t);
        EXPECT_EQ(f.samples, (std::vector<double>{t + h, t - h})) << t;
        EXPECT_EQ(d, ((t + h) * (t + h) - (t - h) * (t - h)) / (h + h)) << t;
        if (std::fabs(t) <= 3.0) {
            EXPECT_NEAR(d, 2.0 * t, 1e-6) << t;
        }
    }
    // The step is the spacing of representable numbers near t, not the constant 1e-9.
    EXPECT_NE(Step(1e6), 1e-9);
}

TEST(ZtLFunctionDerivativeTest, FailingSampleLeavesTheDerivativeUnwritten) {
    const double t = 2.0, h = Step(t);
    for (double bad : {t + h, t - h}) {
        CountingFunction f(Square);
        f.failAt = [bad](double s) { return s == bad; };
        ZtLFunctionDerivative adapter(&f);
        double d = kUnset;
        EXPECT_FALSE(adapter.Derivative(t, &d));
        EXPECT_EQ(d, kUnset);
    }
}

TEST(ZtLFunctionDerivativeTest, ValuesOrsTheResultsOfDerivativeAndValue) {
    const double t = 3.0, h = Step(t);
    struct Case {
        std::function<bool(double)> failAt;
        int result;
        bool valueWritten, derivativeWritten;
    } cases[] = {
        {[](double) { return false; }, 1, true, true},
        {[=](double s) { return s == t + h; }, 1, true, false},
        {[=](double s) { return s == t; }, 1, false, true},
        {[](double) { return true; }, 0, false, false},
    };
    for (const Case& c : cases) {
        CountingFunction f(Square);
        f.failAt = c.failAt;
        ZtLFunctionDerivative adapter(&f);
        double v = kUnset, d = kUnset;
        EXPECT_EQ(adapter.Values(t, &v, &d) != 0, c.result != 0);
        EXPECT_EQ(v != kUnset, c.valueWritten);
        EXPECT_EQ(d != kUnset, c.derivativeWritten);
        // The derivative is taken first; a failure at t + h skips the second sample.
        const std::vector<double> expected =
            c.failAt(t + h) ? std::vector<double>{t + h, t} : std::vector<double>{t + h, t - h, t};
        EXPECT_EQ(f.samples, expected);
    }
}

TEST(ZtLBoundedFunctionDerivativeTest, StepsThatLeaveTheBoundsAreDropped) {
    struct Case {
        double t;
        double plus, minus;  // expected forward and backward steps
    };
    const Case cases[] = {
        {1.0, 0.0, Step(1.0)},  // at the upper bound: f(1) and f(1 - h), divided by h
        {0.0, Step(0.0), 0.0},  // at the lower bound: f(h) and f(0)
        {0.5, Step(0.5), Step(0.5)},
        {1.0 - 0.5e-9, 0.0, Step(1.0 - 0.5e-9)},
    };
    for (const Case& c : cases) {
        CountingFunction f(Square);
        ZtLBoundedFunctionDerivative adapter(&f, 0.0, 1.0);
        double d = kUnset;
        ASSERT_TRUE(adapter.Derivative(c.t, &d)) << c.t;
        EXPECT_EQ(f.samples, (std::vector<double>{c.t + c.plus, c.t - c.minus})) << c.t;
        EXPECT_EQ(d, (Square(c.t + c.plus) - Square(c.t - c.minus)) / (c.minus + c.plus)) << c.t;
    }
}

TEST(ZtLBoundedFunctionDerivativeTest, OutsideTheBoundsNothingIsCalledOrWritten) {
    for (double t : {1.5, -0.5, std::nextafter(1.0, 2.0), std::nan("")}) {
        CountingFunction f(Square);
        ZtLBoundedFunctionDerivative adapter(&f, 0.0, 1.0);
        double v = kUnset, d = kUnset;
        EXPECT_FALSE(adapter.Value(t, &v));
        EXPECT_FALSE(adapter.Derivative(t, &d));
        EXPECT_FALSE(adapter.Values(t, &v, &d));
        EXPECT_TRUE(f.samples.empty());
        EXPECT_EQ(v, kUnset);
        EXPECT_EQ(d, kUnset);
    }
    // A single-point interval: the value is there, but no step fits.
    CountingFunction f(Square);
    ZtLBoundedFunctionDerivative point(&f, 2.0, 2.0);
    double v = kUnset, d = kUnset;
    EXPECT_FALSE(point.Derivative(2.0, &d));
    EXPECT_TRUE(f.samples.empty());
    EXPECT_TRUE(point.Values(2.0, &v, &d));
    EXPECT_EQ(v, 4.0);
    EXPECT_EQ(d, kUnset);
}

TEST(ZtLBoundedFunctionDerivativeTest, NeverSamplesOutsideItsBounds) {
    const double lower = -0.75, upper = 0.3;
    CountingFunction f([](double t) { return std::sin(t); });
    ZtLBoundedFunctionDerivative adapter(&f, lower, upper);
    std::vector<double> ts;
    for (int i = 0; i <= 1000; ++i)
        ts.push_back(std::fmin(lower + (upper - lower) * i / 1000.0, upper));
    for (double edge : {lower, upper}) {
        double t = edge;
        for (int i = 0; i < 40; ++i) {
            ts.push_back(t);
            t = std::nextafter(t, 0.0);
        }
    }
    for (double t : ts) {
        double v, d;
        ASSERT_TRUE(adapter.Values(t, &v, &d)) << t;
        EXPECT_NEAR(d, std::cos(t), 1e-6) << t;
    }
    for (double s : f.samples) {
        ASSERT_GE(s, lower);
        ASSERT_LE(s, upper);
    }
}

TEST(ZtLBoundedFunctionDerivativeTest, ValuesTakesTheValueFirstAndOrsTheResults) {
    const double t = 0.5, h = Step(t);
    CountingFunction f(Square);
    f.failAt = [=](double s) { return s == t - h; };
    ZtLBoundedFunctionDerivative adapter(&f, 0.0, 1.0);
    double v = kUnset, d = kUnset;
    EXPECT_TRUE(adapter.Values(t, &v, &d));
    EXPECT_EQ(f.samples, (std::vector<double>{t, t + h, t - h}));
    EXPECT_EQ(v, 0.25);
    EXPECT_EQ(d, kUnset);

    f.failAt = [](double) { return true; };
    EXPECT_FALSE(adapter.Values(t, &v, &d));
}

TEST(ZtLBoundedFunctionDerivativeTest, CopiesShareTheWrappedFunctionAndKeepTheBounds) {
    CountingFunction f(Square);
    ZtLBoundedFunctionDerivative original(&f, 0.0, 1.0);
    ZtLBoundedFunctionDerivative copy(original);
    ZtLFunctionWithDerivative* asBase = &copy;
    double v = kUnset;
    EXPECT_FALSE(asBase->Value(2.0, &v));
    EXPECT_TRUE(asBase->Value(0.5, &v));
    EXPECT_EQ(f.samples, (std::vector<double>{0.5}));

    CountingFunction g(Square);
    ZtLFunctionDerivative unbounded(&g);
    ZtLFunctionDerivative other(&f);
    other = unbounded;
    EXPECT_TRUE(other.Value(7.0, &v));
    EXPECT_EQ(g.samples, (std::vector<double>{7.0}));
}
