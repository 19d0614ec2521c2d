#include "UI/Models/AboutModel.h"

#include "DesignSystem/ABRenderConfig.h"
#include "Platform/ApplicationHost.h"
#include "Platform/Bundle.h"
#include "Platform/Platform.h"
#include "Platform/Workspace.h"

namespace ambrel {

namespace {

constexpr const char* websiteHost = "ambrel.app";
constexpr const char* unknownVersion = "1.0.0";

} // namespace

QString AboutModel::version() const {
    const auto version = ABRenderConfig::isSnapshot ? std::nullopt : platform_.bundle().shortVersion();
    return QString::fromStdString(version.value_or(unknownVersion));
}

QString AboutModel::websiteName() {
    return QString::fromLatin1(websiteHost);
}

void AboutModel::openWebsite() {
    platform_.workspace().openURL(std::string("https://") + websiteHost);
}

void AboutModel::quit() {
    platform_.application().terminate();
}

} // namespace ambrel
