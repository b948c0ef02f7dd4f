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

// The records of the Foundations types: XML records, ZtUData conversions and options.

namespace {
const double kNaN = std::numeric_limits<double>::quiet_NaN();

// The bit patterns of n doubles, so that -0.0 and NaNs compare exactly.
std::vector<std::uint64_t> B(const double* v, int n) {
    std::vector<std::uint64_t> bits(n);
    std::memcpy(bits.data(), v, n * sizeof(double));
    return bits;
}

using V = std::vector<double>;
// The first n components of a value, for one-line comparisons.
template <class T>
V C(const T& t, int n) {
    V v(n);
    for (int i = 0; i < n; ++i) v[i] = t.GetValue()[i];
    return v;
}

// Builds a T of v (a unit vector unnormalised), lets it exchange its record with s and stores
// its components back into v.
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
    std::string element;
    int count;
    void (*exchange)(ZtUXMLDOMStream*, double*);
};
void PrintTo(const RecordCase& c, std::ostream* os) { *os << c.type; }

const RecordCase kRecords[] = {
    {"ZtLVec3f", "vec3f", 3, &Exchange<ZtLVec3f, 3>},
    {"ZtLPos3f", "pos3f", 3, &Exchange<ZtLPos3f, 3>},
    {"ZtLUnitVec3f", "vec3f", 3, &Exchange<ZtLUnitVec3f, 3>},  // the same element as a vector
    {"ZtLVec2f", "vec2f", 2, &Exchange<ZtLVec2f, 2>},
    {"ZtLPos2f", "pos2f", 2, &Exchange<ZtLPos2f, 2>},
    {"ZtLColor3f", "color3f", 3, &Exchange<ZtLColor3f, 3>},  // x, y, z, not red, green, blue
};

// "<element x=\"1\" y=\"2\" z=\"3\"" with the first `values` values, then `rest`.
std::string Record(const std::string& element, int values, const std::string& rest) {
    const char* attributes[] = {" x=\"1\"", " y=\"2\"", " z=\"3\""};
    std::string text = "<" + element;
    for (int i = 0; i < values; ++i) text += attributes[i];
    return text + rest;
}

class ZtLRecordXMLTest : public testing::TestWithParam<RecordCase> {};
}  // namespace

TEST_P(ZtLRecordXMLTest, WritesItsElementAndReadsBackEveryValueBitForBit) {
    const RecordCase& c = GetParam();
    const double awkward[] = {-0.0,
                              kNaN,
                              1e300,
                              std::numeric_limits<double>::denorm_min(),
                              -std::numeric_limits<double>::infinity(),
                              0.1,
                              -kNaN,
                              1.0 / 3.0};
    const int n = sizeof awkward / sizeof awkward[0];
    ZtUXMLDOMWriter writer;
    double first[3] = {1, 2, 3};  // first a record whose text is checked
    c.exchange(&writer, first);
    EXPECT_NE(writer.GetText().find(Record(c.element, c.count, " />")), std::string::npos)
        << writer.GetText();
    for (int row = 0; row < n; ++row) {  // every value at every position
        double v[3] = {awkward[row], awkward[(row + 1) % n], awkward[(row + 2) % n]};
        c.exchange(&writer, v);
    }
    ZtUXMLDOMReader reader;
    ASSERT_TRUE(reader.Parse(writer.GetText())) << reader.GetErrorMessage();
    c.exchange(&reader, first);
    for (int row = 0; row < n; ++row) {
        const double w[3] = {awkward[row], awkward[(row + 1) % n], awkward[(row + 2) % n]};
        double v[3] = {7, 7, 7};
        c.exchange(&reader, v);
        EXPECT_EQ(B(v, c.count), B(w, c.count)) << row;
    }
    EXPECT_TRUE(reader.Finish()) << reader.GetErrorMessage();
}

TEST_P(ZtLRecordXMLTest, BadInputLeavesTheValueUntouched) {
    const RecordCase& c = GetParam();
    const std::string e = c.element;
    const std::string rows[] = {
        "",                                                              // nothing to read
        Record("other", c.count, "/>"),                                  // another element
        Record(e, c.count - 1, "/>"),                                    // a value missing
        Record(e, c.count - 1, c.count == 3 ? " z='a'/>" : " y='a'/>"),  // not a number
        Record(e, c.count, " w='4'/>"),  // a value left unread: refused once all are read
        Record(e, c.count, "><extra/></" + e + ">"),  // a child left unread
        Record(e, c.count, ""),                       // not well-formed
    };
    for (const std::string& text : rows) {
        ZtUXMLDOMReader reader;
        reader.Parse(text);
        const double preset[3] = {-0.0, kNaN, 1e300};
        double v[3] = {preset[0], preset[1], preset[2]};
        c.exchange(&reader, v);
        EXPECT_TRUE(reader.HasError()) << text;
        EXPECT_EQ(B(v, c.count), B(preset, c.count)) << text;
    }
}

