#pragma once

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
};

} // namespace ambrel::simulated
