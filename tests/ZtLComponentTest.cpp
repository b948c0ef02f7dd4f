#include <ztlinear/ZtLMaths.h>
#include <ztlinear/ZtLMatrix.h>
#include <ztlinear/ZtLPick.h>
#include <ztlinear/ZtLPickSweep.h>
#include <ztlinear/ZtLVec.h>
#include <ztutil/ZtUComponent.h>
#include <ztutil/ZtUError.h>

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace {
struct ComponentCase {
    const char* name;
    void (*initialise)();
    void (*terminate)();
    int (*isInitialised)();
    ZtUComponent* (*record)();
    int errorStarts;  // error-system starts of a first Initialise (with the dependency's)
};

// Prints the name only: gtest's fallback would print the raw bytes, padding included.
void PrintTo(const ComponentCase& c, std::ostream* os) { *os << c.name; }

class ZtLComponentTest : public testing::TestWithParam<ComponentCase> {};
}  // namespace

TEST_P(ZtLComponentTest, PairsFirstAndLastTransitionWithTheErrorSystem) {
    const ComponentCase& c = GetParam();
    const int base = ZtUError::GetInitCount();
    ASSERT_FALSE(c.isInitialised());
    c.initialise();
    EXPECT_TRUE(c.isInitialised());
    EXPECT_EQ(ZtUError::GetInitCount(), base + c.errorStarts);
    c.initialise();
    EXPECT_EQ(ZtUError::GetInitCount(), base + c.errorStarts)
        << "the nested Initialise adds nothing";
    c.terminate();
    EXPECT_TRUE(c.isInitialised());
    EXPECT_EQ(ZtUError::GetInitCount(), base + c.errorStarts);
    c.terminate();
    EXPECT_FALSE(c.isInitialised());
    EXPECT_EQ(ZtUError::GetInitCount(), base);

    c.initialise();
    EXPECT_STREQ(c.record()->GetName(), c.name);
    const std::string ident = c.record()->GetIdent();
    EXPECT_EQ(ident.rfind("@(#)$Id: ", 0), 0u) << ident;
    EXPECT_NE(ident.find(std::string("src/lib/ztlinear/") + c.name + ".cpp#1 $"), std::string::npos)
        << ident;
    c.terminate();
}

INSTANTIATE_TEST_SUITE_P(
    Components, ZtLComponentTest,
    testing::Values(ComponentCase{"ZtLMaths", &ZtLMaths::Initialise, &ZtLMaths::Terminate,
                                  &ZtLMaths::IsInitialised, &ZtLMaths::GetComponent, 1},
                    ComponentCase{"ZtLMatrix", &ZtLMatrix::Initialise, &ZtLMatrix::Terminate,
                                  &ZtLMatrix::IsInitialised, &ZtLMatrix::GetComponent, 1},
                    ComponentCase{"ZtLPick", &ZtLPick::Initialise, &ZtLPick::Terminate,
                                  &ZtLPick::IsInitialised, &ZtLPick::GetComponent, 1},
                    ComponentCase{"ZtLPickSweep", &ZtLPickSweep::Initialise,
                                  &ZtLPickSweep::Terminate, &ZtLPickSweep::IsInitialised,
                                  &ZtLPickSweep::GetComponent, 2}),
    [](const testing::TestParamInfo<ComponentCase>& info) { return std::string(info.param.name); });

TEST(ZtLPickSweep, BringsUpAndDownItsMathsDependencyWithOneErrorSystemCallEach) {
    const int base = ZtUError::GetInitCount();
    ZtLPickSweep::Initialise();
    EXPECT_TRUE(ZtLPickSweep::IsInitialised());
    EXPECT_TRUE(ZtLMaths::IsInitialised());
    EXPECT_EQ(ZtUError::GetInitCount(), base + 2);

    ZtLMaths::Initialise();  // a user of its own keeps ZtLMaths up after the sweep goes
    EXPECT_EQ(ZtUError::GetInitCount(), base + 2);
    ZtLPickSweep::Terminate();
    EXPECT_FALSE(ZtLPickSweep::IsInitialised());
    EXPECT_TRUE(ZtLMaths::IsInitialised());
    EXPECT_EQ(ZtUError::GetInitCount(), base + 1);
    ZtLMaths::Terminate();
    EXPECT_FALSE(ZtLMaths::IsInitialised());
    EXPECT_EQ(ZtUError::GetInitCount(), base);
}

TEST(ZtLVec, TolerancesHaveTheirDefaultsAndTakeAnyValue) {
    EXPECT_EQ(ZtLVec::GetResabs(), 1e-06);
    EXPECT_EQ(ZtLVec::GetResnor(), 1e-12);
    EXPECT_EQ(ZtLVec::GetResop(), 1e-10);
    ZtLVec::SetResabs(-1.0);
    ZtLVec::SetResnor(0.5);
    ZtLVec::SetResop(0.0);
    EXPECT_EQ(ZtLVec::GetResabs(), -1.0);
    EXPECT_EQ(ZtLVec::GetResnor(), 0.5);
    EXPECT_EQ(ZtLVec::GetResop(), 0.0);
    ZtLVec::SetResabs(1e-06);
    ZtLVec::SetResnor(1e-12);
    ZtLVec::SetResop(1e-10);
}
