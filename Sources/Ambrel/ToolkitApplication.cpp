#include "ToolkitApplication.h"

#include "Core/Localized.h"

#include <optional>

#include <QByteArray>
#include <QGuiApplication>
#include <QLocale>
#include <QTranslator>

namespace ambrel {

namespace {

/// Sets a variable of the environment for as long as it lives.
class ScopedVariable {
public:
    ScopedVariable(const char* name, const char* value) : name_(name) {
        if (qEnvironmentVariableIsSet(name)) {
            before_ = qgetenv(name);
        }
        qputenv(name, value);
    }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;
    ~ScopedVariable() {
        if (before_) {
            qputenv(name_, *before_);
        } else {
            qunsetenv(name_);
        }
    }

private:
    const char* name_;
    std::optional<QByteArray> before_;
};

} // namespace

std::unique_ptr<QGuiApplication> makeApplication(int& argc, char** argv) {
    // A desktop's theme would load its whole toolkit into a program that mostly shows an icon.
    const ScopedVariable theme("QT_QPA_PLATFORMTHEME", "generic");
    // Our windows go to the server whose windows we watch.
    const ScopedVariable platform("QT_QPA_PLATFORM", "xcb");
    QGuiApplication::setApplicationName(QStringLiteral("ambrel"));
    QGuiApplication::setDesktopFileName(QStringLiteral("app.ambrel.Ambrel"));
    auto application = std::make_unique<QGuiApplication>(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    return application;
}

void translateApplication(const std::filesystem::path& bundle) {
    auto* const words = new QTranslator(qApp);
    const auto folder = QString::fromStdString(bundle / "translations");
    if (words->load(QLocale(), QStringLiteral("ambrel"), QStringLiteral("_"), folder)) {
        QCoreApplication::installTranslator(words);
        setTranslation([](const char* text) { return QCoreApplication::translate("ambrel", text).toStdString(); });
    }
}

} // namespace ambrel
