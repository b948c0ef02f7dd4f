#include <ztlinear/ZtLColor3f.h>
#include <ztlinear/ZtLVec2f.h>
#include <ztlinear/ZtLVec3f.h>
#include <ztutil/ZtUData.h>
#include <ztutil/ZtUOption.h>
#include <ztutil/ZtUXMLDOMStream.h>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <limits>
#include <ostream>
#include <string>
#include <thread>
#include <vector>

// The records of the Foundations types: XML records, ZtUData conversions and
// options.

namespace {

std::uint64_t Bits(double v) {
    std::uint64_t b;
    std::memcpy(&b, &v, sizeof b);
    return b;
}
double FromBits(std::uint64_t b) {
    double v;
    std::memcpy(&v, &b, sizeof v);
    return v;
}

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInf = std::numeric_limits<double>::infinity();

// Values whose text forms are awkward, each of them seen at every component
// position.
const double kAwkward[] = {-0.0,
                           kNaN,
                           1e300,
                           std::numeric_limits<double>::denorm_min(),
                           -kInf,
                           0.1,
                           FromBits(0x7ff8000000000123ull),
                           -kNaN,
                           -1e300,
                           1.0 / 3.0};
const int kAwkwardCount = sizeof kAwkward / sizeof kAwkward[0];

// Builds a value of T from v (unit vectors unnormalised), lets it exchange its
// record with s and stores its components back into v.
template <class T, int N>
void Exchange(ZtUXMLDOMStream* s, double* v) {
    T t(v);
    t.SerialiseXML(s);
    std::memcpy(v, t.GetValue(), N * sizeof(double));
}
template <>
void Exchange<ZtLUnitVec3f, 3>(ZtUXMLDOMStream* s, double* v) {
    ZtLUnitVec3f u;
    u.SetUnitValue(v[0], v[1], v[2]);
    u.SerialiseXML(s);
    std::memcpy(v, u.GetValue(), 3 * sizeof(double));
}

struct RecordCase {
    const char* type;
    const wchar_t* element;
    const char* elementUtf8;
    int count;
    void (*exchange)(ZtUXMLDOMStream*, double*);
};

const RecordCase kRecords[] = {
    {"ZtLVec3f", L"vec3f", "vec3f", 3, &Exchange<ZtLVec3f, 3>},
    {"ZtLPos3f", L"pos3f", "pos3f", 3, &Exchange<ZtLPos3f, 3>},
    {"ZtLUnitVec3f", L"vec3f", "vec3f", 3, &Exchange<ZtLUnitVec3f, 3>},
    {"ZtLVec2f", L"vec2f", "vec2f", 2, &Exchange<ZtLVec2f, 2>},
    {"ZtLPos2f", L"pos2f", "pos2f", 2, &Exchange<ZtLPos2f, 2>},
    {"ZtLColor3f", L"color3f", "color3f", 3, &Exchange<ZtLColor3f, 3>},
};

void PrintTo(const RecordCase& c, std::ostream* os) { *os << c.type; }

class ZtLRecordXMLTest : public testing::TestWithParam<RecordCase> {};

std::string CaseName(const testing::TestParamInfo<RecordCase>& info) { return info.param.type; }

// Logs the calls a record makes, and answers reads with 10, 11, ...
class LoggingStream : public ZtUXMLDOMStream {
public:
    explicit LoggingStream(bool reading) : m_reading(reading) {}
    void OpenElement(const wchar_t* name, int flags) override {
        m_log += L"open " + std::wstring(name) + L" " + std::to_wstring(flags) + L";";
    }
    void CloseElement(const wchar_t* name) override {
        m_log += L"close " + std::wstring(name) + L";";
        if (m_failOnClose) SetError("refused at the close");
    }
    void SerialiseFloat(const wchar_t* name, double* value) override {
        m_log += std::wstring(name) + L";";
        if (m_reading) *value = m_next++;
    }
    bool IsReading() const override { return m_reading; }

    std::wstring m_log;
    bool m_failOnClose = false;

private:
    bool m_reading;
    double m_next = 10;
};

}  // namespace

