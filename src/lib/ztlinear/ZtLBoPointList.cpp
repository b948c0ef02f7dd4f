#include <ztlinear/ZtLBoPointList.h>

#include <utility>

ZtLBoPointList::ZtLBoPointList(const ZtLBoPointList& other) { CopyFrom(other); }

ZtLBoPointList::ZtLBoPointList(ZtLBoPointList&& other) noexcept
    : m_items(std::move(other.m_items)) {}

ZtLBoPointList& ZtLBoPointList::operator=(const ZtLBoPointList& other) {
    if (this != &other) {
        Clear();
        CopyFrom(other);
    }
    return *this;
}

ZtLBoPointList& ZtLBoPointList::operator=(ZtLBoPointList&& other) noexcept {
    if (this != &other) {
        Clear();
        m_items.Swap(other.m_items);
    }
    return *this;
}

ZtLBoPointList::~ZtLBoPointList() { Clear(); }

void ZtLBoPointList::Add(const ZtLPos2f* point) {
    ZtLPos2f* copy = new ZtLPos2f(*point);
    try {
        m_items.PushBack(copy);
    } catch (...) {
        delete copy;
        throw;
    }
}

void ZtLBoPointList::Replace(int i, const ZtLPos2f* point) {
    ZtLPos2f* copy = new ZtLPos2f(*point);
    delete ItemAt(i);
    m_items[i] = copy;
}

void ZtLBoPointList::Clear() noexcept {
    for (int i = 0; i < Count(); ++i) delete ItemAt(i);
    m_items.Clear();
}

void ZtLBoPointList::CopyFrom(const ZtLBoPointList& other) {
    // Room first, so that only the copies can fail; those made here are then taken back.
    const int before = Count();
    const int n = other.Count();
    m_items.Reserve(before + n);
    try {
        for (int i = 0; i < n; ++i) m_items.PushBack(new ZtLPos2f(*other.ItemAt(i)));
    } catch (...) {
        for (int i = before; i < Count(); ++i) delete ItemAt(i);
        m_items.Erase(before, Count());
        throw;
    }
}
