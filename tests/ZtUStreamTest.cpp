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

using Limits = std::numeric_limits<double>;
const double kSpecials[] = {-0.0,
                            Limits::infinity(),
                            -Limits::infinity(),
                            Limits::quiet_NaN(),
                            -Limits::quiet_NaN(),
                            Limits::max(),
                            Limits::lowest(),
                            Limits::denorm_min(),
                            0.1};

// A record like a transform's: a bit field, one double, then an array of the special values.
void WriteRecord(ZtUWriteStream& s) {
    s.WriteBitfield(0x80000021u);
    s.WriteFloat(1.0);
    s.WriteFloatArray(kSpecials, 9);
}

// Reads the record back, checks it bit for bit and that nothing more can be read.
void CheckRecord(ZtUReadStream& in) {
    std::uint32_t traits = 0;
    double one = 0, values[9] = {}, extra = 3;
    EXPECT_TRUE(in.ReadBitfield(traits) && in.ReadFloat(&one) && in.ReadFloatArray(values, 9));
    EXPECT_EQ(traits, 0x80000021u);
    EXPECT_EQ(one, 1.0);
    for (int i = 0; i < 9; ++i) EXPECT_EQ(Bits(values[i]), Bits(kSpecials[i])) << i;
    EXPECT_TRUE(in.IsAtEnd());
    EXPECT_FALSE(in.ReadFloat(extra));
    EXPECT_EQ(extra, 3);
    EXPECT_EQ(in.GetBytesRead(), 84u);
    EXPECT_NE(std::string(in.GetErrorMessage()).find("read past the end"), std::string::npos);
}

}  // namespace

TEST(ZtUStream, RecordsAreLittleEndianAndRoundTripBitForBit) {
    ZtUWriteStream out;
    WriteRecord(out);
    EXPECT_EQ(out.GetBytesWritten(), 84u);
    const unsigned char head[12] = {0x21, 0, 0, 0x80, 0, 0, 0, 0, 0, 0, 0xF0, 0x3F};
    ASSERT_EQ(out.GetBuffer().size(), 84u);
    EXPECT_EQ(std::memcmp(out.GetBuffer().data(), head, 12), 0);
    ZtUReadStream memory(out.GetBuffer());
    CheckRecord(memory);

    const std::string path = ::testing::TempDir() + "ztu_stream_test.bin";
    ZtUWriteStream file(path.c_str());
    WriteRecord(file);
    EXPECT_TRUE(file.Close()) << file.GetErrorMessage();
    EXPECT_FALSE(file.WriteFloat(2.0));  // closed
    {
        ZtUReadStream in(path.c_str());
        CheckRecord(in);
    }
    std::remove(path.c_str());
    ZtUReadStream missing(path.c_str());
    double v = 3;
    EXPECT_FALSE(missing.ReadFloat(v));
    EXPECT_EQ(v, 3);
    EXPECT_NE(std::string(missing.GetErrorMessage()).find("cannot open file"), std::string::npos);
}

TEST(ZtUStream, TruncatedInputFailsStickilyAndLeavesTargetsUntouched) {
    ZtUWriteStream out;
    WriteRecord(out);
    const std::vector<unsigned char>& full = out.GetBuffer();
    for (std::size_t size = 0; size < full.size(); ++size) {
        ZtUReadStream in(full.data(), size);
        std::uint32_t traits = 7;
        double one = 7, values[9] = {7, 7, 7, 7, 7, 7, 7, 7, 7};
        EXPECT_FALSE(in.ReadBitfield(traits) && in.ReadFloat(one) && in.ReadFloatArray(values, 9));
        EXPECT_NE(std::string(in.GetErrorMessage()).find("read past the end"), std::string::npos);
        // Each read is all or nothing, so the consumed count stops at a record boundary.
        EXPECT_EQ(in.GetBytesRead(), size < 4 ? 0u : size < 12 ? 4u : 12u) << size;
        EXPECT_EQ(traits, size < 4 ? 7u : 0x80000021u) << size;
        EXPECT_EQ(one, size < 12 ? 7.0 : 1.0) << size;
        for (double v : values) EXPECT_EQ(v, 7) << size;
        // Sticky: even a read that would fit fails after an error.
        ZtUReadStream again(full.data(), size);
        again.ReadFloatArray(values, 100);
        EXPECT_FALSE(again.ReadBitfield(traits));
        EXPECT_EQ(values[0], 7);
    }
}