TEST_P(ZtLRecordXMLTest, WritesOneElementWithANamedDoublePerComponent) {
    const RecordCase& c = GetParam();
    const wchar_t* names[3] = {L"x;", L"y;", L"z;"};
    std::wstring expected = L"open " + std::wstring(c.element) + L" 0;";
    for (int i = 0; i < c.count; ++i) expected += names[i];
    expected += L"close " + std::wstring(c.element) + L";";

    LoggingStream writer(false);
    double v[3] = {1, 2, 3};
    c.exchange(&writer, v);
    EXPECT_EQ(writer.m_log, expected);
    EXPECT_EQ(v[0], 1.0);

    LoggingStream reader(true);
    c.exchange(&reader, v);
    EXPECT_EQ(reader.m_log, expected);
    for (int i = 0; i < c.count; ++i) EXPECT_EQ(v[i], 10.0 + i);
}

TEST_P(ZtLRecordXMLTest, ReadingBackRestoresEveryValueBitForBit) {
    const RecordCase& c = GetParam();
    std::vector<std::vector<double>> written;
    ZtUXMLDOMWriter writer;
    for (int row = 0; row < kAwkwardCount; ++row) {
        std::vector<double> v(3);
        for (int i = 0; i < 3; ++i) v[i] = kAwkward[(row + i) % kAwkwardCount];
        written.push_back(v);
        c.exchange(&writer, v.data());
    }
    ASSERT_FALSE(writer.HasError()) << writer.GetErrorMessage();

    ZtUXMLDOMReader reader;
    ASSERT_TRUE(reader.Parse(writer.GetText())) << reader.GetErrorMessage();
    for (const std::vector<double>& w : written) {
        double v[3] = {7, 7, 7};
        c.exchange(&reader, v);
        ASSERT_FALSE(reader.HasError()) << reader.GetErrorMessage();
        for (int i = 0; i < c.count; ++i) EXPECT_EQ(Bits(v[i]), Bits(w[i])) << i;
    }
    EXPECT_TRUE(reader.Finish()) << reader.GetErrorMessage();
}

TEST_P(ZtLRecordXMLTest, BadInputLeavesTheValueUntouched) {
    const RecordCase& c = GetParam();
    const std::string e = c.elementUtf8;
    std::string good = " x=\"1\" y=\"2\"";
    if (c.count == 3) good += " z=\"3\"";
    const std::string missingLast = c.count == 3 ? " x=\"1\" y=\"2\"" : " x=\"1\"";
    const std::string badLast = missingLast + (c.count == 3 ? " z=\"three\"" : " y=\"two\"");
    const std::string rows[] = {
        "",                                        // nothing to read
        "<other" + good + "/>",                    // another element
        "<" + e + missingLast + "/>",              // a value missing
        "<" + e + badLast + "/>",                  // a value that is no number
        "<" + e + good + " w=\"4\"/>",             // a value left unread
        "<" + e + good + "><extra/></" + e + ">",  // a child left unread
        "<" + e + good,                            // not well-formed
    };
    for (const std::string& text : rows) {
        ZtUXMLDOMReader reader;
        reader.Parse(text);
        const double preset[3] = {-0.0, kNaN, 1e300};
        double v[3] = {preset[0], preset[1], preset[2]};
        c.exchange(&reader, v);
        EXPECT_TRUE(reader.HasError()) << text;
        for (int i = 0; i < c.count; ++i) EXPECT_EQ(Bits(v[i]), Bits(preset[i])) << text;
    }

    // The values are read but the stream reports an error only at the close:
    // still untouched.
    LoggingStream failing(true);
    failing.m_failOnClose = true;
    double v[3] = {1, 2, 3};
    c.exchange(&failing, v);
    EXPECT_EQ(v[0], 1.0);
    EXPECT_EQ(v[1], 2.0);
}

INSTANTIATE_TEST_SUITE_P(Foundations, ZtLRecordXMLTest, testing::ValuesIn(kRecords), CaseName);

TEST(ZtLRecordXML, InnerRecordsWriteOnlyTheNamedDoubles) {
    LoggingStream writer(false);
    ZtLVec3f v(1, 2, 3);
    v.SerialiseXMLInner(&writer);
    ZtLPos2f p(1, 2);
    p.SerialiseXMLInner(&writer);
    EXPECT_EQ(writer.m_log, L"x;y;z;x;y;");

    LoggingStream reader(true);
    ZtLUnitVec3f u = ZtLUnitVec3f::X();
    u.SerialiseXMLInner(&reader);
    EXPECT_EQ(u[2], 12.0);
}