INSTANTIATE_TEST_SUITE_P(Foundations, ZtLRecordXMLTest, testing::ValuesIn(kRecords),
                         [](const testing::TestParamInfo<RecordCase>& i) { return i.param.type; });

TEST(ZtLRecordXML, InnerRecordsExchangeOnlyTheNamedValues) {
    ZtUXMLDOMWriter writer;
    ZtLVec3f v(1, 2, 3);
    writer.OpenElement(L"a", 0);
    v.SerialiseXMLInner(&writer);
    writer.CloseElement(L"a");
    EXPECT_NE(writer.GetText().find(Record("a", 3, " />")), std::string::npos) << writer.GetText();
    ZtUXMLDOMReader reader;
    reader.Parse("<b x='4'/>");  // y missing
    reader.OpenElement(L"b", 0);
    ZtLPos2f p(1, 2);
    p.SerialiseXMLInner(&reader);
    EXPECT_TRUE(reader.HasError() && p[0] == 1.0);
}

TEST(ZtLRecordData, PositionsTakeOnlyAPointOfTheirDimension) {
    const double v[3] = {-0.0, kNaN, 1e300};
    EXPECT_EQ(B(ZtLPos3f(ZtUData(v[0], v[1], v[2])).GetValue(), 3), B(v, 3));
    EXPECT_EQ(B(ZtLPos2f(ZtUData(v[0], v[1])).GetValue(), 2), B(v, 2));
    EXPECT_EQ(B(ZtLPos3f(v).ToData().GetPoint3D(), 3), B(v, 3));
    EXPECT_TRUE(ZtLPos3f(v).ToData().IsPoint3D());
    EXPECT_EQ(B(ZtLPos2f(v).ToData().GetPoint2D(), 2), B(v, 2));
    EXPECT_TRUE(ZtLPos2f(v).ToData().IsPoint2D());

    const ZtUData data[] = {ZtUData(),        ZtUData(std::int32_t(4)), ZtUData(2.5),
                            ZtUData("1 2 3"), ZtUData(7.0, 8.0),        ZtUData(7.0, 8.0, 9.0)};
    for (const ZtUData& d : data) {  // only a point of the right dimension is taken
        ZtLPos3f p3(1, 2, 3);
        p3 = d;
        EXPECT_EQ(p3[0], d.IsPoint3D() ? 7.0 : 1.0) << d.Describe();
        ZtLPos2f p2(1, 2);
        p2 = d;
        EXPECT_EQ(p2[1], d.IsPoint2D() ? 8.0 : 2.0) << d.Describe();
    }
}

namespace {
const ZtUOptionSet::Profile kProfile = ZtUOptionSet::ProfileUser;
const double kDefault[3] = {0.25, -0.0, 0.75};
ZtUOptionRangeValidator unitRange(-1, 1);
}  // namespace

TEST(ZtLRecordOption, DefineGetSetAndResetByName) {
    ZtUOptionSet* set = ZtLPos3f::DefinePoint3DOption("ZtLRecordTest_p3", ZtLPos3f(kDefault),
                                                      kProfile, 1, &unitRange);
    EXPECT_EQ(static_cast<ZtUExOptionSet*>(set)->GetState(), 1u);
    ZtLPos2f::DefinePoint2DOption("ZtLRecordTest_p2", ZtLPos2f(kDefault), kProfile, 1, &unitRange);
    ZtLColor3f::DefineColorOption("ZtLRecordTest_c", ZtLColor3f(kDefault), kProfile, 1, &unitRange);
    EXPECT_EQ(B(ZtLPos3f::GetPoint3DOption("ZtLRecordTest_p3").GetValue(), 3), B(kDefault, 3));
    EXPECT_EQ(B(ZtLPos2f::GetPoint2DOption("ZtLRecordTest_p2").GetValue(), 2), B(kDefault, 2));
    EXPECT_EQ(B(ZtLColor3f::GetColorOption("ZtLRecordTest_c").GetValue(), 3), B(kDefault, 3));

    // Every component has the validator: the 2 is refused, the other values are stored.
    ZtLPos3f::SetPoint3DOption("ZtLRecordTest_p3", ZtLPos3f(0.5, 0.5, 2));
    ZtLPos2f::SetPoint2DOption("ZtLRecordTest_p2", ZtLPos2f(2, 0.5));
    ZtLColor3f::SetColorOption("ZtLRecordTest_c", ZtLColor3f(0.5, 2, 0.5));
    EXPECT_EQ(C(ZtLPos3f::GetPoint3DOption("ZtLRecordTest_p3"), 3), V({0.5, 0.5, 0.75}));
    EXPECT_EQ(C(ZtLPos2f::GetPoint2DOption("ZtLRecordTest_p2"), 2), V({0.25, 0.5}));
    EXPECT_EQ(C(ZtLColor3f::GetColorOption("ZtLRecordTest_c"), 3), V({0.5, 0, 0.5}));

    ZtLColor3f::ResetColorOption("ZtLRecordTest_c");
    EXPECT_EQ(B(ZtLColor3f::GetColorOption("ZtLRecordTest_c").GetValue(), 3), B(kDefault, 3));
}

