#include "Platform/Linux/LinuxProcessActivity.h"
#include "Support/ChildProcess.h"
#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace ambrel {

namespace {

/// A shell that obeys lines, so that its work begins and ends when the test says.
struct Shell {
    ChildProcess child{{"sh"}};

    void run(const std::string& command) {
        child.writeLine(command + "; echo done");
        EXPECT_EQ(child.readLine(), "done") << command;
    }
    [[nodiscard]] ProcessWork work(const std::function<bool(ProcessId)>& isAnother = [](ProcessId) {
        return false;
    }) const {
        const auto work = LinuxProcessActivity().work(child.pid(), isAnother);
        EXPECT_TRUE(work && work->charactersWritten && work->bytesWritten);
        return work.value_or(ProcessWork{});
    }
};

constexpr std::uint64_t megabyte = 1'000'000;

TEST(ProcessActivityTests, CountsWhatTheProcessAndItsDescendantsDo) {
    const TemporaryFolder folder;
    Shell shell;
    shell.run("true");
    const auto before = shell.work();
    EXPECT_FALSE(before.waitsForDisk);
    shell.run("i=0; while [ $i -lt 200000 ]; do i=$((i+1)); done");
    const auto computed = shell.work();
    EXPECT_GT(computed.processorTime.count(), before.processorTime.count() + 0.02);
    EXPECT_LT(*computed.charactersWritten, *before.charactersWritten + megabyte);

    shell.run("head -c 1000000 /dev/zero >'" + (folder.path() / "file").string() + "'");
    EXPECT_GE(*shell.work().charactersWritten, *computed.charactersWritten + megabyte) << "of a collected child";
}

TEST(ProcessActivityTests, ApplicationsOfTheirOwnAreLeftOutWithTheirDescendants) {
    Shell shell;
    shell.child.writeLine("sh -c 'sh -c \"head -c 1000000 /dev/zero >/dev/null; echo ready; sleep 3\"; :' &");
    EXPECT_EQ(shell.child.readLine(), "ready");
    shell.child.writeLine("echo $!");
    const ProcessId application = std::stoi(shell.child.readLine().value_or("0"));
    const auto isAnother = [application](ProcessId pid) {
        return pid == application;
    };
    EXPECT_GE(*shell.work().charactersWritten, megabyte);
    EXPECT_LT(*shell.work(isAnother).charactersWritten, megabyte);
}

TEST(ProcessActivityTests, ProcessThatIsGoneHasNoWork) {
    ChildProcess child({"true"});
    child.collect();
    EXPECT_FALSE(LinuxProcessActivity().work(child.pid(), [](ProcessId) { return false; }));
}

} // namespace

} // namespace ambrel