namespace {
// Bitwise equality of n doubles.
::testing::AssertionResult SameBits(const double* a, const double* b, int n) {
    for (int i = 0; i < n; ++i) {
        if (Bits(a[i]) != Bits(b[i])) {
            return ::testing::AssertionFailure()
                   << "component " << i << ": " << a[i] << " vs " << b[i];
        }
    }
    return ::testing::AssertionSuccess();
}
}  // namespace

TEST(ZtLRecordData, PositionsTakeOnlyAPointOfTheirDimension) {
    const double v[3] = {-0.0, kNaN, 1e300};
    EXPECT_TRUE(SameBits(ZtLPos3f(ZtUData(v[0], v[1], v[2])).GetValue(), v, 3));
    EXPECT_TRUE(SameBits(ZtLPos2f(ZtUData(v[0], v[1])).GetValue(), v, 2));

    const ZtUData others[] = {ZtUData(),        ZtUData(std::int32_t(4)), ZtUData(2.5),
                              ZtUData("1 2 3"), ZtUData(7.0, 8.0),        ZtUData(7.0, 8.0, 9.0)};
    for (const ZtUData& d : others) {  // only a point of the right dimension is taken
        ZtLPos3f p3(1, 2, 3);
        p3 = d;
        const ZtLPos3f expected3 = d.IsPoint3D() ? ZtLPos3f(7, 8, 9) : ZtLPos3f(1, 2, 3);
        EXPECT_TRUE(SameBits(p3.GetValue(), expected3.GetValue(), 3)) << d.Describe();
        ZtLPos2f p2(1, 2);
        p2 = d;
        const ZtLPos2f expected2 = d.IsPoint2D() ? ZtLPos2f(7, 8) : ZtLPos2f(1, 2);
        EXPECT_TRUE(SameBits(p2.GetValue(), expected2.GetValue(), 2)) << d.Describe();
    }
}

TEST(ZtLRecordData, ToDataMakesAPointOfTheComponents) {
    const double v[3] = {kNaN, -0.0, -1e300};
    const ZtUData d3 = ZtLPos3f(v).ToData();
    ASSERT_TRUE(d3.IsPoint3D());
    EXPECT_TRUE(SameBits(d3.GetPoint3D(), v, 3));
    const ZtUData d2 = ZtLPos2f(v).ToData();
    ASSERT_TRUE(d2.IsPoint2D());
    EXPECT_TRUE(SameBits(d2.GetPoint2D(), v, 2));
}

