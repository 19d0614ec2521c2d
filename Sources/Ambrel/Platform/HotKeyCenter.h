#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace ambrel {

/// A key combination. The numbers are the virtual key codes and modifier bits that settings have always used: the
/// platform translates them (0x100 is the command key, 0x200 shift, 0x800 option; key code 12 is Q).
struct HotKey {
    std::uint32_t keyCode;
    std::uint32_t carbonModifiers;

    bool operator==(const HotKey&) const = default;
};

/// A registered combination; destroying it gives the combination back.
class HotKeyRegistration {
public:
    virtual ~HotKeyRegistration() = default;
};

struct HotKeyResult {
    std::int32_t status = 0;                          ///< 0 when registered; -9878 when another program has it
    std::unique_ptr<HotKeyRegistration> registration; ///< null unless the status is 0
};

/// Key combinations that reach this program whichever application is in front.
class HotKeyCenter {
public:
    virtual ~HotKeyCenter() = default;

    /// `onPress` is called on the main thread at each press.
    [[nodiscard]] virtual HotKeyResult registerHotKey(HotKey key, std::function<void()> onPress) = 0;
};

} // namespace ambrel
