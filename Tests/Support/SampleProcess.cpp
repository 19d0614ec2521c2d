#include "Support/SampleProcess.h"

#include <cstdio>

#include <gtest/gtest.h>

namespace ambrel {

std::vector<std::string> SampleProcess::commandLine(const std::vector<std::string>& arguments) {
    std::vector<std::string> line{AMBREL_SAMPLE};
    line.insert(line.end(), arguments.begin(), arguments.end());
    return line;
}

void SampleProcess::command(const std::string& line) {
    writeLine(line);
    writeLine("roundtrip");
    for (auto answer = readLine(); answer != "answered"; answer = readLine()) {
        if (!answer) {
            ADD_FAILURE() << "the sample did not answer to " << line;
            return;
        }
    }
}

std::uint32_t SampleProcess::open(const std::string& verb) {
    writeLine(verb);
    for (auto line = readLine(); line; line = readLine()) {
        unsigned window = 0;
        if (line->ends_with(" open") && std::sscanf(line->c_str(), "window %x", &window) == 1) { // NOLINT(cert-err34-c)
            return window;
        }
    }
    ADD_FAILURE() << "the sample opened no window";
    return 0;
}

} // namespace ambrel
