#include "Bus.h"

#include <utility>

namespace ambrel {

namespace {

struct Connecting {
    Inquiry& inquiry;
    std::function<void(GDBusConnection*)> ready;
};

struct Asking {
    Inquiry& inquiry;
    Bus::Answer answer;
};

/// The library would start a bus where the environment names none.
bool isNamed(GBusType type) {
    const std::string socket = std::string(g_get_user_runtime_dir()) + "/bus";
    return type == G_BUS_TYPE_SYSTEM || g_getenv("DBUS_SESSION_BUS_ADDRESS") != nullptr ||
           g_file_test(socket.c_str(), G_FILE_TEST_EXISTS) != FALSE;
}

void connected(GObject*, GAsyncResult* result, gpointer data) {
    const std::unique_ptr<Connecting> connecting(static_cast<Connecting*>(data));
    if (auto* const connection = g_bus_get_finish(result, nullptr)) {
        g_dbus_connection_set_exit_on_close(connection, FALSE);
        connecting->ready(connection);
    }
    connecting->inquiry.answered();
}

void replied(GObject* source, GAsyncResult* result, gpointer data) {
    const std::unique_ptr<Asking> asking(static_cast<Asking*>(data));
    asking->answer(Variant(g_dbus_connection_call_finish(G_DBUS_CONNECTION(source), result, nullptr)));
    asking->inquiry.answered();
}

} // namespace

void Bus::connect(GBusType type, Inquiry& inquiry, std::function<void(const Bus&)> ready) {
    if (!isNamed(type)) {
        return;
    }
    inquiry.asked();
    auto handler = [&inquiry, ready = std::move(ready)](GDBusConnection* connection) {
        ready(Bus(connection, inquiry));
    };
    g_bus_get(type, nullptr, connected, new Connecting{inquiry, std::move(handler)});
}

void Bus::call(const Call& call, Answer answer) const {
    inquiry_.asked();
    g_dbus_connection_call(connection_, call.service.c_str(), call.path.c_str(), call.interface.c_str(),
                           call.method.c_str(), call.arguments, nullptr, G_DBUS_CALL_FLAGS_NO_AUTO_START, G_MAXINT,
                           nullptr, replied, new Asking{inquiry_, std::move(answer)});
}

void Bus::property(const std::string& service, const std::string& path, const std::string& interface,
                   const std::string& name, Answer answer) const {
    call({service, path, "org.freedesktop.DBus.Properties", "Get",
          g_variant_new("(ss)", interface.c_str(), name.c_str())},
         [answer = std::move(answer)](const Variant& reply) {
             GVariant* value = nullptr;
             if (reply && g_variant_is_of_type(reply.get(), G_VARIANT_TYPE("(v)"))) {
                 g_variant_get(reply.get(), "(v)", &value);
             }
             answer(Variant(value));
         });
}

void Bus::processOf(const std::string& name, std::function<void(int pid)> answer) const {
    call({"org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "GetConnectionUnixProcessID",
          g_variant_new("(s)", name.c_str())},
         [answer = std::move(answer)](const Variant& reply) {
             guint32 pid = 0;
             if (reply && g_variant_is_of_type(reply.get(), G_VARIANT_TYPE("(u)"))) {
                 g_variant_get(reply.get(), "(u)", &pid);
             }
             answer(static_cast<int>(pid));
         });
}

} // namespace ambrel
