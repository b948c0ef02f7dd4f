#ifndef ZTUTIL_ZTUCHECKSUM_H
#define ZTUTIL_ZTUCHECKSUM_H

#include <ztutil/ZtUExport.h>

#include <cstdint>

// A running 32-bit hash of numbers, for the hash codes of value types.
//
// The numbers are fed to XXH32 (seed 0) as little-endian bytes: a double as its 8-byte IEEE bit
// pattern, an integer as 4 bytes. So a value has the same hash code on every platform.
// For example AddFloat(1.0), AddInt32(-2), AddNat32(3) then End() gives 0xE792091A.
class ZTU_EXPORT ZtUChecksum {
public:
    ZtUChecksum() noexcept;

    void AddFloat(double value) noexcept;
    void AddInt32(std::int32_t value) noexcept;
    void AddNat32(std::uint32_t value) noexcept;

    // The hash of everything added so far; more may be added afterwards.
    unsigned int End() const noexcept;

private:
    void AddBytes(const unsigned char* bytes, unsigned length) noexcept;

    alignas(8) unsigned char m_state[64];
};

#endif
