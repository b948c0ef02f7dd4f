#include <ztutil/ZtUStream.h>

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

const double kSpecials[] = {-0.0,
                            std::numeric_limits<double>::infinity(),
                            -std::numeric_limits<double>::infinity(),
                            std::numeric_limits<double>::quiet_NaN(),
                            -std::numeric_limits<double>::quiet_NaN(),
                            std::numeric_limits<double>::max(),
                            std::numeric_limits<double>::lowest(),
                            std::numeric_limits<double>::denorm_min(),
                            0.1};

// A record like a transform's: a bit field, one double, then an array of the special values.
void WriteRecord(ZtUWriteStream& s) {
    s.WriteBitfield(0x80000021u);
    s.WriteFloat(1.0);
    s.WriteFloatArray(kSpecials, 9);
}

}  // namespace

TEST(ZtUStream, MemoryRecordIsLittleEndianAndRoundTripsBitForBit) {
    ZtUWriteStream out;
    WriteRecord(out);
    ASSERT_FALSE(out.HasError()) << out.GetErrorMessage();
    EXPECT_EQ(out.GetBytesWritten(), 4u + 8u + 72u);
    const std::vector<unsigned char>& bytes = out.GetBuffer();
    ASSERT_EQ(bytes.size(), out.GetBytesWritten());
    const unsigned char head[12] = {0x21, 0, 0, 0x80, 0, 0, 0, 0, 0, 0, 0xF0, 0x3F};
    EXPECT_EQ(std::memcmp(bytes.data(), head, 12), 0);

    ZtUReadStream in(bytes);
    std::uint32_t traits = 0;
    double one = 0;
    double values[9] = {};
    EXPECT_TRUE(in.ReadBitfield(traits));
    EXPECT_TRUE(in.ReadFloat(&one));
    EXPECT_TRUE(in.ReadFloatArray(values, 9));
    EXPECT_EQ(traits, 0x80000021u);
    EXPECT_EQ(one, 1.0);
    for (int i = 0; i < 9; ++i) EXPECT_EQ(Bits(values[i]), Bits(kSpecials[i])) << i;
    EXPECT_TRUE(in.IsAtEnd());
    EXPECT_FALSE(in.HasError());
    EXPECT_EQ(in.GetBytesRead(), bytes.size());
}

TEST(ZtUStream, TruncatedInputFailsStickilyAndLeavesTargetsUntouched) {
    ZtUWriteStream out;
    WriteRecord(out);
    const std::vector<unsigned char> full = out.GetBuffer();
    for (std::size_t size = 0; size < full.size(); ++size) {
        ZtUReadStream in(full.data(), size);
        std::uint32_t traits = 7;
        double one = 7;
        double values[9];
        for (double& v : values) v = 7;
        const bool ok =
            in.ReadBitfield(traits) && in.ReadFloat(one) && in.ReadFloatArray(values, 9);
        EXPECT_FALSE(ok) << size;
        EXPECT_TRUE(in.HasError()) << size;
        EXPECT_NE(std::string(in.GetErrorMessage()).find("read past the end"), std::string::npos);
        // Each read is all or nothing, so the consumed count stops at a record boundary.
        const std::size_t expected = size < 4 ? 0 : size < 12 ? 4 : 12;
        EXPECT_EQ(in.GetBytesRead(), expected) << size;
        EXPECT_EQ(traits, size < 4 ? 7u : 0x80000021u) << size;
        EXPECT_EQ(one, size < 12 ? 7.0 : 1.0) << size;
        for (double v : values) EXPECT_EQ(v, 7) << size;
        // Sticky: even a read that would fit now fails.
        ZtUReadStream again(full.data(), size);
        double big = 7;
        again.ReadFloatArray(&big, 100);
        EXPECT_FALSE(again.ReadBitfield(traits));
        EXPECT_EQ(big, 7);
    }
}

TEST(ZtUStream, FilesRoundTripAndReportFailures) {
    const std::string path = ::testing::TempDir() + "ztu_stream_test.bin";
    {
        ZtUWriteStream out(path.c_str());
        WriteRecord(out);
        EXPECT_TRUE(out.Close()) << out.GetErrorMessage();
        EXPECT_FALSE(out.WriteFloat(2.0));  // closed
        EXPECT_NE(std::string(out.GetErrorMessage()).find("closed"), std::string::npos);
    }
    {
        ZtUReadStream in(path.c_str());
        std::uint32_t traits = 0;
        double values[10];
        EXPECT_TRUE(in.ReadBitfield(traits));
        EXPECT_TRUE(in.ReadFloatArray(values, 10));
        EXPECT_EQ(Bits(values[4]), Bits(kSpecials[3]));
        EXPECT_TRUE(in.IsAtEnd());
        double extra = 3;
        EXPECT_FALSE(in.ReadFloat(extra));
        EXPECT_EQ(extra, 3);
        EXPECT_EQ(in.GetBytesRead(), 84u);
        EXPECT_NE(std::string(in.GetErrorMessage()).find("past the end of file"),
                  std::string::npos);
    }
    std::remove(path.c_str());
    ZtUReadStream missing(path.c_str());
    double v = 3;
    EXPECT_FALSE(missing.ReadFloat(v));
    EXPECT_EQ(v, 3);
    EXPECT_NE(std::string(missing.GetErrorMessage()).find("cannot open file"), std::string::npos);
}
