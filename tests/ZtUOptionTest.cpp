#include <ztutil/ZtUError.h>
#include <ztutil/ZtUOption.h>

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace {

std::mutex g_postsMutex;
std::vector<ZtUErrorReport> g_posts;
std::vector<std::string> g_messages;
std::atomic<int> g_postCount{0};

void Capture(const ZtUErrorReport& report) {
    std::lock_guard<std::mutex> guard(g_postsMutex);
    g_posts.push_back(report);
    g_messages.push_back(report.message);
    ++g_postCount;
}

// Captures the posts made during a test.
struct PostCapture {
    ZtUError::Handler previous;
    PostCapture() {
        g_posts.clear();
        g_messages.clear();
        previous = ZtUError::SetHandler(&Capture);
    }
    ~PostCapture() { ZtUError::SetHandler(previous); }
};

const ZtUOptionRangeValidator kUnit(0.0, 1.0);

// optview.background.{red,green,blue} (floats in [0, 1]), optview.size (linear float),
// optview.count (integer), optview.title (string), optview.corner (3D point).
void DefineView() {
    static bool defined = false;
    if (defined) return;
    defined = true;
    ZtUExOptionSet* view = new ZtUExOptionSet;
    ZtUExOptionSet* background = new ZtUExOptionSet;
    background->SetState(1);
    background->DefineFloat("red", 0.25, ZtUOptionSet::ProfileUser, 0, "", &kUnit);
    background->DefineFloat("green", 0.5, ZtUOptionSet::ProfileUser, 0, "", &kUnit);
    background->DefineFloat("blue", 0.75, ZtUOptionSet::ProfileUser, 0, "", &kUnit);
    view->DefineLinearFloat("size", 10.0, ZtUOptionSet::ProfileUser, 0, "view size", nullptr);
    view->DefineInteger("count", 3, ZtUOptionSet::ProfileUser, 0, nullptr, nullptr);
    view->DefineString("title", "main", ZtUOptionSet::ProfileUser, 0, nullptr, nullptr);
    view->Define("corner", ZtUOptionSet::KindPoint3D, ZtUData(1.0, 2.0, 3.0),
                 ZtUOptionSet::ProfileUser, 0, nullptr, nullptr);
    EXPECT_TRUE(view->DefineSet("background", background, ZtUOptionSet::ProfileUser,
                                ZtUOptionStructured, "color"));
    EXPECT_TRUE(ZtUOption::DefineSet("optview", view, ZtUOptionSet::ProfileUser, 0, nullptr));
}

}  // namespace

TEST(ZtUData, HoldsOneKindAndYieldsDefaultsOfOthers) {
    const ZtUData p3(1.0, 2.0, 3.0), p2(4.0, 5.0), i(7), f(0.5), s("abc"), e;
    EXPECT_TRUE(p3.IsPoint3D());
    EXPECT_FALSE(p3.IsPoint2D());
    EXPECT_EQ(p3.GetPoint3D()[2], 3.0);
    EXPECT_EQ(p3.GetPoint2D()[0], 0.0);
    EXPECT_EQ(p2.GetPoint2D()[1], 5.0);
    EXPECT_EQ(i.GetFloat(), 7.0);
    EXPECT_EQ(f.GetInteger(), 0);
    EXPECT_EQ(s.GetString(), "abc");
    EXPECT_EQ(f.GetString(), "");
    EXPECT_TRUE(e.IsEmpty());
    EXPECT_EQ(p3, ZtUData(1.0, 2.0, 3.0));
    EXPECT_NE(p2, ZtUData(4.0, 5.0, 0.0));
    EXPECT_NE(i, ZtUData(7.0));
    EXPECT_EQ(p2.Describe(), "(4, 5)");
}

