#include "SampleApp.h"

#include <charconv>
#include <csignal>
#include <cstdlib>
#include <utility>

#include <unistd.h>

namespace ambrel::sample {

namespace {

/// The first word, and what follows it.
std::pair<std::string_view, std::string_view> splitWord(std::string_view text) {
    const std::size_t end = text.find(' ');
    return end == std::string_view::npos ? std::pair(text, std::string_view())
                                         : std::pair(text.substr(0, end), text.substr(end + 1));
}

/// 0 for what isn't a number.
int number(std::string_view text) {
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size() ? value : 0;
}

} // namespace

void SampleApp::execute(std::string_view line) {
    const auto [verb, rest] = splitWord(line);
    if (verb == "open" || verb == "dialog") {
        open(verb == "dialog");
    } else if (verb == "ignore-term") {
        ignoresTerm_ = true;
    } else if (verb == "ignore-delete") {
        deleteAnswer_ = DeleteAnswer::ignore;
    } else if (verb == "confirm-on-delete") {
        deleteAnswer_ = DeleteAnswer::confirm;
    } else if (verb == "storm") {
        storm(number(rest));
    } else if (verb == "watch") {
        display_.watch(static_cast<xcb_window_t>(std::strtoul(std::string(rest).c_str(), nullptr, 0)));
        display_.roundTrip();
        output_.say("watching");
    } else if (verb == "roundtrip") {
        output_.say("sent");
        display_.roundTrip();
        output_.say("answered");
    } else if (verb == "fork") {
        forkChild();
    } else if (verb == "freeze") {
        output_.say("frozen");
        raise(SIGSTOP);
    } else if (verb == "exit") {
        finished_ = true;
    } else if (!executeOnTray(verb)) {
        const auto window = windows_.find(number(rest));
        if (window == windows_.end()) {
            output_.say("unknown: " + std::string(line));
            return;
        }
        executeOnWindow(verb, window->second.id);
    }
}

bool SampleApp::executeOnTray(std::string_view verb) {
    if (verb == "dock-icon") {
        output_.say(icons_.dock() ? "asked to be docked" : "no tray");
    } else if (verb == "undock-icon") {
        icons_.undock();
    } else if (verb == "register-item") {
        output_.say(icons_.registerItem() ? "item registered" : "no watcher");
    } else if (verb == "unregister-item") {
        icons_.unregisterItem();
    } else {
        return false;
    }
    return true;
}

void SampleApp::executeOnWindow(std::string_view verb, xcb_window_t window) {
    if (verb == "close") {
        display_.requestClose(window);
    } else if (verb == "destroy") {
        output_.say("destroying", window);
        display_.destroy(window);
    } else if (verb == "withdraw") {
        display_.withdraw(window);
    } else if (verb == "map") {
        display_.map(window);
    } else if (verb == "minimise") {
        display_.minimise(window);
    } else {
        output_.say("unknown: " + std::string(verb));
    }
}

void SampleApp::open(bool isDialog) {
    const auto parent = windows_.empty() ? static_cast<xcb_window_t>(XCB_NONE) : windows_.begin()->second.id;
    const xcb_window_t window = display_.create(options_, isDialog, isDialog ? parent : xcb_window_t{XCB_NONE});
    windows_[++opened_] = {window, false};
    display_.map(window);
}

void SampleApp::storm(int count) {
    for (int i = 0; i < count; ++i) {
        const xcb_window_t window = display_.create(options_);
        display_.map(window);
        display_.destroy(window);
    }
    display_.roundTrip();
    output_.say("storm over");
}

void SampleApp::forkChild() {
    const pid_t child = fork();
    if (child == 0) {
        // Neither the display's socket nor the pipes may live on in here: the windows of a dead parent would stay.
        for (const int inherited :
             {xcb_get_file_descriptor(display_.connection()), STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
            close(inherited);
        }
        sigset_t all;
        sigfillset(&all);
        sigprocmask(SIG_UNBLOCK, &all, nullptr);
        for (;;) {
            pause();
        }
    }
    output_.say("child " + std::to_string(child));
}

} // namespace ambrel::sample
