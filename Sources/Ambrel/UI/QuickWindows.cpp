#include "UI/QuickWindows.h"

#include "Platform/ClickMonitor.h"
#include "Platform/Compositor.h"
#include "Platform/Environment.h"
#include "Platform/Platform.h"
#include "Platform/Workspace.h"
#include "State/AppSettings.h"
#include "UI/Components/ApplicationIconProvider.h"
#include "UI/RegisterViews.h"

#include <utility>

#include <QQmlEngine>

namespace ambrel {

QuickWindows::QuickWindows(const WindowsNeighbours& neighbours)
    : appearance_(neighbours.platform.appearance()), settings_(neighbours.settings), engine_(neighbours.engine),
      guard_(neighbours.settings), hotKey_(neighbours.settings, neighbours.hotKeys),
      login_(neighbours.platform.loginItem()),
      history_({neighbours.audit, neighbours.clock, neighbours.platform.workspace(),
                neighbours.platform.environment().value("HOME").value_or("")}),
      about_(neighbours.platform), updates_(neighbours.updates), rules_(neighbours.platform, neighbours.rules),
      chooser_(neighbours.platform.workspace()), stage_(neighbours.platform.mainQueue()),
      dock_(neighbours.platform.application(), neighbours.settings, stage_),
      settingsWindow_({stage_, neighbours.platform.compositor(), dock_, neighbours.settings, settings_, engine_, guard_,
                       hotKey_, login_, history_, about_, updates_, rules_, chooser_}),
      runningApps_({stage_,
                    neighbours.platform.compositor(),
                    dock_,
                    neighbours.platform,
                    {neighbours.guard, neighbours.audit, neighbours.requests, neighbours.rules}}),
      onboarding_({stage_, neighbours.platform.compositor(), dock_, neighbours.platform, neighbours.engine}),
      gate_({stage_, neighbours.platform.compositor(), dock_, neighbours.platform.windowList()}),
      panelNeighbours_{stage_, neighbours.platform.compositor(), neighbours.platform.clickMonitor(),
                       neighbours.platform.workspace()},
      dropdown_(panelNeighbours_, settings_, engine_), confirmation_(panelNeighbours_) {
    registerViews();
    icons_ = stage_.didMakeEngine.subscribe([&workspace = neighbours.platform.workspace()](QQmlEngine& engine) {
        engine.addImageProvider(QLatin1String(ApplicationIconProvider::scheme), new ApplicationIconProvider(workspace));
    });
}

void QuickWindows::showDropdown(const StatusItemPlace& place, DropdownActions actions) {
    confirmation_.close();
    dropdown_.show(place, std::move(actions));
}

void QuickWindows::confirmQuitAll(const StatusItemPlace& place, QuitAllQuestion question) {
    dropdown_.dismiss();
    confirmation_.ask(place, std::move(question));
}

} // namespace ambrel

extern "C" void ambrelMakeWindows(const ambrel::WindowsNeighbours& neighbours, std::unique_ptr<ambrel::Windows>& made) {
    made = std::make_unique<ambrel::QuickWindows>(neighbours);
}
