#include <ztlinear/ZtLPos3fList.h>

#include <memory>

ZtLPos3fList::ZtLPos3fList(const ZtLPos3fList& other) : ZtUOwnPtrVector<ZtLPos3f>(other) {}

// A move is a copy: the source keeps its elements.
ZtLPos3fList::ZtLPos3fList(ZtLPos3fList&& other)
    : ZtUOwnPtrVector<ZtLPos3f>(static_cast<const ZtLPos3fList&>(other)) {}

ZtLPos3fList& ZtLPos3fList::operator=(const ZtLPos3fList& other) {
    ZtUOwnPtrVector<ZtLPos3f>::operator=(other);
    return *this;
}

ZtLPos3fList& ZtLPos3fList::operator=(ZtLPos3fList&& other) {
    ZtUOwnPtrVector<ZtLPos3f>::operator=(static_cast<const ZtLPos3fList&>(other));
    return *this;
}

ZtLPos3fList::~ZtLPos3fList() = default;

void ZtLPos3fList::Add(const ZtLPos3f* p) {
    std::unique_ptr<ZtLPos3f> copy(new ZtLPos3f(*p));
    PushBack(copy.get());
    copy.release();
}
