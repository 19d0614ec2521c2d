#pragma once

#include "Core/Clock.h"
#include "Core/Signal.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <systemd/sd-bus.h>

class QSocketNotifier;

namespace ambrel {

/// A connection to a message bus on which nothing ever waits, whatever the bus and its services do. Qt's connections
/// share one thread, which a stalled bus holds up, and subscribing waits for that thread: no way to watch services that
/// may hang. A bus that dies is used again when it comes back to its place in the file system; subscriptions and offers
/// last, calls do not. Main thread only.
class AsyncBus {
public:
    enum class Kind { session, system };
    /// Gets a message at its beginning; the answer to a call may be an error.
    using Handler = std::function<void(sd_bus_message*)>;

    struct Call {
        std::string service;
        std::string path;
        std::string interface;
        std::string method;
        std::optional<std::string> argument = {};
        std::vector<std::string> list = {};       ///< one more argument, unless it is empty: an array of texts
        bool mayStart = false;                    ///< the service, where the bus can
        std::optional<std::uint64_t> number = {}; ///< goes before the other arguments
    };

    /// Null where there is no bus; none is started. That it answers shows only later.
    [[nodiscard]] static std::unique_ptr<AsyncBus> open(Kind kind);

    AsyncBus(const AsyncBus&) = delete;
    AsyncBus& operator=(const AsyncBus&) = delete;
    ~AsyncBus();

    /// Doesn't start the service unless told to. The answer may come at any time, or, from a service that hangs, never.
    void call(const Call& call, Handler answer);
    /// Hears the signals that match the rule, in the bus's own words.
    void subscribe(const std::string& rule, Handler handler);

    /// Offers an interface of an object, as long as this bus lives; the table and the object must live as long. A
    /// message handler of the table must not destroy the bus.
    void offer(const std::string& path, const std::string& interface, const sd_bus_vtable* table, void* object);
    /// `fill` appends what the signal tells.
    void emitSignal(const std::string& path, const std::string& interface, const std::string& name,
                    const Handler& fill = {});

    /// Delivers what arrives until every call on these buses is answered, for `limit` at most. Null is no bus.
    static void settle(std::initializer_list<AsyncBus*> buses, Seconds limit);

    /// The bus has gone, and every service on it. Calls have no effect until it is back.
    Signal<> lost;
    Signal<> cameBack;

private:
    struct Close {
        void operator()(sd_bus* bus) const { sd_bus_close_unref(bus); }
    };

    struct Subscribed {
        std::string rule;
        Handler handler;
    };
    struct Offered {
        std::string path;
        std::string interface;
        const sd_bus_vtable* table;
        void* object;
    };
    struct Retire {
        void operator()(QSocketNotifier* notifier) const;
    };
    using Notifier = std::unique_ptr<QSocketNotifier, Retire>;

    explicit AsyncBus(std::unique_ptr<sd_bus, Close> bus);
    void addMatch(Subscribed& subscribed);
    void addObject(const Offered& offered);
    void pump();
    void listen();
    void awaitWriting();
    void lose();
    void awaitReturn();
    [[nodiscard]] bool isSettled() const { return isLost_ || unanswered_ == 0; }

    std::unique_ptr<sd_bus, Close> bus_;
    Notifier reading_;
    Notifier writing_;
    std::vector<Offered> offered_;
    std::deque<Subscribed> subscribed_; ///< their places stay what they are
    int unanswered_ = 0;
    bool pumping_ = false;
    bool isLost_ = false;
    bool isReady_ = false; ///< the bus has greeted us
    int ungreeted_ = 0;    ///< connections that ended before that, one after the other
    bool wasLost_ = false; ///< and has not come back
};

/// The answer to a call is an error.
[[nodiscard]] bool isError(sd_bus_message* message);
/// The Boolean that is next in the message.
[[nodiscard]] std::optional<bool> readBoolean(sd_bus_message* message);
/// The text, or object path, that is next in the message.
[[nodiscard]] std::optional<std::string> readText(sd_bus_message* message, char type = SD_BUS_TYPE_STRING);
/// Tells of each Boolean in the dictionary of variants that is next in the message.
void readBooleans(sd_bus_message* message, const std::function<void(const std::string& name, bool value)>& found);

} // namespace ambrel
