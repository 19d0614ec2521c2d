#pragma once

#include "Platform/BackgroundQueue.h"

namespace ambrel::simulated {

class VirtualMainQueue;

/// Polls on the one virtual clock.
class SimulatedBackgroundQueue final : public BackgroundQueue {
public:
    explicit SimulatedBackgroundQueue(VirtualMainQueue& queue) : queue_(queue) {}

    void poll(int times, Seconds interval, std::function<bool()> holds, std::function<void(bool)> finished) override;

private:
    VirtualMainQueue& queue_;
};

} // namespace ambrel::simulated
