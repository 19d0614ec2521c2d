#include "SampleApp.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <memory>

#include <poll.h>
#include <sys/signalfd.h>

namespace ambrel::sample {

SampleApp::SampleApp(Options options) : options_(std::move(options)) {
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGTERM);
    sigprocmask(SIG_BLOCK, &set, nullptr);
    signals_ = signalfd(-1, &set, SFD_CLOEXEC);
    std::signal(SIGPIPE, SIG_IGN);
}

int SampleApp::run() {
    if (!display_.isConnected()) {
        say("no display");
        return 2;
    }
    for (const std::string& command : options_.commands) {
        execute(command);
    }
    while (!finished_ && display_.isConnected()) {
        while (xcb_generic_event_t* const raw = xcb_poll_for_event(display_.connection())) {
            handle(*std::unique_ptr<xcb_generic_event_t, void (*)(void*)>(raw, std::free));
        }
        std::array<pollfd, 3> sources{{{xcb_get_file_descriptor(display_.connection()), POLLIN, 0},
                                       {signals_, POLLIN, 0},
                                       {inputEnded_ ? -1 : STDIN_FILENO, POLLIN, 0}}};
        poll(sources.data(), sources.size(), finished_ ? 0 : -1);
        if (sources[1].revents != 0) {
            readSignal();
        }
        if (sources[2].revents != 0) {
            readInput();
        }
    }
    return finished_ ? 0 : 3;
}

void SampleApp::readInput() {
    std::array<char, 4096> block{};
    const ssize_t count = read(STDIN_FILENO, block.data(), block.size());
    inputEnded_ = count <= 0;
    input_.append(block.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    for (std::size_t end = input_.find('\n'); end != std::string::npos; end = input_.find('\n')) {
        const std::string line = input_.substr(0, end);
        input_.erase(0, end + 1);
        execute(line);
    }
}

void SampleApp::readSignal() {
    signalfd_siginfo info{};
    if (read(signals_, &info, sizeof info) == static_cast<ssize_t>(sizeof info)) {
        say("sigterm");
        finished_ = finished_ || !ignoresTerm_;
    }
}

void SampleApp::handle(const xcb_generic_event_t& event) {
    switch (event.response_type & 0x7f) {
    case XCB_MAP_NOTIFY:
        if (const auto shown = reinterpret_cast<const xcb_map_notify_event_t&>(event).window;
            unseen_.erase(shown) > 0) {
            say("window 0x{:x} open", shown);
        }
        break;
    case XCB_UNMAP_NOTIFY:
        say("window 0x{:x} unmapped", reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window);
        break;
    case XCB_DESTROY_NOTIFY: {
        const xcb_window_t gone = reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window;
        say("window 0x{:x} destroyed", gone);
        std::erase_if(windows_, [gone](const auto& entry) { return entry.second == gone; });
        if (windows_.empty() && !savedFile_.empty()) {
            save();
        }
        break;
    }
    case XCB_CLIENT_MESSAGE: {
        const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(event);
        if (message.data.data32[0] == display_.atom("WM_DELETE_WINDOW")) {
            deleteRequested(message.window);
        }
        break;
    }
    case XCB_REPARENT_NOTIFY:
        if (icons_.isIcon(reinterpret_cast<const xcb_reparent_notify_event_t&>(event).window)) {
            say("docked");
        }
        break;
    default:
        break;
    }
}

void SampleApp::deleteRequested(xcb_window_t window) {
    say("delete-request 0x{:x}", window);
    if (deleteAnswer_ == DeleteAnswer::destroy) {
        display_.destroy(window);
    } else if (deleteAnswer_ == DeleteAnswer::confirm) {
        open(true);
    }
}

void SampleApp::write(const std::string& text) const {
    const std::chrono::duration<double> now = std::chrono::steady_clock::now().time_since_epoch();
    const auto line = (options_.timestamps ? fmt::format("{:.9f} ", now.count()) : "") + text + "\n";
    // Whoever read this may have gone; the application lives on.
    [[maybe_unused]] const ssize_t written = ::write(STDOUT_FILENO, line.data(), line.size());
}

} // namespace ambrel::sample
