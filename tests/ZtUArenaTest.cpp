#include <ztutil/ZtUArena.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <memory_resource>
#include <new>
#include <set>
#include <thread>
#include <vector>

namespace {

struct Tracked {
    static int live;
    double value;
    explicit Tracked(double v) : value(v) { ++live; }
    Tracked(const Tracked& o) : value(o.value) { ++live; }
    ~Tracked() { --live; }
};
int Tracked::live = 0;

bool Aligned(const void* p, std::size_t alignment) {
    return reinterpret_cast<std::uintptr_t>(p) % alignment == 0;
}

// Allocates a mix of sizes and alignments and checks the blocks are aligned and disjoint.
template <class Arena>
void CheckAllocations(Arena& arena) {
    struct Block {
        char* p;
        std::size_t size;
    };
    std::vector<Block> blocks;
    std::size_t total = 0;
    for (std::size_t i = 1; i <= 40; ++i) {
        const std::size_t size = i * 7, alignment = std::size_t{1} << (i % 6);
        char* p = static_cast<char*>(arena.Allocate(size, alignment));
        EXPECT_TRUE(Aligned(p, alignment)) << i;
        std::fill(p, p + size, static_cast<char>(i));
        blocks.push_back({p, size});
        total += size;
    }
    std::sort(blocks.begin(), blocks.end(),
              [](const Block& a, const Block& b) { return a.p < b.p; });
    for (std::size_t i = 1; i < blocks.size(); ++i)
        EXPECT_LE(blocks[i - 1].p + blocks[i - 1].size, blocks[i].p);
    EXPECT_EQ(arena.GetBytesAllocated(), total);
    arena.Release();
    EXPECT_EQ(arena.GetBytesAllocated(), 0u);
}

}  // namespace

TEST(ZtUArena, EveryKindHandsOutAlignedDisjointBlocks) {
    ZtUArena shared(64);
    ZtUFastArena fast(64);
    alignas(64) static unsigned char buffer[8192];
    ZtURawArena raw(buffer, sizeof buffer);
    CheckAllocations(shared);
    CheckAllocations(fast);
    CheckAllocations(raw);

    // Standard containers can live in an arena.
    std::pmr::vector<int> numbers(&fast);
    for (int i = 0; i < 1000; ++i) numbers.push_back(i);
    EXPECT_EQ(numbers[999], 999);
    EXPECT_GE(fast.GetBytesAllocated(), 1000 * sizeof(int));
}

TEST(ZtUArena, RawArenaStaysInItsBufferAndThrowsWhenFull) {
    alignas(16) unsigned char buffer[256];
    ZtURawArena raw(buffer, sizeof buffer);
    void* first = raw.Allocate(100, 16);
    EXPECT_EQ(first, buffer);
    EXPECT_THROW(raw.Allocate(200, 8), std::bad_alloc);
    raw.Release();
    EXPECT_EQ(raw.Allocate(200, 8), buffer);  // the buffer is used again from its start

    ZtURawArena none(nullptr, 0);
    EXPECT_THROW(none.Allocate(1, 1), std::bad_alloc);
}

TEST(ZtUArena, OwningPointerVectorsLiveInArenas) {
    alignas(64) unsigned char buffer[1024];
    ZtURawArena raw(buffer, sizeof buffer);
    ZtUArena shared;
    ZtUFastArena fast;
    ASSERT_EQ(Tracked::live, 0);
    {
        auto* a = new (raw) ZtUOwnPtrVector<Tracked>;
        auto* b = new (shared) ZtUOwnPtrVector<Tracked>;
        auto* c = new (fast) ZtUOwnPtrVector<Tracked>;
        EXPECT_GE(reinterpret_cast<unsigned char*>(a), buffer);
        EXPECT_LT(reinterpret_cast<unsigned char*>(a), buffer + sizeof buffer);
        EXPECT_EQ(raw.GetBytesAllocated(), sizeof(ZtUOwnPtrVector<Tracked>));
        a->PushBack(new Tracked(1));
        *b = *a;
        *c = *b;
        EXPECT_EQ(Tracked::live, 3);
        EXPECT_EQ((*c)[0]->value, 1);
        // Arena objects are destroyed by their destructor; the memory goes with the arena.
        a->~ZtUOwnPtrVector();
        b->~ZtUOwnPtrVector();
        c->~ZtUOwnPtrVector();
        EXPECT_EQ(Tracked::live, 0);

        // Plain and placement forms.
        auto* heap = new ZtUOwnPtrVector<Tracked>;
        heap->PushBack(new Tracked(2));
        delete heap;
        alignas(ZtUOwnPtrVector<Tracked>) unsigned char place[sizeof(ZtUOwnPtrVector<Tracked>)];
        auto* placed = new (static_cast<void*>(place)) ZtUOwnPtrVector<Tracked>;
        EXPECT_EQ(static_cast<void*>(placed), static_cast<void*>(place));
        placed->~ZtUOwnPtrVector();
    }
    EXPECT_EQ(Tracked::live, 0);
}

TEST(ZtUArena, SharedArenaServesSeveralThreads) {
    ZtUArena arena(256);
    const int threads = 4, count = 500;
    std::vector<std::vector<std::uint32_t*>> got(threads);
    std::vector<std::thread> workers;
    for (int t = 0; t < threads; ++t) {
        workers.emplace_back([&, t] {
            for (int i = 0; i < count; ++i) {
                auto* p = static_cast<std::uint32_t*>(arena.Allocate(sizeof(std::uint32_t), 4));
                *p = static_cast<std::uint32_t>(t * count + i);
                got[t].push_back(p);
            }
        });
    }
    for (std::thread& w : workers) w.join();
    std::set<std::uint32_t*> distinct;
    for (int t = 0; t < threads; ++t) {
        for (int i = 0; i < count; ++i) {
            EXPECT_EQ(*got[t][i], static_cast<std::uint32_t>(t * count + i));
            distinct.insert(got[t][i]);
        }
    }
    EXPECT_EQ(distinct.size(), static_cast<std::size_t>(threads * count));
    EXPECT_EQ(arena.GetBytesAllocated(), threads * count * sizeof(std::uint32_t));
}
