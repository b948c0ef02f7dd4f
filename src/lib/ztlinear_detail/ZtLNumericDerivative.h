#ifndef ZTLINEAR_DETAIL_ZTLNUMERICDERIVATIVE_H
#define ZTLINEAR_DETAIL_ZTLNUMERICDERIVATIVE_H

// The difference quotients behind the derivative adapters of the scalar and planar function
// objects. Private to the library.

namespace ztl_detail {

// (forward - backward) / span for scalars and for positions (a position difference is a vector).
inline double DifferenceQuotient(double forward, double backward, double span) {
    return (forward - backward) / span;
}
template <class Pos>
auto DifferenceQuotient(const Pos& forward, const Pos& backward, double span) {
    return forward.Subtract(backward).Divide(span);
}

// The central difference with the step h = (t + 1e-9) - t, the spacing of doubles near t.
// Returns 0 (and writes nothing) when either sample fails.
template <class Value, class Function, class Derivative>
int CentralDifference(Function& f, double t, Derivative* derivative) {
    const double h = (t + 1e-9) - t;
    Value forward;
    if (!f.Value(t + h, &forward)) return 0;
    Value backward;
    if (!f.Value(t - h, &backward)) return 0;
    *derivative = DifferenceQuotient(forward, backward, h + h);
    return 1;
}

// The same inside [lower, upper]: a side whose sample would leave the range is replaced by t
// itself (a one-sided difference); returns 0 when both sides would leave it.
template <class Value, class Function, class Derivative>
int BoundedDifference(Function& f, double t, double lower, double upper, Derivative* derivative) {
    const double h = (t + 1e-9) - t;
    double hp = h;
    double hm = h;
    if (t + h > upper) hp = 0.0;
    if (lower > t - h) hm = 0.0;
    if (hp == 0.0 && hm == 0.0) return 0;
    Value forward;
    if (!f.Value(t + hp, &forward)) return 0;
    Value backward;
    if (!f.Value(t - hm, &backward)) return 0;
    *derivative = DifferenceQuotient(forward, backward, hm + hp);
    return 1;
}

}  // namespace ztl_detail

#endif
