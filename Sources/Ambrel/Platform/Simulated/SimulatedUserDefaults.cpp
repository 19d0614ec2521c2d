#include "Platform/Simulated/SimulatedUserDefaults.h"

namespace ambrel::simulated {

struct SimulatedUserDefaults::Store {
    std::map<std::string, DefaultsValue> values;
    std::map<std::string, DefaultsValue> registered;
};

class SimulatedUserDefaults::Suite final : public DefaultsSuite {
public:
    explicit Suite(std::shared_ptr<Store> store) : store_(std::move(store)) {}

    [[nodiscard]] std::optional<DefaultsValue> object(const std::string& key) const override {
        for (const auto* values : {&store_->values, &store_->registered}) {
            if (const auto found = values->find(key); found != values->end()) {
                return found->second;
            }
        }
        return std::nullopt;
    }

    void set(const std::string& key, DefaultsValue value) override { store_->values[key] = std::move(value); }

    void registerDefaults(const std::map<std::string, DefaultsValue>& values) override {
        for (const auto& [key, value] : values) {
            store_->registered[key] = value;
        }
    }

    [[nodiscard]] bool boolForKey(const std::string& key) const override { return typed<bool>(key); }
    [[nodiscard]] double doubleForKey(const std::string& key) const override { return typed<double>(key); }
    [[nodiscard]] std::vector<std::string> stringArrayForKey(const std::string& key) const override {
        return typed<std::vector<std::string>>(key);
    }

private:
    template <typename Type> [[nodiscard]] Type typed(const std::string& key) const {
        for (const auto* values : {&store_->values, &store_->registered}) {
            const auto found = values->find(key);
            if (found != values->end() && std::holds_alternative<Type>(found->second)) {
                return std::get<Type>(found->second);
            }
        }
        return {};
    }

    std::shared_ptr<Store> store_;
};

DefaultsSuiteRef SimulatedUserDefaults::suite(const std::string& name) {
    return unopenable_.contains(name) ? nullptr : handle("suite " + name);
}

DefaultsSuiteRef SimulatedUserDefaults::standard() {
    return handle("standard");
}

DefaultsSuiteRef SimulatedUserDefaults::handle(const std::string& name) {
    auto& store = stores_[name];
    if (!store) {
        store = std::make_shared<Store>();
    }
    return std::make_shared<Suite>(store);
}

void SimulatedUserDefaults::endRun() {
    for (const auto& [name, store] : stores_) {
        store->registered.clear();
    }
}

} // namespace ambrel::simulated
