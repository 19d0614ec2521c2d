#include "MediaPlayers.h"

namespace ambrel {

namespace {

constexpr auto path = "/org/mpris/MediaPlayer2";
constexpr std::string_view prefix = "org.mpris.MediaPlayer2.";

std::string_view textOf(const Variant& value) {
    return value && g_variant_is_of_type(value.get(), G_VARIANT_TYPE_STRING)
               ? std::string_view(g_variant_get_string(value.get(), nullptr))
               : std::string_view();
}

void findOwner(const Bus& bus, const std::string& player, const Subject& subject, Inquiry& inquiry) {
    bus.processOf(player, [&](int pid) {
        if (subject.contains(pid)) {
            inquiry.found("playing");
        }
    });
    // A browser's tabs are played by a process of their own.
    bus.property(player, path, "org.mpris.MediaPlayer2", "DesktopEntry", [&](const Variant& entry) {
        if (subject.isNamed(textOf(entry))) {
            inquiry.found("playing");
        }
    });
}

void askPlayer(const Bus& bus, const std::string& player, const Subject& subject, Inquiry& inquiry) {
    bus.property(player, path, "org.mpris.MediaPlayer2.Player", "PlaybackStatus",
                 [bus, player, &subject, &inquiry](const Variant& status) {
                     if (textOf(status) == "Playing") {
                         findOwner(bus, player, subject, inquiry);
                     }
                 });
}

} // namespace

void askMediaPlayers(const Bus& session, const Subject& subject, Inquiry& inquiry) {
    session.call({"org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "ListNames"},
                 [session, &subject, &inquiry](const Variant& reply) {
                     GVariantIter* names = nullptr;
                     if (!reply || g_variant_is_of_type(reply.get(), G_VARIANT_TYPE("(as)")) == FALSE) {
                         return;
                     }
                     g_variant_get(reply.get(), "(as)", &names);
                     for (const char* name = nullptr; g_variant_iter_next(names, "&s", &name) != FALSE;) {
                         if (std::string_view(name).starts_with(prefix)) {
                             askPlayer(session, name, subject, inquiry);
                         }
                     }
                     g_variant_iter_free(names);
                 });
}

} // namespace ambrel
