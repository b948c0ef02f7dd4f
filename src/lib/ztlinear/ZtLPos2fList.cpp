#include <ztlinear/ZtLPos2fList.h>

#include <memory>

ZtLPos2fList::ZtLPos2fList(const ZtLPos2fList& other) : ZtUOwnPtrVector<ZtLPos2f>(other) {}

// A move is a copy: the source keeps its elements.
ZtLPos2fList::ZtLPos2fList(ZtLPos2fList&& other)
    : ZtUOwnPtrVector<ZtLPos2f>(static_cast<const ZtLPos2fList&>(other)) {}

ZtLPos2fList& ZtLPos2fList::operator=(const ZtLPos2fList& other) {
    ZtUOwnPtrVector<ZtLPos2f>::operator=(other);
    return *this;
}

ZtLPos2fList& ZtLPos2fList::operator=(ZtLPos2fList&& other) {
    ZtUOwnPtrVector<ZtLPos2f>::operator=(static_cast<const ZtLPos2fList&>(other));
    return *this;
}

ZtLPos2fList::~ZtLPos2fList() = default;

void ZtLPos2fList::Add(const ZtLPos2f* p) {
    std::unique_ptr<ZtLPos2f> copy(new ZtLPos2f(*p));
    PushBack(copy.get());
    copy.release();
}
