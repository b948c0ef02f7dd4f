#ifndef ZTLINEAR_ZTLNEWELLMETHOD2F_H
#define ZTLINEAR_ZTLNEWELLMETHOD2F_H

#include <ztlinear/ZtLExport.h>
#include <ztlinear/ZtLVec2f.h>

#include <cstdint>

// Newell's method in the plane: the signed area of a polygon streamed one vertex at a time,
// without keeping the vertices.
//
// Each vertex p after the second adds the cross product (last - first) x (p - first), a fan of
// triangles from the first vertex; the sum is twice the signed area, positive for vertices in
// counter-clockwise order. The outline need not be closed, and no vertex is rejected or merged.
class ZTL_EXPORT ZtLNewellMethod2f {
public:
    ZtLNewellMethod2f() noexcept = default;

    // Forgets every point.
    void Reset() noexcept {
        m_count = 0;
        m_sum = 0.0;
    }

    // Adds one vertex and returns the number of vertices added so far.
    int AddPoint(const ZtLPos2f& p) noexcept {
        ++m_count;
        if (m_count == 1) m_first = p;
        if (m_count >= 2) {
            const ZtLVec2f b = m_last.Subtract(m_first);
            const ZtLVec2f a = p.Subtract(m_first);
            m_sum += b.GetX() * a.GetY() - b.GetY() * a.GetX();
        }
        m_last = p;
        return m_count;
    }
    int AddPoint(double x, double y) noexcept { return AddPoint(ZtLPos2f(x, y)); }
    // Adds pts[0] ... pts[n - 1] in order and returns the count; for n < 1 it adds nothing and
    // returns 0, whatever was added before.
    int AddPoints(ZtLPos2f* const pts, int n) noexcept;

    // Twice the signed area (positive counter-clockwise); 0 for fewer than three vertices.
    double ComputeCross() const noexcept { return m_count <= 2 ? 0.0 : m_sum; }
    // The polygon's area.
    double ComputeArea() const noexcept;

private:
    std::int32_t m_count = 0;
    ZtLPos2f m_first{0.0, 0.0};
    ZtLPos2f m_last{0.0, 0.0};
    double m_sum = 0.0;
};

#endif
