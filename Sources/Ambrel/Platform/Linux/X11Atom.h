#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace ambrel {

/// The atoms this program works with; `x11AtomNames` gives their names in the same order.
enum class X11Atom : std::size_t {
    utf8String,
    wmClientMachine,
    wmState,
    wmChangeState,
    netSupported,
    netSupportingWmCheck,
    netClientList,
    netActiveWindow,
    netCloseWindow,
    netWmPid,
    netWmState,
    netWmStateHidden,
    netWmStateShaded,
    netWmWindowOpacity,
    netWmWindowType,
    typeNormal,
    typeDialog,
    typeUtility,
    typeToolbar,
    typeDock,
    typeDesktop,
    typeMenu,
    typeSplash,
    typeDropdownMenu,
    typePopupMenu,
    typeTooltip,
    typeNotification,
    typeCombo,
    typeDnd,
    gtkApplicationId,
    gtkUniqueBusName,
    gtkApplicationObjectPath,
};

inline constexpr auto x11AtomNames = std::to_array<std::string_view>({
    "UTF8_STRING",
    "WM_CLIENT_MACHINE",
    "WM_STATE",
    "WM_CHANGE_STATE",
    "_NET_SUPPORTED",
    "_NET_SUPPORTING_WM_CHECK",
    "_NET_CLIENT_LIST",
    "_NET_ACTIVE_WINDOW",
    "_NET_CLOSE_WINDOW",
    "_NET_WM_PID",
    "_NET_WM_STATE",
    "_NET_WM_STATE_HIDDEN",
    "_NET_WM_STATE_SHADED",
    "_NET_WM_WINDOW_OPACITY",
    "_NET_WM_WINDOW_TYPE",
    "_NET_WM_WINDOW_TYPE_NORMAL",
    "_NET_WM_WINDOW_TYPE_DIALOG",
    "_NET_WM_WINDOW_TYPE_UTILITY",
    "_NET_WM_WINDOW_TYPE_TOOLBAR",
    "_NET_WM_WINDOW_TYPE_DOCK",
    "_NET_WM_WINDOW_TYPE_DESKTOP",
    "_NET_WM_WINDOW_TYPE_MENU",
    "_NET_WM_WINDOW_TYPE_SPLASH",
    "_NET_WM_WINDOW_TYPE_DROPDOWN_MENU",
    "_NET_WM_WINDOW_TYPE_POPUP_MENU",
    "_NET_WM_WINDOW_TYPE_TOOLTIP",
    "_NET_WM_WINDOW_TYPE_NOTIFICATION",
    "_NET_WM_WINDOW_TYPE_COMBO",
    "_NET_WM_WINDOW_TYPE_DND",
    "_GTK_APPLICATION_ID",
    "_GTK_UNIQUE_BUS_NAME",
    "_GTK_APPLICATION_OBJECT_PATH",
});

static_assert(x11AtomNames.size() == static_cast<std::size_t>(X11Atom::gtkApplicationObjectPath) + 1);

} // namespace ambrel
