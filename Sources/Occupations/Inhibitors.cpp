#include "Inhibitors.h"

#include <string_view>

#include <unistd.h>

namespace ambrel {

namespace {

constexpr auto manager = "org.gnome.SessionManager";
constexpr auto managerPath = "/org/gnome/SessionManager";

void askWhose(const Bus& bus, const std::string& inhibitor, const Subject& subject, Inquiry& inquiry) {
    bus.call({manager, inhibitor, "org.gnome.SessionManager.Inhibitor", "GetAppId"}, [&](const Variant& reply) {
        const char* name = nullptr;
        if (reply && g_variant_is_of_type(reply.get(), G_VARIANT_TYPE("(s)"))) {
            g_variant_get(reply.get(), "(&s)", &name);
            if (subject.isNamed(name)) {
                inquiry.found("inhibiting");
            }
        }
    });
}

bool blocksFor(GVariantIter* locks, const Subject& subject) {
    const char* mode = nullptr;
    guint32 user = 0;
    guint32 pid = 0;
    while (g_variant_iter_next(locks, "(&s&s&s&suu)", nullptr, nullptr, nullptr, &mode, &user, &pid) != FALSE) {
        if (std::string_view(mode) == "block" && user == getuid() && subject.has(static_cast<ProcessId>(pid))) {
            return true;
        }
    }
    return false;
}

} // namespace

void askLoginInhibitors(const Bus& system, const Subject& subject, Inquiry& inquiry) {
    system.call(
        {"org.freedesktop.login1", "/org/freedesktop/login1", "org.freedesktop.login1.Manager", "ListInhibitors"},
        [&subject, &inquiry](const Variant& reply) {
            GVariantIter* locks = nullptr;
            if (!reply || g_variant_is_of_type(reply.get(), G_VARIANT_TYPE("(a(ssssuu))")) == FALSE) {
                return;
            }
            g_variant_get(reply.get(), "(a(ssssuu))", &locks);
            if (blocksFor(locks, subject)) {
                inquiry.found("inhibiting");
            }
            g_variant_iter_free(locks);
        });
}

void askSessionInhibitors(const Bus& session, const Subject& subject, Inquiry& inquiry) {
    session.call({manager, managerPath, manager, "GetInhibitors"}, [session, &subject, &inquiry](const Variant& reply) {
        GVariantIter* inhibitors = nullptr;
        if (!reply || g_variant_is_of_type(reply.get(), G_VARIANT_TYPE("(ao)")) == FALSE) {
            return;
        }
        g_variant_get(reply.get(), "(ao)", &inhibitors);
        for (const char* each = nullptr; g_variant_iter_next(inhibitors, "&o", &each) != FALSE;) {
            askWhose(session, each, subject, inquiry);
        }
        g_variant_iter_free(inhibitors);
    });
}

} // namespace ambrel
