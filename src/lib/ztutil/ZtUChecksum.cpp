#include <ztutil/ZtUChecksum.h>

#include <cstring>

#define XXH_INLINE_ALL
#define XXH_STATIC_LINKING_ONLY
// XXH32_update compares the input pointer with `end - 16` before it looks at the length. Inlined
// with the 4- and 8-byte inputs below, GCC for 32-bit targets reports that pointer as out of
// bounds; it is only compared, never read.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Warray-bounds"
#endif
#include <xxhash.h>
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic pop
#endif

static_assert(sizeof(XXH32_state_t) <= 64, "XXH32 state does not fit the checksum");
static_assert(alignof(XXH32_state_t) <= 8, "XXH32 state alignment");

namespace {
XXH32_state_t* State(unsigned char* storage) { return reinterpret_cast<XXH32_state_t*>(storage); }
const XXH32_state_t* State(const unsigned char* storage) {
    return reinterpret_cast<const XXH32_state_t*>(storage);
}
}  // namespace

ZtUChecksum::ZtUChecksum() noexcept {
    std::memset(m_state, 0, sizeof m_state);
    XXH32_reset(State(m_state), 0);
}

void ZtUChecksum::AddBytes(const unsigned char* bytes, unsigned length) noexcept {
    XXH32_update(State(m_state), bytes, length);
}

void ZtUChecksum::AddFloat(double value) noexcept {
    std::uint64_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    unsigned char bytes[8];
    for (int i = 0; i < 8; ++i) bytes[i] = static_cast<unsigned char>(bits >> (8 * i));
    AddBytes(bytes, 8);
}

void ZtUChecksum::AddInt32(std::int32_t value) noexcept {
    AddNat32(static_cast<std::uint32_t>(value));
}

void ZtUChecksum::AddNat32(std::uint32_t value) noexcept {
    unsigned char bytes[4];
    for (int i = 0; i < 4; ++i) bytes[i] = static_cast<unsigned char>(value >> (8 * i));
    AddBytes(bytes, 4);
}

unsigned int ZtUChecksum::End() const noexcept {
    return static_cast<unsigned int>(XXH32_digest(State(m_state)));
}
