#include "Platform/Simulated/SimulatedApplication.h"

#include "Platform/Simulated/SimulatedWorkspace.h"

namespace ambrel::simulated {

SimulatedApplication::SimulatedApplication(SimulatedWorkspace& workspace, ApplicationFacts facts)
    : workspace_(workspace), facts_(std::move(facts)) {}

bool SimulatedApplication::terminate() {
    if (terminated_ || std::holds_alternative<CannotBeAsked>(terminateAnswer)) {
        return false;
    }
    note(workspace_.requests.terminated, workspace_.requests.willTerminate);
    if (!frozen_) {
        std::visit([this](const auto& chosen) { answer(chosen); }, terminateAnswer);
    }
    return true;
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
    if (terminated_) {
        return false;
    }
    note(workspace_.requests.hidden, workspace_.requests.willHide);
    hideItself();
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
    post(hidden ? "AXApplicationHidden" : "AXApplicationShown");
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

void SimulatedApplication::post(std::string notification) {
    workspace_.queue().async(
        [self = shared_from_this(), name = std::move(notification)] { self->notifications.emit(name); });
}

} // namespace ambrel::simulated
