// What a fuzz target is: the two routines that libFuzzer and our own driver call.
#pragma once

#include <cstddef>
#include <cstdint>

// Called once, before any input.
extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments);

// Ends the program where the input breaks a rule.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
