#ifndef ZTLINEAR_ZTLPOS2FLIST_H
#define ZTLINEAR_ZTLPOS2FLIST_H

#include <ztlinear/ZtLExport.h>
#include <ztlinear/ZtLVec2f.h>
#include <ztutil/ZtUPtrVector.h>

// A growable list of 2D positions that owns its elements, each a separately
// allocated ZtLPos2f, in insertion order (duplicates allowed).
//
// Copies are deep. Moving copies too and leaves the source as it was: callers
// may go on using a list after moving from it. Assignment replaces the target's
// elements (self-assignment keeps them).
class ZTL_EXPORT ZtLPos2fList : public ZtUOwnPtrVector<ZtLPos2f> {
public:
    ZtLPos2fList() noexcept = default;
    ZtLPos2fList(const ZtLPos2fList& other);
    ZtLPos2fList(ZtLPos2fList&& other);
    ZtLPos2fList& operator=(const ZtLPos2fList& other);
    ZtLPos2fList& operator=(ZtLPos2fList&& other);
    ~ZtLPos2fList();

    // Appends a new copy of *p; the caller keeps p.
    void Add(const ZtLPos2f* p);
};

#endif
