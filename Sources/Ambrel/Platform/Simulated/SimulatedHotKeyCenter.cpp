#include "Platform/Simulated/SimulatedHotKeyCenter.h"

#include <utility>

namespace ambrel::simulated {

class SimulatedHotKeyCenter::Registration final : public HotKeyRegistration {
public:
    explicit Registration(SimulatedHotKeyCenter& center) : center_(center) { ++center_.registrations_; }
    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;
    ~Registration() override {
        --center_.registrations_;
        center_.key_.reset();
    }

private:
    SimulatedHotKeyCenter& center_;
};

HotKeyResult SimulatedHotKeyCenter::registerHotKey(HotKey key, std::function<void()> onPress) {
    if (status != 0) {
        return {.status = status, .registration = nullptr};
    }
    key_ = key;
    onPress_ = std::move(onPress);
    return {.status = 0, .registration = std::make_unique<Registration>(*this)};
}

void SimulatedHotKeyCenter::press(HotKey key) const {
    if (key_ == key) {
        onPress_();
    }
}

} // namespace ambrel::simulated
