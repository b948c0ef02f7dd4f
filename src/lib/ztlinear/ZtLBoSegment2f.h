#ifndef ZTLINEAR_ZTLBOSEGMENT2F_H
#define ZTLINEAR_ZTLBOSEGMENT2F_H

#include <ztlinear/ZtLBoEventPoint.h>
#include <ztlinear/ZtLExport.h>
#include <ztlinear/ZtLVec2f.h>
#include <ztutil/ZtUAutoPtr.h>

#include <set>

// The segments of the plane sweep over 2D segments (Bentley-Ottmann).
//
// A segment keeps its ends as event points (ZtLBoEventPoint), the lesser event on the left, and
// the class of its slope. Event identity (shared ends, "is this the left point") is decided on
// the tolerance grid of the event points; heights, slopes and crossings are computed from the
// exact coordinates and compared with resabs (ZtLVec::GetResabs()), read at each call.

// The slope class of a sweep segment.
//
// kind is kDegenerate when both ends are the same event, kVertical when both ends share their
// x cell (but not their y cell), kOrdinary otherwise; slope is dy/dx of the exact coordinates
// for an ordinary segment, 0 for a degenerate one, and is not touched by Make for a vertical one.
struct ZTL_EXPORT ZtLBoSegment2fSlope {
    enum Kind { kDegenerate = 0, kOrdinary = 1, kVertical = 2 };

    double slope = 0.0;
    int kind = kDegenerate;

    void Make(const ZtLBoEventPoint& left, const ZtLBoEventPoint& right) noexcept;

    // Less steep: a vertical slope is steeper than every other, a degenerate or vertical one is
    // never less steep than anything, and a degenerate other counts with slope 0.
    bool operator<(const ZtLBoSegment2fSlope& other) const noexcept {
        if (kind != kOrdinary) return false;
        if (other.kind == kVertical) return true;
        return other.slope > slope;
    }
    // Both vertical, or the same kind with slopes within resabs.
    bool operator==(const ZtLBoSegment2fSlope& other) const noexcept;
    bool operator!=(const ZtLBoSegment2fSlope& other) const noexcept { return !(*this == other); }
};

// A segment of the sweep: its left and right event points and its slope class.
class ZTL_EXPORT ZtLBoSegment2f {
public:
    // Both ends at the origin (a degenerate segment).
    ZtLBoSegment2f() noexcept = default;
    // Orders the ends: the lesser event becomes the left point; for equal events, b does.
    ZtLBoSegment2f(const ZtLPos2f& a, const ZtLPos2f& b) noexcept;

    const ZtLBoEventPoint& LeftPoint() const noexcept { return m_left; }
    const ZtLBoEventPoint& RightPoint() const noexcept { return m_right; }
    const ZtLBoSegment2fSlope& Slope() const noexcept { return m_slope; }

    bool IsLeft(const ZtLBoEventPoint& p) const noexcept { return m_left == p; }
    bool IsRight(const ZtLBoEventPoint& p) const noexcept { return m_right == p; }

    // The segment's y on the sweep line through p. At an end (as events) it is p's own y;
    // otherwise the x of p is clamped into the segment's span, and for a vertical segment the y
    // of p is clamped into it.
    double HeightOnPoint(const ZtLBoEventPoint& p) const noexcept;

    // Whether this segment lies below other on the sweep line through p. Heights within resabs
    // count as equal; then the answer is false without useSlope, and with it the segment with
    // the smaller slope is the lower one (a vertical one is above every other), collinear
    // segments being ordered by their right and then their left points.
    bool IsBelow(const ZtLBoSegment2f& other, const ZtLBoEventPoint& p,
                 bool useSlope) const noexcept;

    // Whether p lies strictly between the ends (as events) and its projection on the segment's
    // line falls into p's grid cell.
    bool Contain(const ZtLBoEventPoint& p) const noexcept;

    // Writes the crossing of the two segments to out and returns true when they cross away from
    // their ends. Segments that share an end (as events) never cross here, nor do parallel or
    // collinear ones (|cross product of the directions| <= resabs); the parameters of the
    // crossing on both segments must lie inside (-resabs, 1 + resabs). out is left untouched
    // when false is returned.
    bool Intersect(const ZtLBoSegment2f& other, ZtLPos2f& out) const noexcept;

    // By left point, then by right point.
    bool operator<(const ZtLBoSegment2f& other) const noexcept {
        if (m_left == other.m_left) return m_right < other.m_right;
        return m_left < other.m_left;
    }

private:
    ZtLBoEventPoint m_left;
    ZtLBoEventPoint m_right;
    ZtLBoSegment2fSlope m_slope;
};

// A sweep segment with the queue of intersection points found on it, ordered as events.
//
// The queue is created by the first AddIntersection and is null before; it is owned by the
// segment. The object belongs to one sweep and is addressed by pointer: it cannot be copied.
class ZTL_EXPORT ZtLBoSegment2fPlus {
public:
    typedef std::set<ZtLBoEventPoint> IntersectionQueue;

    ZtLBoSegment2fPlus() noexcept = default;
    explicit ZtLBoSegment2fPlus(const ZtLBoSegment2f& segment) noexcept : m_segment(segment) {}
    ZtLBoSegment2fPlus(const ZtLPos2f& a, const ZtLPos2f& b) noexcept : m_segment(a, b) {}
    ~ZtLBoSegment2fPlus();

    const ZtLBoSegment2f& TheSegment() const noexcept { return m_segment; }
    // The queue, or null when nothing was ever added.
    IntersectionQueue* GetIntersectionQueue() const noexcept { return m_queue.Get(); }

    // Queues p unless it is an end of the segment (false then). An event already queued is kept
    // and not duplicated. The queue is created first, even when p is an end.
    bool AddIntersection(const ZtLBoEventPoint& p);

private:
    ZtLBoSegment2fPlus(const ZtLBoSegment2fPlus&) = delete;
    ZtLBoSegment2fPlus& operator=(const ZtLBoSegment2fPlus&) = delete;

    ZtLBoSegment2f m_segment;
    ZtUAutoPtr<IntersectionQueue> m_queue;
};

// Orders pointers to sweep segments by the segments they point to (ZtLBoSegment2f::operator<),
// for the ordered sets of segments of the sweep and the outline.
struct ZtLBoSegment2fPlusLess {
    bool operator()(const ZtLBoSegment2fPlus* a, const ZtLBoSegment2fPlus* b) const noexcept {
        return a->TheSegment() < b->TheSegment();
    }
    bool operator()(const ZtLBoSegment2f* a, const ZtLBoSegment2f* b) const noexcept {
        return *a < *b;
    }
};

#endif
