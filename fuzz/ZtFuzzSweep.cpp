// Fuzzes the sweep events and segments with raw coordinates: event keys and their order, slopes,
// heights, the above/below decision, containment, pairwise crossings and the intersection queues
// of sweep segments, under the default resabs or one taken from the input.
//
// Input: a byte choosing resabs, then up to eight segments of four raw doubles each.
// Checked: no crash, hang or undefined behaviour; a crossing that is not found leaves its output
// untouched; a found crossing is queued on both segments unless it is one of their ends.

#include "ZtFuzzInput.h"

#include <ztlinear/ZtLBoEventPoint.h>
#include <ztlinear/ZtLBoSegment2f.h>
#include <ztlinear/ZtLVec.h>

#include <memory>
#include <set>
#include <vector>

namespace {

const int kMaxSegments = 8;

// Restores the process-wide tolerance when the input is done.
struct ResabsScope {
    double saved = ZtLVec::GetResabs();
    ~ResabsScope() { ZtLVec::SetResabs(saved); }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ZtFuzzQuietErrors();
    ZtFuzzInput in(data, size);
    ResabsScope scope;
    // The grid of the events is fixed by the first event point of the process (default resabs);
    // the tolerance itself is read at each call and may be anything a host sets.
    const std::uint8_t mode = in.Byte();
    if (mode & 0x80) ZtLVec::SetResabs(in.Double());

    std::vector<std::unique_ptr<ZtLBoSegment2fPlus>> segments;
    while (segments.size() < static_cast<std::size_t>(kMaxSegments) && in.Remaining() >= 32) {
        double v[4];
        in.Doubles(v, 4);
        segments.emplace_back(new ZtLBoSegment2fPlus(ZtLPos2f(v[0], v[1]), ZtLPos2f(v[2], v[3])));
    }

    std::set<const ZtLBoSegment2fPlus*, ZtLBoSegment2fPlusLess> ordered;
    std::set<ZtLBoEventPoint> events;
    for (const auto& a : segments) {
        const ZtLBoSegment2f& sa = a->TheSegment();
        ordered.insert(a.get());
        events.insert(sa.LeftPoint());
        events.insert(sa.RightPoint());
        // An end is its own event, unless a coordinate is NaN (which equals nothing).
        const ZtLPos2f& l = sa.LeftPoint().ThePoint();
        const ZtLPos2f& r = sa.RightPoint().ThePoint();
        if (l[0] == l[0] && l[1] == l[1] && r[0] == r[0] && r[1] == r[1])
            ZT_FUZZ_CHECK(sa.IsLeft(sa.LeftPoint()) && sa.IsRight(sa.RightPoint()));
        (void)(sa.Slope() == sa.Slope());
        for (const auto& b : segments) {
            const ZtLBoSegment2f& sb = b->TheSegment();
            (void)(sa.Slope() < sb.Slope());
            (void)(sa < sb);
            const ZtLBoEventPoint& p = sb.LeftPoint();
            (void)sa.HeightOnPoint(p);
            (void)sa.IsBelow(sb, p, false);
            (void)sa.IsBelow(sb, sb.RightPoint(), true);
            (void)sa.Contain(p);
            ZtLPos2f out;
            ZtFuzzPoison(&out);
            const ZtLPos2f before = out;
            if (sa.Intersect(sb, out)) {
                const ZtLBoEventPoint crossing(out);
                (void)sa.Contain(crossing);
                (void)sa.HeightOnPoint(crossing);
                if (a->AddIntersection(crossing)) {
                    ZT_FUZZ_CHECK(a->GetIntersectionQueue() != nullptr);
                    ZT_FUZZ_CHECK(a->GetIntersectionQueue()->count(crossing) == 1);
                }
                b->AddIntersection(crossing);
                events.insert(crossing);
            } else {
                ZT_FUZZ_CHECK(ZtFuzzSameBits(out, before));
            }
        }
    }
    // Walk the events in order, as a sweep would.
    const ZtLBoEventPoint* previous = nullptr;
    for (const ZtLBoEventPoint& e : events) {
        if (previous) (void)(*previous <= e);
        (void)e.GetWhole(0);
        (void)e.GetFraction(1);
        previous = &e;
    }
    return 0;
}
