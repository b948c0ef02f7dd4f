#ifndef ZTUTIL_ZTUSTREAM_H
#define ZTUTIL_ZTUSTREAM_H

#include <ztutil/ZtUExport.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

// Binary streams for the records of value types, over memory or over a file.
//
// Every number is stored little-endian whatever the platform: a double ("float" in the names) as
// the 8 bytes of its IEEE bit pattern (NaN payloads, infinities and -0.0 survive), a bit field
// as 4 bytes. Arrays carry no count: the record's reader knows how many values it wants.
//
// Errors are sticky: after the first failure (a file that cannot be opened, a write that does not
// go through, a read past the end) every later operation fails and does nothing. A failed read
// leaves its target untouched, also for arrays (all or nothing). Nothing here throws except the
// memory writer's buffer growth on exhaustion.
class ZTU_EXPORT ZtUWriteStream {
public:
    // Writes into a memory buffer owned by the stream.
    ZtUWriteStream() = default;
    // Writes to the file at path (created or truncated); failure to open is the error state.
    explicit ZtUWriteStream(const char* path);
    ~ZtUWriteStream();
    ZtUWriteStream(const ZtUWriteStream&) = delete;
    ZtUWriteStream& operator=(const ZtUWriteStream&) = delete;

    // Each returns false (writing nothing) when the stream is or goes into the error state.
    bool WriteFloat(double value);
    bool WriteFloatArray(const double* values, int count);
    bool WriteBitfield(std::uint32_t bits);
    bool WriteBytes(const void* data, std::size_t size);

    // Flushes and closes a file stream; false when the data could not all be written.
    bool Close();

    bool HasError() const { return !m_error.empty(); }
    const char* GetErrorMessage() const { return m_error.c_str(); }
    // Bytes successfully written so far.
    std::size_t GetBytesWritten() const { return m_written; }
    // The bytes of a memory stream (empty for a file stream).
    const std::vector<unsigned char>& GetBuffer() const { return m_buffer; }

private:
    void SetError(const std::string& message);

    std::vector<unsigned char> m_buffer;
    std::FILE* m_file = nullptr;
    std::string m_path;
    std::size_t m_written = 0;
    std::string m_error;
};

class ZTU_EXPORT ZtUReadStream {
public:
    // Reads from size bytes at data; the memory is not copied and must outlive the stream.
    ZtUReadStream(const void* data, std::size_t size);
    explicit ZtUReadStream(const std::vector<unsigned char>& bytes)
        : ZtUReadStream(bytes.data(), bytes.size()) {}
    // Reads from the file at path; failure to open is the error state.
    explicit ZtUReadStream(const char* path);
    ~ZtUReadStream();
    ZtUReadStream(const ZtUReadStream&) = delete;
    ZtUReadStream& operator=(const ZtUReadStream&) = delete;

    // Each returns true and stores the value, or returns false and leaves the target untouched.
    bool ReadFloat(double& value);
    bool ReadFloat(double* value) { return value && ReadFloat(*value); }
    bool ReadFloatArray(double* values, int count);
    bool ReadBitfield(std::uint32_t& bits);
    bool ReadBitfield(std::uint32_t* bits) { return bits && ReadBitfield(*bits); }
    bool ReadBytes(void* data, std::size_t size);

    bool HasError() const { return !m_error.empty(); }
    const char* GetErrorMessage() const { return m_error.c_str(); }
    // Bytes successfully consumed so far.
    std::size_t GetBytesRead() const { return m_read; }
    // True when a memory stream has no bytes left, or a file stream is at its end.
    bool IsAtEnd();

private:
    void SetError(const std::string& message);

    const unsigned char* m_data = nullptr;
    std::size_t m_size = 0;
    std::FILE* m_file = nullptr;
    std::string m_path;
    std::size_t m_read = 0;
    std::string m_error;
};

#endif
