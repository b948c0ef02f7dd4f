#include <ztlinear/ZtLBoSegment2f.h>
#include <ztlinear/ZtLBox3f.h>
#include <ztlinear/ZtLColor3f.h>
#include <ztlinear/ZtLMaths.h>
#include <ztlinear/ZtLMatrix.h>
#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLMatrix4f.h>
#include <ztlinear/ZtLPick.h>
#include <ztlinear/ZtLPickSweep.h>
#include <ztlinear/ZtLRotation3f.h>
#include <ztlinear/ZtLTransform3f.h>
#include <ztlinear/ZtLVec.h>
#include <ztlinear/ZtLVec2f.h>
#include <ztlinear/ZtLVec3f.h>
#include <ztutil/ZtUError.h>
#include <ztutil/ZtUOption.h>
#include <ztutil/ZtUXMLDOMStream.h>

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

// The library's promise to a threaded host, exercised all at once: every thread works on its own
// value objects, reads the tolerances, starts and stops the components, posts errors and uses
// the option registry by name. Under ThreadSanitizer (scripts/run-tsan.sh) no race may be
// reported; in any build the counts must add up.

namespace {

const int kThreads = 8;
const int kRounds = 200;

std::atomic<int> g_singularPosts{0};
std::atomic<int> g_otherPosts{0};

void CountingHandler(const ZtUErrorReport& r) {
    if (r.component == ZtLMatrix::GetComponent() && r.code == 2)
        g_singularPosts.fetch_add(1, std::memory_order_relaxed);
    else
        g_otherPosts.fetch_add(1, std::memory_order_relaxed);
}

// Every component started and stopped in one nested pair; returns whether all were up inside.
bool CycleComponents() {
    ZtLMaths::Initialise();
    ZtLMatrix::Initialise();
    ZtLPick::Initialise();
    ZtLPickSweep::Initialise();
    const bool up = ZtLMaths::IsInitialised() && ZtLMatrix::IsInitialised() &&
                    ZtLPick::IsInitialised() && ZtLPickSweep::IsInitialised();
    ZtLPickSweep::Terminate();
    ZtLPick::Terminate();
    ZtLMatrix::Terminate();
    ZtLMaths::Terminate();
    return up;
}

// Work on values owned by this thread; returns a checksum of the results so the compiler keeps
// them, and counts the singular inversions it caused.
unsigned int ValueWork(int thread, int round) {
    const double k = thread + 0.001 * round;
    ZtLMatrix3f m(1, k, 0, 0, 1, 0, 0, 0, 2);
    ZtLTransform3f x(ZtLRotation3f(ZtLUnitVec3f(1, k, 0), k), ZtLVec3f(k, 0, 1));
    x.MultRight(ZtLTransform3f(m));
    x.Evaluate(ZtLVec::GetResabs());
    ZtLBox3f box(ZtLPos3f(-k, -1, -1), ZtLPos3f(k, 1, 1));
    box.Transform(x);
    const ZtLMatrix3f singular(1, 2, 3 + k, 1, 2, 3 + k, 2, 1, 1);  // equal rows
    const ZtLMatrix3f inverse = singular.Inverse();                 // posts "Singular Matrix"
    ZtLPos2f crossing;
    const ZtLBoSegment2f a(ZtLPos2f(0, 0), ZtLPos2f(k + 1, k + 1));
    const ZtLBoSegment2f b(ZtLPos2f(0, k + 1), ZtLPos2f(k + 1, 0));
    const bool crossed = a.Intersect(b, crossing);
    const bool tolerancesRead = ZtLVec::GetResnor() < ZtLVec::GetResop();

    ZtUXMLDOMWriter writer;
    ZtLRotation3f q(ZtLUnitVec3f(0, 0, 1), k);
    q.SerialiseXML(&writer);
    ZtUXMLDOMReader reader;
    reader.Parse(writer.GetText());
    ZtLRotation3f back;
    back.SerialiseXML(&reader);

    return x.CalcHashCode() ^ box.GetMax().CalcHashCode() ^ inverse.CalcHashCode() ^
           (crossed ? 1u : 0u) ^ (tolerancesRead ? 2u : 0u) ^ (back == q ? 4u : 0u);
}

struct ThreadResult {
    bool componentsUp = true;
    bool optionsConsistent = true;
    unsigned int checksum = 0;
};

void Worker(int thread, ThreadResult* result) {
    const std::string point = "ZtLConcurrencyTest_point" + std::to_string(thread);
    const std::string color = "ZtLConcurrencyTest_color" + std::to_string(thread);
    // Each thread registers its own option sets while the others already use theirs.
    const ZtUOptionSet::Profile profile = ZtUOptionSet::ProfileSession;
    ZtLPos3f::DefinePoint3DOption(point.c_str(), ZtLPos3f(0, 0, 0), profile, 0, nullptr);
    ZtLColor3f::DefineColorOption(color.c_str(), ZtLColor3f(0, 0, 0), profile, 0, nullptr);
    for (int round = 0; round < kRounds; ++round) {
        result->componentsUp = CycleComponents() && result->componentsUp;
        result->checksum ^= ValueWork(thread, round);

        // Options: this thread's own sets, and the shared one every thread writes.
        const double v = thread * 1000 + round;
        ZtLPos3f::SetPoint3DOption(point.c_str(), ZtLPos3f(v, -v, 0.5));
        ZtLColor3f::SetColorOption(color.c_str(), ZtLColor3f(0.25, 0.5, 0.75));
        ZtLPos3f::SetPoint3DOption("ZtLConcurrencyTest_shared", ZtLPos3f(v, v, v));
        const ZtLPos3f mine = ZtLPos3f::GetPoint3DOption(point.c_str());
        const ZtLPos3f shared = ZtLPos3f::GetPoint3DOption("ZtLConcurrencyTest_shared");
        // Another thread may have written the shared point in between, but always all three
        // values of it at once.
        const bool sharedWhole = shared[0] == shared[1] && shared[1] == shared[2];
        result->optionsConsistent =
            result->optionsConsistent && mine[0] == v && mine[1] == -v && sharedWhole;
        if (round % 50 == 0) ZtLColor3f::ResetColorOption(color.c_str());
    }
}

}  // namespace