TEST(ZtLRecordOption, GetAndSetInAGivenSetUnderTheCallersLock) {
    ZtUExOptionSet* parent = new ZtUExOptionSet;
    ASSERT_TRUE(ZtUOption::DefineSet("ZtLRecordTest_group", parent, kProfile, 0, "group"));
    ZtUOptionLock lock;
    ZtUOptionSet* p3 =
        ZtLPos3f::DefinePoint3DOption(parent, "p3", ZtLPos3f(kDefault), kProfile, 0, nullptr);
    EXPECT_EQ(ZtUOption::GetSet("ZtLRecordTest_group.p3", lock), p3);
    ZtLPos2f::DefinePoint2DOption(parent, "p2", ZtLPos2f(kDefault), kProfile, 0, nullptr);
    ZtLColor3f::DefineColorOption(parent, "c", ZtLColor3f(kDefault), kProfile, 0, nullptr);
    EXPECT_EQ(B(ZtLPos3f::GetPoint3DOption(parent, "p3").GetValue(), 3), B(kDefault, 3));
    EXPECT_EQ(B(ZtLPos2f::GetPoint2DOption(parent, "p2").GetValue(), 2), B(kDefault, 2));
    EXPECT_EQ(B(ZtLColor3f::GetColorOption(parent, "c").GetValue(), 3), B(kDefault, 3));

    ZtLPos3f::SetPoint3DOption(parent, "p3", ZtLPos3f(1, 2, 3));
    ZtLPos2f::SetPoint2DOption(parent, "p2", ZtLPos2f(1, 2));
    ZtLColor3f::SetColorOption(parent, "c", ZtLColor3f(1, 2, 3));
    EXPECT_EQ(C(ZtLPos3f::GetPoint3DOption("ZtLRecordTest_group.p3"), 3), V({1, 2, 3}));
    EXPECT_EQ(C(ZtLPos2f::GetPoint2DOption("ZtLRecordTest_group.p2"), 2), V({1, 2}));
    EXPECT_EQ(C(ZtLColor3f::GetColorOption("ZtLRecordTest_group.c"), 3), V({1, 2, 3}));
}

TEST(ZtLRecordOption, NameFormsReadAndWriteAllComponentsAsOneStep) {
    // A writer alternates between two values for a while; a reader must never see a mix.
    ZtLPos3f::DefinePoint3DOption("ZtLRecordTest_p3a", ZtLPos3f(0, 0, 0), kProfile, 0, nullptr);
    ZtLPos2f::DefinePoint2DOption("ZtLRecordTest_p2a", ZtLPos2f(0, 0), kProfile, 0, nullptr);
    ZtLColor3f::DefineColorOption("ZtLRecordTest_ca", ZtLColor3f(0, 0, 0), kProfile, 0, nullptr);
    std::atomic<bool> stop(false);
    std::thread writer([&] {
        for (double s = 1; !stop; s = -s) {
            ZtLPos3f::SetPoint3DOption("ZtLRecordTest_p3a", ZtLPos3f(s, s, s));
            ZtLPos2f::SetPoint2DOption("ZtLRecordTest_p2a", ZtLPos2f(s, s));
            ZtLColor3f::SetColorOption("ZtLRecordTest_ca", ZtLColor3f(s, s, s));
        }
    });
    int mixed = 0;
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(200);
    while (std::chrono::steady_clock::now() < end) {
        const ZtLPos3f p = ZtLPos3f::GetPoint3DOption("ZtLRecordTest_p3a");
        const ZtLPos2f q = ZtLPos2f::GetPoint2DOption("ZtLRecordTest_p2a");
        const ZtLColor3f c = ZtLColor3f::GetColorOption("ZtLRecordTest_ca");
        mixed += (p[0] != p[1] || p[1] != p[2]) + (q[0] != q[1]) + (c[0] != c[1] || c[1] != c[2]);
    }
    stop = true;
    writer.join();
    EXPECT_EQ(mixed, 0);
}
