#include <ztlinear/ZtLPos2fList.h>
#include <ztlinear/ZtLPos3fList.h>

#include <gtest/gtest.h>

#include <set>
#include <utility>

// Both lists behave alike; the sanitizer build checks that no element leaks.
namespace {
ZtLPos3f Make(double v, const ZtLPos3fList*) { return ZtLPos3f(v, v + 0.5, -v); }
ZtLPos2f Make(double v, const ZtLPos2fList*) { return ZtLPos2f(v, -v); }
template <class Pos>
bool Same(const Pos& a, const Pos& b) {
    return Pos::Equals(a, b, 0.0);
}

template <class List>
class ZtLPosListTest : public testing::Test {
protected:
    static List MakeList(int count) {
        List list;
        for (int i = 0; i < count; ++i) {
            const auto p = Make(i, &list);
            list.Add(&p);
        }
        return list;
    }
    // list holds Make(0), ..., Make(count - 1), each element allocated apart from those of other.
    static void ExpectHolds(const List& list, int count, const List& other) {
        ASSERT_EQ(list.GetCount(), count);
        std::set<const void*> seen;
        for (int i = 0; i < count; ++i) {
            EXPECT_TRUE(Same(*list[i], Make(i, &list))) << i;
            seen.insert(list[i]);
        }
        for (int i = 0; i < other.GetCount(); ++i) EXPECT_EQ(seen.count(other[i]), 0u);
    }
};

using ListTypes = testing::Types<ZtLPos3fList, ZtLPos2fList>;
TYPED_TEST_SUITE(ZtLPosListTest, ListTypes, );
}  // namespace

TYPED_TEST(ZtLPosListTest, AddStoresASeparateCopyEachTime) {
    TypeParam list;
    EXPECT_EQ(list.GetCapacity(), 0);
    auto p = Make(0, &list);
    list.Add(&p);
    list.Add(&p);
    p = Make(7, &list);  // the caller's position is not the list's
    ASSERT_EQ(list.GetCount(), 2);
    EXPECT_TRUE(list[0] != list[1] && list[0] != &p);
    EXPECT_TRUE(Same(*list[1], Make(0, &list)));
}

TYPED_TEST(ZtLPosListTest, CopiesAndMovesAreDeepAndLeaveTheSourceAsItWas) {
    TypeParam source = this->MakeList(4);
    TypeParam copy(source);
    TypeParam moved(std::move(source));
    TypeParam assigned = this->MakeList(9), moveAssigned = this->MakeList(2);
    assigned = source;                 // NOLINT(bugprone-use-after-move): a move copies
    moveAssigned = std::move(source);  // NOLINT(bugprone-use-after-move)
    this->ExpectHolds(source, 4, copy);
    for (const TypeParam* target : {&copy, &moved, &assigned, &moveAssigned}) {
        this->ExpectHolds(*target, 4, source);
    }
    *moved[0] = Make(40, &moved);
    this->ExpectHolds(source, 4, moved);
}

TYPED_TEST(ZtLPosListTest, SelfAssignmentKeepsTheElements) {
    TypeParam list = this->MakeList(3);
    const void* first = list[0];
    TypeParam& alias = list;
    list = alias;
    list = std::move(alias);
    this->ExpectHolds(list, 3, TypeParam());
    EXPECT_EQ(list[0], first);
}
