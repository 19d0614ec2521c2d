#include "Platform/Simulated/SimulatedApplication.h"

#include "Platform/Simulated/SimulatedWorkspace.h"

#include <utility>

namespace ambrel::simulated {

SimulatedApplication::SimulatedApplication(SimulatedWorkspace& workspace, ApplicationFacts facts)
    : workspace_(workspace), facts_(std::move(facts)) {}

bool SimulatedApplication::isHidden() const {
    return hidden_ || (hasTrayItem && !hasWindowOnDesktop());
}

void SimulatedApplication::terminate(std::function<bool()> lastLook, std::function<void(QuitOutcome)> done) {
    // Windows are simply asked to close.
    if (hasWindowOnDesktop() || questionTime.count() <= 0) {
        return done(request(lastLook));
    }
    if (std::exchange(asking_, true)) {
        return done(QuitOutcome::nothingSent);
    }
    workspace_.queue().asyncAfter(questionTime,
                                  [self = shared_from_this(), lastLook = std::move(lastLook), done = std::move(done)] {
                                      self->asking_ = false;
                                      done(self->hasWindowOnDesktop() ? QuitOutcome::dropped : self->request(lastLook));
                                  });
}

QuitOutcome SimulatedApplication::request(const std::function<bool()>& lastLook) {
    if (terminated_) {
        return QuitOutcome::gone;
    }
    const bool again = signalled_ && !hasWindowOnDesktop();
    if (again || !workspace_.hasWindowManager || std::holds_alternative<CannotBeAsked>(terminateAnswer)) {
        return QuitOutcome::nothingSent;
    }
    if (!lastLook()) {
        return QuitOutcome::dropped;
    }
    signalled_ = signalled_ || !hasWindowOnDesktop();
    note(workspace_.requests.terminated, workspace_.requests.willTerminate);
    if (!frozen_) {
        std::visit([this](const auto& chosen) { answer(chosen); }, terminateAnswer);
    }
    return QuitOutcome::sent;
}

bool SimulatedApplication::forceTerminate() {
    if (terminated_) {
        return false;
    }
    note(workspace_.requests.forceTerminated, workspace_.requests.willForceTerminate);
    workspace_.queue().async([self = shared_from_this()] { self->crash(); });
    return true;
}

bool SimulatedApplication::hide() {
    if (terminated_ || !hasWindowOnDesktop()) {
        return false;
    }
    note(workspace_.requests.hidden, workspace_.requests.willHide);
    if (!workspace_.refusesToIconify) {
        hideItself();
    }
    return true;
}

void SimulatedApplication::note(std::vector<Request>& requests, const Signal<const Request&>& announcement) {
    const Request request{facts_.pid, workspace_.queue().now()};
    requests.push_back(request);
    announcement.emit(request);
}

void SimulatedApplication::answer(const Quits& answer) {
    workspace_.queue().asyncAfter(answer.delay, [self = shared_from_this()] { self->quit(); });
}

void SimulatedApplication::answer(const Lingers& answer) {
    workspace_.queue().async([self = shared_from_this()] { self->closeWindows(); });
    workspace_.queue().asyncAfter(answer.span, [self = shared_from_this()] { self->crash(); });
}

void SimulatedApplication::answer(const ShowsSaveDialog&) {
    workspace_.queue().async([self = shared_from_this()] {
        if (!self->terminated_) {
            self->openDialog();
        }
    });
}

void SimulatedApplication::hideItself() {
    setHidden(true);
}

void SimulatedApplication::show() {
    setHidden(false);
}

void SimulatedApplication::setHidden(bool hidden) {
    if (terminated_ || hidden_ == hidden) {
        return;
    }
    hidden_ = hidden;
    post(hidden ? WindowEvent::hidden : WindowEvent::shown);
    if (hidden) {
        workspace_.announce(workspace_.didHide, shared_from_this());
        workspace_.passFocusOn(*this);
    }
}

void SimulatedApplication::activate() {
    if (!terminated_) {
        show();
        workspace_.focus(shared_from_this());
    }
}

void SimulatedApplication::quit() {
    closeWindows();
    workspace_.queue().async([self = shared_from_this()] { self->crash(); });
}

void SimulatedApplication::crash() {
    if (terminated_) {
        return;
    }
    closeWindows();
    terminated_ = true;
    workspace_.remove(shared_from_this());
}

void SimulatedApplication::post(WindowEvent event) {
    workspace_.queue().async([self = shared_from_this(), event] {
        // The next process with the same id has other windows.
        const auto current = self->workspace_.find(self->processIdentifier());
        if (!current || current == self) {
            self->workspace_.windowEvent.emit(self->processIdentifier(), event);
        }
    });
}

} // namespace ambrel::simulated
