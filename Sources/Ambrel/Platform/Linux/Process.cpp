#include "Platform/Linux/Process.h"

#include "Platform/Linux/ProcFiles.h"

#include <cerrno>
#include <chrono>
#include <utility>

#include <QSocketNotifier>

#include <poll.h>
#include <sys/syscall.h>
#include <time.h>
#include <unistd.h>

namespace ambrel {

namespace {

/// How long ago the machine was started.
Seconds upTime() {
    timespec now{};
    clock_gettime(CLOCK_BOOTTIME, &now);
    return Seconds(static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9);
}

std::optional<Date> readStartDate(ProcessId pid) {
    const auto stat = readProcFile(pid, "stat");
    const auto ticks = stat ? parseStartTicks(*stat) : std::nullopt;
    if (!ticks) {
        return std::nullopt;
    }
    // By its age, and not from the kernel's time of the start, which is of whole seconds and moves with the clock.
    const Seconds started(static_cast<double>(*ticks) / static_cast<double>(sysconf(_SC_CLK_TCK)));
    return std::chrono::time_point_cast<Date::duration>(std::chrono::system_clock::now()) - (upTime() - started);
}

bool isOurs(ProcessId pid) {
    // The owner of the folder says root for a process that may not be traced; the status tells the truth.
    const auto status = readProcFile(pid, "status");
    return status && statusBelongsTo(*status, geteuid());
}

int openDescriptor(ProcessId pid) {
    return pid > 0 ? static_cast<int>(syscall(SYS_pidfd_open, pid, 0)) : -1;
}

bool isReadable(int descriptor) {
    pollfd request{descriptor, POLLIN, 0};
    return ::poll(&request, 1, 0) != 0;
}

} // namespace

bool Process::exists(ProcessId pid) {
    // Signal 0 reaches a zombie too, and a file below /proc calls a process one whose first thread alone has ended.
    const int descriptor = openDescriptor(pid);
    if (descriptor < 0) {
        return pid > 0 && errno != ESRCH;
    }
    const bool ended = isReadable(descriptor);
    ::close(descriptor);
    return !ended;
}

std::shared_ptr<Process> Process::open(ProcessId pid, std::function<void()> onExit) {
    const int descriptor = openDescriptor(pid);
    if (descriptor < 0) {
        return nullptr;
    }
    const auto startDate = readStartDate(pid);
    // Asked last: as long as the process lives, all that was read under its number was read of it.
    if (!startDate || !isOurs(pid) || isReadable(descriptor)) {
        ::close(descriptor);
        return nullptr;
    }
    return std::shared_ptr<Process>(new Process(pid, descriptor, *startDate, std::move(onExit)));
}

Process::Process(ProcessId pid, int descriptor, Date startDate, std::function<void()> onExit)
    : pid_(pid), descriptor_(descriptor), startDate_(startDate), onExit_(std::move(onExit)),
      notifier_(new QSocketNotifier(descriptor, QSocketNotifier::Read)) {
    QObject::connect(notifier_, &QSocketNotifier::activated, notifier_, [this] { exited(); });
}

Process::~Process() {
    notifier_->setEnabled(false);
    // The last owner may let go while the notifier is still telling of the exit.
    notifier_->deleteLater();
    ::close(descriptor_);
}

void Process::exited() {
    const auto alive = shared_from_this();
    notifier_->setEnabled(false);
    if (const auto work = std::exchange(onExit_, nullptr)) {
        work();
    }
}

bool Process::hasExited() const {
    return isReadable(descriptor_);
}

bool Process::signal(int number) const {
    // A process that nobody has collected yet would take the signal without a word.
    return !hasExited() && syscall(SYS_pidfd_send_signal, descriptor_, number, nullptr, 0) == 0;
}

} // namespace ambrel
