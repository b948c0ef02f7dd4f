#include <ztlinear/ZtLPos2fList.h>
#include <ztlinear/ZtLPos3fList.h>

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <type_traits>
#include <utility>

// The same behaviour for both dimensions; each list is checked through this
// small adaptor.
namespace {
template <class List>
struct ListTraits;
template <>
struct ListTraits<ZtLPos3fList> {
    using Pos = ZtLPos3f;
    static Pos Make(double v) { return Pos(v, v + 0.5, -v); }
    static bool Same(const Pos& a, const Pos& b) {
        return a[0] == b[0] && a[1] == b[1] && a[2] == b[2];
    }
};
template <>
struct ListTraits<ZtLPos2fList> {
    using Pos = ZtLPos2f;
    static Pos Make(double v) { return Pos(v, -v); }
    static bool Same(const Pos& a, const Pos& b) { return a[0] == b[0] && a[1] == b[1]; }
};

template <class List>
class ZtLPosListTest : public testing::Test {
protected:
    using T = ListTraits<List>;
    using Pos = typename T::Pos;

    static List MakeList(int count) {
        List list;
        for (int i = 0; i < count; ++i) {
            const Pos p = T::Make(i);
            list.Add(&p);
        }
        return list;
    }

    // Equal values, each element a separate allocation from every element of the
    // other list.
    static void ExpectEqualAndSeparate(const List& a, const List& b) {
        ASSERT_EQ(a.GetCount(), b.GetCount());
        std::set<const void*> seen;
        for (int i = 0; i < a.GetCount(); ++i) {
            EXPECT_TRUE(T::Same(*a[i], *b[i])) << i;
            seen.insert(a[i]);
            seen.insert(b[i]);
        }
        EXPECT_EQ(seen.size(), static_cast<size_t>(2 * a.GetCount()));
    }
    static void ExpectHolds(const List& list, int count) {
        ASSERT_EQ(list.GetCount(), count);
        for (int i = 0; i < count; ++i) EXPECT_TRUE(T::Same(*list[i], T::Make(i))) << i;
    }
};

using ListTypes = testing::Types<ZtLPos3fList, ZtLPos2fList>;
struct ListNames {
    template <class List>
    static std::string GetName(int) {
        return std::is_same<List, ZtLPos3fList>::value ? "Pos3fList" : "Pos2fList";
    }
};
TYPED_TEST_SUITE(ZtLPosListTest, ListTypes, ListNames);
}  // namespace

TYPED_TEST(ZtLPosListTest, AddStoresASeparateCopyEachTime) {
    using T = typename TestFixture::T;
    TypeParam list;
    EXPECT_EQ(list.GetCount(), 0);
    EXPECT_EQ(list.GetCapacity(), 0);
    auto p = T::Make(1);
    list.Add(&p);
    list.Add(&p);
    p = T::Make(7);  // changing the caller's position afterwards does not reach the list
    ASSERT_EQ(list.GetCount(), 2);
    EXPECT_NE(list[0], &p);
    EXPECT_NE(list[0], list[1]);
    EXPECT_TRUE(T::Same(*list[0], T::Make(1)));
    EXPECT_TRUE(T::Same(*list[1], T::Make(1)));
}

TYPED_TEST(ZtLPosListTest, CopiesAreDeep) {
    using T = typename TestFixture::T;
    const TypeParam source = this->MakeList(5);
    TypeParam copy(source);
    this->ExpectEqualAndSeparate(source, copy);

    TypeParam assigned = this->MakeList(9);  // the old elements are deleted (ASan sees a leak)
    assigned = source;
    this->ExpectEqualAndSeparate(source, assigned);

    *copy[0] = T::Make(40);
    this->ExpectHolds(source, 5);
}

TYPED_TEST(ZtLPosListTest, MovesCopyAndLeaveTheSourceAsItWas) {
    TypeParam source = this->MakeList(4);
    TypeParam moved(std::move(source));
    this->ExpectHolds(source,
                      4);  // NOLINT(bugprone-use-after-move): a move copies
    this->ExpectEqualAndSeparate(source, moved);

    TypeParam target = this->MakeList(2);
    target = std::move(source);
    this->ExpectHolds(source, 4);  // NOLINT(bugprone-use-after-move)
    this->ExpectEqualAndSeparate(source, target);

    TypeParam empty;
    target = std::move(empty);
    EXPECT_EQ(target.GetCount(), 0);
}

TYPED_TEST(ZtLPosListTest, SelfAssignmentKeepsTheElements) {
    TypeParam list = this->MakeList(3);
    const void* first = list[0];
    TypeParam& alias = list;
    list = alias;
    this->ExpectHolds(list, 3);
    EXPECT_EQ(list[0], first);
    list = std::move(alias);
    this->ExpectHolds(list, 3);
    EXPECT_EQ(list[0], first);
}
