#pragma once

#include "Support/ChildProcess.h"
#include "Support/TemporaryFolder.h"
#include "Support/TextFile.h"

#include <cstdlib>

#include <gtest/gtest.h>

namespace ambrel {

/// A session bus of the test's own, which this process and its children take for their session's. It can start no
/// service but the test's.
class PrivateBus {
public:
    PrivateBus() {
        const auto address = daemon.readLine().value_or("");
        EXPECT_NE(address, "") << "dbus-daemon didn't start";
        setenv("DBUS_SESSION_BUS_ADDRESS", address.c_str(), 1);
    }
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;
    ~PrivateBus() { unsetenv("DBUS_SESSION_BUS_ADDRESS"); }

    TemporaryFolder data;
    std::filesystem::path services = data.path() / "services"; ///< where the bus reads services
    ChildProcess daemon{{"sh", "-c",
                         "exec dbus-daemon --config-file=\"$0\" --nofork --nopidfile --print-address=1 2>/dev/null",
                         configuration()}};

private:
    /// The usual one of a session names the services of the machine.
    [[nodiscard]] std::string configuration() const {
        std::filesystem::create_directories(services);
        const auto file = data.path() / "bus.conf";
        writeText(file, "<busconfig><type>session</type><listen>unix:dir=" + data.path().string() +
                            "</listen><auth>EXTERNAL</auth><servicedir>" + services.string() +
                            "</servicedir><policy context='default'><allow send_destination='*'/><allow own='*'/>"
                            "<allow receive_sender='*'/></policy></busconfig>\n");
        return file;
    }
};

} // namespace ambrel
