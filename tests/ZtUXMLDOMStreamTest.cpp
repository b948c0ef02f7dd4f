#include <ztutil/ZtUXMLDOMStream.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

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

// A record shaped like a value type's: a plane with a distance and a nested normal.
struct Plane {
    double d, x, y, z;
    void Serialise(ZtUXMLDOMStream* s) {
        s->OpenElement(L"plane", 0);
        s->SerialiseFloat(L"distance", &d);
        s->OpenElement(L"vec3f", 0);
        s->SerialiseFloat(L"x", &x);
        s->SerialiseFloat(L"y", &y);
        s->SerialiseFloat(L"z", &z);
        s->CloseElement(L"vec3f");
        s->CloseElement(L"plane");
    }
    // Reads into a copy and keeps the old value on error, as value types do.
    void Read(ZtUXMLDOMStream* s) {
        Plane copy = *this;
        copy.Serialise(s);
        if (!s->HasError()) *this = copy;
    }
};

const double kInf = std::numeric_limits<double>::infinity();
const double kNaN = std::numeric_limits<double>::quiet_NaN();
using Limits = std::numeric_limits<double>;

}  // namespace

TEST(ZtUXMLDOMStream, WritesAndReadsDoublesBitForBit) {
    const double values[] = {0.1,
                             -0.0,
                             1.0 / 3.0,
                             1e20,
                             kInf,
                             -kInf,
                             kNaN,
                             -kNaN,
                             FromBits(0x7ff0000000000001ull),
                             FromBits(0xfff8dead00000000ull),
                             Limits::max(),
                             Limits::lowest(),
                             Limits::min(),
                             Limits::denorm_min(),
                             -Limits::denorm_min(),
                             1.0 + Limits::epsilon()};
    ZtUXMLDOMWriter writer;
    EXPECT_FALSE(writer.IsReading());
    for (int i = 0; i < 16; i += 4)
        Plane{values[i], values[i + 1], values[i + 2], values[i + 3]}.Serialise(&writer);
    ASSERT_FALSE(writer.HasError()) << writer.GetErrorMessage();
    const std::string text = writer.GetText();
    EXPECT_NE(text.find("<plane distance=\"0.1\">"), std::string::npos) << text;
    EXPECT_NE(text.find("<vec3f x=\"-inf\" y=\"nan\" z=\"-nan\" />"), std::string::npos) << text;
    EXPECT_NE(text.find("<plane distance=\"nan(0x7ff0000000000001)\">"), std::string::npos) << text;

    ZtUXMLDOMReader reader;
    ASSERT_TRUE(reader.Parse(text)) << reader.GetErrorMessage();
    EXPECT_TRUE(reader.IsReading());
    for (int i = 0; i < 16; i += 4) {
        Plane p{0, 0, 0, 0};
        p.Read(&reader);
        EXPECT_EQ(Bits(p.d), Bits(values[i])) << i;
        EXPECT_EQ(Bits(p.x), Bits(values[i + 1])) << i;
        EXPECT_EQ(Bits(p.y), Bits(values[i + 2])) << i;
        EXPECT_EQ(Bits(p.z), Bits(values[i + 3])) << i;
    }
    EXPECT_TRUE(reader.Finish()) << reader.GetErrorMessage();
    EXPECT_STREQ(reader.GetErrorMessage(), "");
}

