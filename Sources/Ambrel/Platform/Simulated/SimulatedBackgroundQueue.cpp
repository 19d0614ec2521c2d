#include "Platform/Simulated/SimulatedBackgroundQueue.h"

#include "Platform/Simulated/VirtualMainQueue.h"

#include <utility>

namespace ambrel::simulated {

void SimulatedBackgroundQueue::poll(int times, Seconds interval, std::function<bool()> holds,
                                    std::function<void(bool)> finished) {
    // The last question is followed by a last wait, and by nothing but the answer.
    const auto step = [this, times, interval, holds = std::move(holds), finished = std::move(finished)] {
        if (times <= 0 || holds()) {
            finished(times > 0);
            return;
        }
        queue_.asyncAfter(interval,
                          [this, times, interval, holds, finished] { poll(times - 1, interval, holds, finished); });
    };
    queue_.async(step);
}

} // namespace ambrel::simulated
