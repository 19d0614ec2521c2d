#include "Walk/Day.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <fmt/format.h>

namespace ambrel::walk {
namespace {

constexpr long stepsPerDay = 4000;
constexpr long stepsToSeeAll = 200000;
constexpr std::size_t shownAfterFailure = 120;

struct Arguments {
    std::uint64_t seed = std::random_device()();
    long steps = 20000;
};

Arguments parse(int count, char** values) {
    Arguments arguments;
    for (int i = 1; i + 1 < count; i += 2) {
        if (std::strcmp(values[i], "--seed") == 0) {
            arguments.seed = std::strtoull(values[i + 1], nullptr, 10);
        } else if (std::strcmp(values[i], "--steps") == 0) {
            arguments.steps = std::strtol(values[i + 1], nullptr, 10);
        }
    }
    return arguments;
}

void report(const Day& day) {
    const auto& trail = day.trail();
    const auto first = trail.size() > shownAfterFailure ? trail.size() - shownAfterFailure : 0;
    for (auto i = first; i < trail.size(); ++i) {
        fmt::print("{}\n", trail[i]);
    }
    fmt::print("BROKEN: {}\n", day.broken());
}

void print(const Figures& figures, double seconds) {
    fmt::print("{} steps in {:.1f} s: {:.0f} steps/s; {} quits were due and came\n", figures.steps, seconds,
               static_cast<double>(figures.steps) / seconds, figures.due);
    for (const auto& [kind, count] : figures.decisions) {
        fmt::print("{:8} {}\n", count, kind);
    }
}

/// A walk on which nothing was quit has shown nothing.
bool showedEnough(const Figures& figures) {
    if (figures.steps < stepsToSeeAll) {
        return figures.due > 0;
    }
    for (const char* kind : {"last-window terminated", "hidden terminated", "idle terminated", "idle hidden",
                             "quit-all terminated", "last-window skipped(cg-windows-exist)",
                             "last-window skipped(screen-locked)", "last-window skipped(shadow-mode)"}) {
        if (!figures.decisions.contains(kind)) {
            fmt::print("BROKEN: never saw: {}\n", kind);
            return false;
        }
    }
    return figures.due > 0;
}

int walk(const Arguments& arguments) {
    fmt::print("random-walk --seed {} --steps {}\n", arguments.seed, arguments.steps);
    std::fflush(stdout);
    const auto begin = std::chrono::steady_clock::now();
    Figures figures;
    std::mt19937_64 numbers(arguments.seed);
    while (figures.steps < arguments.steps) {
        Day day(numbers(), figures);
        day.walk(std::min(stepsPerDay, arguments.steps - figures.steps));
        day.end();
        if (!day.broken().empty()) {
            report(day);
            fmt::print("after {} steps; random-walk --seed {} --steps {}\n", figures.steps, arguments.seed,
                       arguments.steps);
            return EXIT_FAILURE;
        }
    }
    print(figures, std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count());
    return showedEnough(figures) ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace
} // namespace ambrel::walk

int main(int count, char** values) {
    // Rules are written with every change: in memory where that is possible.
    if (std::filesystem::exists("/dev/shm")) {
        setenv("TMPDIR", "/dev/shm", 0);
    }
    return ambrel::walk::walk(ambrel::walk::parse(count, values));
}
