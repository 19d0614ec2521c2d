#include "Platform/Linux/EventLoop.h"
#include "Platform/Linux/ProcFiles.h"
#include "Platform/Linux/Process.h"
#include "Support/ChildProcess.h"

#include <gtest/gtest.h>

#include <sys/prctl.h>
#include <unistd.h>

namespace ambrel {

namespace {

[[noreturn]] int waitForSignals() {
    while (true) {
        pause();
    }
}

TEST(ProcessTests, TellsOfTheEndOnceAndFromTheEventLoop) {
    ChildProcess child(waitForSignals);
    int ends = 0;
    const auto process = Process::open(child.pid(), [&] { ++ends; });
    ASSERT_TRUE(process);
    EXPECT_FALSE(process->hasExited());
    const Seconds age = SystemClock().now() - process->startDate();
    EXPECT_LT(std::abs(age.count()), 3);

    EXPECT_TRUE(process->signal(SIGTERM));
    child.awaitEnd();
    EXPECT_EQ(ends, 0);
    EXPECT_TRUE(runUntil([&] { return ends > 0; }));
    EXPECT_EQ(child.collect(), -SIGTERM);
    QCoreApplication::processEvents();
    EXPECT_EQ(ends, 1);
}

TEST(ProcessTests, ZombieHasEndedAndTakesNoSignal) {
    ChildProcess child(waitForSignals);
    const auto process = Process::open(child.pid(), [] {});
    ASSERT_TRUE(process);
    child.signal(SIGKILL);
    child.awaitEnd();
    EXPECT_TRUE(process->hasExited());
    EXPECT_FALSE(process->signal(SIGTERM));
    EXPECT_FALSE(Process::open(child.pid(), [] {}));
    EXPECT_FALSE(Process::exists(child.pid()));

    const auto gone = child.pid();
    child.collect();
    EXPECT_TRUE(process->hasExited());
    EXPECT_FALSE(process->signal(SIGTERM));
    EXPECT_FALSE(Process::open(gone, [] {}));
    EXPECT_FALSE(Process::exists(gone));
}

TEST(ProcessTests, ExistsWhoeversItIsAndWhicheverThreadHasEnded) {
    ChildProcess headless({"python3", "-c",
                           "import ctypes, threading, time\n"
                           "threading.Thread(target=time.sleep, args=[60]).start()\n"
                           "print('ready', flush=True)\n"
                           "ctypes.CDLL(None).pthread_exit(None)"});
    ASSERT_EQ(headless.readLine(), "ready");
    const auto state = [&] {
        const auto stat = readProcFile(headless.pid(), "stat").value_or("");
        return stat.substr(std::min(stat.rfind(')') + 2, stat.size()), 1);
    };
    ASSERT_TRUE(runUntil([&] { return state() == "Z"; }));
    EXPECT_TRUE(Process::exists(headless.pid()));
    EXPECT_TRUE(Process::exists(1));
    EXPECT_FALSE(Process::exists(0));
    EXPECT_FALSE(Process::exists(-1));
}

TEST(ProcessTests, MayBeDroppedByTheNewsOfItsEnd) {
    ChildProcess child(waitForSignals);
    std::shared_ptr<Process> process;
    process = Process::open(child.pid(), [&] { process.reset(); });
    child.signal(SIGKILL);
    EXPECT_TRUE(runUntil([&] { return process == nullptr; }));
}

TEST(ProcessTests, DroppedProcessIsSilent) {
    ChildProcess child(waitForSignals);
    bool told = false;
    Process::open(child.pid(), [&] { told = true; }).reset();
    bool otherTold = false;
    const auto other = Process::open(child.pid(), [&] { otherTold = true; });
    child.signal(SIGKILL);
    EXPECT_TRUE(runUntil([&] { return otherTold; }));
    EXPECT_FALSE(told);
}

TEST(ProcessTests, OursByUserEvenWhenUntraceable) {
    ChildProcess hardened([]() -> int {
        prctl(PR_SET_DUMPABLE, 0);
        waitForSignals();
    });
    EXPECT_TRUE(Process::open(hardened.pid(), [] {}));
    EXPECT_FALSE(Process::open(0, [] {}));
    EXPECT_FALSE(Process::open(-1, [] {}));
    if (geteuid() != 0) {
        EXPECT_FALSE(Process::open(1, [] {}));
        return;
    }
    ChildProcess foreign({"setpriv", "--reuid=65534", "--clear-groups", "sh", "-c", "echo ready; exec sleep 60"});
    ASSERT_EQ(foreign.readLine(), "ready");
    EXPECT_FALSE(Process::open(foreign.pid(), [] {}));
}

} // namespace

} // namespace ambrel
