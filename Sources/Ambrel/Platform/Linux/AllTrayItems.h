#pragma once

#include "Platform/Linux/TrayItems.h"

#include <vector>

namespace ambrel {

/// The icons of several kinds of tray, taken together; not the one of this program.
class AllTrayItems final : public TrayItems {
public:
    /// They must outlive this object.
    explicit AllTrayItems(std::vector<TrayItems*> kinds);

    [[nodiscard]] bool owns(ProcessId pid) const override;

private:
    std::vector<TrayItems*> kinds_;
    std::vector<Subscription> subscriptions_;
};

} // namespace ambrel
