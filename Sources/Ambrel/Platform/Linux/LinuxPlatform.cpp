#include "Platform/Linux/LinuxPlatform.h"

#include "Core/Clock.h"
#include "Core/Logger.h"
#include "Platform/Linux/AllTrayItems.h"
#include "Platform/Linux/ApplicationIdentifier.h"
#include "Platform/Linux/AutostartEntry.h"
#include "Platform/Linux/Defaults/JsonUserDefaults.h"
#include "Platform/Linux/LinkOpener.h"
#include "Platform/Linux/LinuxApplicationHost.h"
#include "Platform/Linux/LinuxBundle.h"
#include "Platform/Linux/LinuxMainQueue.h"
#include "Platform/Linux/LinuxNotificationCenter.h"
#include "Platform/Linux/LinuxOccupations.h"
#include "Platform/Linux/LinuxProcessActivity.h"
#include "Platform/Linux/LinuxSession.h"
#include "Platform/Linux/LinuxStatusBar.h"
#include "Platform/Linux/LinuxUpdater.h"
#include "Platform/Linux/LinuxWindowList.h"
#include "Platform/Linux/LinuxWorkspace.h"
#include "Platform/Linux/PortalAppearance.h"
#include "Platform/Linux/ProcFiles.h"
#include "Platform/Linux/ProcessEnvironment.h"
#include "Platform/Linux/ProgramPresence.h"
#include "Platform/Linux/QuitRequest.h"
#include "Platform/Linux/SessionBus.h"
#include "Platform/Linux/SniTrayItems.h"
#include "Platform/Linux/ThreadBackgroundQueue.h"
#include "Platform/Linux/X11ClickMonitor.h"
#include "Platform/Linux/X11Compositor.h"
#include "Platform/Linux/X11Connection.h"
#include "Platform/Linux/X11HotKeyCenter.h"
#include "Platform/Linux/X11TrayItems.h"
#include "Platform/Linux/X11TraySelection.h"
#include "Platform/Linux/X11WindowServer.h"
#include "Platform/Linux/X11WindowSource.h"
#include "Platform/Linux/XdgFileLocations.h"

#include <utility>

#include <QCoreApplication>

#include <unistd.h>

namespace ambrel {

namespace {

constexpr Logger logger("lifecycle");
constexpr Seconds connectingLimit{5};

void endWithoutServer() {
    LinuxPlatform::logLostServer();
    QCoreApplication::exit(1);
}

} // namespace

struct LinuxPlatform::Parts {
    explicit Parts(std::unique_ptr<X11Connection> opened) : connection(std::move(opened)) {
        lost = connection->lost.subscribe(endWithoutServer);
        // A tray may embed icons out of our sight and offer them on the bus.
        offered = sniTray.didChange.subscribe([this] { x11Tray.refresh(); });
        connection->start();
    }

    PortalAppearance& askedAppearance() {
        if (!appearance) {
            appearance = std::make_unique<PortalAppearance>();
            recoloured = appearance->didChange.subscribe([this] { statusBar.panelDidChange.emit(); });
        }
        return *appearance;
    }
    /// Most panels are dark on desktops that don't say.
    [[nodiscard]] bool isPanelDark() { return askedAppearance().current().colorScheme != ColorScheme::light; }

