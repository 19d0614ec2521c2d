#pragma once

#include "Core/Lifetime.h"
#include "Core/MainQueue.h"
#include "Platform/Linux/AsyncBus.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace ambrel {

/// One question to PackageKit: which newer version of a package it offers. Its transactions tell the whole bus about
/// themselves, other people's too, so this listens on a connection of its own, and no longer than it asks. Main thread
/// only.
class PackageQuestion {
public:
    struct Answer {
        std::optional<std::string> offered; ///< absent where there is nothing newer
        std::optional<std::string> failure; ///< why that could not be learned
    };

    /// `finished` is called once, in a turn of the queue in which this object may be destroyed. Destroying it earlier
    /// takes the question back.
    PackageQuestion(MainQueue& queue, std::string package, std::function<void(const Answer&)> finished);
    PackageQuestion(const PackageQuestion&) = delete;
    PackageQuestion& operator=(const PackageQuestion&) = delete;
    ~PackageQuestion();

private:
    void begin(const std::string& transaction);
    void hear(sd_bus_message* message);
    void notePackage(sd_bus_message* message);
    void noteFailure(sd_bus_message* message);
    void finish();
    void fail(const std::string& why);

    MainQueue& queue_;
    std::string package_;
    std::function<void(const Answer&)> finished_;
    Answer answer_;
    bool isFinished_ = false;
    std::unique_ptr<AsyncBus> bus_;
    Subscription busLost_;
    WorkItemRef deadline_;
    Lifetime lifetime_;
};

/// The version in a package's identifier, "name;version;architecture;data"; absent where it is another package's.
[[nodiscard]] std::optional<std::string> versionOf(const std::string& package, const std::string& identifier);

} // namespace ambrel
