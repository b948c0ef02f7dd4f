// Fuzzes the XML read path of every value type that has a record.
//
// Input: one selector byte naming the type, then the document text. Checked:
// - a read that fails (malformed text, wrong element, missing or surplus value, a number in a
//   form the writer does not use) leaves the target byte for byte as it was;
// - a read that succeeds gives a value whose own record reads back to the same bytes.

#include "ZtFuzzInput.h"

#include <ztlinear/ZtLBox3f.h>
#include <ztlinear/ZtLColor3f.h>
#include <ztlinear/ZtLPlane3f.h>
#include <ztlinear/ZtLRotation3f.h>
#include <ztlinear/ZtLVec2f.h>
#include <ztlinear/ZtLVec3f.h>
#include <ztutil/ZtUXMLDOMStream.h>

#include <string>

namespace {

template <class T>
void ReadRecord(const std::uint8_t* text, std::size_t length) {
    ZtUXMLDOMReader reader;
    reader.Parse(reinterpret_cast<const char*>(text), length);
    T target;
    ZtFuzzPoison(&target);
    const T before = target;
    target.SerialiseXML(&reader);
    if (reader.HasError()) {
        ZT_FUZZ_CHECK(ZtFuzzSameBits(target, before));
        ZT_FUZZ_CHECK(reader.GetErrorMessage()[0] != '\0');
        return;
    }
    (void)reader.Finish();

    ZtUXMLDOMWriter writer;
    T written = target;
    written.SerialiseXML(&writer);
    ZT_FUZZ_CHECK(!writer.HasError());
    ZtUXMLDOMReader again;
    ZT_FUZZ_CHECK(again.Parse(writer.GetText()));
    T copy;
    ZtFuzzPoison(&copy);
    copy.SerialiseXML(&again);
    ZT_FUZZ_CHECK(!again.HasError());
    ZT_FUZZ_CHECK(again.Finish());
    ZT_FUZZ_CHECK(ZtFuzzSameBits(copy, target));
}

using Reader = void (*)(const std::uint8_t*, std::size_t);

const Reader kReaders[] = {
    &ReadRecord<ZtLVec3f>,      &ReadRecord<ZtLPos3f>, &ReadRecord<ZtLUnitVec3f>,
    &ReadRecord<ZtLVec2f>,      &ReadRecord<ZtLPos2f>, &ReadRecord<ZtLColor3f>,
    &ReadRecord<ZtLRotation3f>, &ReadRecord<ZtLBox3f>, &ReadRecord<ZtLPlane3f>,
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ZtFuzzQuietErrors();
    ZtFuzzInput in(data, size);
    const std::size_t count = sizeof kReaders / sizeof kReaders[0];
    const Reader read = kReaders[in.Byte() % count];
    read(in.Rest(), in.Remaining());
    return 0;
}
