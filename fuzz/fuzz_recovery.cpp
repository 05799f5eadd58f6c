#include "edit/recovery/RecoveryCopy.h"
#include "formats/files/ByteReader.h"
#include "model/document/StructureTree.h"
#include "support/WriteText.h"

#include <algorithm>
#include <cstdlib>

using namespace korvane;

// The records are passed without their checksum, which no input would match.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::span bytes(data, size);
    readCopyHead(bytes, size);
    readCopy(bytes, {});
    if (std::optional<ModelDocument> document = decodeRecords(bytes)) {
        const QByteArray again = encodeRecords(*document);
        const std::span written = bytesOf(again);
        if (!std::equal(written.begin(), written.end(), bytes.begin(), bytes.end())) {
            std::abort();
        }
        const StructureTree tree(*document);
        test::writeText(*document);
    }
    return 0;
}
