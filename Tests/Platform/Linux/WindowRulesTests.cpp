#include "Platform/Linux/ApplicationVisibility.h"
#include "Platform/Linux/ClientListDifference.h"
#include "Platform/Linux/WindowOwnership.h"
#include "Platform/Linux/X11WindowTraits.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace ambrel {
namespace {

using Ids = std::vector<std::uint32_t>;

TEST(ClientListDifference, FindsWhatCameAndWentWhateverTheOrder) {
    struct Case {
        Ids before, after, added, removed;
    };
    const Case cases[] = {
        {{}, {}, {}, {}},
        {{}, {3, 1, 2}, {3, 1, 2}, {}},
        {{1, 2, 3}, {}, {}, {1, 2, 3}},
        {{1, 2, 3, 4}, {1, 3, 4}, {}, {2}},
        {{1, 2, 3}, {1, 9, 2, 3}, {9}, {}},
        {{1, 2, 3, 4}, {4, 3, 2, 1}, {}, {}},
        {{1, 2, 3, 4}, {1, 4, 5, 3}, {5}, {2}},
        {{1, 2}, {2, 3}, {3}, {1}},
        // A list that names a window twice loses or gains none by naming it once.
        {{1, 1, 2}, {1, 2}, {}, {}},
        {{1, 2}, {1, 1, 2}, {}, {}},
        {{}, {7, 7}, {7}, {}},
    };
    for (const auto& [before, after, added, removed] : cases) {
        EXPECT_EQ(clientListDifference(before, after), (ClientListDifference{added, removed}))
            << testing::PrintToString(before) << " to " << testing::PrintToString(after);
    }
}

TEST(WindowOwnership, BelievesOnlyClaimsThatAgree) {
    const auto sandboxed = [](ProcessId pid) {
        return pid == 400 ? std::optional<ProcessId>(2) : pid;
    };
    struct Case {
        const char* name;
        OwnershipClaims claims;
        WindowOwnership expected;
    };
    const Case cases[] = {
        {"both say the same", {400, 400, "host"}, {400, {}}},
        {"the window says nothing", {400, {}, ""}, {400, {}}},
        {"the id inside a sandbox", {400, 2, "host"}, {400, {}}},
        {"another sandbox's id", {400, 3, "host"}, {{}, {400, 3}}},
        {"a lie", {500, 600, "host"}, {{}, {500, 600}}},
        {"only the window speaks", {{}, 600, "host"}, {{}, {600}}},
        {"another machine through a local proxy", {500, 500, "elsewhere"}, {{}, {500}}},
        {"another machine's process id", {500, 600, "elsewhere"}, {{}, {500}}},
        {"the full name of the host", {400, 400, "HOST.example.org"}, {400, {}}},
        {"another host of a longer name", {500, 500, "hostess"}, {{}, {500}}},
        {"nothing at all", {{}, {}, ""}, {{}, {}}},
    };
    for (const auto& [name, claims, expected] : cases) {
        EXPECT_EQ(judgeOwnership(claims, "host", sandboxed), expected) << name;
    }
    EXPECT_EQ(judgeOwnership({500, 500, "host.b.org"}, "host.a.org", sandboxed).process, std::nullopt);
}

TEST(WindowOwnership, ReadsTheInnermostProcessId) {
    EXPECT_EQ(parseInnermostPid("Name:\tNSpid:\t9\nPid:\t400\nNSpid:\t400\t31\t2\nNSpgid:\t1\n"), 2);
    EXPECT_EQ(parseInnermostPid("Name:\tx\nNSpid:\t400\n"), 400);
    for (const auto* const status :
         {"", "Name:\tNSpid:\t9\n", "\nNSpid:", "\nNSpid:\t4x\n", "\nNSpid:\t99999999999\n"}) {
        EXPECT_EQ(parseInnermostPid(status), std::nullopt) << status;
    }
}

TEST(X11WindowTraits, TellsWindowsFromTheRestOfTheDesktop) {
    struct Case {
        std::vector<X11Atom> types;
        bool transient;
        WindowKind expected;
    };
    const Case cases[] = {
        {{}, false, WindowKind::standard},
        {{}, true, WindowKind::dialog},
        {{X11Atom::typeNormal}, true, WindowKind::standard},
        {{X11Atom::typeDialog}, false, WindowKind::dialog},
        {{X11Atom::typeUtility, X11Atom::typeNormal}, false, WindowKind::floating},
        {{X11Atom::typeDock, X11Atom::typeNormal}, false, WindowKind::panel},
        {{X11Atom::typeSplash}, false, WindowKind::overlay},
        // No type at all: a property may hold anything.
        {{X11Atom::netWmPid}, true, WindowKind::dialog},
        {{X11Atom::netWmPid, X11Atom::typeDesktop}, false, WindowKind::desktop},
    };
    for (const auto& [types, transient, expected] : cases) {
        const X11Presentation shown{.hasTransientParent = transient, .types = types, .states = {}, .wmState = {}};
        EXPECT_EQ(windowKind(shown), expected) << testing::PrintToString(types.size());
    }
    EXPECT_EQ(windowKind({.overrideRedirect = true, .types = {X11Atom::typeNormal}, .states = {}, .wmState = {}}),
              WindowKind::overlay);
}

TEST(X11WindowTraits, TakesOnlyMinimisedWindowsForMinimised) {
    constexpr std::uint32_t normal = 1;
    constexpr std::uint32_t iconic = 3;
    struct Case {
        const char* name;
        std::vector<X11Atom> states;
        std::optional<std::uint32_t> wmState;
        bool hiddenSupported;
        bool expected;
    };
    const Case cases[] = {
        {"minimised", {X11Atom::netWmStateHidden}, iconic, true, true},
        {"minimised before WM_STATE says so", {X11Atom::netWmStateHidden}, normal, true, true},
        {"on another desktop", {}, iconic, true, false},
        {"shaded", {X11Atom::netWmStateShaded}, iconic, true, false},
        {"shaded, and called hidden", {X11Atom::netWmStateShaded, X11Atom::netWmStateHidden}, normal, true, false},
        {"only WM_STATE to go by", {}, iconic, false, true},
        {"open", {}, normal, false, false},
        {"nothing known", {}, {}, false, false},
    };
    for (const auto& [name, states, wmState, hiddenSupported, expected] : cases) {
        const X11Presentation shown{.types = {}, .states = states, .wmState = wmState};
        EXPECT_EQ(isMinimized(shown, hiddenSupported), expected) << name;
    }
}

class ApplicationVisibilityTest : public testing::Test {
protected:
    using Windows = std::vector<DesktopWindow>;
    using enum ApplicationVisibility::Transition;
    using Event = WindowEvent;

