#include "Capture/Snapshots.h"

#include "Capture/Fixtures.h"
#include "Capture/Frame.h"
#include "Capture/Registry.h"
#include "DesignSystem/ABRenderConfig.h"
#include "Platform/Environment.h"

#include <filesystem>

#include <QQmlEngine>

namespace ambrel {

bool Snapshots::runIfRequested(const Environment& environment) {
    const auto folder = environment.value("AMBREL_SNAPSHOT");
    if (!folder) {
        return false;
    }
    std::error_code ignored;
    std::filesystem::create_directories(*folder, ignored);
    ABRenderConfig::isSnapshot = true;
    ABRenderConfig::forceMaterialFallback = true;
    Fixtures fixtures(environment);
    QQmlEngine engine;
    fixtures.offerIcons(engine);
    for (const auto& shot : shots(fixtures)) {
        Frame(engine, shot).write(std::filesystem::path(*folder) / (shot.key + ".png"));
    }
    return true;
}

} // namespace ambrel
