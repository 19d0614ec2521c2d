#include "Capture/SampleEvents.h"

namespace ambrel {

namespace {

struct Sample {
    double minutesAgo;
    const char* path;
    const char* action;
    const char* name;
    const char* detail;
};

constexpr Sample samples[] = {
    {2, "last-window", "terminated", "Text Editor", "windows=0"},
    {9, "last-window", "skipped(cg-windows-exist)", "Calculator", ""},
    {24, "idle", "hidden", "Music", "idle=1805s"},
    {41, "idle", "terminated", "Maps", "idle=3605s"},
    {63, "hidden", "terminated", "Discord", ""},
    {95, "last-window", "skipped(screen-locked)", "Web", ""},
    {130, "quit-all", "terminated", "Document Viewer", ""},
    {131, "manual", "force-terminated", "Image Viewer", ""},
    {1490, "last-window", "terminated", "Terminal", "windows=0"},
};

} // namespace

std::vector<QuitEvent> sampleEvents(Date now) {
    std::vector<QuitEvent> events;
    for (const auto& sample : samples) {
        events.push_back({.id = Uuid::random(),
                          .date = now - Seconds(sample.minutesAgo * 60),
                          .path = sample.path,
                          .action = sample.action,
                          .name = sample.name,
                          .detail = sample.detail});
    }
    return events;
}

} // namespace ambrel
