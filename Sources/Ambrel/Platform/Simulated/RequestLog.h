#pragma once

#include "Core/Signal.h"
#include "Platform/RunningApplication.h"

#include <vector>

namespace ambrel::simulated {

/// One thing that the program asked of an application.
struct Request {
    ProcessId pid;
    Date date;
};

/// Everything that the program asked of applications, in order.
struct RequestLog {
    std::vector<Request> terminated;
    std::vector<Request> forceTerminated;
    std::vector<Request> hidden;

    // Each request as it is made, before the application has answered it.
    Signal<const Request&> willTerminate;
    Signal<const Request&> willForceTerminate;
    Signal<const Request&> willHide;
};

} // namespace ambrel::simulated
