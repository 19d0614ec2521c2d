#include "Fuzz/Require.h"
#include "State/AppRuleCoding.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using namespace ambrel;
    if (const auto persisted = decodePersisted(asText(data, size))) {
        const auto text = encode(*persisted);
        const auto again = decodePersisted(text);
        require(again == persisted);
        require(encode(*again) == text);
    }
    return 0;
}
