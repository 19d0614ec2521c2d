#include "Capture/Capture.h"
#include "Capture/PictureModule.h"
#include "Capture/Snapshots.h"
#include "Platform/Environment.h"
#include "UI/RegisterViews.h"

#include <cstdlib>

#include <QGuiApplication>
#include <QLocale>
#include <QQuickWindow>
#include <QStyleHints>

namespace {

/// The same picture on every machine that has the same fonts, whatever its desktop asks of programs.
void standardise(bool isDouble) {
    for (const char* const name : {"QT_SCREEN_SCALE_FACTORS", "QT_SCALE_FACTOR_ROUNDING_POLICY", "QT_FONT_DPI",
                                   "QT_ENABLE_HIGHDPI_SCALING", "QT_USE_PHYSICAL_DPI"}) {
        qunsetenv(name);
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_SCALE_FACTOR", isDouble ? "2" : "1");
    qputenv("TZ", "UTC");
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

} // namespace

extern "C" int ambrelDrawPictures(const ambrel::Environment& environment, int argc, char** argv) {
    standardise(environment.isSet("AMBREL_SNAPSHOT"));
    const QGuiApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    QGuiApplication::styleHints()->setCursorFlashTime(0);
    ambrel::registerViews();
    if (ambrel::Snapshots::runIfRequested(environment)) {
        return EXIT_SUCCESS;
    }
    return ambrel::Capture::runIfRequested(environment) ? QGuiApplication::exec() : EXIT_FAILURE;
}
