// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The entries that libFuzzer calls: at its start, and with each input. The first argument names the target.
#include <cstdint>
#include <cstdio>

#include "fuzz/target.h"

extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

quode::fuzz::Consume consume = nullptr;

}  // namespace

int LLVMFuzzerInitialize(int* count, char*** arguments) {
    const char* const name = *count > 1 ? (*arguments)[1] : "";
    consume = quode::fuzz::targetNamed(name);
    if (consume == nullptr) {
        std::fprintf(stderr, "There is no target \"%s\". Give the name of a file in tests/fuzz/targets.\n", name);
        std::exit(2);
    }
    (*arguments)[1] = (*arguments)[0];  // libFuzzer sees the arguments after it
    ++*arguments;
    --*count;
    return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    consume({reinterpret_cast<const char*>(data), size});
    return 0;
}
