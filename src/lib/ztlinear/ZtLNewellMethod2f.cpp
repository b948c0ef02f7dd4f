#include <ztlinear/ZtLNewellMethod2f.h>

#include <cmath>

int ZtLNewellMethod2f::AddPoints(ZtLPos2f* const pts, int n) noexcept {
    if (n < 1) return 0;
    for (int i = 0; i < n; ++i) AddPoint(pts[i]);
    return m_count;
}

double ZtLNewellMethod2f::ComputeArea() const noexcept { return 0.5 * std::fabs(ComputeCross()); }