TEST(ZtUXMLDOMStream, ReaderRefusesBadInputAndKeepsTargets) {
    struct Row {
        std::string xml;
        std::string message;  // expected part of the error message
    };
    const std::string normal = "<vec3f x='1' y='2' z='3'/>";
    std::vector<Row> rows = {
        {"", "missing element 'plane' in the top level"},
        {"<plane distance='1'>" + normal + "</plane", "malformed XML"},
        {"<plane distance='1'>", "malformed XML"},
        {"<<<", "malformed XML: "},
        {"<plane distance='1' distance2/>", "malformed XML"},
        {"<pos3f x='1' y='2' z='3'/>", "expected element 'plane' but found /pos3f (line 1)"},
        {"<plane>" + normal + "</plane>", "missing value 'distance' in /plane"},
        {"<plane distance='1'>\n<vec3f x='1'\n z='3'/></plane>",
         "missing value 'y' in /plane/vec3f (line 2)"},
        {"<plane distance='1'><vec3f x='1' x='1' y='2' z='3'/></plane>", "'x' given twice"},
        {"<plane distance='1'><vec3f x='1' y='2' z='3' w='4'/></plane>",
         "unexpected value 'w' in /plane/vec3f"},
        {"<plane distance='1'><pos3f x='1' y='2' z='3'/></plane>",
         "expected element 'vec3f' but found /plane/pos3f"},
        {"<plane distance='1'></plane>", "missing element 'vec3f' in /plane"},
        {"<plane distance='1'>" + normal + "<extra/></plane>", "unexpected element /plane/extra"},
        {"<plane distance='1'>" + normal + "</plane>junk", "unexpected text \"junk\""},
        {"<plane distance='1'>hi" + normal + "</plane>", "unexpected text \"hi\" in /plane"},
        {"<plane distance='1'>" + normal + "</plane><plane/>",
         "unexpected element /plane (line 1)"},
    };
    for (const char* bad : {"abc", "1.5x", "", " ", "1 2", "+1", "--1", "1e999", "1e-400", "0x10",
                            "NaN(1)", "nan(0x0000000000000001)"}) {
        rows.push_back(
            {"<plane distance='" + std::string(bad) + "'>" + normal + "</plane>",
             "value 'distance' in /plane (line 1) is not a number: \"" + std::string(bad) + "\""});
    }
    for (const Row& row : rows) {
        ZtUXMLDOMReader reader;
        reader.Parse(row.xml);
        Plane p{7, 8, 9, 10};
        p.Read(&reader);
        const bool failedInRecord = reader.HasError();
        reader.Finish();
        EXPECT_NE(std::string(reader.GetErrorMessage()).find(row.message), std::string::npos)
            << row.xml << "\n  gave: " << reader.GetErrorMessage();
        EXPECT_EQ(p.d + p.z, failedInRecord ? 17 : 4) << row.xml;
        // Once in error, nothing more reaches the caller's doubles.
        double untouched = 5;
        reader.SerialiseFloat(L"distance", &untouched);
        EXPECT_EQ(untouched, 5) << row.xml;
    }
}

TEST(ZtUXMLDOMStream, WriterRefusesMisuse) {
    // Each row is a sequence of operations: "<a" opens a, ">a" closes a, "=x" writes the value x;
    // an operation without a name passes a null name.
    const std::vector<std::pair<std::vector<const wchar_t*>, const char*>> rows = {
        {{L"=x"}, "value 'x' written outside any element"},
        {{L">a"}, "closing element 'a' but the open element is the top level"},
        {{L"<a", L">b"}, "closing element 'b' but the open element is /a"},
        {{L"<a", L"=x", L"=x"}, "value 'x' written twice in /a"},
        {{L"<a b"}, "invalid element name 'a b'"},
        {{L"<a", L"<"}, "invalid element name '' in /a"},
        {{L"<a", L"=1x"}, "invalid value name '1x' in /a"},
    };
    for (const auto& row : rows) {
        ZtUXMLDOMWriter writer;
        double value = 1;
        for (const wchar_t* op : row.first) {
            const wchar_t* name = op[1] ? op + 1 : nullptr;
            if (op[0] == L'<') writer.OpenElement(name, 0);
            if (op[0] == L'>') writer.CloseElement(name);
            if (op[0] == L'=') writer.SerialiseFloat(name, &value);
        }
        EXPECT_NE(std::string(writer.GetErrorMessage()).find(row.second), std::string::npos)
            << writer.GetErrorMessage();
        const std::string before = writer.GetText();
        writer.OpenElement(L"later", 0);
        EXPECT_EQ(writer.GetText(), before);
    }
}

TEST(ZtUXMLDOMStream, FilesRoundTrip) {
    const std::string path = ::testing::TempDir() + "ztu_xml_stream_test.xml";
    ZtUXMLDOMWriter writer;
    Plane{1, 2, 3, -kNaN}.Serialise(&writer);
    writer.OpenElement(L"\u00e9l\u00e9ment", 0);  // non-ASCII names travel as UTF-8
    writer.CloseElement(L"\u00e9l\u00e9ment");
    ASSERT_TRUE(writer.SaveFile(path.c_str()));

    ZtUXMLDOMReader reader;
    ASSERT_TRUE(reader.LoadFile(path.c_str())) << reader.GetErrorMessage();
    Plane p{0, 0, 0, 0};
    p.Read(&reader);
    reader.OpenElement(L"\u00e9l\u00e9ment", 0);
    reader.CloseElement(L"\u00e9l\u00e9ment");
    EXPECT_TRUE(reader.Finish()) << reader.GetErrorMessage();
    EXPECT_EQ(Bits(p.z), Bits(-kNaN));
    std::remove(path.c_str());

    EXPECT_FALSE(reader.LoadFile(path.c_str()));
    EXPECT_NE(std::string(reader.GetErrorMessage()).find("cannot read file"), std::string::npos);
}
