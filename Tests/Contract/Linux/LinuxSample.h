#pragma once

#include "Contract/DesktopDriver.h"
#include "Support/ChildProcess.h"

#include <optional>
#include <string>
#include <vector>

namespace ambrel {

/// The sample program as a child process, driven through its standard input. A verb returns when the program has
/// done its part and the X server has taken it.
class LinuxSample final : public SampleApplication {
public:
    explicit LinuxSample(const std::string& windowClass);
    ~LinuxSample() override;

    [[nodiscard]] ProcessId pid() const override { return process_->pid(); }
    int openWindow() override { return open("open"); }
    int openDialog() override { return open("dialog"); }
    void close(int window) override { command("destroy " + std::to_string(window)); }
    void minimise(int window) override { command("minimise " + std::to_string(window)); }
    void restore(int window) override { map(window); }
    void withdraw(int window) override { command("withdraw " + std::to_string(window)); }
    void map(int window) override { command("map " + std::to_string(window)); }
    void show() override;
    void refuseToQuit() override;
    void crash() override;

    /// The command line of a sample that opens one window.
    [[nodiscard]] static std::vector<std::string> commandLine(const std::string& windowClass);

private:
    int open(const std::string& verb);
    void command(const std::string& line);
    /// Reads the program's output up to a line that holds `text`.
    void awaitOutput(const std::string& text);

    std::optional<ChildProcess> process_;
    int input_ = -1;
    int output_ = -1;
    int windows_ = 0;
};

} // namespace ambrel
