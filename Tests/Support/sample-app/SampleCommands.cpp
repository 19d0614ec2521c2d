#include "SampleApp.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <thread>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>

namespace ambrel::sample {

void SampleApp::execute(const std::string& line) {
    const auto space = std::min(line.find(' '), line.size());
    const auto verb = line.substr(0, space);
    const auto rest = line.substr(std::min(space + 1, line.size()));
    const auto number = static_cast<xcb_window_t>(std::strtoul(line.c_str() + space, nullptr, 0));
    const std::map<std::string, std::function<void()>> verbs{
        {"open",
         [&] {
             open(false);
         }},
        {"dialog",
         [&] {
             open(true);
         }},
        {"ignore-term",
         [&] {
             ignoresTerm_ = true;
         }},
        {"save-on-exit",
         [&] {
             savedFile_ = rest;
         }},
        {"ignore-delete",
         [&] {
             deleteAnswer_ = DeleteAnswer::ignore;
         }},
        {"confirm-on-delete",
         [&] {
             deleteAnswer_ = DeleteAnswer::confirm;
         }},
        {"watch",
         [&] {
             display_.watch(number), display_.roundTrip(), say("watching");
         }},
        {"roundtrip",
         [&] {
             say("sent"), display_.roundTrip(), say("answered");
         }},
        {"freeze",
         [&] {
             say("frozen"), raise(SIGSTOP);
         }},
        {"dock-icon",
         [&] {
             write(icons_.dock() ? "asked to be docked" : "no tray");
         }},
        {"undock-icon",
         [&] {
             icons_.undock();
         }},
        {"register-item",
         [&] {
             write(icons_.registerItem() ? "item registered" : "no watcher");
         }},
        {"unregister-item",
         [&] {
             icons_.unregisterItem();
         }},
    };
    if (const auto found = verbs.find(verb); found != verbs.end()) {
        found->second();
        return;
    }
    const auto window = windows_.find(static_cast<int>(number));
    if (window == windows_.end() || !executeOnWindow(verb, rest, window->second)) {
        say("unknown: {}", line);
    }
}

bool SampleApp::executeOnWindow(const std::string& verb, const std::string& rest, xcb_window_t window) {
    if (verb == "close") {
        display_.requestClose(window);
    } else if (verb == "destroy") {
        say("destroying 0x{:x}", window);
        display_.destroy(window);
    } else if (verb == "withdraw") {
        display_.withdraw(window);
    } else if (verb == "map") {
        display_.map(window);
    } else if (verb == "minimise") {
        display_.minimise(window);
    } else if (verb == "retype") {
        display_.setType(window, rest.substr(rest.find(' ') + 1));
    } else {
        return false;
    }
    return true;
}

void SampleApp::save() {
    constexpr auto span = std::chrono::seconds(4);
    say("saving");
    const auto end = std::chrono::steady_clock::now() + span;
    const int file = ::open(savedFile_.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
    for (const std::string block(4096, 's'); std::chrono::steady_clock::now() < end;) {
        [[maybe_unused]] const auto written = ::write(file, block.data(), block.size());
        fsync(file);
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
    ::close(file);
    pollfd signal{signals_, POLLIN, 0};
    if (poll(&signal, 1, 0) > 0) {
        readSignal();
    }
    say("saved");
    finished_ = true;
}

void SampleApp::open(bool isDialog) {
    const auto parent = windows_.empty() || !isDialog ? static_cast<xcb_window_t>(XCB_NONE) : windows_.begin()->second;
    const auto window = display_.create(options_, isDialog, parent);
    windows_[++opened_] = window;
    unseen_.insert(window);
    display_.map(window);
}

} // namespace ambrel::sample
