#pragma once

#include "Platform/Linux/BusService.h"
#include "Platform/Linux/TrayItems.h"

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace ambrel {

/// The StatusNotifierItems that the session's watcher knows of. The watcher may come late, or go and come back.
class SniTrayItems final : public TrayItems {
public:
    SniTrayItems();

    [[nodiscard]] bool owns(ProcessId pid) const override;

private:
    struct Owner {
        ProcessId pid;
        std::string sandbox; ///< the Flatpak application that it speaks for, if it does
    };

    void readAll();
    void add(const std::string& item);
    void remove(const std::string& item);
    void setOwner(const std::string& item, ProcessId pid);
    void clear();

    std::unique_ptr<AsyncBus> bus_;
    std::optional<BusService> watcher_;
    std::unordered_map<std::string, std::optional<Owner>> items_; ///< by name; the owner once it is known
    std::vector<Subscription> subscriptions_;
};

} // namespace ambrel
