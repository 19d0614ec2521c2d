#pragma once

#include "Core/Lifetime.h"
#include "Platform/Linux/BusService.h"
#include "Platform/Linux/IconPaint.h"
#include "Platform/Linux/SniMenu.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace ambrel {

class MainQueue;

/// A StatusNotifierItem on a connection of its own to the session bus: the item is in the tray as long as this object
/// lives. It is registered with whichever watcher is there, or comes, or comes back.
class SniItem {
public:
    /// `queue` must outlive this object. `isPanelDark` is asked when a tray fetches the icon.
    SniItem(MainQueue& queue, std::function<bool()> isPanelDark, std::string identifier, std::string title);
    SniItem(const SniItem&) = delete;
    SniItem& operator=(const SniItem&) = delete;
    ~SniItem();

    /// Looks for a watcher; `watcherDidChange` tells what is found.
    void start();
    void setLook(IconLook look);
    void setMenu(std::vector<StatusMenuEntry> entries) { menu_.setEntries(std::move(entries)); }
    /// Whether a watcher takes items; absent until that is known.
    [[nodiscard]] std::optional<bool> isWatched() const { return isWatched_; }

    /// Emitted before a new watcher is told of the item.
    Signal<> watcherDidChange;
    /// A click at this point of the screen, in a later turn of the queue.
    Signal<int, int> activated;

private:
    struct Table;

    void findWatcher();
    void registerItem();
    void setWatched(bool watched);
    void activate(int x, int y);
    int appendPixmaps(sd_bus_message* reply);

    MainQueue& queue_;
    std::function<bool()> isPanelDark_;
    std::string identifier_;
    std::string title_;
    IconLook look_;
    bool hasNews_ = false; ///< told, and not yet fetched
    std::optional<bool> isWatched_;
    Lifetime lifetime_;
    std::unique_ptr<AsyncBus> bus_;
    SniMenu menu_;
    std::optional<BusService> watcher_;
    std::vector<Subscription> subscriptions_;
};

} // namespace ambrel
