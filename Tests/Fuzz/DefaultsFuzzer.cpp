#include "Fuzz/Require.h"
#include "Platform/Linux/Defaults/DefaultsDocument.h"

#include <array>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using namespace ambrel;
    constexpr std::array keys{"isPaused", "quitDelay", "userExcludedBundleIDs", ""};
    auto document = DefaultsDocument::parse(asText(data, size));
    if (!document) {
        return 0;
    }
    auto again = DefaultsDocument::parse(document->text());
    require(again.has_value() && again->text() == document->text());
    for (const auto* key : keys) {
        require(again->value(key) == document->value(key));
    }
    document->set("isPaused", true);
    again = DefaultsDocument::parse(document->text());
    require(again.has_value() && again->value("isPaused") == DefaultsValue(true));
    return 0;
}
