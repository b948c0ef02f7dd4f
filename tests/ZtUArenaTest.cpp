#include <ztutil/ZtUArena.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <memory_resource>
#include <new>
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

// Allocates a mix of sizes and alignments and checks the blocks are aligned and disjoint.
template <class Arena>
void CheckAllocations(Arena& arena) {
    std::vector<std::pair<unsigned char*, std::size_t>> blocks;
    std::size_t total = 0;
    for (std::size_t i = 1; i <= 40; ++i) {
        const std::size_t size = i * 7, alignment = std::size_t{1} << (i % 6);
        auto* p = static_cast<unsigned char*>(arena.Allocate(size, alignment));
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(p) % alignment, 0u) << i;
        std::fill(p, p + size, static_cast<unsigned char>(i));
        blocks.emplace_back(p, size);
        total += size;
    }
    // Disjoint: every block still holds what was written into it.
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        const auto& [p, size] = blocks[i];
        EXPECT_EQ(std::count(p, p + size, static_cast<unsigned char>(i + 1)), std::ptrdiff_t(size));
    }
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
    using Vector = ZtUOwnPtrVector<Tracked>;
    Vector* vectors[] = {new (raw) Vector, new (shared) Vector, new (fast) Vector, new Vector};
    EXPECT_EQ(static_cast<void*>(vectors[0]), static_cast<void*>(buffer));
    EXPECT_EQ(raw.GetBytesAllocated(), sizeof(Vector));
    vectors[0]->PushBack(new Tracked(1));
    for (int i = 1; i < 4; ++i) *vectors[i] = *vectors[i - 1];
    EXPECT_EQ(Tracked::live, 4);
    EXPECT_EQ((*vectors[3])[0]->value, 1);
    // Arena objects are destroyed by their destructor; their memory goes with the arena.
    for (int i = 0; i < 3; ++i) vectors[i]->~Vector();
    delete vectors[3];
    EXPECT_EQ(Tracked::live, 0);
    alignas(Vector) unsigned char place[sizeof(Vector)];
    EXPECT_EQ(static_cast<void*>(new (static_cast<void*>(place)) Vector),
              static_cast<void*>(place));
}

TEST(ZtUArena, SharedArenaServesSeveralThreads) {
    ZtUArena arena(256);
    const int threads = 4, count = 500;
    std::vector<std::int32_t*> got(threads * count);
    std::vector<std::thread> workers;
    for (int t = 0; t < threads; ++t) {
        workers.emplace_back([&, t] {
            for (int i = t * count; i < (t + 1) * count; ++i) {
                got[i] = static_cast<std::int32_t*>(arena.Allocate(sizeof(std::int32_t), 4));
                *got[i] = i;
            }
        });
    }
    for (std::thread& w : workers) w.join();
    for (int i = 0; i < threads * count; ++i) EXPECT_EQ(*got[i], i);  // no block handed out twice
    EXPECT_EQ(arena.GetBytesAllocated(), threads * count * sizeof(std::int32_t));
}
