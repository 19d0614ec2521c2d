#include "Platform/Linux/LinuxStatusBar.h"

namespace ambrel {

namespace {

class UnshownItem final : public StatusItem {
public:
    void setImage(IconPicture) override {}
    void setTint(std::optional<IconTint>) override {}
    void setMenu(std::vector<StatusMenuEntry>) override {}
    void setVisible(bool visible) override { visible_ = visible; }
    [[nodiscard]] bool isVisible() const override { return visible_; }
    [[nodiscard]] StatusItemPlace place() const override { return {}; }

private:
    bool visible_ = true;
};

} // namespace

std::shared_ptr<StatusItem> LinuxStatusBar::makeItem(std::string, std::string) {
    return std::make_shared<UnshownItem>();
}

} // namespace ambrel
