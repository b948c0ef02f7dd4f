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

}  // namespace

TEST(ZtUXMLDOMStream, WritesAndReadsDoublesBitForBit) {
    const std::vector<double> values = {0.1,
                                        -0.0,
                                        1.0 / 3.0,
                                        1e20,
                                        kInf,
                                        -kInf,
                                        kNaN,
                                        -kNaN,
                                        FromBits(0x7ff0000000000001ull),  // signalling payload
                                        FromBits(0xfff8dead00000000ull),
                                        std::numeric_limits<double>::max(),
                                        std::numeric_limits<double>::lowest(),
                                        std::numeric_limits<double>::min(),
                                        std::numeric_limits<double>::denorm_min(),
                                        -std::numeric_limits<double>::denorm_min(),
                                        std::numeric_limits<double>::epsilon() + 1.0};
    ZtUXMLDOMWriter writer;
    EXPECT_FALSE(writer.IsReading());
    for (std::size_t i = 0; i + 4 <= values.size(); i += 4) {
        Plane p{values[i], values[i + 1], values[i + 2], values[i + 3]};
        p.Serialise(&writer);
    }
    ASSERT_FALSE(writer.HasError()) << writer.GetErrorMessage();
    const std::string text = writer.GetText();

    ZtUXMLDOMReader reader;
    ASSERT_TRUE(reader.Parse(text)) << reader.GetErrorMessage();
    EXPECT_TRUE(reader.IsReading());
    for (std::size_t i = 0; i + 4 <= values.size(); i += 4) {
        Plane p{0, 0, 0, 0};
        p.Read(&reader);
        ASSERT_FALSE(reader.HasError()) << reader.GetErrorMessage();
        EXPECT_EQ(Bits(p.d), Bits(values[i])) << i;
        EXPECT_EQ(Bits(p.x), Bits(values[i + 1])) << i;
        EXPECT_EQ(Bits(p.y), Bits(values[i + 2])) << i;
        EXPECT_EQ(Bits(p.z), Bits(values[i + 3])) << i;
    }
    EXPECT_TRUE(reader.Finish()) << reader.GetErrorMessage();
    EXPECT_STREQ(reader.GetErrorMessage(), "");
}

TEST(ZtUXMLDOMStream, DocumentShapeAndNumberTexts) {
    ZtUXMLDOMWriter writer;
    Plane{2, 0.1, -0.0, -kInf}.Serialise(&writer);
    const std::string text = writer.GetText();
    EXPECT_NE(text.find("<plane distance=\"2\">"), std::string::npos) << text;
    EXPECT_NE(text.find("<vec3f x=\"0.1\" y=\"-0\" z=\"-inf\" />"), std::string::npos) << text;

    EXPECT_EQ(ZtUFormatXMLDouble(kNaN), "nan");
    EXPECT_EQ(ZtUFormatXMLDouble(-kNaN), "-nan");
    EXPECT_EQ(ZtUFormatXMLDouble(FromBits(0x7ff0000000000001ull)), "nan(0x7ff0000000000001)");
    EXPECT_EQ(ZtUFormatXMLDouble(5e-324), "5e-324");
    double v = 0;
    EXPECT_TRUE(ZtUParseXMLDouble(" 1.5\n", &v));
    EXPECT_EQ(v, 1.5);
    for (const char* bad : {"", " ", "1 2", "NaN(1)", "nan(0x0000000000000001)", "1e-400", "--1"}) {
        v = 7;
        EXPECT_FALSE(ZtUParseXMLDouble(bad, &v)) << bad;
        EXPECT_EQ(v, 7) << bad;
    }
}

