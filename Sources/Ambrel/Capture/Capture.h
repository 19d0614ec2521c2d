#pragma once

#include "Capture/Job.h"

#include <deque>
#include <filesystem>
#include <memory>

#include <QQmlEngine>

namespace ambrel {

class Environment;
class Fixtures;
class Frame;

/// Draws each view, in light and in dark, in a window off the screen.
class Capture {
public:
    /// True when the environment asks for pictures. They are drawn one by one as the event loop turns; after the last
    /// the program ends.
    [[nodiscard]] static bool runIfRequested(const Environment& environment);

    Capture(std::filesystem::path folder, const Environment& environment);
    Capture(const Capture&) = delete;
    Capture& operator=(const Capture&) = delete;
    ~Capture();

private:
    void processNext();
    void show(const Job& job);

    std::filesystem::path folder_;
    std::unique_ptr<Fixtures> fixtures_;
    QQmlEngine engine_;
    std::deque<Job> queue_;
    std::unique_ptr<Frame> frame_;
};

} // namespace ambrel
