#include "Core/ExceptionLogger.h"

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

std::string currentExceptionName() {
    const std::type_info* type = abi::__cxa_current_exception_type();
    if (type == nullptr) {
        return "nil";
    }
    int status = 0;
    const std::unique_ptr<char, void (*)(void*)> name(abi::__cxa_demangle(type->name(), nullptr, nullptr, &status),
                                                      std::free);
    return name ? name.get() : type->name();
}

std::string currentExceptionReason() {
    try {
        if (const auto exception = std::current_exception()) {
            std::rethrow_exception(exception);
        }
    } catch (const std::exception& exception) {
        return exception.what();
    } catch (...) {
        return "nil";
    }
    return "nil";
}

void logAndGoOn() {
    Logger("crash").fault("uncaught {}: {}", currentExceptionName(), currentExceptionReason());
    if (earlierHandler != nullptr) {
        earlierHandler();
    }
    std::abort();
}

} // namespace

void installExceptionLogger() {
    if (std::get_terminate() != logAndGoOn) {
        earlierHandler = std::set_terminate(logAndGoOn);
    }
}

} // namespace ambrel
