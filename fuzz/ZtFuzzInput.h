#ifndef ZTFUZZ_ZTFUZZINPUT_H
#define ZTFUZZ_ZTFUZZINPUT_H

// The fuzzers' view of their input: a cursor over the bytes that hands out selectors, raw doubles
// and small integers. A double is eight raw bytes, so NaNs (any payload), infinities, -0.0 and
// denormals come as often as any other pattern. Past the end every read gives zeros, so a short
// input is still a complete call.
//
// Also the checks shared by the fuzzers: a failed check prints what failed and aborts, which
// libFuzzer reports as a crash with the input that caused it.

#include <ztutil/ZtUError.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

class ZtFuzzInput {
public:
    ZtFuzzInput(const std::uint8_t* data, std::size_t size) : m_data(data), m_size(size) {}

    std::size_t Remaining() const { return m_size - m_pos; }
    const std::uint8_t* Rest() const { return m_data + m_pos; }

    std::uint8_t Byte() {
        std::uint8_t b = 0;
        Take(&b, 1);
        return b;
    }
    std::uint32_t Nat32() {
        std::uint32_t v = 0;
        Take(&v, sizeof v);
        return v;
    }
    std::uint64_t Nat64() {
        std::uint64_t v = 0;
        Take(&v, sizeof v);
        return v;
    }
    std::int32_t Int32() {
        std::int32_t v = 0;
        Take(&v, sizeof v);
        return v;
    }
    double Double() {
        double v = 0.0;
        Take(&v, sizeof v);
        return v;
    }
    void Doubles(double* v, int n) {
        for (int i = 0; i < n; ++i) v[i] = Double();
    }

private:
    void Take(void* out, std::size_t n) {
        const std::size_t k = n < Remaining() ? n : Remaining();
        std::memset(out, 0, n);
        std::memcpy(out, m_data + m_pos, k);
        m_pos += k;
    }

    const std::uint8_t* m_data;
    std::size_t m_size;
    std::size_t m_pos = 0;
};

#define ZT_FUZZ_CHECK(cond)                                                               \
    do {                                                                                  \
        if (!(cond)) {                                                                    \
            std::fprintf(stderr, "%s:%d: check failed: %s\n", __FILE__, __LINE__, #cond); \
            std::abort();                                                                 \
        }                                                                                 \
    } while (0)

// Whether two plain values hold the same bytes (exact, NaN payloads and -0.0 included).
template <class T>
bool ZtFuzzSameBits(const T& a, const T& b) {
    return std::memcmp(&a, &b, sizeof(T)) == 0;
}

// Fills a value with a recognisable pattern, so that a write to it can be seen afterwards.
template <class T>
void ZtFuzzPoison(T* t) {
    std::memset(static_cast<void*>(t), 0xA5, sizeof(T));
}

// Posts are expected under fuzzing (singular matrices, repaired transforms): swallow them
// instead of writing a line per post, but format nothing less than the library asks for.
inline void ZtFuzzQuietErrors() {
    static bool installed = false;
    if (installed) return;
    installed = true;
    ZtUError::SetHandler([](const ZtUErrorReport& r) {
        ZT_FUZZ_CHECK(r.severity == 1);
        ZT_FUZZ_CHECK(r.message != nullptr);
    });
}

#endif