    SystemClock clock;
    SystemMonotonicClock monotonicClock;
    LinuxMainQueue queue;
    ProcessEnvironment environment;
    XdgFileLocations files{environment};
    LinuxBundle bundle = LinuxBundle::ofThisProcess();
    JsonUserDefaults defaults{files.applicationSupport() / "Ambrel", clock};
    std::unique_ptr<X11Connection> connection;
    X11WindowSource windows{*connection, queue};
    X11WindowServer windowServer{*connection, windows.mirror()};
    X11TraySelection traySelection{*connection};
    X11TrayItems x11Tray{*connection, traySelection, windows.mirror()};
    SniTrayItems sniTray;
    AllTrayItems tray{{&x11Tray, &sniTray}};
    SessionBus bus;
    ProgramPresence presence{bus};
    LinuxApplicationHost host{presence};
    QuitRequest quitRequest{bus};
    ApplicationIdentifier identifier;
    LinkOpener links{environment, bus};
    LinuxWorkspace workspace{
        {windows, tray, quitRequest, queue}, identifier, links, presence, bundle.bundleIdentifier()};
    LinuxWindowList windowList{windows, workspace};
    LinuxProcessActivity processActivity;
    LinuxOccupations occupations{executableOf(getpid()).value_or("").parent_path() / "ambrel-occupations",
                                 [this](ProcessId pid) {
                                     return workspace.runningApplication(pid) != nullptr;
                                 }};
    LinuxSession session{*connection, windows.mirror(), queue};
    X11HotKeyCenter hotKeys{*connection};
    LinuxNotificationCenter notifications{bus, queue};
    LinuxStatusBar statusBar{{*connection, traySelection, windowServer, queue, [this] {
                                  return isPanelDark();
                              }}};
    AutostartEntry loginItem{files, environment, executableOf(getpid()).value_or("")};
    LinuxUpdater updater{{queue, defaults, clock, links}};
    ThreadBackgroundQueue background;
    std::unique_ptr<PortalAppearance> appearance;
    X11ClickMonitor clicks{*connection};
    X11Compositor compositor{*connection};
    Subscription lost;
    Subscription offered;
    Subscription recoloured;
};

void LinuxPlatform::logLostServer() {
    static bool said = false;
    if (!std::exchange(said, true)) {
        logger.error("connection to the X server lost");
    }
}

LinuxPlatform::Connection LinuxPlatform::connect() {
    return X11Connection::open({}, connectingLimit);
}

LinuxPlatform::LinuxPlatform(std::unique_ptr<X11Connection> connection)
    : parts_(std::make_unique<Parts>(std::move(connection))) {}

LinuxPlatform::~LinuxPlatform() = default;

Workspace& LinuxPlatform::workspace() {
    return parts_->workspace;
}

WindowList& LinuxPlatform::windowList() {
    return parts_->windowList;
}

WindowServer& LinuxPlatform::windowServer() {
    return parts_->windowServer;
}

const ProcessActivity& LinuxPlatform::processActivity() const {
    return parts_->processActivity;
}

const MonotonicClock& LinuxPlatform::monotonicClock() const {
    return parts_->monotonicClock;
}

Occupations& LinuxPlatform::occupations() {
    return parts_->occupations;
}

UserDefaults& LinuxPlatform::userDefaults() {
    return parts_->defaults;
}

Bundle& LinuxPlatform::bundle() {
    return parts_->bundle;
}

FileLocations& LinuxPlatform::fileLocations() {
    return parts_->files;
}

Environment& LinuxPlatform::environment() {
    return parts_->environment;
}

ApplicationHost& LinuxPlatform::application() {
    return parts_->host;
}

MainQueue& LinuxPlatform::mainQueue() {
    return parts_->queue;
}

BackgroundQueue& LinuxPlatform::backgroundQueue() {
    return parts_->background;
}

Session& LinuxPlatform::session() {
    return parts_->session;
}

HotKeyCenter& LinuxPlatform::hotKeyCenter() {
    return parts_->hotKeys;
}

NotificationCenter& LinuxPlatform::notificationCenter() {
    return parts_->notifications;
}

StatusBar& LinuxPlatform::statusBar() {
    return parts_->statusBar;
}

LoginItem& LinuxPlatform::loginItem() {
    return parts_->loginItem;
}

Updater& LinuxPlatform::updater() {
    return parts_->updater;
}

Appearance& LinuxPlatform::appearance() {
    return parts_->askedAppearance();
}

ClickMonitor& LinuxPlatform::clickMonitor() {
    return parts_->clicks;
}

Compositor& LinuxPlatform::compositor() {
    return parts_->compositor;
}

const Clock& LinuxPlatform::wallClock() const {
    return parts_->clock;
}

LinuxApplicationHost& LinuxPlatform::applicationHost() {
    return parts_->host;
}

} // namespace ambrel
