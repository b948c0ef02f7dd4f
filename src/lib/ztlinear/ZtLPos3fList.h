#ifndef ZTLINEAR_ZTLPOS3FLIST_H
#define ZTLINEAR_ZTLPOS3FLIST_H

#include <ztlinear/ZtLExport.h>
#include <ztlinear/ZtLVec3f.h>
#include <ztutil/ZtUPtrVector.h>

// A growable list of 3D positions that owns its elements, each a separately allocated
// ZtLPos3f, in insertion order (duplicates allowed).
//
// Copies are deep. Moving copies too and leaves the source as it was: callers may go on using a
// list after moving from it. Assignment replaces the target's elements (self-assignment keeps
// them).
class ZTL_EXPORT ZtLPos3fList : public ZtUOwnPtrVector<ZtLPos3f> {
public:
    ZtLPos3fList() noexcept = default;
    ZtLPos3fList(const ZtLPos3fList& other);
    ZtLPos3fList(ZtLPos3fList&& other);
    ZtLPos3fList& operator=(const ZtLPos3fList& other);
    ZtLPos3fList& operator=(ZtLPos3fList&& other);
    ~ZtLPos3fList();

    // Appends a new copy of *p; the caller keeps p.
    void Add(const ZtLPos3f* p);
};

#endif
