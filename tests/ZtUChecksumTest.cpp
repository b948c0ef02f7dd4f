#include <ztutil/ZtUChecksum.h>

#include <gtest/gtest.h>

#include <limits>

// The hash codes are part of the persistent behaviour of the value types: they must not change
// between platforms or releases.
TEST(ZtUChecksum, FixedInputsGiveFixedCodesOnEveryPlatform) {
    EXPECT_EQ(ZtUChecksum().End(), 0x02CC5D05u) << "XXH32 of nothing, seed 0";

    ZtUChecksum c;
    c.AddFloat(1.0);
    c.AddInt32(-2);
    c.AddNat32(3);
    EXPECT_EQ(c.End(), 0xE792091Au);

    ZtUChecksum xyz;
    xyz.AddFloat(1.0);
    xyz.AddFloat(2.0);
    xyz.AddFloat(3.0);
    EXPECT_EQ(xyz.End(), 0x8F61589Eu);
}

TEST(ZtUChecksum, DistinguishesOrderSignAndKind) {
    auto hash2 = [](double a, double b) {
        ZtUChecksum c;
        c.AddFloat(a);
        c.AddFloat(b);
        return c.End();
    };
    EXPECT_NE(hash2(1.0, 2.0), hash2(2.0, 1.0));
    EXPECT_NE(hash2(0.0, 0.0), hash2(-0.0, 0.0)) << "hashes the bit pattern";
    EXPECT_EQ(hash2(std::numeric_limits<double>::quiet_NaN(), 1.0),
              hash2(std::numeric_limits<double>::quiet_NaN(), 1.0));

    ZtUChecksum i, n;
    i.AddInt32(-1);
    n.AddNat32(0xFFFFFFFFu);
    EXPECT_EQ(i.End(), n.End()) << "the same 32 bits";

    ZtUChecksum growing;
    growing.AddNat32(1);
    const unsigned first = growing.End();
    growing.AddNat32(1);
    EXPECT_NE(first, growing.End()) << "End does not stop the running hash";
}
