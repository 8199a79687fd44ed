// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The entry that libFuzzer calls with each input.
#include <cstdint>

#include "fuzz/target.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quode::fuzz::consume({reinterpret_cast<const char*>(data), size});
    return 0;
}
