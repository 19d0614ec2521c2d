#include "UI/StatusBar/DropdownPanel.h"

#include "UI/Models/EngineModel.h"
#include "UI/Models/SettingsModel.h"

#include <utility>

namespace ambrel {

DropdownPanel::DropdownPanel(KeyablePanel::Neighbours neighbours, SettingsModel& settings, EngineModel& engine)
    : panel_(neighbours), settings_(settings), engine_(engine) {}

void DropdownPanel::show(const StatusItemPlace& place, Windows::DropdownActions actions) {
    actions_ = std::move(actions);
    panel_.show(place, QStringLiteral("DropdownContent"),
                {{"settings", QVariant::fromValue(&settings_)},
                 {"engine", QVariant::fromValue(&engine_)},
                 {"actions", QVariant::fromValue<QObject*>(this)}});
}

} // namespace ambrel
