#include "Platform/Linux/Defaults/JsonUserDefaults.h"

#include "Platform/Linux/Defaults/JsonDefaultsSuite.h"

#include <utility>

namespace ambrel {

JsonUserDefaults::JsonUserDefaults(std::filesystem::path folder, const Clock& clock)
    : folder_(std::move(folder)), clock_(clock) {}

DefaultsSuiteRef JsonUserDefaults::suite(const std::string& name) {
    const bool namesAFile = !name.empty() && name.find_first_of(std::string_view("/\0", 2)) == std::string::npos;
    return namesAFile && open(name)->couldBeOpened() ? open(name) : nullptr;
}

DefaultsSuiteRef JsonUserDefaults::standard() {
    return open("ambrel");
}

const std::shared_ptr<JsonDefaultsSuite>& JsonUserDefaults::open(const std::string& name) {
    auto& opened = suites_[name];
    if (!opened) {
        opened = std::make_shared<JsonDefaultsSuite>(folder_ / (name + ".json"), clock_);
    }
    return opened;
}

} // namespace ambrel
