#include "Engine/AppMonitor.h"
#include "Engine/OccupationWords.h"
#include "Engine/QuitEngine.h"

#include <algorithm>
#include <utility>

namespace ambrel {

namespace {

// A player can't be heard of when it stops, so it is asked about more and more rarely.
constexpr double firstHold = 1;
constexpr double longestHold = 60;

} // namespace

void QuitEngine::armSecondCheck(const Target& target, double delay) {
    const auto pid = target.monitor->pid();
    submit(pid, delay, [pid, bundleID = target.monitor->bundleID()](QuitEngine& engine) {
        engine.confirmAndTerminate(pid, bundleID);
    });
    activity_.look(*target.app);
}

/// An application that ends by itself is left to finish what it saves.
void QuitEngine::awaitWork(WorkPolicy::Sign sign, const Target& target) {
    const auto pid = target.monitor->pid();
    const auto& bundleID = target.monitor->bundleID();
    if (activity_.watchedFor(pid) < WorkPolicy::limit) {
        log_.notice("quit check 2/2: {} is working ({}) — looking again in {:f}s", bundleID, word(sign),
                    WorkPolicy::interval);
        armSecondCheck(target, WorkPolicy::interval);
        return;
    }
    log_.notice("quit check 2/2: {} has been working for {:f}s ({}) — kept until its windows change", bundleID,
                WorkPolicy::limit, word(sign));
    neighbours_.audit.record(TerminationAudit::Path::lastWindow, bundleID, bundleID, pid,
                             TerminationAudit::Action::skippedWorking, word(sign));
    activity_.forget(pid);
}

void QuitEngine::hold(const Target& target) {
    const auto pid = target.monitor->pid();
    const auto occupation = activity_.occupation(pid).value_or(Occupation::unknown);
    const auto& bundleID = target.monitor->bundleID();
    activity_.forget(pid);
    const auto [held, isNew] = holds_.try_emplace(pid, firstHold);
    const double delay = std::exchange(held->second, std::min(held->second * 2, longestHold));
    log_.notice("quit check 2/2: {} is {} — skipping quit; asking again in {:f}s", bundleID, word(occupation), delay);
    if (isNew) {
        neighbours_.audit.record(TerminationAudit::Path::lastWindow, bundleID, bundleID, pid,
                                 heldBackBecause(occupation), {});
    }
    submit(pid, delay, [pid, bundleID](QuitEngine& engine) { engine.performQuit(pid, bundleID); });
}

void QuitEngine::forgetActivity(ProcessId pid) {
    activity_.forget(pid);
    holds_.erase(pid);
}

} // namespace ambrel