TEST(ZtUXMLDOMStream, ReaderRefusesBadInputAndKeepsTargets) {
    struct Row {
        const char* xml;
        const char* message;  // expected part of the error message
    };
    const Row rows[] = {
        {"", "missing element 'plane' in the top level"},
        {"<plane distance='1'><vec3f x='1' y='2' z='3'/></plane", "malformed XML"},
        {"<plane distance='1'>", "malformed XML"},
        {"<<<", "malformed XML: "},
        {"<plane distance='1' distance2/>", "malformed XML"},
        {"<pos3f x='1' y='2' z='3'/>", "expected element 'plane' but found /pos3f (line 1)"},
        {"<plane><vec3f x='1' y='2' z='3'/></plane>", "missing value 'distance' in /plane"},
        {"<plane distance='abc'><vec3f x='1' y='2' z='3'/></plane>",
         "value 'distance' in /plane (line 1) is not a number: \"abc\""},
        {"<plane distance='1.5x'><vec3f x='1' y='2' z='3'/></plane>", "not a number"},
        {"<plane distance=''><vec3f x='1' y='2' z='3'/></plane>", "not a number"},
        {"<plane distance='+1'><vec3f x='1' y='2' z='3'/></plane>", "not a number"},
        {"<plane distance='1e999'><vec3f x='1' y='2' z='3'/></plane>", "not a number"},
        {"<plane distance='0x10'><vec3f x='1' y='2' z='3'/></plane>", "not a number"},
        {"<plane distance='1'>\n<vec3f x='1'\n z='3'/></plane>",
         "missing value 'y' in /plane/vec3f (line 2)"},
        {"<plane distance='1'><vec3f x='1' x='1' y='2' z='3'/></plane>", "'x' given twice"},
        {"<plane distance='1'><vec3f x='1' y='2' z='3' w='4'/></plane>",
         "unexpected value 'w' in /plane/vec3f"},
        {"<plane distance='1'><pos3f x='1' y='2' z='3'/></plane>",
         "expected element 'vec3f' but found /plane/pos3f"},
        {"<plane distance='1'></plane>", "missing element 'vec3f' in /plane"},
        {"<plane distance='1'><vec3f x='1' y='2' z='3'/><extra/></plane>",
         "unexpected element /plane/extra"},
        {"<plane distance='1'><vec3f x='1' y='2' z='3'/></plane>junk", "unexpected text \"junk\""},
        {"<plane distance='1'>hi<vec3f x='1' y='2' z='3'/></plane>",
         "unexpected text \"hi\" in /plane"},
        {"<plane distance='1'><vec3f x='1' y='2' z='3'/></plane><plane/>",
         "unexpected element /plane (line 1)"},
    };
    for (const Row& row : rows) {
        ZtUXMLDOMReader reader;
        reader.Parse(row.xml, std::strlen(row.xml));
        Plane p{7, 8, 9, 10};
        p.Read(&reader);
        const bool failedInRecord = reader.HasError();
        reader.Finish();
        EXPECT_TRUE(reader.HasError()) << row.xml;
        EXPECT_NE(std::string(reader.GetErrorMessage()).find(row.message), std::string::npos)
            << row.xml << "\n  gave: " << reader.GetErrorMessage();
        if (failedInRecord) {
            EXPECT_EQ(p.d, 7) << row.xml;
            EXPECT_EQ(p.z, 10) << row.xml;
        }
        // Once in error, nothing more reaches the caller's doubles.
        double untouched = 5;
        reader.SerialiseFloat(L"distance", &untouched);
        EXPECT_EQ(untouched, 5) << row.xml;
    }
}

TEST(ZtUXMLDOMStream, WriterRefusesMisuse) {
    struct Row {
        void (*write)(ZtUXMLDOMStream*);
        const char* message;
    };
    static double one = 1;
    static double* value = &one;
    const Row rows[] = {
        {[](ZtUXMLDOMStream* s) { s->SerialiseFloat(L"x", value); }, "outside any element"},
        {[](ZtUXMLDOMStream* s) { s->CloseElement(L"a"); }, "closing element 'a'"},
        {[](ZtUXMLDOMStream* s) {
             s->OpenElement(L"a", 0);
             s->CloseElement(L"b");
         },
         "closing element 'b' but the open element is /a"},
        {[](ZtUXMLDOMStream* s) {
             s->OpenElement(L"a", 0);
             s->SerialiseFloat(L"x", value);
             s->SerialiseFloat(L"x", value);
         },
         "value 'x' written twice in /a"},
        {[](ZtUXMLDOMStream* s) { s->OpenElement(L"a b", 0); }, "invalid element name 'a b'"},
        {[](ZtUXMLDOMStream* s) { s->OpenElement(nullptr, 0); }, "invalid element name"},
        {[](ZtUXMLDOMStream* s) {
             s->OpenElement(L"a", 0);
             s->SerialiseFloat(L"x", nullptr);
         },
         "no double given"},
    };
    for (const Row& row : rows) {
        ZtUXMLDOMWriter writer;
        row.write(&writer);
        EXPECT_NE(std::string(writer.GetErrorMessage()).find(row.message), std::string::npos)
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
    EXPECT_EQ(p.y, 3);
    EXPECT_EQ(Bits(p.z), Bits(-kNaN));
    std::remove(path.c_str());

    EXPECT_FALSE(reader.LoadFile(path.c_str()));
    EXPECT_NE(std::string(reader.GetErrorMessage()).find("cannot read file"), std::string::npos);
}
