#pragma once

#include "Core/MainQueue.h"
#include "Platform/Occupations.h"

namespace ambrel {

class LinuxOccupations final : public Occupations {
public:
    explicit LinuxOccupations(MainQueue& queue) : queue_(queue) {}

    void ask(const RunningApplication& app, std::function<void(std::optional<Occupation>)> answer) override;

private:
    MainQueue& queue_;
};

} // namespace ambrel
