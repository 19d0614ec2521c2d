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

void appendTexts(sd_bus_message* message, const std::vector<std::string>& texts) {
    sd_bus_message_open_container(message, SD_BUS_TYPE_ARRAY, "s");
    for (const auto& text : texts) {
        sd_bus_message_append(message, "s", text.c_str());
    }
    sd_bus_message_close_container(message);
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

AsyncBus::AsyncBus(std::unique_ptr<sd_bus, Close> bus) : bus_(std::move(bus)) {
    listen();
}

AsyncBus::~AsyncBus() {
    // No event loop may be left to retire them in.
    delete reading_.release();
    delete writing_.release();
}

void AsyncBus::call(const Call& call, Handler answer) {
    sd_bus_message* message = nullptr;
    if (isLost_ || sd_bus_message_new_method_call(bus_.get(), &message, call.service.c_str(), call.path.c_str(),
                                                  call.interface.c_str(), call.method.c_str()) < 0) {
        return;
    }
    sd_bus_message_set_auto_start(message, call.mayStart ? 1 : 0);
    if (call.number) {
        sd_bus_message_append(message, "t", *call.number);
    }
    if (call.argument) {
        sd_bus_message_append(message, "s", call.argument->c_str());
    }
    if (!call.list.empty()) {
        appendTexts(message, call.list);
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
    auto& subscribed = subscribed_.emplace_back(Subscribed{rule, std::move(handler)});
    if (!isLost_) {
        addMatch(subscribed);
        awaitWriting();
    }
}

void AsyncBus::addMatch(Subscribed& subscribed) {
    sd_bus_add_match_async(bus_.get(), nullptr, subscribed.rule.c_str(), deliver, acceptRefusal, &subscribed.handler);
}

void AsyncBus::offer(const std::string& path, const std::string& interface, const sd_bus_vtable* table, void* object) {
    addObject(offered_.emplace_back(Offered{path, interface, table, object}));
}

void AsyncBus::addObject(const Offered& offered) {
    sd_bus_add_object_vtable(bus_.get(), nullptr, offered.path.c_str(), offered.interface.c_str(), offered.table,
                             offered.object);
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
    if (result < 0 || sd_bus_is_open(bus_.get()) <= 0) {
        lose();
        return;
    }
    listen();
    if (!isReady_ && sd_bus_is_ready(bus_.get()) > 0) {
        isReady_ = true;
        if (std::exchange(wasLost_, false)) {
            cameBack.emit();
        }
    }
}

/// Waiting for the bus to come back has another descriptor than talking to it.
void AsyncBus::listen() {
    const int descriptor = sd_bus_get_fd(bus_.get());
    if (!reading_ || reading_->socket() != descriptor) {
        reading_.reset(new QSocketNotifier(descriptor, QSocketNotifier::Read));
        writing_.reset(new QSocketNotifier(descriptor, QSocketNotifier::Write));
        for (const auto& notifier : {reading_.get(), writing_.get()}) {
            QObject::connect(notifier, &QSocketNotifier::activated, notifier, [this] { pump(); });
        }
    }
    awaitWriting();
}

void AsyncBus::awaitWriting() {
    if (!isLost_) {
        const int events = sd_bus_get_events(bus_.get());
        writing_->setEnabled(events > 0 && (events & POLLOUT) != 0);
    }
}

void AsyncBus::lose() {
    isLost_ = true;
    unanswered_ = 0;
    reading_.reset();
    writing_.reset();
    if (!std::exchange(wasLost_, true)) {
        lost.emit();
    }
    // A dying bus may take one more connection. One that doesn't want us is not asked again and again.
    ungreeted_ = std::exchange(isReady_, false) ? 0 : ungreeted_ + 1;
    if (ungreeted_ <= 1) {
        awaitReturn();
    }
}

void AsyncBus::awaitReturn() {
    const char* address = nullptr;
    sd_bus* raw = nullptr;
    if (sd_bus_get_address(bus_.get(), &address) < 0 || sd_bus_new(&raw) < 0) {
        return;
    }
    std::unique_ptr<sd_bus, Close> next(raw);
    if (sd_bus_set_address(raw, address) < 0 || sd_bus_set_bus_client(raw, 1) < 0 ||
        sd_bus_set_watch_bind(raw, 1) < 0 || sd_bus_start(raw) < 0) {
        return;
    }
    bus_ = std::move(next);
    isLost_ = false;
    for (const auto& offered : offered_) {
        addObject(offered);
    }
    for (auto& subscribed : subscribed_) {
        addMatch(subscribed);
    }
    listen();
}

void AsyncBus::Retire::operator()(QSocketNotifier* notifier) const {
    // It may be the one whose call this is.
    notifier->setEnabled(false);
    notifier->deleteLater();
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
