#include "SampleApp.h"

#include <cstdio>

int main(int argc, char** argv) {
    const auto options = ambrel::sample::parseOptions({argv + 1, argv + argc});
    if (!options) {
        std::fputs(
            "usage: ambrel-sample [--class INSTANCE CLASS] [--pid N] [--machine NAME] [--timestamps] [COMMAND...]\n"
            "Commands, as arguments and then as lines on standard input (N counts windows from 1):\n"
            "  open|dialog   close|destroy|withdraw|map|minimise N   watch WINDOW   roundtrip\n"
            "  ignore-term   ignore-delete   confirm-on-delete   freeze\n"
            "  dock-icon   undock-icon   register-item   unregister-item\n",
            stderr);
        return 64;
    }
    return ambrel::sample::SampleApp(*options).run();
}
