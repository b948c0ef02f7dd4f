#include <ztlinear/ZtLBoEventPoint.h>

#include <cmath>

namespace {
// The number of grid cells per unit, fixed by the tolerance in force when the first
// non-negligible fractional part is split, so that every event of the process is keyed on the
// same grid.
double CellsPerUnit() noexcept {
    static const double cells = 1.0 / ZtLVec::GetResabs();
    return cells;
}

// Truncation toward zero into 32 bits. Only a grid finer than the one the library is made for
// (or a NaN) can leave the range; such values are saturated (NaN gives 0) instead of overflowing.
std::int32_t TruncateToInt32(double v) noexcept {
    if (!(v == v)) return 0;
    if (v >= 2147483647.0) return INT32_MAX;
    if (v <= -2147483648.0) return INT32_MIN;
    return static_cast<std::int32_t>(v);
}
}  // namespace

ZtLBoEventPoint::ZtLBoEventPoint() noexcept : m_point(0.0, 0.0) { Split(); }

ZtLBoEventPoint::ZtLBoEventPoint(const ZtLPos2f& point) noexcept : m_point(point) { Split(); }

ZtLBoEventPoint::ZtLBoEventPoint(double x, double y) noexcept : m_point(x, y) { Split(); }

ZtLBoEventPoint::ZtLBoEventPoint(const ZtLBoEventPoint& other) noexcept : m_point(other.m_point) {
    Split();
}

ZtLBoEventPoint& ZtLBoEventPoint::operator=(const ZtLBoEventPoint& other) noexcept {
    m_point = other.m_point;
    Split();
    return *this;
}

void ZtLBoEventPoint::Split() noexcept {
    const double resabs = ZtLVec::GetResabs();
    for (int i = 0; i < 2; ++i) {
        const double fraction = std::modf(m_point[i], &m_whole[i]);
        // The cell size is taken only here, so the first fraction that needs it fixes the grid.
        m_fraction[i] =
            std::fabs(fraction) <= resabs ? 0 : TruncateToInt32(fraction * CellsPerUnit());
    }
}
