// Tells in one word what occupies an application for its user: "playing", "inhibiting", "none", or "unknown" if a
// service did not answer in time.
#include "Bus.h"
#include "Inhibitors.h"
#include "MediaPlayers.h"
#include "SoundStreams.h"

#include <cstdio>
#include <cstdlib>

#include <unistd.h>

using namespace ambrel;

namespace {

constexpr int usageError = 2;

} // namespace

int main(int argc, char** argv) {
    if (argc < 5) {
        std::fprintf(stderr, "usage: %s MILLISECONDS DESKTOP-ENTRY SANDBOX PROCESS...\n", argv[0]);
        return usageError;
    }
    std::vector<ProcessId> processes;
    for (int i = 4; i < argc; ++i) {
        processes.push_back(std::atoi(argv[i]));
    }
    const Subject subject(argv[2], argv[3], std::move(processes));
    Inquiry inquiry;
    Bus::connect(G_BUS_TYPE_SESSION, inquiry, [&](const Bus& session) {
        askMediaPlayers(session, subject, inquiry);
        askSessionInhibitors(session, subject, inquiry);
    });
    Bus::connect(G_BUS_TYPE_SYSTEM, inquiry, [&](const Bus& system) { askLoginInhibitors(system, subject, inquiry); });
    askSoundServer(subject, inquiry);
    std::puts(inquiry.run(static_cast<guint>(std::atoi(argv[1]))).c_str());
    // Without the libraries' ends, which may wait for a service that hangs.
    std::fflush(stdout);
    _exit(0);
}
