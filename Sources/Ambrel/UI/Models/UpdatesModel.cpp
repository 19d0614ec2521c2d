#include "UI/Models/UpdatesModel.h"

#include "Updates/UpdateController.h"

#include <utility>

namespace ambrel {

UpdatesModel::UpdatesModel(std::function<UpdateController&()> controller, QObject* parent)
    : QObject(parent), make_(std::move(controller)) {}

UpdateController& UpdatesModel::controller() {
    if (controller_ == nullptr) {
        auto& made = make_();
        // What is true already isn't told as a change: a view is just reading it.
        const auto tell = [this](const auto&) {
            if (controller_ != nullptr) {
                changed();
            }
        };
        subscriptions_.push_back(made.automaticallyChecksForUpdates.subscribe(tell));
        subscriptions_.push_back(made.isAvailable.subscribe(tell));
        subscriptions_.push_back(made.offeredVersion.subscribe(tell));
        controller_ = &made;
    }
    return *controller_;
}

bool UpdatesModel::automaticallyChecks() {
    return controller().automaticallyChecksForUpdates.get();
}

void UpdatesModel::setAutomaticallyChecks(bool value) {
    controller().automaticallyChecksForUpdates.set(value);
}

bool UpdatesModel::isSupported() {
    return controller().updaterSupported;
}

bool UpdatesModel::isAvailable() {
    return controller().isAvailable.get();
}

QString UpdatesModel::offeredVersion() {
    return QString::fromStdString(controller().offeredVersion.get().value_or(""));
}

void UpdatesModel::checkForUpdates() {
    controller().checkForUpdates();
}

} // namespace ambrel
