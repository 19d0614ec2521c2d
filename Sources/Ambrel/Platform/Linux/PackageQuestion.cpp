#include "Platform/Linux/PackageQuestion.h"

#include <string_view>
#include <utility>

namespace ambrel {

namespace {

constexpr auto service = "org.freedesktop.PackageKit";
constexpr auto servicePath = "/org/freedesktop/PackageKit";
constexpr auto transactionInterface = "org.freedesktop.PackageKit.Transaction";
/// The bit of the filter that lets everything through.
constexpr std::uint64_t noFilter = 2;
/// The kind of an update that is there and can't be installed. How urgent one is stands in the upper half.
constexpr std::uint32_t blocked = 9;
constexpr std::uint32_t kindMask = 0xFFFF;
/// A daemon may first have to fetch its lists.
constexpr Seconds patience{600};

std::string errorText(sd_bus_message* message) {
    const auto* const error = sd_bus_message_get_error(message);
    return error != nullptr && error->message != nullptr ? error->message : "unknown reason";
}

std::optional<std::uint32_t> readNumber(sd_bus_message* message) {
    std::uint32_t number = 0;
    return sd_bus_message_read_basic(message, SD_BUS_TYPE_UINT32, &number) > 0 ? std::optional(number) : std::nullopt;
}

} // namespace

PackageQuestion::PackageQuestion(MainQueue& queue, std::string package, std::function<void(const Answer&)> finished)
    : queue_(queue), package_(std::move(package)), finished_(std::move(finished)),
      bus_(AsyncBus::open(AsyncBus::Kind::system)) {
    if (!bus_) {
        fail("there is no system bus");
        return;
    }
    busLost_ = bus_->lost.subscribe([this] { fail("the system bus has gone"); });
    deadline_ = queue_.asyncAfter(patience, lifetime_.guard([this] { fail("no answer"); }));
    bus_->call({.service = service,
                .path = servicePath,
                .interface = service,
                .method = "CreateTransaction",
                .mayStart = true},
               [this](sd_bus_message* reply) {
                   const auto transaction = isError(reply) ? std::nullopt : readText(reply, SD_BUS_TYPE_OBJECT_PATH);
                   transaction ? begin(*transaction) : fail(errorText(reply));
               });
}

PackageQuestion::~PackageQuestion() {
    if (deadline_) {
        deadline_->cancel();
    }
}

void PackageQuestion::begin(const std::string& transaction) {
    bus_->subscribe("type='signal',path='" + transaction + "',interface='" + transactionInterface + "'",
                    [this](sd_bus_message* message) { hear(message); });
    bus_->call({.service = service,
                .path = transaction,
                .interface = transactionInterface,
                .method = "SetHints",
                .list = {"background=true", "interactive=false"}},
               [](sd_bus_message*) {});
    bus_->call({.service = service,
                .path = transaction,
                .interface = transactionInterface,
                .method = "GetUpdates",
                .number = noFilter},
               [this](sd_bus_message* reply) {
                   if (isError(reply)) {
                       fail(errorText(reply));
                   }
               });
}

void PackageQuestion::hear(sd_bus_message* message) {
    const std::string_view name = sd_bus_message_get_member(message);
    if (name == "Package") {
        notePackage(message);
    } else if (name == "ErrorCode") {
        noteFailure(message);
    } else if (name == "Finished") {
        finish();
    } else if (name == "Destroy") {
        fail("the service gave up");
    }
}

void PackageQuestion::notePackage(sd_bus_message* message) {
    const auto kind = readNumber(message);
    const auto identifier = kind ? readText(message) : std::nullopt;
    const auto version = identifier ? versionOf(package_, *identifier) : std::nullopt;
    if (version && (*kind & kindMask) != blocked) {
        answer_.offered = version;
    }
}

void PackageQuestion::noteFailure(sd_bus_message* message) {
    const auto code = readNumber(message);
    answer_.failure = (code ? readText(message) : std::nullopt).value_or("unknown reason");
}

void PackageQuestion::fail(const std::string& why) {
    if (!isFinished_) {
        answer_.failure = why;
        finish();
    }
}

void PackageQuestion::finish() {
    if (!std::exchange(isFinished_, true)) {
        // Not here: a bus must not go while it delivers.
        queue_.async(lifetime_.guard([this] {
            const auto finished = std::move(finished_);
            finished(Answer(answer_));
        }));
    }
}

std::optional<std::string> versionOf(const std::string& package, const std::string& identifier) {
    const auto name = package + ';';
    if (!identifier.starts_with(name)) {
        return std::nullopt;
    }
    const auto version = identifier.substr(name.size(), identifier.find(';', name.size()) - name.size());
    return version.empty() ? std::nullopt : std::optional(version);
}

} // namespace ambrel
