#include <ztutil/ZtUStream.h>

#include <cstring>

namespace {

void PutLE(unsigned char* out, std::uint64_t value, int size) {
    for (int i = 0; i < size; ++i) out[i] = static_cast<unsigned char>(value >> (8 * i));
}

std::uint64_t GetLE(const unsigned char* in, int size) {
    std::uint64_t value = 0;
    for (int i = 0; i < size; ++i) value |= static_cast<std::uint64_t>(in[i]) << (8 * i);
    return value;
}

std::uint64_t BitsOf(double value) {
    std::uint64_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

double DoubleOf(std::uint64_t bits) {
    double value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

}  // namespace

// ---------------------------------------------------------------------------------------------
// Writing

ZtUWriteStream::ZtUWriteStream(const char* path) : m_path(path ? path : "") {
    m_file = path ? std::fopen(path, "wb") : nullptr;
    if (!m_file) SetError("cannot open file '" + m_path + "' for writing");
}

ZtUWriteStream::~ZtUWriteStream() { Close(); }

void ZtUWriteStream::SetError(const std::string& message) {
    if (m_error.empty()) m_error = message;
}

bool ZtUWriteStream::WriteBytes(const void* data, std::size_t size) {
    if (HasError()) return false;
    if (size == 0) return true;
    if (!data) {
        SetError("no data given to write");
        return false;
    }
    const unsigned char* bytes = static_cast<const unsigned char*>(data);
    if (m_file) {
        if (std::fwrite(bytes, 1, size, m_file) != size) {
            SetError("cannot write to file '" + m_path + "' after " + std::to_string(m_written) +
                     " bytes");
            return false;
        }
    } else if (!m_path.empty()) {
        SetError("file '" + m_path + "' is closed");
        return false;
    } else {
        m_buffer.insert(m_buffer.end(), bytes, bytes + size);
    }
    m_written += size;
    return true;
}

bool ZtUWriteStream::WriteFloat(double value) {
    unsigned char bytes[8];
    PutLE(bytes, BitsOf(value), 8);
    return WriteBytes(bytes, 8);
}

bool ZtUWriteStream::WriteFloatArray(const double* values, int count) {
    if (HasError()) return false;
    if (count < 0 || (count > 0 && !values)) {
        SetError("invalid array of " + std::to_string(count) + " doubles to write");
        return false;
    }
    std::vector<unsigned char> bytes(8 * static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        PutLE(&bytes[8 * static_cast<std::size_t>(i)], BitsOf(values[i]), 8);
    return WriteBytes(bytes.data(), bytes.size());
}

bool ZtUWriteStream::WriteBitfield(std::uint32_t bits) {
    unsigned char bytes[4];
    PutLE(bytes, bits, 4);
    return WriteBytes(bytes, 4);
}

bool ZtUWriteStream::Close() {
    if (!m_file) return !HasError();
    const bool flushed = std::fflush(m_file) == 0;
    const bool closed = std::fclose(m_file) == 0;
    m_file = nullptr;
    if (!flushed || !closed) SetError("cannot finish writing file '" + m_path + "'");
    return !HasError();
}

// ---------------------------------------------------------------------------------------------
// Reading

ZtUReadStream::ZtUReadStream(const void* data, std::size_t size)
    : m_data(static_cast<const unsigned char*>(data)), m_size(data ? size : 0) {}

ZtUReadStream::ZtUReadStream(const char* path) : m_path(path ? path : "") {
    m_file = path ? std::fopen(path, "rb") : nullptr;
    if (!m_file) SetError("cannot open file '" + m_path + "' for reading");
}

ZtUReadStream::~ZtUReadStream() {
    if (m_file) std::fclose(m_file);
}

void ZtUReadStream::SetError(const std::string& message) {
    if (m_error.empty()) m_error = message;
}

bool ZtUReadStream::ReadBytes(void* data, std::size_t size) {
    if (HasError()) return false;
    if (size == 0) return true;
    if (!data) {
        SetError("no buffer given to read into");
        return false;
    }
    if (m_file) {
        // Through a scratch buffer, so that a short read leaves the target untouched.
        std::vector<unsigned char> scratch(size);
        const std::size_t got = std::fread(scratch.data(), 1, size, m_file);
        if (got != size) {
            SetError(
                (std::ferror(m_file) ? "read error in file '" : "read past the end of file '") +
                m_path + "': " + std::to_string(size) + " bytes asked at offset " +
                std::to_string(m_read) + ", " + std::to_string(got) + " available");
            return false;
        }
        std::memcpy(data, scratch.data(), size);
    } else {
        if (size > m_size - m_read) {
            SetError("read past the end: " + std::to_string(size) + " bytes asked at offset " +
                     std::to_string(m_read) + " of " + std::to_string(m_size));
            return false;
        }
        std::memcpy(data, m_data + m_read, size);
    }
    m_read += size;
    return true;
}

bool ZtUReadStream::ReadFloat(double& value) {
    unsigned char bytes[8];
    if (!ReadBytes(bytes, 8)) return false;
    value = DoubleOf(GetLE(bytes, 8));
    return true;
}

bool ZtUReadStream::ReadFloatArray(double* values, int count) {
    if (HasError()) return false;
    if (count < 0 || (count > 0 && !values)) {
        SetError("invalid array of " + std::to_string(count) + " doubles to read into");
        return false;
    }
    std::vector<unsigned char> bytes(8 * static_cast<std::size_t>(count));
    if (!ReadBytes(bytes.data(), bytes.size())) return false;
    for (int i = 0; i < count; ++i)
        values[i] = DoubleOf(GetLE(&bytes[8 * static_cast<std::size_t>(i)], 8));
    return true;
}

bool ZtUReadStream::ReadBitfield(std::uint32_t& bits) {
    unsigned char bytes[4];
    if (!ReadBytes(bytes, 4)) return false;
    bits = static_cast<std::uint32_t>(GetLE(bytes, 4));
    return true;
}

bool ZtUReadStream::IsAtEnd() {
    if (!m_file) return m_read == m_size;
    const int c = std::fgetc(m_file);
    if (c == EOF) return true;
    std::ungetc(c, m_file);
    return false;
}
