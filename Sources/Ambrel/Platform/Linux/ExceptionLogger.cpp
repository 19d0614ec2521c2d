#include "Platform/Linux/ExceptionLogger.h"

#include "Core/Logger.h"

#include <cstdlib>
#include <exception>
#include <memory>
#include <string>
#include <typeinfo>

#include <cxxabi.h>

namespace ambrel {

namespace {

std::terminate_handler earlierHandler = nullptr;

std::string typeName() {
    const std::type_info* const type = abi::__cxa_current_exception_type();
    if (type == nullptr) {
        return "nil";
    }
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> plain(
        abi::__cxa_demangle(type->name(), nullptr, nullptr, &status), &std::free);
    return status == 0 ? plain.get() : type->name();
}

std::string reason() {
    try {
        if (const auto exception = std::current_exception()) {
            std::rethrow_exception(exception);
        }
    } catch (const std::exception& exception) {
        return exception.what();
    } catch (...) {
    }
    return "nil";
}

void logAndEnd() {
    Logger("crash").fault("uncaught {}: {}", typeName(), reason());
    if (earlierHandler != nullptr) {
        earlierHandler();
    }
    std::abort();
}

} // namespace

void installExceptionLogger() {
    if (const auto current = std::get_terminate(); current != logAndEnd) {
        earlierHandler = std::set_terminate(logAndEnd);
    }
}

} // namespace ambrel
