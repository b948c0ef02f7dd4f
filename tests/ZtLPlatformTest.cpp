// Facts that must hold on every platform the library is built for: 64-bit and 32-bit Linux,
// 32-bit Windows. The value types keep their size, and a value has the same hash code and the
// same text everywhere, so the expected values here are pinned literals, not computed.
#include <ztlinear/ZtLAffine2f.h>
#include <ztlinear/ZtLAffine3f.h>
#include <ztlinear/ZtLBox2f.h>
#include <ztlinear/ZtLBox3f.h>
#include <ztlinear/ZtLColor3f.h>
#include <ztlinear/ZtLFrustum3f.h>
#include <ztlinear/ZtLHVec2f.h>
#include <ztlinear/ZtLHVec3f.h>
#include <ztlinear/ZtLInterval.h>
#include <ztlinear/ZtLLine3f.h>
#include <ztlinear/ZtLMaths.h>
#include <ztlinear/ZtLMatrix2f.h>
#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLMatrix4f.h>
#include <ztlinear/ZtLPlane2f.h>
#include <ztlinear/ZtLPlane3f.h>
#include <ztlinear/ZtLRotation2f.h>
#include <ztlinear/ZtLRotation3f.h>
#include <ztlinear/ZtLTransform3f.h>
#include <ztlinear/ZtLVec2f.h>
#include <ztlinear/ZtLVec3f.h>
#include <ztutil/ZtUChecksum.h>
#include <ztutil/ZtUStringBuffer.h>

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cwchar>
#include <limits>
#include <string>

namespace {

struct DoubleMember {
    char tag;
    double value;
};

// The widths this build runs with, shown in the test log of each lane.
TEST(ZtLPlatform, ReportsTheWidthsOfThisTarget) {
    const std::string widths = "long " + std::to_string(sizeof(long) * CHAR_BIT) +
                               " bits, wchar_t " + std::to_string(sizeof(wchar_t) * CHAR_BIT) +
                               " bits, pointers " + std::to_string(sizeof(void*) * CHAR_BIT) +
                               " bits, double members aligned to " +
                               std::to_string(offsetof(DoubleMember, value)) + " bytes";
    std::printf("platform: %s\n", widths.c_str());
    RecordProperty("widths", widths);

#if defined(_WIN32)
    EXPECT_EQ(sizeof(long), 4u) << "Windows keeps long at 32 bits";
    EXPECT_EQ(sizeof(wchar_t), 2u) << "Windows' wide characters are UTF-16 units";
#else
    EXPECT_EQ(sizeof(long), sizeof(void*)) << "Linux: long is as wide as a pointer";
    EXPECT_EQ(sizeof(wchar_t), 4u);
#endif
#if defined(__i386__) || defined(_M_IX86)
    EXPECT_EQ(sizeof(long), 4u);
    EXPECT_EQ(sizeof(void*), 4u);
#endif
}

// Double arithmetic rounds every operation to 64 bits (SSE2), also on 32-bit x86 where the x87
// stack would keep 80-bit intermediates.
TEST(ZtLPlatform, DoublesRoundEachOperation) {
    EXPECT_EQ(FLT_EVAL_METHOD, 0);
    volatile double big = 1e16;
    volatile double one = 1.0;
    const double sum = big + one;  // 1e16 + 1 is a tie and rounds to even, 1e16
    EXPECT_EQ(sum - big, 0.0);
    volatile double third = 1.0 / 3.0;
    EXPECT_EQ(third * 3.0, 1.0);
    volatile double tiny = DBL_MIN;
    EXPECT_EQ(tiny / 4.0 * 4.0, DBL_MIN) << "subnormals are kept, not flushed to zero";
}

TEST(ZtLPlatform, ValueTypesAreTheirDoubles) {
    struct Case {
        const char* name;
        std::size_t size;
        std::size_t doubles;
    };
    const Case cases[] = {
        {"ZtLVec3f", sizeof(ZtLVec3f), 3},           {"ZtLPos3f", sizeof(ZtLPos3f), 3},
        {"ZtLUnitVec3f", sizeof(ZtLUnitVec3f), 3},   {"ZtLColor3f", sizeof(ZtLColor3f), 3},
        {"ZtLVec2f", sizeof(ZtLVec2f), 2},           {"ZtLPos2f", sizeof(ZtLPos2f), 2},
        {"ZtLUnitVec2f", sizeof(ZtLUnitVec2f), 2},   {"ZtLHVec2f", sizeof(ZtLHVec2f), 3},
        {"ZtLHVec3f", sizeof(ZtLHVec3f), 4},         {"ZtLRotation2f", sizeof(ZtLRotation2f), 2},
        {"ZtLRotation3f", sizeof(ZtLRotation3f), 4}, {"ZtLMatrix2f", sizeof(ZtLMatrix2f), 4},
        {"ZtLMatrix3f", sizeof(ZtLMatrix3f), 9},     {"ZtLMatrix4f", sizeof(ZtLMatrix4f), 16},
        {"ZtLAffine2f", sizeof(ZtLAffine2f), 6},     {"ZtLAffine3f", sizeof(ZtLAffine3f), 12},
        {"ZtLBox2f", sizeof(ZtLBox2f), 4},           {"ZtLBox3f", sizeof(ZtLBox3f), 6},
        {"ZtLPlane2f", sizeof(ZtLPlane2f), 3},       {"ZtLPlane3f", sizeof(ZtLPlane3f), 4},
        {"ZtLLine3f", sizeof(ZtLLine3f), 6},         {"ZtLRay3f", sizeof(ZtLRay3f), 6},
        {"ZtLSegment3f", sizeof(ZtLSegment3f), 6},
    };
    for (const Case& c : cases) EXPECT_EQ(c.size, c.doubles * sizeof(double)) << c.name;
}

// Types with a word beside their doubles: no padding beyond what their alignment needs. A double
// member is aligned to 8 bytes on Windows and x86-64 but to 4 on 32-bit Linux, so these sizes
// differ between the lanes (ZtLInterval has 24 bytes on Windows, 20 on 32-bit Linux).
TEST(ZtLPlatform, MixedValueTypesCarryNoExtraPadding) {
    struct Case {
        const char* name;
        std::size_t size;
        std::size_t align;
        std::size_t payload;
    };
    const Case cases[] = {
        {"ZtLInterval", sizeof(ZtLInterval), alignof(ZtLInterval), 2 * sizeof(double) + 2},
        {"ZtLTransform3f", sizeof(ZtLTransform3f), alignof(ZtLTransform3f),
         4 + 16 * sizeof(double)},
        {"ZtLFrustum3f", sizeof(ZtLFrustum3f), alignof(ZtLFrustum3f), 4 + 15 * sizeof(double)},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.size, (c.payload + c.align - 1) / c.align * c.align) << c.name;
    }
#if defined(_WIN32)
    EXPECT_EQ(sizeof(ZtLInterval), 24u);
    EXPECT_EQ(sizeof(ZtLTransform3f), 136u);
    EXPECT_EQ(sizeof(ZtLFrustum3f), 128u);
#endif
}

