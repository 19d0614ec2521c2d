#include "Engine/ActivityWatch.h"

#include "Platform/Platform.h"
#include "Platform/ProcessActivity.h"
#include "Platform/Workspace.h"
#include "State/AppSettings.h"

#include <utility>

namespace ambrel {

ActivityWatch::ActivityWatch(Platform& platform, const AppSettings& settings)
    : platform_(platform), settings_(settings) {}

double ActivityWatch::now() const {
    return platform_.monotonicClock().now().count();
}

void ActivityWatch::look(const RunningApplication& app) {
    const auto pid = app.processIdentifier();
    auto& view = views_.try_emplace(pid, View{.look = {}, .firstLookAt = now(), .occupation = {}}).first->second;
    view.look = lookAt(pid);
    view.lookedAt = now();
    view.question = ++questions_;
    view.occupation = Occupation::unknown;
    ask(app, [this, pid, question = view.question](std::optional<Occupation> answer) {
        if (const auto asked = views_.find(pid); asked != views_.end() && asked->second.question == question) {
            asked->second.occupation = answer;
        }
    });
}

void ActivityWatch::ask(const RunningApplication& app, std::function<void(std::optional<Occupation>)> answer) {
    if (settings_.keepBusyApps.get()) {
        platform_.occupations().ask(app, lifetime_.guard(std::move(answer)));
    } else {
        answer(std::nullopt);
    }
}

std::optional<WorkPolicy::Look> ActivityWatch::lookAt(ProcessId pid) const {
    const auto isAnother = [this](ProcessId each) {
        return platform_.workspace().runningApplication(each) != nullptr;
    };
    const auto work = platform_.processActivity().work(pid, isAnother);
    if (!work) {
        return std::nullopt;
    }
    return WorkPolicy::Look{.processorSeconds = work->processorTime.count(),
                            .charactersWritten = work->charactersWritten,
                            .bytesWritten = work->bytesWritten,
                            .waitsForDisk = work->waitsForDisk};
}

std::optional<WorkPolicy::Sign> ActivityWatch::signOfWork(ProcessId pid) const {
    const auto view = views_.find(pid);
    const auto present = view != views_.end() && view->second.look ? lookAt(pid) : std::nullopt;
    return present ? WorkPolicy::signOfWork(*view->second.look, *present, now() - view->second.lookedAt) : std::nullopt;
}

std::optional<Occupation> ActivityWatch::occupation(ProcessId pid) const {
    const auto view = views_.find(pid);
    return view != views_.end() ? view->second.occupation : std::nullopt;
}

double ActivityWatch::watchedFor(ProcessId pid) const {
    const auto view = views_.find(pid);
    return view != views_.end() ? now() - view->second.firstLookAt : 0;
}

} // namespace ambrel