    static DesktopWindow window(bool onDesktop, bool minimized = false) {
        return {{.minimized = minimized, .onDesktop = onDesktop}, 1};
    }
    const Windows open{window(true), window(false)};
    const Windows iconified{window(true, true), window(false)};
    const Windows withdrawn_{window(false), window(false)};

    /// One window, off the desktop from now on.
    void withdraw(WindowId id = 1, double now = 0) {
        visibility.note(Event::withdrawn, {{.onDesktop = false}, id}, Seconds(now));
    }

    ApplicationVisibility visibility;
};

TEST_F(ApplicationVisibilityTest, HidesOnlyWhenAWithdrawnWindowStaysAlive) {
    withdraw();
    EXPECT_EQ(visibility.changed(withdrawn_, false), none) << "it may be on its way to being closed";
    EXPECT_FALSE(visibility.isHidden());
    EXPECT_EQ(visibility.settled(open, false), none);
    EXPECT_EQ(visibility.settled(withdrawn_, false), hidden);
    EXPECT_EQ(visibility.settled(withdrawn_, false), none) << "told once";
    EXPECT_TRUE(visibility.isHidden());
    EXPECT_EQ(visibility.changed(iconified, false), shown) << "back in the task bar";
    EXPECT_FALSE(visibility.isHidden());
}

/// What happens to windows in their order, and whether the application then counts as hidden.
struct Departure {
    const char* name;
    struct Step {
        WindowEvent event;
        WindowId id;
        double time;
        bool onDesktop;
        WindowKind kind = WindowKind::standard;
    };
    std::vector<Step> steps;
    bool hides;
};

TEST_F(ApplicationVisibilityTest, TheLastWindowSaysWhatItsGoingMeans) {
    const Departure departures[] = {
        {"withdrawn last", {{Event::withdrawn, 1, 0, false}}, true},
        {"withdrawn, then destroyed", {{Event::withdrawn, 1, 0, false}, {Event::vanished, 1, 9, false}}, false},
        {"withdrawn while another was open, which was destroyed",
         {{Event::withdrawn, 1, 0, false}, {Event::vanished, 2, 9, true}},
         false},
        {"the same where the manager unlists before the destruction",
         {{Event::withdrawn, 1, 0, false}, {Event::withdrawn, 2, 9, false}, {Event::vanished, 2, 9, false}},
         false},
        {"both at once, and one destroyed",
         {{Event::withdrawn, 1, 9, false}, {Event::withdrawn, 2, 9.1, false}, {Event::vanished, 2, 9.2, false}},
         true},
        {"an old one destroyed beside the one that hides",
         {{Event::withdrawn, 1, 0, false}, {Event::withdrawn, 2, 9, false}, {Event::vanished, 1, 20, false}},
         true},
        {"hidden, and a dialog came and went",
         {{Event::withdrawn, 1, 0, false},
          {Event::appeared, 2, 9, true, WindowKind::dialog},
          {Event::vanished, 2, 10, true, WindowKind::dialog}},
         true},
        {"shown again, then destroyed",
         {{Event::withdrawn, 1, 0, false}, {Event::appeared, 1, 5, true}, {Event::vanished, 1, 9, true}},
         false},
    };
    for (const auto& departure : departures) {
        ApplicationVisibility each;
        for (const auto& step : departure.steps) {
            each.note(step.event, {{.kind = step.kind, .onDesktop = step.onDesktop}, step.id}, Seconds(step.time));
        }
        EXPECT_EQ(each.settled(withdrawn_, false) == hidden, departure.hides) << departure.name;
    }
}

TEST_F(ApplicationVisibilityTest, TheEndOfTheWindowThatHidItIsAnEndOfHiding) {
    withdraw();
    EXPECT_EQ(visibility.settled(withdrawn_, false), hidden);
    visibility.note(Event::vanished, {{.onDesktop = false}, 1}, Seconds(9));
    EXPECT_EQ(visibility.changed({}, false), none);
    EXPECT_FALSE(visibility.isHidden());
}

TEST_F(ApplicationVisibilityTest, InTheTrayItIsHiddenAtOnceAndToldOfLater) {
    EXPECT_EQ(visibility.changed(open, true), none);
    EXPECT_FALSE(visibility.isHidden()) << "an icon beside a window";
    EXPECT_EQ(visibility.changed({}, true), none);
    EXPECT_TRUE(visibility.isHidden()) << "a quit may be due at this very moment";
    EXPECT_EQ(visibility.settled({}, true), hidden);
    EXPECT_EQ(visibility.settled({}, true), none);
    EXPECT_EQ(visibility.changed(open, true), shown);

    EXPECT_EQ(visibility.changed({}, true), none);
    EXPECT_EQ(visibility.changed(open, true), none) << "nobody has heard that it was hidden";
    EXPECT_FALSE(visibility.isHidden());

    EXPECT_EQ(visibility.changed({}, true), none);
    EXPECT_EQ(visibility.settled({}, true), hidden);
    EXPECT_EQ(visibility.changed({}, false), none);
    EXPECT_FALSE(visibility.isHidden()) << "with its icon gone, and no window alive";
}

TEST_F(ApplicationVisibilityTest, IconifyingIsHidingOnlyAtOurRequest) {
    EXPECT_EQ(visibility.changed(iconified, false), none);
    visibility.beginHiding();
    EXPECT_EQ(visibility.changed(open, false), none) << "the window manager has yet to act";
    EXPECT_EQ(visibility.changed(iconified, true), hidden);
    visibility.endHiding();
    EXPECT_TRUE(visibility.isHidden());
    EXPECT_EQ(visibility.changed(open, true), shown);

    visibility.beginHiding();
    visibility.endHiding();
    EXPECT_FALSE(visibility.isHidden()) << "the window manager refused";
    EXPECT_EQ(visibility.changed(iconified, false), none) << "the user, long after";
}

} // namespace
} // namespace ambrel
