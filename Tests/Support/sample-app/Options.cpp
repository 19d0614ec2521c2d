#include "Options.h"

#include <array>
#include <map>

namespace ambrel::sample {

std::optional<Options> parseOptions(const std::vector<std::string>& arguments) {
    Options options;
    std::array<char, 256> host{};
    options.machine = gethostname(host.data(), host.size() - 1) == 0 ? host.data() : "localhost";
    const std::map<std::string, std::vector<std::string*>> values{{"--class", {&options.instance, &options.className}},
                                                                  {"--machine", {&options.machine}},
                                                                  {"--pid", {&options.pid}},
                                                                  {"--timestamps", {}}};
    auto at = arguments.begin();
    while (at != arguments.end() && at->starts_with("--")) {
        const auto option = values.find(*at++);
        if (option == values.end() || arguments.end() - at < std::ssize(option->second)) {
            return std::nullopt;
        }
        options.timestamps = options.timestamps || option->second.empty();
        for (auto* const value : option->second) {
            *value = *at++;
        }
    }
    options.commands.assign(at, arguments.end());
    return options;
}

} // namespace ambrel::sample
