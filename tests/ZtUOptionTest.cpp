#include <ztutil/ZtUError.h>
#include <ztutil/ZtUOption.h>

#include <gtest/gtest.h>

#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace {

struct Post {
    ZtUErrorReport report;
    std::string message;  // the report's message is valid during the post only
};
std::mutex g_postsMutex;
std::vector<Post> g_posts;

// Captures the posts made during its lifetime.
struct PostCapture {
    ZtUError::Handler previous;
    PostCapture()
        : previous(ZtUError::SetHandler([](const ZtUErrorReport& report) {
              std::lock_guard<std::mutex> guard(g_postsMutex);
              g_posts.push_back({report, report.message});
          })) {
        g_posts.clear();
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
    const ZtUOptionSet::Profile user = ZtUOptionSet::ProfileUser;
    ZtUExOptionSet* view = new ZtUExOptionSet;
    ZtUExOptionSet* background = new ZtUExOptionSet;
    background->DefineFloat("red", 0.25, user, 0, "", &kUnit);
    background->DefineFloat("green", 0.5, user, 0, "", &kUnit);
    background->DefineFloat("blue", 0.75, user, 0, "", &kUnit);
    view->DefineLinearFloat("size", 10.0, user, 0, "view size", nullptr);
    view->DefineInteger("count", 3, user, 0, nullptr, nullptr);
    view->DefineString("title", "main", user, 0, nullptr, nullptr);
    view->Define("corner", ZtUOptionSet::KindPoint3D, ZtUData(1.0, 2.0, 3.0), user, 0, nullptr,
                 nullptr);
    EXPECT_TRUE(view->DefineSet("background", background, user, ZtUOptionStructured, "color"));
    EXPECT_TRUE(ZtUOption::DefineSet("optview", view, user, 0, nullptr));
}

}  // namespace

TEST(ZtUData, HoldsOneKindAndYieldsDefaultsOfOthers) {
    const ZtUData p3(1.0, 2.0, 3.0), p2(4.0, 5.0), i(7), f(0.5), s("abc");
    EXPECT_TRUE(p3.IsPoint3D() && !p3.IsPoint2D() && p2.IsPoint2D() && ZtUData().IsEmpty());
    EXPECT_EQ(p3.GetPoint3D()[2] + p2.GetPoint2D()[1], 8.0);
    EXPECT_EQ(p3.GetPoint2D()[0] + f.GetInteger() + i.GetFloat(), 7.0);  // defaults, conversion
    EXPECT_EQ(s.GetString() + f.GetString(), "abc");
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
    EXPECT_TRUE(g_posts.empty()) << g_posts.front().message;
}

