#ifndef ZTLINEAR_ZTLBOEVENTPOINT_H
#define ZTLINEAR_ZTLBOEVENTPOINT_H

#include <ztlinear/ZtLExport.h>
#include <ztlinear/ZtLVec2f.h>

#include <cstdint>

// An event of the plane sweep over 2D segments: a position that compares on a tolerance grid.
//
// Each coordinate is split into its integral part (truncated toward zero, sign kept) and its
// fractional part counted in cells of resabs (ZtLVec::GetResabs()), truncated toward zero; a
// fractional part not larger than resabs counts as cell 0. Two points whose coordinates fall
// into the same cells are the same event. The grid truncates rather than rounds: 0.9999995 and
// 1.0000005 are different events although they lie 1e-06 apart.
//
// The cell size is the reciprocal of resabs taken once, when the process first splits a
// fractional part that is not negligible; the test for a negligible fractional part reads
// resabs at each split. Events
// order by (x cells, y cells) lexicographically: the sweep runs in x, ties are broken by y.
// The exact coordinates are kept beside the key and are what ThePoint(), GetX() and GetY() give.
//
// The key is recomputed whenever the point is set, copies included.
class ZTL_EXPORT ZtLBoEventPoint {
public:
    // The origin.
    ZtLBoEventPoint() noexcept;
    explicit ZtLBoEventPoint(const ZtLPos2f& point) noexcept;
    ZtLBoEventPoint(double x, double y) noexcept;
    ZtLBoEventPoint(const ZtLBoEventPoint& other) noexcept;
    ZtLBoEventPoint& operator=(const ZtLBoEventPoint& other) noexcept;
    ~ZtLBoEventPoint() = default;

    const ZtLPos2f& ThePoint() const noexcept { return m_point; }
    operator const ZtLPos2f&() const noexcept { return m_point; }
    double GetX() const noexcept { return m_point.GetX(); }
    double GetY() const noexcept { return m_point.GetY(); }

    // The grid key of coordinate i (0 = x, 1 = y): integral part and fractional cell.
    double GetWhole(int i) const noexcept { return m_whole[i]; }
    std::int32_t GetFraction(int i) const noexcept { return m_fraction[i]; }

    // Same x cell / same y cell.
    bool EqualX(const ZtLBoEventPoint& p) const noexcept {
        return m_whole[0] == p.m_whole[0] && m_fraction[0] == p.m_fraction[0];
    }
    bool EqualY(const ZtLBoEventPoint& p) const noexcept {
        return m_whole[1] == p.m_whole[1] && m_fraction[1] == p.m_fraction[1];
    }

    bool operator==(const ZtLBoEventPoint& p) const noexcept { return EqualX(p) && EqualY(p); }
    bool operator!=(const ZtLBoEventPoint& p) const noexcept { return !(*this == p); }
    bool operator<(const ZtLBoEventPoint& p) const noexcept {
        if (m_whole[0] != p.m_whole[0]) return m_whole[0] < p.m_whole[0];
        if (m_fraction[0] != p.m_fraction[0]) return m_fraction[0] < p.m_fraction[0];
        if (m_whole[1] != p.m_whole[1]) return m_whole[1] < p.m_whole[1];
        return m_fraction[1] < p.m_fraction[1];
    }
    bool operator>(const ZtLBoEventPoint& p) const noexcept { return p < *this; }
    bool operator<=(const ZtLBoEventPoint& p) const noexcept { return !(p < *this); }
    bool operator>=(const ZtLBoEventPoint& p) const noexcept { return !(*this < p); }

private:
    void Split() noexcept;

    ZtLPos2f m_point;
    double m_whole[2];
    std::int32_t m_fraction[2];
};

#endif