// The three structured option kinds, driven through the same steps.
namespace {
struct OptionCase {
    const char* kind;
    int count;
    const char* names[3];
    bool linear;
    ZtUOptionSet* (*defineGlobal)(const char*, const double*, ZtUOptionValidator*);
    ZtUOptionSet* (*defineIn)(ZtUExOptionSet*, const char*, const double*, ZtUOptionValidator*);
    void (*getByName)(const char*, double*);
    void (*getInSet)(ZtUOptionSet*, const char*, double*);
    void (*setByName)(const char*, const double*);
    void (*setInSet)(ZtUOptionSet*, const char*, const double*);
};

void PrintTo(const OptionCase& c, std::ostream* os) { *os << c.kind; }

const ZtUOptionSet::Profile kProfile = ZtUOptionSet::ProfileUser;

const OptionCase kOptions[] = {
    {"point3d",
     3,
     {"x", "y", "z"},
     true,
     [](const char* n, const double* d, ZtUOptionValidator* v) {
         return ZtLPos3f::DefinePoint3DOption(n, ZtLPos3f(d), kProfile, 1, v);
     },
     [](ZtUExOptionSet* s, const char* n, const double* d, ZtUOptionValidator* v) {
         return ZtLPos3f::DefinePoint3DOption(s, n, ZtLPos3f(d), kProfile, 1, v);
     },
     [](const char* n, double* out) {
         std::memcpy(out, ZtLPos3f::GetPoint3DOption(n).GetValue(), 3 * sizeof(double));
     },
     [](ZtUOptionSet* s, const char* n, double* out) {
         std::memcpy(out, ZtLPos3f::GetPoint3DOption(s, n).GetValue(), 3 * sizeof(double));
     },
     [](const char* n, const double* v) { ZtLPos3f::SetPoint3DOption(n, ZtLPos3f(v)); },
     [](ZtUOptionSet* s, const char* n, const double* v) {
         ZtLPos3f::SetPoint3DOption(s, n, ZtLPos3f(v));
     }},
    {"point2d",
     2,
     {"x", "y", nullptr},
     true,
     [](const char* n, const double* d, ZtUOptionValidator* v) {
         return ZtLPos2f::DefinePoint2DOption(n, ZtLPos2f(d), kProfile, 1, v);
     },
     [](ZtUExOptionSet* s, const char* n, const double* d, ZtUOptionValidator* v) {
         return ZtLPos2f::DefinePoint2DOption(s, n, ZtLPos2f(d), kProfile, 1, v);
     },
     [](const char* n, double* out) {
         std::memcpy(out, ZtLPos2f::GetPoint2DOption(n).GetValue(), 2 * sizeof(double));
     },
     [](ZtUOptionSet* s, const char* n, double* out) {
         std::memcpy(out, ZtLPos2f::GetPoint2DOption(s, n).GetValue(), 2 * sizeof(double));
     },
     [](const char* n, const double* v) { ZtLPos2f::SetPoint2DOption(n, ZtLPos2f(v)); },
     [](ZtUOptionSet* s, const char* n, const double* v) {
         ZtLPos2f::SetPoint2DOption(s, n, ZtLPos2f(v));
     }},
    {"color",
     3,
     {"red", "green", "blue"},
     false,
     [](const char* n, const double* d, ZtUOptionValidator* v) {
         return ZtLColor3f::DefineColorOption(n, ZtLColor3f(d), kProfile, 1, v);
     },
     [](ZtUExOptionSet* s, const char* n, const double* d, ZtUOptionValidator* v) {
         return ZtLColor3f::DefineColorOption(s, n, ZtLColor3f(d), kProfile, 1, v);
     },
     [](const char* n, double* out) {
         std::memcpy(out, ZtLColor3f::GetColorOption(n).GetValue(), 3 * sizeof(double));
     },
     [](ZtUOptionSet* s, const char* n, double* out) {
         std::memcpy(out, ZtLColor3f::GetColorOption(s, n).GetValue(), 3 * sizeof(double));
     },
     [](const char* n, const double* v) { ZtLColor3f::SetColorOption(n, ZtLColor3f(v)); },
     [](ZtUOptionSet* s, const char* n, const double* v) {
         ZtLColor3f::SetColorOption(s, n, ZtLColor3f(v));
     }},
};

class ZtLRecordOptionTest : public testing::TestWithParam<OptionCase> {
protected:
    // A name of this test's own in the process-wide registry.
    std::string Name(const char* what) const {
        return std::string("ZtLRecordTest_") + GetParam().kind + "_" + what;
    }
};

std::string OptionName(const testing::TestParamInfo<OptionCase>& info) { return info.param.kind; }

const double kDefault[3] = {0.25, -0.0, 0.75};
const double kOther[3] = {-0.5, 0.125, 1};
}  // namespace

TEST_P(ZtLRecordOptionTest, DefinesARegisteredSetOfOneOptionPerComponent) {
    const OptionCase& c = GetParam();
    const std::string name = Name("define");
    ZtUOptionSet* set = c.defineGlobal(name.c_str(), kDefault, nullptr);
    ASSERT_NE(set, nullptr);
    EXPECT_EQ(static_cast<ZtUExOptionSet*>(set)->GetState(), 1u);
    ZtUOptionLock lock;
    EXPECT_EQ(ZtUOption::GetSet(name.c_str(), lock), set);
    for (int i = 0; i < c.count; ++i) {
        const double value = c.linear ? set->GetLinearFloat(c.names[i]) : set->GetFloat(c.names[i]);
        EXPECT_EQ(Bits(value), Bits(kDefault[i])) << c.names[i];
    }
}

