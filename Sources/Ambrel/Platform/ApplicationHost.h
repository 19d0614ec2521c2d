#pragma once

#include "Core/Signal.h"
#include "Platform/RunningApplication.h"

namespace ambrel {

/// This process as the desktop sees it.
class ApplicationHost {
public:
    virtual ~ApplicationHost() = default;

    [[nodiscard]] virtual ActivationPolicy activationPolicy() const = 0;
    /// Regular: the program has a place in the task bar, also without a window. Accessory: it has none without one.
    /// Set anew with each window that comes or goes.
    virtual void setActivationPolicy(ActivationPolicy policy) = 0;
    [[nodiscard]] virtual bool hasVisibleTitledWindow() const = 0;

    /// Ends the process in a later turn of the main queue.
    virtual void terminate() = 0;

    /// The program was opened again while it runs.
    Signal<> didReopen;
};

} // namespace ambrel
