#pragma once

#include "Inquiry.h"

#include <functional>
#include <memory>
#include <string>

#include <gio/gio.h>

namespace ambrel {

struct ReleaseVariant {
    void operator()(GVariant* variant) const { g_variant_unref(variant); }
};
using Variant = std::unique_ptr<GVariant, ReleaseVariant>;

/// A message bus that is asked questions. It starts neither itself nor a service.
class Bus {
public:
    /// Null for an error: a service that is not there, or has no answer.
    using Answer = std::function<void(const Variant& reply)>;

    struct Call {
        std::string service;
        std::string path;
        std::string interface;
        std::string method;
        GVariant* arguments = nullptr; ///< a tuple, floating
    };

    /// Connects, and tells `ready` if that succeeds.
    static void connect(GBusType type, Inquiry& inquiry, std::function<void(const Bus&)> ready);

    /// The inquiry waits for the answer.
    void call(const Call& call, Answer answer) const;
    /// Reads a property; null if there is none.
    void property(const std::string& service, const std::string& path, const std::string& interface,
                  const std::string& name, Answer answer) const;
    /// The id of the process that owns a name, 0 if none does.
    void processOf(const std::string& name, std::function<void(int pid)> answer) const;

private:
    Bus(GDBusConnection* connection, Inquiry& inquiry) : connection_(connection), inquiry_(inquiry) {}

    GDBusConnection* connection_; ///< lives as long as this short-lived program
    Inquiry& inquiry_;
};

} // namespace ambrel
