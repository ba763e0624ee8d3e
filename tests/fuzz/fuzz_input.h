#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace quillset::test {

inline std::string_view fuzzBytes(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

/// A property that must hold for every input: the fuzzer keeps an input that breaks it.
inline void require(bool holds) {
    if (!holds)
        std::abort();
}

} // namespace quillset::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
