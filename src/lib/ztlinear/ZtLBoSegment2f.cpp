#include <ztlinear/ZtLBoSegment2f.h>

#include <cmath>

// ---------------------------------------------------------------------------------------------
// ZtLBoSegment2fSlope

void ZtLBoSegment2fSlope::Make(const ZtLBoEventPoint& left, const ZtLBoEventPoint& right) noexcept {
    if (left == right) {
        kind = kDegenerate;
        slope = 0.0;
    } else if (left.EqualX(right)) {
        kind = kVertical;
    } else {
        kind = kOrdinary;
        slope = (right.GetY() - left.GetY()) / (right.GetX() - left.GetX());
    }
}

bool ZtLBoSegment2fSlope::operator==(const ZtLBoSegment2fSlope& other) const noexcept {
    if (kind == kVertical && other.kind == kVertical) return true;
    if (kind != other.kind) return false;
    return std::fabs(slope - other.slope) <= ZtLVec::GetResabs();
}

// ---------------------------------------------------------------------------------------------
// ZtLBoSegment2f

ZtLBoSegment2f::ZtLBoSegment2f(const ZtLPos2f& a, const ZtLPos2f& b) noexcept {
    const ZtLBoEventPoint ea(a);
    const ZtLBoEventPoint eb(b);
    if (ea < eb) {
        m_left = ea;
        m_right = eb;
    } else {
        m_left = eb;
        m_right = ea;
    }
    m_slope.Make(m_left, m_right);
}

double ZtLBoSegment2f::HeightOnPoint(const ZtLBoEventPoint& p) const noexcept {
    if (IsLeft(p) || IsRight(p)) return p.GetY();
    if (m_slope.kind != ZtLBoSegment2fSlope::kVertical) {
        if (m_left.GetX() > p.GetX()) return m_left.GetY();
        const double x = m_right.GetX() < p.GetX() ? m_right.GetX() : p.GetX();
        return (x - m_left.GetX()) * m_slope.slope + m_left.GetY();
    }
    if (p.GetY() < m_left.GetY()) return m_left.GetY();
    if (p.GetY() > m_right.GetY()) return m_right.GetY();
    return p.GetY();
}

bool ZtLBoSegment2f::IsBelow(const ZtLBoSegment2f& other, const ZtLBoEventPoint& p,
                             bool useSlope) const noexcept {
    const double h = HeightOnPoint(p);
    const double g = other.HeightOnPoint(p);
    if (std::fabs(h - g) > ZtLVec::GetResabs()) return g > h;
    if (!useSlope) return false;
    if (m_slope != other.m_slope) return m_slope < other.m_slope;
    if (m_right != other.m_right) return m_right < other.m_right;
    return m_left < other.m_left;
}

bool ZtLBoSegment2f::Contain(const ZtLBoEventPoint& p) const noexcept {
    if (!(m_left < p && p < m_right)) return false;
    const ZtLPos2f& left = m_left.ThePoint();
    const ZtLUnitVec2f u(m_right.ThePoint().Subtract(left));
    const double along = u.Dot(p.ThePoint().Subtract(left));
    const ZtLBoEventPoint projection(left.Add(u.Vec().Multiply(along)));
    return projection == p;
}

bool ZtLBoSegment2f::Intersect(const ZtLBoSegment2f& other, ZtLPos2f& out) const noexcept {
    if (m_left == other.m_left || m_left == other.m_right || m_right == other.m_left ||
        m_right == other.m_right) {
        return false;
    }
    const double resabs = ZtLVec::GetResabs();
    const ZtLPos2f& left = m_left.ThePoint();
    const ZtLVec2f d = m_right.ThePoint().Subtract(left);
    const ZtLVec2f e = other.m_left.ThePoint().Subtract(other.m_right.ThePoint());
    const double det = d.GetX() * e.GetY() - d.GetY() * e.GetX();
    if (std::fabs(det) <= resabs) return false;
    const ZtLVec2f w = other.m_left.ThePoint().Subtract(left);
    const double t = (w.GetX() * e.GetY() - w.GetY() * e.GetX()) / det;
    const double s = (w.GetY() * d.GetX() - w.GetX() * d.GetY()) / det;
    const double low = -resabs;
    const double high = 1.0 + resabs;
    if (!(low < t && t < high && low < s && s < high)) return false;
    out = left.Add(d.Multiply(t));
    return true;
}

// ---------------------------------------------------------------------------------------------
// ZtLBoSegment2fPlus

ZtLBoSegment2fPlus::~ZtLBoSegment2fPlus() = default;

bool ZtLBoSegment2fPlus::AddIntersection(const ZtLBoEventPoint& p) {
    if (!m_queue) m_queue.Reset(new IntersectionQueue);
    if (m_segment.IsLeft(p) || m_segment.IsRight(p)) return false;
    m_queue->insert(p);
    return true;
}