TEST(ZtLConcurrencyTest, ThreadsShareComponentsErrorsAndOptionsWithoutInterference) {
    ZtLPos3f::DefinePoint3DOption("ZtLConcurrencyTest_shared", ZtLPos3f(0, 0, 0),
                                  ZtUOptionSet::ProfileSession, 0, nullptr);
    g_singularPosts = 0;
    g_otherPosts = 0;
    const int errorInits = ZtUError::GetInitCount();
    const int mathsUp = ZtLMaths::IsInitialised(), sweepUp = ZtLPickSweep::IsInitialised();
    const ZtUError::Handler previous = ZtUError::SetHandler(&CountingHandler);

    std::vector<ThreadResult> results(kThreads);
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) threads.emplace_back(Worker, t, &results[t]);
    for (std::thread& t : threads) t.join();
    ZtUError::SetHandler(previous);

    for (int t = 0; t < kThreads; ++t) {
        EXPECT_TRUE(results[t].componentsUp) << "thread " << t;
        EXPECT_TRUE(results[t].optionsConsistent) << "thread " << t;
    }
    EXPECT_EQ(g_singularPosts.load(), kThreads * kRounds);
    EXPECT_EQ(g_otherPosts.load(), 0);
    // Every start was paired with a stop: the components and the error system are as before.
    EXPECT_EQ(ZtUError::GetInitCount(), errorInits);
    EXPECT_EQ(ZtLMaths::IsInitialised(), mathsUp);
    EXPECT_EQ(ZtLPickSweep::IsInitialised(), sweepUp);
    const ZtLPos3f last = ZtLPos3f::GetPoint3DOption("ZtLConcurrencyTest_point3");
    EXPECT_EQ(last[0], 3 * 1000 + kRounds - 1);
}
