#include "Platform/Linux/TerminationSignals.h"

#include <csignal>
#include <cstdint>
#include <memory>

#include <QSocketNotifier>

#include <sys/eventfd.h>
#include <unistd.h>

namespace ambrel {

namespace {

// Not a signalfd: the signals would have to be blocked, and whoever we start would inherit that.
int wakeDescriptor = -1;
std::unique_ptr<QSocketNotifier> notifier;

void wake(int) {
    const int savedError = errno;
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = ::write(wakeDescriptor, &one, sizeof one);
    errno = savedError;
}

void setHandler(void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    sigaction(SIGTERM, &action, nullptr);
    sigaction(SIGINT, &action, nullptr);
}

void clearWake() {
    std::uint64_t count = 0;
    [[maybe_unused]] const auto length = ::read(wakeDescriptor, &count, sizeof count);
}

} // namespace

void TerminationSignals::install(std::function<void()> work) {
    if (wakeDescriptor < 0) {
        wakeDescriptor = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    }
    notifier = std::make_unique<QSocketNotifier>(wakeDescriptor, QSocketNotifier::Read);
    QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(), [work = std::move(work)] {
        clearWake();
        work();
    });
    setHandler(wake);
}

void TerminationSignals::remove() {
    setHandler(SIG_DFL);
    notifier.reset();
}

} // namespace ambrel