TEST(ZtUOption, DefinesReadsWritesAndResetsByDottedPath) {
    PostCapture capture;
    DefineView();
    {
        ZtUOptionLock lock;
        ZtUOptionSet* background = ZtUOption::GetSet("optview.background", lock);
        ASSERT_TRUE(background->IsValid());
        EXPECT_EQ(background->GetPath(), "optview.background");
        EXPECT_EQ(background->GetFloat("green"), 0.5);
        EXPECT_TRUE(background->SetFloat("green", 0.125));
        EXPECT_EQ(ZtUOption::GetSet("optview", lock)->GetSubOptions("background"), background);
    }
    ZtUExOptionSet* root = ZtUOption::GetRoot();
    EXPECT_EQ(root->GetFloat("optview.background.green"), 0.125);
    EXPECT_TRUE(root->SetLinearFloat("optview.size", 2.5));
    EXPECT_EQ(root->GetLinearFloat("optview.size"), 2.5);
    EXPECT_TRUE(root->SetValue("optview.count", ZtUData(9.0)));  // integral double fits
    EXPECT_EQ(root->GetInteger("optview.count"), 9);
    EXPECT_EQ(root->GetFloat("optview.count"), 9.0);
    EXPECT_TRUE(root->SetString("optview.title", "side"));
    EXPECT_TRUE(root->SetValue("optview.corner", ZtUData(4.0, 5.0, 6.0)));
    EXPECT_EQ(root->GetValue("optview.corner"), ZtUData(4.0, 5.0, 6.0));

    ZtUOption::ResetToDefaults("optview.background.green");
    EXPECT_EQ(root->GetFloat("optview.background.green"), 0.5);
    EXPECT_TRUE(root->SetFloat("optview.background.red", 1.0));
    ZtUOption::ResetToDefaults("optview");
    EXPECT_EQ(root->GetFloat("optview.background.red"), 0.25);
    EXPECT_EQ(root->GetLinearFloat("optview.size"), 10.0);
    EXPECT_EQ(root->GetString("optview.title"), "main");
    EXPECT_EQ(root->GetValue("optview.corner"), ZtUData(1.0, 2.0, 3.0));
    EXPECT_TRUE(g_messages.empty()) << g_messages.front();
}

TEST(ZtUOption, FailuresArePostedAndKeepValues) {
    DefineView();
    ZtUExOptionSet* root = ZtUOption::GetRoot();
    static ZtUExOptionSet* refused = new ZtUExOptionSet;
    struct Row {
        std::function<double()> action;  // returns the value to check
        double expected;
        int code;
        const char* message;
    };
    const Row rows[] = {
        {[=] { return root->GetFloat("optview.background.alpha"); }, 0.0, 1,
         "no option 'optview.background.alpha'"},
        {[=] { return root->GetFloat("nosuch.red"); }, 0.0, 1, "no option 'nosuch.red'"},
        {[=] {
             ZtUOptionLock lock;
             ZtUOptionSet* missing = ZtUOption::GetSet("optview.foreground", lock);
             missing->SetFloat("red", 1.0);  // the stand-in ignores writes quietly
             return missing->IsValid() ? 1.0 : missing->GetFloat("red");
         },
         0.0, 1, "no option set 'optview.foreground'"},
        {[=] {
             root->SetFloat("optview.background.red", 1.5);
             return root->GetFloat("optview.background.red");
         },
         0.25, 3, "value 1.5 refused for option 'optview.background.red': outside [0, 1]"},
        {[=] {
             root->SetString("optview.size", "big");
             return root->GetLinearFloat("optview.size");
         },
         10.0, 2, "value \"big\" does not fit option 'optview.size'"},
        {[=] {
             root->SetValue("optview.count", ZtUData(1.5));
             return static_cast<double>(root->GetInteger("optview.count"));
         },
         3.0, 2, "value 1.5 does not fit option 'optview.count'"},
        {[=] { return static_cast<double>(root->GetInteger("optview.size")); }, 0.0, 2,
         "option 'optview.size' is not an integer"},
        {[=] {
             return root->GetSubOptions("optview")->DefineFloat(
                        "size", 1, ZtUOptionSet::ProfileUser, 0, nullptr, nullptr)
                        ? 1.0
                        : root->GetLinearFloat("optview.size");
         },
         10.0, 4, "option 'optview.size' is already defined"},
        {[=] {
             refused->DefineFloat("v", 4.0, ZtUOptionSet::ProfileNone, 0, nullptr, nullptr);
             const bool ok = ZtUOption::DefineSet("optview.background", refused,
                                                  ZtUOptionSet::ProfileNone, 0, nullptr);
             return ok ? -1.0 : refused->GetFloat("v");  // kept aside, still usable
         },
         4.0, 4, "cannot register set 'optview.background': the name is already defined"},
        {[=] {
             return ZtUOption::DefineSet("a..b", new ZtUExOptionSet, ZtUOptionSet::ProfileNone, 0,
                                         nullptr)
                        ? 1.0
                        : 0.0;
         },
         0.0, 5, "cannot register set 'a..b'"},
        {[=] {
             ZtUOption::ResetToDefaults("optview.nothing");
             return 0.0;
         },
         0.0, 1, "cannot reset 'optview.nothing'"},
    };
    for (const Row& row : rows) {
        PostCapture capture;
        EXPECT_EQ(row.action(), row.expected) << row.message;
        ASSERT_EQ(g_posts.size(), 1u) << row.message;
        EXPECT_EQ(g_posts[0].code, row.code) << row.message;
        EXPECT_EQ(g_posts[0].severity, ZtUSysError::Error);
        EXPECT_EQ(g_posts[0].component, ZtUOption::GetComponent());
        EXPECT_EQ(g_messages[0].find(row.message), 0u) << g_messages[0];
    }
}

