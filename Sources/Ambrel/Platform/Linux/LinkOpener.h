#pragma once

#include "Platform/Linux/DesktopEntries.h"

#include <filesystem>
#include <string>

namespace ambrel {

class Environment;
class SessionBus;

/// Opens links, files' folders and the desktop's settings, without waiting for any of them. Main thread only.
class LinkOpener {
public:
    /// What is passed must outlive this object.
    LinkOpener(const Environment& environment, SessionBus& bus) : environment_(environment), bus_(bus) {}

    /// A link of the scheme "x-apple.systempreferences" opens the settings that this desktop has for its session or its
    /// window manager; where there are none, the log says so.
    void open(const std::string& url);
    /// Opens a page by its "appstream:" link, or else a software centre at its front; false where there is neither.
    bool openSoftwareCentre(const std::string& page);
    /// By the file manager that the bus knows, or else by opening the folder that the file lies in.
    void reveal(const std::filesystem::path& file);

private:
    void openWindowManagerSettings();

    const Environment& environment_;
    SessionBus& bus_;
    DesktopEntries entries_;
};

} // namespace ambrel
