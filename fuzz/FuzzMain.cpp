// The libFuzzer entry of one target; which one is chosen when the executable is built.
#include "Targets.h"

#ifndef TAVVEL_FUZZ_ENTRY
#error "TAVVEL_FUZZ_ENTRY names the target function"
#endif

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return tavvel::fuzz::TAVVEL_FUZZ_ENTRY(data, size);
}
