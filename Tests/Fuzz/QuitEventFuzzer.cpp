#include "Core/Utf8.h"
#include "Engine/IsoDate.h"
#include "Engine/QuitEvent.h"
#include "Fuzz/Require.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using namespace ambrel;
    constexpr std::size_t limit = 5;
    const auto text = asText(data, size);
    for (const bool startsMidFile : {false, true}) {
        const auto events = QuitEvent::parse(text, startsMidFile, limit);
        require(events.size() <= limit);
        for (const auto& event : events) {
            for (const auto& field : {event.path, event.action, event.name, event.detail}) {
                require(isValidUtf8(field) && field.find_first_of("\t\n") == std::string::npos);
            }
            require(!event.date || parseIsoDate(formatIsoDate(*event.date)) == event.date);
        }
    }
    require(isValidUtf8(replacingInvalidUtf8(text)));
    return 0;
}
