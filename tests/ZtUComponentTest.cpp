#include <ztutil/ZtUComponent.h>
#include <ztutil/ZtUError.h>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

TEST(ZtUComponent, CountsNestedInitialisationAndReportsOnlyTransitions) {
    ZtUComponent c;
    EXPECT_FALSE(c.IsInitialised());
    EXPECT_EQ(c.GetName(), nullptr);
    EXPECT_NE(c.Initialise("Comp", "ident"), 0);
    EXPECT_EQ(c.Initialise("Comp", "ident"), 0);
    EXPECT_TRUE(c.IsInitialised());
    EXPECT_STREQ(c.GetName(), "Comp");
    EXPECT_STREQ(c.GetIdent(), "ident");
    EXPECT_EQ(c.GetInitCount(), 2);
    EXPECT_EQ(c.Terminate(), 0);
    EXPECT_TRUE(c.IsInitialised());
    EXPECT_NE(c.Terminate(), 0);
    EXPECT_FALSE(c.IsInitialised());
    EXPECT_EQ(c.Terminate(), 0) << "an unbalanced Terminate is ignored";
    EXPECT_EQ(c.GetInitCount(), 0);
}

TEST(ZtUComponent, ExactlyOneTransitionEachWayUnderConcurrentUse) {
    ZtUComponent c;
    std::atomic<int> ups{0}, downs{0};
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&] {
            for (int i = 0; i < 1000; ++i) {
                ups += c.Initialise("C", "i");
                downs += c.Terminate();
            }
        });
    }
    for (auto& t : threads) t.join();
    EXPECT_EQ(ups.load(), downs.load());
    EXPECT_GE(ups.load(), 1);
    EXPECT_FALSE(c.IsInitialised());
}

namespace {
std::vector<ZtUErrorReport> g_reports;
std::vector<std::string> g_messages;
void Record(const ZtUErrorReport& r) {
    g_reports.push_back(r);
    g_messages.emplace_back(r.message);
}
void Other(const ZtUErrorReport&) {}
}  // namespace

TEST(ZtUError, PostsBothFormsToTheInstalledHandler) {
    g_reports.clear();
    g_messages.clear();
    ZtUComponent comp;
    comp.Initialise("Poster", "id");
    const ZtUError::Handler previous = ZtUError::SetHandler(&Record);
    EXPECT_EQ(previous, &ZtUError::DefaultHandler);

    ZtUError::Post(ZtUSysError::Error, nullptr, "value %d and %.2f and %s", 7, 1.5, "text");
    int datum = 0;
    ZtUError::Post(ZtUSysError::Error, &comp, 3, &datum, "Singular Matrix");

    ASSERT_EQ(g_reports.size(), 2u);
    EXPECT_EQ(g_reports[0].severity, 1);
    EXPECT_EQ(g_reports[0].component, nullptr);
    EXPECT_EQ(g_reports[0].code, -1);
    EXPECT_EQ(g_reports[0].data, nullptr);
    EXPECT_EQ(g_messages[0], "value 7 and 1.50 and text");
    EXPECT_EQ(g_reports[1].component, &comp);
    EXPECT_EQ(g_reports[1].code, 3);
    EXPECT_EQ(g_reports[1].data, &datum);
    EXPECT_EQ(g_messages[1], "Singular Matrix");

    EXPECT_EQ(ZtUError::SetHandler(&Other), &Record);
    EXPECT_EQ(ZtUError::SetHandler(nullptr), &Other);
    EXPECT_EQ(ZtUError::SetHandler(previous), &ZtUError::DefaultHandler);
    comp.Terminate();
}

TEST(ZtUError, DefaultHandlerWritesOneLineNamingTheComponent) {
    ZtUComponent comp;
    comp.Initialise("Named", "id");
    testing::internal::CaptureStderr();
    ZtUError::Post(ZtUSysError::Error, &comp, 2, nullptr, "went %s", "wrong");
    const std::string line = testing::internal::GetCapturedStderr();
    EXPECT_EQ(line, "ztutil: Named: went wrong (severity 1, code 2)\n");
    comp.Terminate();
}

TEST(ZtUError, InitialiseAndTerminateAreCounted) {
    const int base = ZtUError::GetInitCount();
    ZtUError::Initialise();
    ZtUError::Initialise();
    EXPECT_EQ(ZtUError::GetInitCount(), base + 2);
    ZtUError::Terminate();
    ZtUError::Terminate();
    EXPECT_EQ(ZtUError::GetInitCount(), base);
}
