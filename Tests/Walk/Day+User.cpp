#include "Walk/Day.h"

namespace ambrel::walk {

std::vector<Day::Verb> Day::userVerbs() {
    const auto wish = [this](long weight, const char* name, auto change) {
        return Verb{weight, name, [this, change] {
                        change(house_->settings);
                        history_.wishesChanged();
                    }};
    };
    return {
        {calm_ ? 3 : 16, "pause or resume",
         [this] {
             if (flips(wishes_.paused)) {
                 house_->settings.isPaused.set(wishes_.paused);
                 history_.wishesChanged();
             }
         }},
        wish(6, "change the delay",
             [this](AppSettings& settings) {
                 wishes_.delay = oneOf({-1.0, 0.0, 0.5, 0.5, 1.0, 3.0, 10.0});
                 settings.quitDelay.set(wishes_.delay);
             }),
        wish(3, "change the threshold",
             [this](AppSettings& settings) {
                 wishes_.quitAtZeroWindows = !wishes_.quitAtZeroWindows;
                 settings.quitOnlyWhenOneWindowLeft.set(wishes_.quitAtZeroWindows);
             }),
        wish(calm_ ? 10 : 20, "change a rule", [this](AppSettings&) { changeRule(); }),
        wish(2, "change the default rule",
             [this](AppSettings&) {
                 wishes_.others.quitOnLastWindowClose = !once(4);
                 wishes_.others.includedInQuitAll = !once(4);
                 house_->rules.setDefaultRule(wishes_.others);
             }),
        wish(8, "change the exclusions",
             [this](AppSettings& settings) {
                 wishes_.excluded.clear();
                 for (long i = upTo(3); i > 0; --i) {
                     wishes_.excluded.insert(aBundleID());
                 }
                 settings.userExcludedBundleIDs.set({wishes_.excluded.begin(), wishes_.excluded.end()});
             }),
        wish(calm_ ? 0 : 8, "change the guard", [this](AppSettings&) { changeGuard(); }),
        {2, "Quit All",
         [this] {
             history_.look();
             desktop_.settle();
             history_.look();
             statement_.quittingAll = true;
             house_->quitAll.run(false);
             statement_.quittingAll = false;
             statement_.quitAllAsked = history_.now();
         }},
        {4, "reopen",
         [this] {
             auto& center = desktop_.notificationCenter();
             if (!center.shown.empty()) {
                 center.respond(center.shown.back(),
                                oneOf<std::string>({"AMBREL_REOPEN", NotificationResponse::defaultAction}));
             }
         }},
        {calm_ ? 6 : 24, "lock, darken or switch",
         [this] {
             lockOrSleep();
         }},
        {3, "sleep and wake",
         [this] {
             desktop_.session().willSleep.emit();
             history_.shiftWallClock(static_cast<double>(upTo(30000)));
             desktop_.session().didWake.emit();
         }},
        {calm_ ? 1 : 3, "set the clock",
         [this] {
             history_.shiftWallClock(oneOf({-3600.0, -20.0, -2.0, -1.0, -1.0, 1.0, 1.0, 20.0, 300.0, 3600.0}));
         }},
        {calm_ ? 5 : 20, "disturb the window server",
         [this] {
             disturbWindowServer();
         }},
        {calm_ ? 0 : 3, "lose or regain trust",
         [this] {
             if (flips(untrusted_)) {
                 desktop_.windowList().setReadable(!untrusted_);
             }
         }},
        {2, "restart Ambrel",
         [this] {
             history_.look();
             endAmbrel();
             startAmbrel();
         }},
    };
}

void Day::changeRule() {
    const auto bundleID = aBundleID();
    const auto rule = house_->rules.explicitRule(bundleID);
    if (rule && !rule->systemDefault && once(4)) {
        wishes_.own.erase(bundleID);
        house_->rules.remove(rule->id);
    } else {
        using Idle = AppRule::IdleBehavior;
        AppRule chosen(bundleID);
        chosen.quitOnLastWindowClose = !once(5);
        chosen.quitWhenHidden = once(3);
        chosen.idleBehavior = oneOf({Idle::none, Idle::none, Idle::hide, Idle::quit});
        chosen.idleThresholdMinutes = oneOf<std::int64_t>({-3, 1, 5, 6, 30});
        chosen.includedInQuitAll = !once(4);
        wishes_.own.insert_or_assign(bundleID, chosen);
        house_->rules.upsert(chosen);
    }
    trail_.back() += ": " + bundleID;
}

void Day::changeGuard() {
    using Guard = Wishes::Guard;
    wishes_.guard = oneOf({Guard::none, Guard::none, Guard::none, Guard::whitelist, Guard::shadow});
    auto& environment = desktop_.environment();
    environment.unset("AMBREL_SHADOW_MODE");
    if (wishes_.guard == Guard::shadow) {
        environment.set("AMBREL_SHADOW_MODE", "");
    }
    desktop_.userDefaults().productSuite()->set("devModeForTesting", wishes_.guard == Guard::whitelist);
}

void Day::lockOrSleep() {
    auto& session = desktop_.session();
    switch (upTo(3)) {
    case 0:
        if (flips(locked_)) {
            session.facts->isScreenLocked = locked_;
            (locked_ ? session.screenIsLocked : session.screenIsUnlocked).emit();
        }
        break;
    case 1:
        if (flips(asleep_)) {
            (asleep_ ? session.screensDidSleep : session.screensDidWake).emit();
        }
        break;
    default:
        if (flips(away_)) {
            session.facts->isOnConsole = !away_;
            (away_ ? session.sessionDidResignActive : session.sessionDidBecomeActive).emit();
        }
    }
}

void Day::disturbWindowServer() {
    auto& server = desktop_.windowServer();
    server.listUnreadable = once(20);
    if (!server.residue.empty() && !once(3)) {
        server.residue.clear();
    } else if (const auto* const app = anApp()) {
        server.leaveResidue(app->processIdentifier());
    }
}

} // namespace ambrel::walk
