#ifndef ZTLINEAR_ZTLBOPOINTLIST_H
#define ZTLINEAR_ZTLBOPOINTLIST_H

#include <ztlinear/ZtLExport.h>
#include <ztlinear/ZtLVec2f.h>
#include <ztutil/ZtUPtrVector.h>

// An owning list of 2D points, each held as its own heap copy (the outlines of the sweep).
//
// Add and Replace store copies of the points given; the list deletes every point it removes.
// Copying a list copies every point; moving hands the points over and leaves the source empty.
// Indices are not checked.
class ZTL_EXPORT ZtLBoPointList {
public:
    ZtLBoPointList() noexcept = default;
    ZtLBoPointList(const ZtLBoPointList& other);
    ZtLBoPointList(ZtLBoPointList&& other) noexcept;
    ZtLBoPointList& operator=(const ZtLBoPointList& other);
    ZtLBoPointList& operator=(ZtLBoPointList&& other) noexcept;
    ~ZtLBoPointList();

    int Count() const noexcept { return m_items.Count(); }
    ZtLPos2f* ItemAt(int i) noexcept { return static_cast<ZtLPos2f*>(m_items[i]); }
    const ZtLPos2f* ItemAt(int i) const noexcept {
        return static_cast<const ZtLPos2f*>(m_items[i]);
    }

    // Appends a copy of *point.
    void Add(const ZtLPos2f* point);
    // Deletes the point at index i and stores a copy of *point in its place.
    void Replace(int i, const ZtLPos2f* point);
    // Deletes every point.
    void Clear() noexcept;
    // Appends copies of the points of other (other may be this list).
    void CopyFrom(const ZtLBoPointList& other);

private:
    ZtUVoidPtrVector m_items;
};

#endif