TEST_P(ZtLRecordOptionTest, GetSetAndResetByNameUnderTheLock) {
    const OptionCase& c = GetParam();
    const std::string name = Name("byname");
    c.defineGlobal(name.c_str(), kDefault, nullptr);
    double v[3] = {9, 9, 9};
    c.getByName(name.c_str(), v);
    EXPECT_TRUE(SameBits(v, kDefault, c.count));

    c.setByName(name.c_str(), kOther);
    c.getByName(name.c_str(), v);
    EXPECT_TRUE(SameBits(v, kOther, c.count));

    ZtUOptionLock lock;  // the same values seen directly in the set
    ZtUOptionSet* set = ZtUOption::GetSet(name.c_str(), lock);
    EXPECT_EQ(c.linear ? set->GetLinearFloat(c.names[0]) : set->GetFloat(c.names[0]), kOther[0]);
}

TEST_P(ZtLRecordOptionTest, GetAndSetInAGivenSet) {
    const OptionCase& c = GetParam();
    const std::string parentName = Name("parent");
    ZtUExOptionSet* parent = new ZtUExOptionSet;
    ASSERT_TRUE(ZtUOption::DefineSet(parentName.c_str(), parent, kProfile, 0, "group"));

    ZtUOptionLock lock;
    ZtUOptionSet* set = c.defineIn(parent, "value", kDefault, nullptr);
    EXPECT_EQ(parent->GetSubOptions("value"), set);
    double v[3] = {9, 9, 9};
    c.getInSet(parent, "value", v);
    EXPECT_TRUE(SameBits(v, kDefault, c.count));
    c.setInSet(parent, "value", kOther);
    c.getInSet(parent, "value", v);
    EXPECT_TRUE(SameBits(v, kOther, c.count));
    c.getByName((parentName + ".value").c_str(), v);  // the lock is recursive
    EXPECT_TRUE(SameBits(v, kOther, c.count));
}

TEST_P(ZtLRecordOptionTest, EveryComponentUsesTheValidator) {
    const OptionCase& c = GetParam();
    static ZtUOptionRangeValidator unitRange(-1, 1);
    const std::string name = Name("validated");
    c.defineGlobal(name.c_str(), kDefault, &unitRange);
    for (int i = 0; i < c.count; ++i) {
        double before[3], v[3];
        c.getByName(name.c_str(), before);
        double tooBig[3] = {kOther[0], kOther[1], kOther[2]};
        tooBig[i] = 2;
        c.setByName(name.c_str(), tooBig);
        c.getByName(name.c_str(), v);
        for (int j = 0; j < c.count; ++j) {
            EXPECT_EQ(v[j], j == i ? before[j] : kOther[j]) << "component " << j;
        }
    }
}

TEST_P(ZtLRecordOptionTest, TheNameFormsReadAndWriteAllComponentsAsOneStep) {
    // A writer alternates between two values while a reader checks that it never sees a mix.
    const OptionCase& c = GetParam();
    const std::string name = Name("atomic");
    const double a[3] = {0.25, 0.25, 0.25};
    const double b[3] = {0.5, 0.5, 0.5};
    c.defineGlobal(name.c_str(), a, nullptr);
    std::atomic<bool> stop(false);
    std::atomic<int> writes(0);
    std::thread writer([&] {
        for (int i = 0; !stop; ++i) {
            c.setByName(name.c_str(), i % 2 ? a : b);
            ++writes;
        }
    });
    // Reads for a while, long enough for the threads to be preempted at many points.
    int mixed = 0;
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(100);
    while (std::chrono::steady_clock::now() < end || writes < 1000) {
        double v[3];
        c.getByName(name.c_str(), v);
        for (int k = 1; k < c.count; ++k) mixed += v[k] != v[0];
    }
    stop = true;
    writer.join();
    EXPECT_EQ(mixed, 0);
}

INSTANTIATE_TEST_SUITE_P(Kinds, ZtLRecordOptionTest, testing::ValuesIn(kOptions), OptionName);

TEST(ZtLRecordOption, ResetColorOptionRestoresTheThreeDefaults) {
    const char* name = "ZtLRecordTest_color_reset";
    ZtLColor3f::DefineColorOption(name, ZtLColor3f(0.1, 0.2, 0.3), kProfile, 0, nullptr);
    ZtLColor3f::SetColorOption(name, ZtLColor3f(1, 1, 1));
    ZtLColor3f::ResetColorOption(name);
    const ZtLColor3f c = ZtLColor3f::GetColorOption(name);
    EXPECT_EQ(c.GetR(), 0.1);
    EXPECT_EQ(c.GetG(), 0.2);
    EXPECT_EQ(c.GetB(), 0.3);
}
