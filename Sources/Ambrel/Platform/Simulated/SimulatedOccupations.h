#pragma once

#include "Platform/Occupations.h"
#include "Platform/Simulated/VirtualMainQueue.h"

#include <map>

namespace ambrel::simulated {

/// Applications are occupied as tests say.
class SimulatedOccupations final : public Occupations {
public:
    explicit SimulatedOccupations(VirtualMainQueue& queue) : queue_(queue) {}

    void ask(const RunningApplication& app, std::function<void(std::optional<Occupation>)> answer) override {
        ++questions;
        const auto known = of.find(app.processIdentifier());
        const auto occupation = isSilent            ? std::optional(Occupation::unknown)
                                : known != of.end() ? std::optional(known->second)
                                                    : none;
        queue_.asyncAfter(isSilent ? answerLimit : Seconds(0),
                          [answer = std::move(answer), occupation] { answer(occupation); });
    }

    std::map<ProcessId, Occupation> of;
    bool isSilent = false; ///< a service takes too long to answer
    int questions = 0;

private:
    static constexpr std::optional<Occupation> none{};

    VirtualMainQueue& queue_;
};

} // namespace ambrel::simulated
