// A fuzz target: the routines that libFuzzer and our own driver call, and the report of a broken rule.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

// Optional; called once before any input.
extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments) __attribute__((weak));

// Ends the program if the input breaks a rule.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

inline void Require(bool holds, const char* rule)
{
    if (holds) return;
    std::fprintf(stderr, "broken: %s\n", rule);
    std::abort();
}
