#pragma once

#include <cstddef>
#include <cstdlib>
#include <string_view>

namespace ambrel {

/// A broken promise is a finding, as a crash is.
inline void require(bool promise) {
    if (!promise) {
        std::abort();
    }
}

inline std::string_view asText(const unsigned char* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

} // namespace ambrel
