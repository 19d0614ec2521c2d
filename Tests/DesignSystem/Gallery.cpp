/// Draws a QML file that uses the design system: Gallery FILE.qml OUT.png WIDTH HEIGHT [dark] [contrast] [text=1.5]
/// [rtl] The environment variable QT_SCALE_FACTOR says how many pixels a unit has.
#include "DesignSystem/ABAppearance.h"
#include "DesignSystem/ABRenderConfig.h"
#include "DesignSystem/DesignSystem.h"
#include "DesignSystem/Stage.h"

#include <cstdio>

#include <QFile>
#include <QGuiApplication>

namespace {

void apply(const QStringList& wishes) {
    auto& appearance = ambrel::ABAppearance::shared();
    appearance.setDark(wishes.contains("dark"));
    appearance.setHighContrast(wishes.contains("contrast"));
    ambrel::ABRenderConfig::captureMode = wishes.contains("capture");
    for (const auto& wish : wishes.filter("text=")) {
        appearance.setTextScale(wish.mid(5).toDouble());
    }
    if (wishes.contains("rtl")) {
        QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    }
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    const QGuiApplication application(argc, argv);
    const auto arguments = QGuiApplication::arguments();
    QFile file(arguments.value(1));
    if (arguments.size() < 5 || !file.open(QIODevice::ReadOnly)) {
        std::puts("Gallery FILE.qml OUT.png WIDTH HEIGHT [dark] [contrast] [capture] [rtl] [text=1.5]");
        return 2;
    }
    ambrel::registerDesignSystem();
    apply(arguments.mid(5));
    ambrel::Stage stage(QString::fromUtf8(file.readAll()), {arguments[3].toInt(), arguments[4].toInt()});
    if (!stage.errors.isEmpty()) {
        std::puts(qPrintable(stage.errors));
        return 1;
    }
    return stage.picture().save(arguments[2]) ? 0 : 1;
}
