#include "Engine/QuitRequests.h"

#include "Engine/QuitNotifier.h"
#include "Platform/Platform.h"
#include "Platform/Workspace.h"

namespace ambrel {

namespace {

/// A user may take this long over what a closing window asks.
constexpr Seconds longestFlight{60};

std::string nameOf(const RunningApplication& app) {
    return app.bundleIdentifier().value_or("?");
}

} // namespace

QuitRequests& QuitRequests::shared() {
    static auto& requests = *new QuitRequests(Platform::shared(), TerminationAudit::shared(), QuitNotifier::shared());
    return requests;
}

QuitRequests::QuitRequests(Platform& platform, TerminationAudit& audit, QuitNotifier& notifier)
    : platform_(platform), audit_(audit), notifier_(notifier) {
    observers_.push_back(
        platform.workspace().didTerminate.subscribe([this](const auto& app) { end(app->processIdentifier()); }));
    observers_.push_back(platform.windowList().readableDidChange.subscribe([this](bool readable) {
        if (!readable) {
            flights_.clear();
        }
    }));
}

std::optional<TerminationAudit::Path> QuitRequests::inFlight(ProcessId pid) const {
    const auto flight = flights_.find(pid);
    return flight != flights_.end() ? std::optional(flight->second->path) : std::nullopt;
}

void QuitRequests::ask(const Request& request) {
    if (const auto known = inFlight(request.app->processIdentifier())) {
        log_.notice("{} pid {} was already asked to quit ({}); nothing sent", nameOf(*request.app),
                    request.app->processIdentifier(), rawValue(*known));
        return;
    }
    send(request, begin(request));
}

std::shared_ptr<QuitRequests::Flight> QuitRequests::begin(const Request& request) {
    const auto pid = request.app->processIdentifier();
    auto flight = std::make_shared<Flight>();
    flight->path = request.path;
    flight->windows = platform_.windowList().observe(pid, lifetime_.guard([this, pid](WindowEvent event) {
        if (event == WindowEvent::appeared) {
            end(pid);
        }
    }));
    flight->lapse = platform_.mainQueue().asyncAfter(longestFlight, lifetime_.guard([this, pid] { end(pid); }));
    flights_[pid] = flight;
    return flight;
}

void QuitRequests::send(const Request& request, const std::shared_ptr<Flight>& flight) {
    const auto lastLook = [this, request, weak = std::weak_ptr(flight)] {
        // A flight that has ended meanwhile has met a new window.
        if (weak.expired() || !request.stillHolds()) {
            return false;
        }
        request.willSend();
        audit_.record(request.path, *request.app, TerminationAudit::Action::terminated, request.detail);
        return true;
    };
    request.app->terminate(lastLook, lifetime_.guard([this, request, weak = std::weak_ptr(flight)](
                                                         QuitOutcome outcome) { settle(request, weak, outcome); }));
}

void QuitRequests::settle(const Request& request, const std::weak_ptr<Flight>& flight, QuitOutcome outcome) {
    const auto& app = *request.app;
    const auto pid = app.processIdentifier();
    if (outcome == QuitOutcome::sent) {
        if (request.notifies) {
            notifier_.notifyQuit(app.localizedName().value_or(nameOf(app)), app.bundleURL(), pid, request.path);
        }
        return;
    }
    if (!flight.expired()) {
        end(pid);
    }
    if (outcome == QuitOutcome::dropped) {
        log_.notice("{} pid {}: its windows changed before the request was sent; dropped", nameOf(app), pid);
        request.wasDropped();
    } else if (outcome == QuitOutcome::nothingSent) {
        log_.notice("{} pid {} can't be asked to quit, or not again; nothing sent", nameOf(app), pid);
    }
}

void QuitRequests::end(ProcessId pid) {
    if (const auto flight = flights_.extract(pid)) {
        flight.mapped()->lapse->cancel();
    }
}

} // namespace ambrel