TEST(ZtUOption, FailuresArePostedAndKeepValues) {
    DefineView();
    ZtUExOptionSet* root = ZtUOption::GetRoot();
    const ZtUOptionSet::Profile none = ZtUOptionSet::ProfileNone;
    double miss = 0;  // each action stores how far its result is from the expected one
    struct Row {
        int code;
        const char* message;
        std::function<void()> action;
    };
    const Row rows[] = {
        {1, "no option 'optview.background.alpha'",
         [&] { miss = root->GetFloat("optview.background.alpha"); }},
        {1, "no option 'nosuch.red'", [&] { miss = root->GetFloat("nosuch.red"); }},
        {1, "no option set 'optview.foreground'",
         [&] {  // the stand-in ignores writes and yields defaults quietly
             ZtUOptionLock lock;
             ZtUOptionSet* missing = ZtUOption::GetSet("optview.foreground", lock);
             missing->SetFloat("red", 1.0);
             miss = missing->IsValid() + missing->GetFloat("red");
         }},
        {3, "value 1.5 refused for option 'optview.background.red': outside [0, 1]",
         [&] {
             miss = root->SetFloat("optview.background.red", 1.5) +
                    root->GetFloat("optview.background.red") - 0.25;
         }},
        {2, "value \"big\" does not fit option 'optview.size'",
         [&] {
             miss = root->SetString("optview.size", "big") + root->GetFloat("optview.size") - 10;
         }},
        {2, "value 1.5 does not fit option 'optview.count'",
         [&] {
             miss = root->SetValue("optview.count", 1.5) + root->GetInteger("optview.count") - 3;
         }},
        {2, "option 'optview.size' is not an integer",
         [&] { miss = root->GetInteger("optview.size"); }},
        {4, "option 'optview.size' is already defined",
         [&] {
             miss = root->DefineFloat("optview.size", 1, none, 0, nullptr, nullptr) +
                    root->GetFloat("optview.size") - 10;
         }},
        {4, "cannot register set 'optview.background': the name is already defined",
         [&] {  // a refused set is kept aside and stays usable
             ZtUExOptionSet* refused = new ZtUExOptionSet;
             refused->DefineFloat("v", 4.0, none, 0, nullptr, nullptr);
             miss = ZtUOption::DefineSet("optview.background", refused, none, 0, nullptr) +
                    refused->GetFloat("v") - 4;
         }},
        {5, "cannot register set 'a..b'",
         [&] { miss = ZtUOption::DefineSet("a..b", new ZtUExOptionSet, none, 0, nullptr); }},
        {1, "cannot reset 'optview.nothing'",
         [&] { ZtUOption::ResetToDefaults("optview.nothing"); }},
    };
    for (const Row& row : rows) {
        PostCapture capture;
        miss = 0;
        row.action();
        EXPECT_EQ(miss, 0) << row.message;
        ASSERT_EQ(g_posts.size(), 1u) << row.message;
        EXPECT_EQ(g_posts[0].report.code, row.code) << row.message;
        EXPECT_EQ(g_posts[0].report.severity, ZtUSysError::Error);
        EXPECT_EQ(g_posts[0].report.component, ZtUOption::GetComponent());
        EXPECT_EQ(g_posts[0].message.find(row.message), 0u) << g_posts[0].message;
    }
}

// Several threads define, read, write, validate and reset options at once. The shared counter
// is incremented read-modify-write under the lock, so no increment may be lost. Run this under
// ThreadSanitizer to check the registry for races.
TEST(ZtUOption, ManyThreadsUseTheRegistryAtOnce) {
    PostCapture capture;
    static int run = 0;  // fresh names when the test is repeated in one process
    const std::string base = "optrun" + std::to_string(run++);
    ZtUExOptionSet* shared = new ZtUExOptionSet;
    shared->DefineInteger("count", 0, ZtUOptionSet::ProfileSession, 0, nullptr, nullptr);
    ASSERT_TRUE(ZtUOption::DefineSet(base.c_str(), shared, ZtUOptionSet::ProfileSession, 0, ""));
    const int threads = 4, rounds = 300;
    std::vector<std::thread> workers;
    for (int t = 0; t < threads; ++t) {
        workers.emplace_back([t, base] {
            const std::string name = base + "t" + std::to_string(t);
            ZtUExOptionSet* own = new ZtUExOptionSet;
            own->DefineFloat("value", 0.5, ZtUOptionSet::ProfileSession, 0, nullptr, &kUnit);
            ZtUOption::DefineSet(name.c_str(), own, ZtUOptionSet::ProfileSession, 0, "mine");
            ZtUExOptionSet* root = ZtUOption::GetRoot();
            for (int i = 0; i < rounds; ++i) {
                {
                    ZtUOptionLock lock;
                    ZtUOptionSet* set = ZtUOption::GetSet(base.c_str(), lock);
                    set->SetInteger("count", set->GetInteger("count") + 1);
                }
                root->SetFloat((name + ".value").c_str(), (i % 10) / 10.0);
                if (i % 50 == 0) root->SetFloat((name + ".value").c_str(), 2.0);  // refused
                if (i % 30 == 0) ZtUOption::ResetToDefaults(name.c_str());
                const std::string other = base + "t" + std::to_string((t + 1) % threads);
                if (root->Has(other.c_str())) root->GetFloat((other + ".value").c_str());
            }
        });
    }
    for (std::thread& w : workers) w.join();
    EXPECT_EQ(ZtUOption::GetRoot()->GetInteger((base + ".count").c_str()), threads * rounds);
    EXPECT_EQ(g_posts.size(), static_cast<std::size_t>(threads * (rounds / 50)));
}
