#include "Platform/Linux/EventLoop.h"
#include "Platform/Linux/PrivateBus.h"
#include "Platform/Linux/ProcFiles.h"
#include "Platform/Linux/Process.h"
#include "Platform/Linux/QuitRequest.h"
#include "Platform/Linux/SessionBus.h"

#include <gtest/gtest.h>

namespace ambrel {

namespace {

/// An application with actions of its own.
struct Application {
    explicit Application(std::vector<std::string> actions)
        : child(command(std::move(actions))), busName(child.readLine().value_or("")),
          process(Process::open(child.pid(), [] {})) {}

    static std::vector<std::string> command(std::vector<std::string> actions) {
        actions.insert(actions.begin(), ACTION_RESPONDER);
        return actions;
    }

    [[nodiscard]] QuitActionAddress address() const { return {busName, "/app"}; }

    /// Everything that it was told until now.
    std::vector<std::string> heard() {
        child.signal(SIGWINCH);
        std::vector<std::string> lines;
        for (auto line = child.readLine(); line && line != "done"; line = child.readLine()) {
            lines.push_back(*line);
        }
        return lines;
    }

    ChildProcess child;
    std::string busName;
    std::shared_ptr<Process> process;
};

/// The stopped process has a SIGTERM to handle when it goes on.
bool signalPending(pid_t pid) {
    const auto status = readProcFile(pid, "status").value_or("");
    const auto found = status.find("ShdPnd:\t");
    return found != std::string::npos && (std::stoull(status.substr(found + 8), nullptr, 16) >> (SIGTERM - 1) & 1) != 0;
}

using Lines = std::vector<std::string>;
const std::string activation = "sava{sv} quit";

class QuitRequestTests : public testing::Test {
protected:
    QuitRequestTests() { EXPECT_TRUE(sessionBus.connection(Seconds(10))); }

    /// Runs the loop until the application has heard something.
    static Lines awaitNews(Application& application) {
        Lines lines;
        EXPECT_TRUE(runUntil([&] {
            const auto more = application.heard();
            lines.insert(lines.end(), more.begin(), more.end());
            return !lines.empty();
        }));
        return lines;
    }

    void quit(const Application& application, std::optional<QuitActionAddress> address) {
        request.quit(application.process, std::move(address),
                     {.lastLook = [this] { return ++looks, allows; },
                      .done =
                          [this](QuitOutcome outcome) {
                              outcomes.push_back(outcome);
                          }});
    }

    bool allows = true;
    int looks = 0;
    std::vector<QuitOutcome> outcomes;
    PrivateBus bus;
    SessionBus sessionBus;
    QuitRequest request{sessionBus};
};

TEST_F(QuitRequestTests, CallsTheActionAndSendsNoSignalEver) {
    Application application({"open", "quit"});
    quit(application, application.address());
    quit(application, application.address());
    EXPECT_EQ(awaitNews(application), Lines{activation});
    quit(application, std::nullopt);
    EXPECT_EQ(application.heard(), Lines{});
}

TEST_F(QuitRequestTests, OneSignalWhereThereIsNoAction) {
    Application application({"open", "quit-all"});
    quit(application, application.address());
    EXPECT_EQ(awaitNews(application), Lines{"SIGTERM"});
    quit(application, std::nullopt);
    EXPECT_EQ(application.heard(), Lines{}) << "many programs die of the second signal";
    EXPECT_EQ(outcomes, (std::vector{QuitOutcome::sent, QuitOutcome::nothingSent}));
    EXPECT_EQ(looks, 1) << "nobody looks where nothing can be sent";

    Application other({"quit"});
    quit(other, std::nullopt);
    EXPECT_EQ(other.heard(), Lines{"SIGTERM"});
}

TEST_F(QuitRequestTests, SendsNothingThatTheLastLookForbids) {
    allows = false;
    Application application({"quit"});
    quit(application, application.address());
    EXPECT_TRUE(runUntil([&] { return !outcomes.empty(); }));
    quit(application, std::nullopt);
    EXPECT_EQ(outcomes, (std::vector{QuitOutcome::dropped, QuitOutcome::dropped}));
    EXPECT_EQ(application.heard(), Lines{});
    allows = true;
    quit(application, std::nullopt);
    EXPECT_EQ(awaitNews(application), Lines{"SIGTERM"}) << "what was dropped may be sent later";
}

TEST_F(QuitRequestTests, AddressOfAnotherProcessIsNotCalled) {
    Application application({});
    Application bystander({"quit"});
    quit(application, bystander.address());
    EXPECT_EQ(awaitNews(application), Lines{"SIGTERM"});
    EXPECT_EQ(bystander.heard(), Lines{});
}

TEST_F(QuitRequestTests, AddressesOfNobodyLeadToTheSignal) {
    for (const auto& address : {QuitActionAddress{":1.9999", "/app"}, QuitActionAddress{"", ""},
                                QuitActionAddress{"org.example.Absent", "/app"}, QuitActionAddress{"\xff", "app"}}) {
        Application application({"quit"});
        quit(application, address);
        EXPECT_EQ(awaitNews(application), Lines{"SIGTERM"}) << address.busName;
    }
    for (const auto* const path : {"", "no path", "/elsewhere"}) {
        Application application({"quit"});
        quit(application, QuitActionAddress{application.busName, path});
        EXPECT_EQ(awaitNews(application), Lines{"SIGTERM"}) << path;
    }
}

TEST_F(QuitRequestTests, HungApplicationGetsTheSignal) {
    Application application({"quit"});
    application.child.signal(SIGSTOP);
    application.child.awaitStop();
    quit(application, application.address());
    EXPECT_TRUE(runUntil([&] { return signalPending(application.child.pid()); }));
    application.child.signal(SIGCONT);
    EXPECT_EQ(application.heard(), Lines{"SIGTERM"});
}

TEST_F(QuitRequestTests, EndedProcessIsLeftAlone) {
    Application application({"quit"});
    quit(application, application.address());
    application.child.signal(SIGKILL);
    application.child.awaitEnd();
    quit(application, std::nullopt);
    EXPECT_EQ(application.child.collect(), -SIGKILL);
}

} // namespace

} // namespace ambrel
