#pragma once

#include "Platform/Simulated/SimulatedStatusItem.h"

#include <string>

namespace ambrel::simulated {

/// A tray that knows the one item of this program.
class SimulatedStatusBar final : public StatusBar {
public:
    [[nodiscard]] std::shared_ptr<StatusItem> makeItem(std::string identifier, std::string title) override {
        if (!takesItems) {
            return nullptr;
        }
        made.push_back(std::move(identifier) + ": " + std::move(title));
        item = std::make_shared<SimulatedStatusItem>();
        return item;
    }

    bool takesItems = true;
    std::vector<std::string> made;
    std::shared_ptr<SimulatedStatusItem> item; ///< the latest one
};

} // namespace ambrel::simulated
