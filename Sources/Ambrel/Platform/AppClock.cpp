#include "Platform/AppClock.h"

#include "Platform/Environment.h"
#include "Platform/Platform.h"

namespace ambrel {

namespace {

class ForwardingClock final : public Clock {
public:
    explicit ForwardingClock(const Clock& wall) : wall_(wall) {}
    [[nodiscard]] Date now() const override { return wall_.now(); }

private:
    const Clock& wall_;
};

} // namespace

std::unique_ptr<Clock> AppClock::choose(const Environment& environment, const Clock& wall) {
    if (const auto seconds = environment.number("AMBREL_FAKE_NOW")) {
        return std::make_unique<FakeClock>(Date(Seconds(*seconds)));
    }
    return std::make_unique<ForwardingClock>(wall);
}

const Clock& AppClock::shared() {
    static const Clock& clock = *choose(Platform::shared().environment(), Platform::shared().wallClock()).release();
    return clock;
}

} // namespace ambrel
