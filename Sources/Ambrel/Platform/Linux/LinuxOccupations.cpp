#include "Platform/Linux/LinuxOccupations.h"

#include "Core/Logger.h"
#include "Platform/Linux/ProcFiles.h"
#include "Platform/Linux/ProcessTree.h"

#include <utility>

#include <QProcess>
#include <QTimer>

namespace ambrel {

namespace {

constexpr Logger logger("engine");
/// The program's own limit leaves it time to start and to tell what it knows.
constexpr int programLimit = 300;

QString sandboxOf(ProcessId pid) {
    const auto info = readProcFile(pid, "root/.flatpak-info");
    return info ? QString::fromStdString(parseFlatpakApplication(*info).value_or("")) : QString();
}

} // namespace

LinuxOccupations::LinuxOccupations(const std::filesystem::path& program, std::function<bool(ProcessId)> isApplication)
    : program_(QString::fromStdString(program)), isApplication_(std::move(isApplication)) {}

QStringList LinuxOccupations::arguments(const RunningApplication& app) const {
    const auto pid = app.processIdentifier();
    const auto entry = app.bundleURL().value_or("").stem();
    QStringList arguments{QString::number(programLimit), QString::fromStdString(entry), sandboxOf(pid)};
    for (const auto each : processTree(pid, isApplication_)) {
        arguments << QString::number(each);
    }
    return arguments;
}

void LinuxOccupations::ask(const RunningApplication& app, std::function<void(std::optional<Occupation>)> answer) {
    auto* const process = new QProcess(&running_);
    QObject::connect(process, &QProcess::finished, process, [process, answer] {
        process->deleteLater();
        answer(parse(process->readAllStandardOutput().trimmed().toStdString()));
    });
    QObject::connect(
        process, &QProcess::errorOccurred, process,
        [this, process, answer](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart) {
                process->deleteLater();
                sayMissing();
                answer(std::nullopt);
            }
        },
        Qt::QueuedConnection);
    QTimer::singleShot(std::chrono::ceil<std::chrono::milliseconds>(answerLimit), Qt::PreciseTimer, process,
                       &QProcess::kill);
    process->setStandardErrorFile(QProcess::nullDevice());
    process->start(program_, arguments(app), QIODevice::ReadOnly);
}

std::optional<Occupation> LinuxOccupations::parse(std::string_view word) {
    return word == "none"         ? std::nullopt
           : word == "playing"    ? std::optional(Occupation::playing)
           : word == "inhibiting" ? std::optional(Occupation::inhibiting)
                                  : std::optional(Occupation::unknown);
}

void LinuxOccupations::sayMissing() {
    if (!std::exchange(saidMissing_, true)) {
        logger.error("{} can't be started: applications that play or inhibit are not noticed", program_.toStdString());
    }
}

} // namespace ambrel
