#pragma once

#include "Platform/Linux/AsyncBus.h"
#include "Platform/StatusBar.h"

#include <cstdint>
#include <vector>

namespace ambrel {

class MainQueue;

/// A flat menu in the words of com.canonical.dbusmenu, for trays that show nothing else.
class SniMenu {
public:
    static constexpr const char* path = "/StatusNotifierItem/Menu";

    /// `queue` must outlive this object; a null bus offers it to nobody.
    SniMenu(MainQueue& queue, AsyncBus* bus);

    void setEntries(std::vector<StatusMenuEntry> entries);

private:
    struct Table;

    int getLayout(sd_bus_message* call) const;
    int getGroupProperties(sd_bus_message* call) const;
    int getProperty(sd_bus_message* call) const;
    void choose(std::int32_t id) const;
    [[nodiscard]] const StatusMenuEntry* find(std::int32_t id) const;

    MainQueue& queue_;
    AsyncBus* bus_;
    std::uint32_t revision_ = 1;
    std::vector<StatusMenuEntry> entries_;
};

} // namespace ambrel
