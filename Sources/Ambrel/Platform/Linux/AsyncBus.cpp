#include "Platform/Linux/AsyncBus.h"

#include <algorithm>
#include <utility>
#include <vector>

#include <QDeadlineTimer>
#include <QSocketNotifier>

#include <poll.h>

namespace ambrel {

namespace {

/// An answer that comes late is still news.
constexpr std::uint64_t noTimeout = UINT64_MAX;

int deliver(sd_bus_message* message, void* handler, sd_bus_error*) {
    (*static_cast<AsyncBus::Handler*>(handler))(message);
    return 0;
}

/// The library's own reaction to a refused subscription is to close the connection.
int acceptRefusal(sd_bus_message*, void*, sd_bus_error*) {
    return 0;
}

/// The slot lives as long as the connection or, that of a call, until it is answered; the handler with it.
void giveAway(sd_bus_slot* slot) {
    sd_bus_slot_set_destroy_callback(slot, [](void* handler) { delete static_cast<AsyncBus::Handler*>(handler); });
    sd_bus_slot_set_floating(slot, 1);
    sd_bus_slot_unref(slot);
}

} // namespace

std::unique_ptr<AsyncBus> AsyncBus::open(Kind kind) {
    sd_bus* bus = nullptr;
    const int result = kind == Kind::session ? sd_bus_open_user(&bus) : sd_bus_open_system(&bus);
    if (result < 0) {
        return nullptr;
    }
    return std::unique_ptr<AsyncBus>(new AsyncBus(std::unique_ptr<sd_bus, Close>(bus)));
}

AsyncBus::AsyncBus(std::unique_ptr<sd_bus, Close> bus)
    : bus_(std::move(bus)),
      reading_(std::make_unique<QSocketNotifier>(sd_bus_get_fd(bus_.get()), QSocketNotifier::Read)),
      writing_(std::make_unique<QSocketNotifier>(sd_bus_get_fd(bus_.get()), QSocketNotifier::Write)) {
    for (const auto& notifier : {reading_.get(), writing_.get()}) {
        QObject::connect(notifier, &QSocketNotifier::activated, notifier, [this] { pump(); });
    }
    awaitWriting();
}

AsyncBus::~AsyncBus() = default;

void AsyncBus::call(const Call& call, Handler answer) {
    sd_bus_message* message = nullptr;
    if (isLost_ || sd_bus_message_new_method_call(bus_.get(), &message, call.service.c_str(), call.path.c_str(),
                                                  call.interface.c_str(), call.method.c_str()) < 0) {
        return;
    }
    sd_bus_message_set_auto_start(message, 0);
    if (call.argument) {
        sd_bus_message_append(message, "s", call.argument->c_str());
    }
    auto handler = std::make_unique<Handler>([this, answer = std::move(answer)](sd_bus_message* reply) {
        answer(reply);
        --unanswered_;
    });
    sd_bus_slot* slot = nullptr;
    if (sd_bus_call_async(bus_.get(), &slot, message, deliver, handler.get(), noTimeout) >= 0) {
        ++unanswered_;
        static_cast<void>(handler.release());
        giveAway(slot);
    }
    sd_bus_message_unref(message);
    awaitWriting();
}

void AsyncBus::subscribe(const std::string& rule, Handler handler) {
    auto owned = std::make_unique<Handler>(std::move(handler));
    sd_bus_slot* slot = nullptr;
    if (!isLost_ && sd_bus_add_match_async(bus_.get(), &slot, rule.c_str(), deliver, acceptRefusal, owned.get()) >= 0) {
        static_cast<void>(owned.release());
        giveAway(slot);
    }
    awaitWriting();
}

void AsyncBus::offer(const std::string& path, const std::string& interface, const sd_bus_vtable* table, void* object) {
    sd_bus_add_object_vtable(bus_.get(), nullptr, path.c_str(), interface.c_str(), table, object);
}

void AsyncBus::emitSignal(const std::string& path, const std::string& interface, const std::string& name,
                          const Handler& fill) {
    sd_bus_message* message = nullptr;
    if (isLost_ || sd_bus_message_new_signal(bus_.get(), &message, path.c_str(), interface.c_str(), name.c_str()) < 0) {
        return;
    }
    if (fill) {
        fill(message);
    }
    sd_bus_send(bus_.get(), message, nullptr);
    sd_bus_message_unref(message);
    awaitWriting();
}

void AsyncBus::settle(std::initializer_list<AsyncBus*> buses, Seconds limit) {
    const QDeadlineTimer deadline(std::chrono::ceil<std::chrono::milliseconds>(limit));
    std::vector<AsyncBus*> open(buses);
    const auto isDone = [](const AsyncBus* bus) {
        return bus == nullptr || bus->isSettled();
    };
    while (std::erase_if(open, isDone), !open.empty() && !deadline.hasExpired()) {
        std::vector<pollfd> descriptors;
        descriptors.reserve(open.size());
        for (auto* const bus : open) {
            descriptors.push_back(
                {sd_bus_get_fd(bus->bus_.get()), static_cast<short>(sd_bus_get_events(bus->bus_.get())), 0});
        }
        poll(descriptors.data(), descriptors.size(), static_cast<int>(deadline.remainingTime()));
        std::for_each(open.begin(), open.end(), [](AsyncBus* bus) { bus->pump(); });
    }
}

void AsyncBus::pump() {
    if (pumping_ || isLost_) {
        return;
    }
    pumping_ = true;
    int result = 0;
    do {
        result = sd_bus_process(bus_.get(), nullptr);
    } while (result > 0);
    pumping_ = false;
    result < 0 || sd_bus_is_open(bus_.get()) <= 0 ? lose() : awaitWriting();
}

void AsyncBus::awaitWriting() {
    const int events = isLost_ ? 0 : sd_bus_get_events(bus_.get());
    writing_->setEnabled(events > 0 && (events & POLLOUT) != 0);
}

void AsyncBus::lose() {
    isLost_ = true;
    reading_->setEnabled(false);
    writing_->setEnabled(false);
    lost.emit();
}

bool isError(sd_bus_message* message) {
    return sd_bus_message_is_method_error(message, nullptr) > 0;
}

std::optional<bool> readBoolean(sd_bus_message* message) {
    int value = 0;
    return sd_bus_message_read_basic(message, SD_BUS_TYPE_BOOLEAN, &value) > 0 ? std::optional(value != 0)
                                                                               : std::nullopt;
}

std::optional<std::string> readText(sd_bus_message* message, char type) {
    const char* text = nullptr;
    return sd_bus_message_read_basic(message, type, &text) > 0 ? std::optional<std::string>(text) : std::nullopt;
}

void readBooleans(sd_bus_message* message, const std::function<void(const std::string& name, bool value)>& found) {
    if (sd_bus_message_enter_container(message, SD_BUS_TYPE_ARRAY, "{sv}") <= 0) {
        return;
    }
    while (sd_bus_message_enter_container(message, SD_BUS_TYPE_DICT_ENTRY, "sv") > 0) {
        const auto name = readText(message);
        int value = 0;
        if (name && sd_bus_message_verify_type(message, SD_BUS_TYPE_VARIANT, "b") > 0 &&
            sd_bus_message_read(message, "v", "b", &value) > 0) {
            found(*name, value != 0);
        } else if (sd_bus_message_skip(message, "v") < 0) {
            return;
        }
        sd_bus_message_exit_container(message);
    }
    sd_bus_message_exit_container(message);
}

} // namespace ambrel
