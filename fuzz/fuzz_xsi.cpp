#include "TextModelFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    korvane::fuzz::readModel("xsi 0101txt 0032", data, size);
    return 0;
}
