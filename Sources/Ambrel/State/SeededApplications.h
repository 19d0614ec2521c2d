#pragma once

#include <array>
#include <string_view>

namespace ambrel {

/// The components of the system, and Ambrel itself: never quit, and never without a rule.
inline constexpr std::array<std::string_view, 8> systemDefaultBundleIDs{
    "com.apple.finder",        "com.apple.dock",        "com.apple.controlcenter",     "com.apple.notificationcenterui",
    "com.apple.WindowManager", "com.apple.loginwindow", "com.apple.systempreferences", "app.ambrel.Ambrel",
};

/// Their work goes on without a window: remote access, backup and sync, VPN, password managers, audio and input
/// devices. Neither a closed window nor Quit All ends them.
inline constexpr std::array<std::string_view, 31> protectedNeverAutoQuitIDs{
    "com.teamviewer.TeamViewer",
    "com.teamviewer.TeamViewerHost",
    "com.philandro.anydesk",
    "com.carriez.rustdesk",
    "com.splashtop.Splashtop-Streamer",
    "com.p5sys.jump.connect",
    "com.edovia.Screens-Connect",
    "tv.parsec.www",

    "com.bombich.ccc",
    "com.blacey.SuperDuper",
    "com.haystacksoftware.Arq",
    "com.getdropbox.dropbox",
    "com.google.drivefs",
    "com.microsoft.OneDrive",
    "com.github.xor-gate.syncthing-macosx",

    "io.tailscale.ipn.macsys",
    "io.tailscale.ipn.macos",
    "com.wireguard.macos",
    "org.openvpn.client.app",
    "net.mullvad.vpn",
    "com.viscosityvpn.Viscosity",
    "com.cisco.anyconnect.gui",
    "com.zerotier.ZeroTier-One",
    "com.expressvpn.ExpressVPN",

    "com.1password.1password",
    "com.bitwarden.desktop",
    "org.keepassxc.keepassxc",

    "com.rogueamoeba.audiohijack",
    "com.rogueamoeba.Loopback",
    "com.elgato.StreamDeck",
    "com.logi.optionsplus",
};

/// Quit with their last window as usual, but spared by Quit All: remote viewers, audio, communication, music.
inline constexpr std::array<std::string_view, 13> protectedQuitAllExemptIDs{
    "com.splashtop.stb.macosx",
    "com.p5sys.jump.mac.viewer.web",
    "com.edovia.screens.5",

    "com.rogueamoeba.soundsource",

    "com.hnc.Discord",
    "com.tinyspeck.slackmacgap",
    "com.microsoft.teams2",
    "com.microsoft.teams",
    "us.zoom.xos",
    "net.whatsapp.WhatsApp",
    "ru.keepcoder.Telegram",
    "com.tdesktop.Telegram",

    "com.spotify.client",
};

} // namespace ambrel
