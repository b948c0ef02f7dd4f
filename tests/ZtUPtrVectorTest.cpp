#include <ztutil/ZtUAutoPtr.h>
#include <ztutil/ZtUPtrVector.h>
#include <ztutil/ZtUWeakReference.h>

#include <gtest/gtest.h>

namespace {
// Counts live instances so ownership mistakes show as a wrong count (and as leaks under ASan).
struct Tracked {
    static int live;
    int value;
    explicit Tracked(int v) : value(v) { ++live; }
    Tracked(const Tracked& o) : value(o.value) { ++live; }
    ~Tracked() { --live; }
};
int Tracked::live = 0;
}  // namespace

TEST(ZtUVoidPtrVector, GrowsInsertsAndErases) {
    ZtUVoidPtrVector v;
    EXPECT_EQ(v.Begin(), nullptr);
    EXPECT_EQ(v.GetCapacity(), 0);
    int items[10];
    for (int& i : items) v.PushBack(&i);
    EXPECT_EQ(v.GetCount(), 10);
    v.Insert(0, &items[9]);
    v.Erase(1, 3);
    EXPECT_EQ(v.GetCount(), 9);
    EXPECT_EQ(v[0], &items[9]);
    EXPECT_EQ(v[1], &items[2]);
    EXPECT_EQ(v.Find(&items[5]), 4);
    EXPECT_EQ(v.Find(&items[0]), -1);
    ZtUVoidPtrVector copy(v);
    v.Clear();
    EXPECT_EQ(copy.GetCount(), 9);
    EXPECT_TRUE(v.IsEmpty());
}

TEST(ZtUOwnPtrVector, OwnsDeletesAndCopiesDeep) {
    ASSERT_EQ(Tracked::live, 0);
    {
        ZtUOwnPtrVector<Tracked> a;
        a.PushBack(new Tracked(1));
        a.PushBack(new Tracked(2));
        ZtUOwnPtrVector<Tracked> b(a);
        EXPECT_EQ(Tracked::live, 4);
        EXPECT_NE(a[0], b[0]);
        EXPECT_EQ(b[1]->value, 2);

        ZtUOwnPtrVector<Tracked>& alias = b;
        b = alias;  // self-assignment keeps the elements
        EXPECT_EQ(b.GetCount(), 2);
        EXPECT_EQ(Tracked::live, 4);

        a.Erase(0, 1);
        EXPECT_EQ(Tracked::live, 3);
        b = a;
        EXPECT_EQ(Tracked::live, 2);
        EXPECT_EQ(b[0]->value, 2);

        Tracked* taken = b.Release(0);
        EXPECT_EQ(Tracked::live, 2);
        delete taken;

        ZtUPtrVector<Tracked> view = a;  // non-owning copy of the pointers
        ZtUOwnPtrVector<Tracked> c(view);
        EXPECT_EQ(Tracked::live, 2);
        EXPECT_NE(c[0], a[0]);
        ZtUOwnPtrVector<Tracked> d(view.begin(), view.end());
        d = view;
        EXPECT_EQ(Tracked::live, 3);
    }
    EXPECT_EQ(Tracked::live, 0);
}

TEST(ZtUAutoPtr, OwnsOneObject) {
    {
        ZtUAutoPtr<Tracked> p(new Tracked(5));
        EXPECT_EQ(p->value, 5);
        ZtUAutoPtr<Tracked> q(std::move(p));
        EXPECT_FALSE(p);
        EXPECT_EQ(Tracked::live, 1);
        q.Reset(new Tracked(6));
        EXPECT_EQ(Tracked::live, 1);
        Tracked* raw = q.Release();
        EXPECT_EQ(q.Get(), nullptr);
        delete raw;
        q = ZtUAutoPtr<Tracked>(new Tracked(7));
    }
    EXPECT_EQ(Tracked::live, 0);
}

TEST(ZtUWeakReference, ReadsNullOnceTheTargetIsGone) {
    struct Node : ZtUWeakReferenceTarget {
        int id = 3;
    };
    static_assert(sizeof(ZtUWeakReferenceTarget) == sizeof(void*), "one pointer-sized field");
    ZtUWeakReference<Node> ref;
    ZtUWeakReference<Node> copy;
    {
        Node n;
        EXPECT_FALSE(n.HasWeakReferences());
        ref = &n;
        copy = ref;
        EXPECT_EQ(copy->id, 3);
        Node other(n);
        EXPECT_FALSE(other.HasWeakReferences()) << "a copy is another object";
    }
    EXPECT_EQ(ref.Get(), nullptr);
    EXPECT_EQ(copy.Get(), nullptr);
}