// Several threads define, read, write, validate and reset options at once. The shared counter
// is incremented read-modify-write under the lock, so no increment may be lost. Run this under
// ThreadSanitizer to check the registry for races.
TEST(ZtUOption, ManyThreadsUseTheRegistryAtOnce) {
    PostCapture capture;
    g_postCount = 0;
    ZtUExOptionSet* shared = new ZtUExOptionSet;
    shared->DefineInteger("count", 0, ZtUOptionSet::ProfileSession, 0, nullptr, nullptr);
    ASSERT_TRUE(
        ZtUOption::DefineSet("optshared", shared, ZtUOptionSet::ProfileSession, 0, nullptr));
    const int threads = 4, rounds = 300;
    std::vector<std::thread> workers;
    for (int t = 0; t < threads; ++t) {
        workers.emplace_back([t] {
            const std::string name = "optthread" + std::to_string(t);
            ZtUExOptionSet* own = new ZtUExOptionSet;
            own->DefineFloat("value", 0.5, ZtUOptionSet::ProfileSession, 0, nullptr, &kUnit);
            ZtUOption::DefineSet(name.c_str(), own, ZtUOptionSet::ProfileSession, 0, "mine");
            ZtUExOptionSet* root = ZtUOption::GetRoot();
            for (int i = 0; i < rounds; ++i) {
                {
                    ZtUOptionLock lock;
                    ZtUOptionSet* set = ZtUOption::GetSet("optshared", lock);
                    set->SetInteger("count", set->GetInteger("count") + 1);
                }
                root->SetFloat((name + ".value").c_str(), (i % 10) / 10.0);
                if (i % 50 == 0) root->SetFloat((name + ".value").c_str(), 2.0);  // refused
                if (i % 30 == 0) ZtUOption::ResetToDefaults(name.c_str());
                const std::string other = "optthread" + std::to_string((t + 1) % threads);
                if (root->Has(other.c_str())) root->GetFloat((other + ".value").c_str());
            }
        });
    }
    for (std::thread& w : workers) w.join();
    EXPECT_EQ(ZtUOption::GetRoot()->GetInteger("optshared.count"), threads * rounds);
    EXPECT_EQ(g_postCount.load(), threads * (rounds / 50));
}
