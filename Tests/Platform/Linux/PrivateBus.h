#pragma once

#include "Platform/Linux/ChildProcess.h"
#include "Support/TemporaryFolder.h"

#include <cstdlib>

#include <gtest/gtest.h>

namespace ambrel {

/// A session bus of the test's own, which this process takes for its session's.
class PrivateBus {
public:
    PrivateBus() {
        address = daemon.readLine().value_or("");
        EXPECT_NE(address, "") << "dbus-daemon didn't start";
        setenv("DBUS_SESSION_BUS_ADDRESS", address.c_str(), 1);
    }
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;
    ~PrivateBus() { unsetenv("DBUS_SESSION_BUS_ADDRESS"); }

    TemporaryFolder data; ///< the bus reads services in its dbus-1/services
    ChildProcess daemon{{"sh", "-c", "exec dbus-daemon --session --nofork --nopidfile --print-address=1 2>/dev/null"},
                        {{"XDG_DATA_HOME", data.path()}, {"PATH", "/usr/bin:/bin"}}};
    std::string address;
};

} // namespace ambrel
