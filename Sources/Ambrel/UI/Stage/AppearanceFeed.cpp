#include "UI/Stage/AppearanceFeed.h"

#include "DesignSystem/ABAppearance.h"
#include "Platform/Appearance.h"

namespace ambrel {

namespace {

void pass(const AppearanceFacts& facts) {
    auto& appearance = ABAppearance::shared();
    appearance.setDark(facts.colorScheme == ColorScheme::dark);
    appearance.setHighContrast(facts.highContrast);
    appearance.setReducedMotion(facts.reducedMotion);
    appearance.setTextScale(facts.textScale);
}

} // namespace

AppearanceFeed::AppearanceFeed(Appearance& source)
    : changes_(source.didChange.subscribe([&source] { pass(source.current()); })) {
    pass(source.current());
}

} // namespace ambrel
