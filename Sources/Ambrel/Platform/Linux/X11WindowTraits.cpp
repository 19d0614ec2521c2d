#include "Platform/Linux/X11WindowTraits.h"

#include <algorithm>

namespace ambrel {

namespace {

constexpr std::uint32_t iconicState = 3;

std::optional<WindowKind> kindOfType(X11Atom type) {
    switch (type) {
    case X11Atom::typeNormal:
        return WindowKind::standard;
    case X11Atom::typeDialog:
        return WindowKind::dialog;
    case X11Atom::typeUtility:
    case X11Atom::typeToolbar:
        return WindowKind::floating;
    case X11Atom::typeDock:
        return WindowKind::panel;
    case X11Atom::typeDesktop:
        return WindowKind::desktop;
    case X11Atom::typeMenu:
    case X11Atom::typeSplash:
    case X11Atom::typeDropdownMenu:
    case X11Atom::typePopupMenu:
    case X11Atom::typeTooltip:
    case X11Atom::typeNotification:
    case X11Atom::typeCombo:
    case X11Atom::typeDnd:
        return WindowKind::overlay;
    default:
        return std::nullopt;
    }
}

bool contains(const std::vector<X11Atom>& atoms, X11Atom atom) {
    return std::find(atoms.begin(), atoms.end(), atom) != atoms.end();
}

} // namespace

WindowKind windowKind(const X11Presentation& presentation) {
    if (presentation.overrideRedirect) {
        return WindowKind::overlay;
    }
    for (const auto type : presentation.types) {
        if (const auto kind = kindOfType(type)) {
            return *kind;
        }
    }
    return presentation.hasTransientParent ? WindowKind::dialog : WindowKind::standard;
}

bool isMinimized(const X11Presentation& presentation, bool hiddenSupported) {
    const bool iconic = presentation.wmState == iconicState;
    if (!hiddenSupported) {
        return iconic;
    }
    // Some window managers call a shaded window hidden too.
    const bool shaded = contains(presentation.states, X11Atom::netWmStateShaded);
    return contains(presentation.states, X11Atom::netWmStateHidden) && (!shaded || iconic);
}

} // namespace ambrel