// Hash codes are XXH32 of the little-endian bytes, whatever the byte order and widths of the
// platform.
TEST(ZtLPlatform, HashCodesArePinned) {
    EXPECT_EQ(ZtLVec3f(1e23, 123456789.123456789, -0.0).CalcHashCode(), 0x09709384u);
    EXPECT_EQ(ZtLPos3f(0.1, 2.0 / 3.0, -1e-300).CalcHashCode(), 0xC50ED901u);
    EXPECT_EQ(ZtLVec2f(0.1, -2.5).CalcHashCode(), 0xD43CE47Eu);
    EXPECT_EQ(ZtLRotation3f(0.5, -0.5, 0.5, 0.5).CalcHashCode(), 0x3B7026FFu);
    EXPECT_EQ(ZtLMatrix3f(1, 2, 3, 4, 5, 6, 7, 8, 0.1).CalcHashCode(), 0xD9C0EBD3u);
    EXPECT_EQ(ZtLMatrix2f(0.1, -2, 1e23, 4).CalcHashCode(), 0x8A7B4828u);
    const ZtLMatrix4f m4(1, 2, 3, 0.5, 5, 6, 7, -0.25, 9, 10, 11, 0.125, 13, 14, 15, 1);
    EXPECT_EQ(m4.CalcHashCode(), 0x92B2063Fu);
    EXPECT_EQ(ZtLTransform3f(m4).CalcHashCode(), 0x2D7B3600u) << "entries, then the traits word";

    ZtUChecksum mixed;
    mixed.AddInt32(std::numeric_limits<std::int32_t>::min());
    mixed.AddNat32(0xDEADBEEFu);
    mixed.AddFloat(std::numeric_limits<double>::infinity());
    EXPECT_EQ(mixed.End(), 0x95FEDB46u);
}

// Texts print every digit of the double in fixed notation, the same on every C library (the
// Windows runtime's own printf would stop after 17 significant digits).
TEST(ZtLPlatform, TextsArePinned) {
    EXPECT_EQ(ZtLVec3f(1e23, 123456789.123456789, -0.0).ToString().ToUtf8(),
              "(99999999999999991611392.0000000000000000, 123456789.1234567910432816, "
              "-0.0000000000000000)");
    EXPECT_EQ(ZtLPos2f(2.5e-16, 2.0 / 3.0).ToStringImpl().ToUtf8(),
              "(0.0000000000000003, 0.6666666666666666)");
    EXPECT_EQ(ZtLMatrix2f(0.1, -2, 1e23, 4).ToString().ToUtf8(),
              "(0.1000, -2.0000)\n(99999999999999991611392.0000, 4.0000)\n");

    ZtUWideStringBuffer w;
    w.Format(L"%ls|%.3e|%g|%f|%5.1f|%lc", L"\u00e9\U0001F600", 1e-310,
             std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
             0.25, static_cast<std::wint_t>(L'\u20ac'));
    EXPECT_EQ(w.ToUtf8(), "\u00e9\U0001F600|1.000e-310|inf|-inf|  0.2|\u20ac");
    // The same text, in two wide units for the character beyond 16 bits where wchar_t has 16.
    const int ascii = static_cast<int>(sizeof("|1.000e-310|inf|-inf|  0.2|") - 1);
    EXPECT_EQ(w.GetLength(), 3 + ascii + (sizeof(wchar_t) == 2 ? 1 : 0));
}

// The lowest set bit of the most negative long is its top bit: bit 32 where long has 32 bits
// (Windows, 32-bit Linux), bit 64 on 64-bit Linux.
TEST(ZtLPlatform, FfsFollowsTheWidthOfLong) {
    const long most_negative = std::numeric_limits<long>::min();
    EXPECT_EQ(ZtLMaths::ffs(most_negative), static_cast<int>(sizeof(long) * CHAR_BIT));
    if (sizeof(long) == 4) {
        EXPECT_EQ(ZtLMaths::ffs(most_negative), 32);
    }
    EXPECT_EQ(ZtLMaths::ffs(-1L), 1);
    EXPECT_EQ(ZtLMaths::ffs(most_negative / 2), static_cast<int>(sizeof(long) * CHAR_BIT) - 1);
    EXPECT_EQ(ZtLMaths::ffs(0x40000000L), 31);
}

}  // namespace
