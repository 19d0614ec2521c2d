#include "Options.h"

#include <array>
#include <charconv>

#include <unistd.h>

namespace ambrel::sample {

namespace {

std::string ownMachine() {
    std::array<char, 256> name{};
    return gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "localhost";
}

std::optional<pid_t> parsePid(const std::string& text) {
    pid_t pid = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), pid);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(pid) : std::nullopt;
}

/// The number of arguments the option takes with it, itself included; 0 for an option that isn't known.
std::size_t takeOption(Options& options, const std::vector<std::string>& arguments, std::size_t at) {
    const std::string& name = arguments[at];
    const std::size_t values = arguments.size() - at - 1;
    if (name == "--no-pid") {
        options.pid.reset();
        return 1;
    }
    if (name == "--timestamps") {
        options.timestamps = true;
        return 1;
    }
    if (name == "--class" && values >= 2) {
        options.instance = arguments[at + 1];
        options.className = arguments[at + 2];
        return 3;
    }
    if (values == 0) {
        return 0;
    }
    const std::string& value = arguments[at + 1];
    if (name == "--machine") {
        options.machine = value;
    } else if (name == "--pid") {
        options.pid = parsePid(value);
        return options.pid ? 2 : 0;
    } else {
        return 0;
    }
    return 2;
}

} // namespace

std::optional<Options> parseOptions(const std::vector<std::string>& arguments) {
    Options options;
    options.pid = getpid();
    options.machine = ownMachine();
    std::size_t at = 0;
    while (at < arguments.size() && arguments[at].starts_with("--")) {
        const std::size_t taken = takeOption(options, arguments, at);
        if (taken == 0) {
            return std::nullopt;
        }
        at += taken;
    }
    options.commands.assign(arguments.begin() + static_cast<std::ptrdiff_t>(at), arguments.end());
    return options;
}

} // namespace ambrel::sample
