#include "Walk/Day.h"

#include <algorithm>
#include <iterator>
#include <numeric>

#include <fmt/format.h>

namespace ambrel::walk {

namespace {
constexpr std::size_t trailLength = 400;
constexpr const char* logFile = "decisions.log";
} // namespace

/// Takes Ambrel's lines down between the steps.
class Day::Trail final : public LogSink {
public:
    explicit Trail(std::deque<std::string>& lines) : lines_(lines) { install(this); }
    Trail(const Trail&) = delete;
    Trail& operator=(const Trail&) = delete;
    ~Trail() override { install(nullptr); }

    void write(std::string_view category, LogLevel, std::string_view message) override {
        lines_.push_back(fmt::format("        {}: {}", category, message));
    }
    [[nodiscard]] bool wants(LogLevel level) const override { return level != LogLevel::debug; }

private:
    std::deque<std::string>& lines_;
};

Day::Day(std::uint64_t number, Figures& figures)
    : random_(number), calm_(once(2)), figures_(figures), sink_(std::make_unique<Trail>(trail_)) {
    std::ranges::move(userVerbs(), std::back_inserter(verbs_));
    for (const char* locked : {"com.apple.finder", "app.ambrel.Ambrel"}) {
        AppRule& rule = wishes_.own.try_emplace(locked, locked).first->second;
        rule.quitOnLastWindowClose = rule.includedInQuitAll = false;
    }
    desktop_.environment().set("AMBREL_TERMLOG", home_.path() / logFile);
    startAmbrel();
}

Day::~Day() = default;

void Day::end() {
    endAmbrel();
    figures_.due += statement_.due;
}

void Day::startAmbrel() {
    std::filesystem::remove(home_.path() / logFile);
    tail_.emplace(home_.path() / logFile);
    house_ = std::make_unique<EngineHouse>(desktop_);
    statement_.ambrelStarted(&*tail_, [this] { house_->audit.drain(); });
    house_->engine.start();
    history_.ambrelStarted();
    history_.look();
}

void Day::endAmbrel() {
    statement_.finish();
    for (const auto& [kind, count] : tail_->counts) {
        figures_.decisions[kind] += count;
    }
    house_.reset();
    desktop_.userDefaults().endRun();
}

void Day::walk(long steps) {
    for (long taken = 0; taken < steps && broken().empty(); ++taken) {
        step();
        ++figures_.steps;
        while (trail_.size() > trailLength) {
            trail_.pop_front();
        }
    }
}

void Day::choose() {
    const long total =
        std::accumulate(verbs_.begin(), verbs_.end(), 0L, [](long sum, const Verb& verb) { return sum + verb.weight; });
    long chosen = upTo(total);
    const auto verb = std::find_if(verbs_.begin(), verbs_.end(), [&](const Verb& each) {
        chosen -= each.weight;
        return chosen < 0;
    });
    trail_.push_back(fmt::format("{:.3f} {}", history_.now() - dawn_, verb->name));
    verb->act();
}

void Day::step() {
    choose();
    // Some verbs follow each other within one turn of the queue.
    if (!once(4)) {
        letTimePass();
    }
}

void Day::letTimePass() {
    const double span = oneOf({0.0, 0.0, 0.0, 0.05, 0.1, 0.2, 0.25, 0.3, 0.5, 0.5, 0.6, 1.0, 2.0, 2.5, 4.0, 12.0});
    const double seconds = once(60) ? 400 : span;
    trail_.push_back(fmt::format("    {} seconds pass", seconds));
    history_.look();
    desktop_.advance(seconds);
    history_.look();
    statement_.look();
}

bool Day::flips(bool& flag) {
    if (!flag && !once(6)) {
        return false;
    }
    flag = !flag;
    return true;
}

long Day::upTo(long limit) {
    return static_cast<long>(random_() % static_cast<std::uint64_t>(limit));
}

} // namespace ambrel::walk
