#include "Platform/Linux/LinuxApplicationHost.h"

#include "Platform/Linux/ProgramPresence.h"
#include "Platform/Linux/TerminationSignals.h"

#include <utility>

#include <QCoreApplication>

namespace ambrel {

LinuxApplicationHost::LinuxApplicationHost(ProgramPresence& presence)
    : reopening_(presence.didReopen.subscribe([this] { didReopen.emit(); })) {
    TerminationSignals::install([this] { terminate(); });
}

LinuxApplicationHost::~LinuxApplicationHost() {
    TerminationSignals::remove();
}

void LinuxApplicationHost::setActivationPolicy(ActivationPolicy policy) {
    policy_ = policy;
    policyDidSet.emit();
}

bool LinuxApplicationHost::hasVisibleTitledWindow() const {
    return windowQuestion_ && windowQuestion_();
}

void LinuxApplicationHost::terminate() {
    QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
}

} // namespace ambrel
