#include "Engine/QuitNotifier.h"

#include "Core/Localized.h"
#include "Core/MainQueue.h"
#include "Core/Uuid.h"
#include "Platform/BackgroundQueue.h"
#include "Platform/Bundle.h"
#include "Platform/Platform.h"
#include "Platform/Workspace.h"
#include "State/AppSettings.h"

namespace ambrel {

namespace {

constexpr const char* category = "AMBREL_QUIT";
constexpr const char* reopenAction = "AMBREL_REOPEN";
constexpr const char* bundlePathKey = "bundlePath";
constexpr int mostPolls = 20;
constexpr Seconds pollInterval{0.25};

const char* body(TerminationAudit::Path path) {
    switch (path) {
    case TerminationAudit::Path::lastWindow:
        return translatable("ambrel", "Its last window closed. Click Reopen if that wasn't what you wanted.");
    case TerminationAudit::Path::hidden:
        return translatable("ambrel", "You set it to quit when hidden. Click Reopen to bring it back.");
    case TerminationAudit::Path::idle:
        return translatable("ambrel", "It sat idle past your limit. Click Reopen to bring it back.");
    default:
        return translatable("ambrel", "Quit by Ambrel.");
    }
}

} // namespace

QuitNotifier& QuitNotifier::shared() {
    static auto& notifier = *new QuitNotifier(Platform::shared(), AppSettings::shared());
    return notifier;
}

bool QuitNotifier::isBundled() const {
    return platform_.bundle().bundleURL().extension() == ".app";
}

void QuitNotifier::configure() {
    if (configured_ || !isBundled()) {
        return;
    }
    configured_ = true;
    auto& center = platform_.notificationCenter();
    center.setDelegate(lifetime_.guard([this](const NotificationResponse& response) { didReceive(response); }));
    center.setCategories({{category, {{reopenAction, localized(translatable("ambrel", "Reopen"))}}}});
    center.requestAuthorization([log = log_](bool granted, const NotificationFailure& failure) {
        if (failure) {
            log.error("notification authorization failed: {}", *failure);
        } else {
            log.notice("notification authorization: {}", granted ? "granted (provisional)" : "denied");
        }
    });
}

void QuitNotifier::notifyQuit(const std::string& appName, const std::optional<std::filesystem::path>& bundleURL,
                              ProcessId pid, TerminationAudit::Path path) {
    if (!settings_.notifyOnQuit.get() || !isBundled()) {
        return;
    }
    configure();
    const auto conclude = lifetime_.guard([this, quit = Quit{appName, bundleURL, pid, path}](bool gone) {
        if (gone) {
            post(quit);
        } else {
            log_.notice("{} (pid {}) still running 5s after terminate — suppressing quit notification", quit.appName,
                        quit.pid);
        }
    });
    const auto finished = [&queue = platform_.mainQueue(), conclude](bool gone) {
        queue.async([conclude, gone] { conclude(gone); });
    };
    const auto isGone = [&workspace = platform_.workspace(), pid] {
        return !workspace.processExists(pid);
    };
    platform_.backgroundQueue().poll(mostPolls, pollInterval, isGone, finished);
}

void QuitNotifier::post(const Quit& quit) {
    log_.notice("posting quit notification for {} ({})", quit.appName, rawValue(quit.path));
    NotificationRequest request{
        .identifier = Uuid::random().text(),
        .title = fmt::format(fmt::runtime(localized(translatable("ambrel", "Ambrel Quit {}"))), quit.appName),
        .body = localized(body(quit.path)),
        .categoryIdentifier = category,
        .userInfo = {}};
    if (quit.bundleURL) {
        request.userInfo[bundlePathKey] = quit.bundleURL->string();
    }
    platform_.notificationCenter().add(std::move(request), [log = log_](const NotificationFailure& failure) {
        if (failure) {
            log.error("notification add failed: {}", *failure);
        }
    });
}

void QuitNotifier::didReceive(const NotificationResponse& response) {
    if (response.actionIdentifier != reopenAction && response.actionIdentifier != NotificationResponse::defaultAction) {
        return;
    }
    const auto bundlePath = response.userInfo.find(bundlePathKey);
    if (bundlePath == response.userInfo.end()) {
        return;
    }
    const std::filesystem::path url = bundlePath->second;
    platform_.mainQueue().async([&workspace = platform_.workspace(), url] {
        workspace.openApplication(url);
        Logger("notify").notice("Reopen tapped — relaunching {}", url.filename().string());
    });
}

} // namespace ambrel
