#pragma once

#include "Core/Files.h"

#include <cerrno>
#include <system_error>

namespace ambrel {

[[nodiscard]] inline FileFailure failure(int code) {
    return {code, std::generic_category().message(code)};
}

/// The failure of the system call before.
[[nodiscard]] inline FileFailure lastFailure() {
    return failure(errno);
}

} // namespace ambrel
