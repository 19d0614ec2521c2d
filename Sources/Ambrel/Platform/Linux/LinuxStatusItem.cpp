#include "Platform/Linux/LinuxStatusItem.h"

#include <utility>

namespace ambrel {

LinuxStatusItem::LinuxStatusItem(const TrayServices& services, Signal<>& panelDidChange, std::string identifier,
                                 std::string title)
    : services_(services), places_(services.connection, services.windowServer), identifier_(std::move(identifier)),
      title_(std::move(title)),
      embedded_(services.connection, services.traySelection, services.isPanelDark, identifier_, title_) {
    panelObserver_ = panelDidChange.subscribe([this] { show(); });
    embeddedClicks_ = embedded_.clicked.subscribe([this] { clicked.emit(); });
    appear();
}

void LinuxStatusItem::setImage(IconPicture picture) {
    look_.picture = std::move(picture);
    show();
}

void LinuxStatusItem::setTint(std::optional<IconTint> tint) {
    look_.tint = tint;
    show();
}

void LinuxStatusItem::setMenu(std::vector<StatusMenuEntry> entries) {
    menu_ = std::move(entries);
    if (bus_) {
        bus_->setMenu(menu_);
    }
}

void LinuxStatusItem::setVisible(bool visible) {
    if (visible != isVisible()) {
        visible ? appear() : disappear();
    }
}

void LinuxStatusItem::appear() {
    bus_ = std::make_unique<SniItem>(services_.queue, services_.isPanelDark, identifier_, title_);
    watcherObserver_ = bus_->watcherDidChange.subscribe([this] { watcherChanged(); });
    busClicks_ = bus_->activated.subscribe([this](int x, int y) { activated(x, y); });
    bus_->setMenu(menu_);
    show();
    bus_->start();
}

void LinuxStatusItem::disappear() {
    embedded_.setWanted(false);
    bus_.reset();
    clickedAt_.reset();
}

void LinuxStatusItem::watcherChanged() {
    clickedAt_.reset();
    embedded_.setWanted(bus_->isWatched() == false);
}

void LinuxStatusItem::activated(int x, int y) {
    clickedAt_ = places_.ofClick(x, y);
    clicked.emit();
}

StatusItemPlace LinuxStatusItem::place() const {
    if (const auto bounds = embedded_.bounds()) {
        return places_.ofButton(*bounds);
    }
    return clickedAt_ ? *clickedAt_ : places_.likely();
}

void LinuxStatusItem::show() {
    embedded_.setLook(look_);
    if (bus_) {
        bus_->setLook(look_);
    }
}

} // namespace ambrel
