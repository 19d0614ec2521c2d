#pragma once

#include "Platform/Linux/Defaults/DefaultsDocument.h"
#include "Platform/UserDefaults.h"

#include <cstdint>
#include <filesystem>

namespace ambrel {

class Clock;

/// Preferences in one file, written whole at each change. What is edited by hand in the meantime is read before that.
/// A file that can't be read is moved aside; if that fails too, it is left alone and the values live in memory only.
class JsonDefaultsSuite final : public DefaultsSuite {
public:
    /// The file need not exist yet, nor its folder. `clock` names files moved aside, and must outlive the suite.
    JsonDefaultsSuite(std::filesystem::path file, const Clock& clock);

    /// False if there was a file already that could neither be read nor moved aside.
    [[nodiscard]] bool couldBeOpened() const { return couldBeOpened_; }

    [[nodiscard]] std::optional<DefaultsValue> object(const std::string& key) const override;
    void set(const std::string& key, DefaultsValue value) override;
    void registerDefaults(const std::map<std::string, DefaultsValue>& values) override;
    [[nodiscard]] bool boolForKey(const std::string& key) const override { return typed<bool>(key); }
    [[nodiscard]] double doubleForKey(const std::string& key) const override { return typed<double>(key); }
    [[nodiscard]] std::vector<std::string> stringArrayForKey(const std::string& key) const override {
        return typed<std::vector<std::string>>(key);
    }

private:
    /// Tells whether a file is the one that it was.
    struct Stamp {
        std::uint64_t inode;
        std::int64_t seconds;
        std::int64_t nanoseconds;
        std::int64_t size;

        bool operator==(const Stamp&) const = default;
    };

    template <typename Type> [[nodiscard]] Type typed(const std::string& key) const;
    [[nodiscard]] std::optional<DefaultsValue> registered(const std::string& key) const;
    [[nodiscard]] std::optional<Stamp> currentStamp() const;
    void read();
    void moveAside();
    void save();

    std::filesystem::path file_;
    const Clock& clock_;
    DefaultsDocument document_;
    std::map<std::string, DefaultsValue> registered_;
    std::optional<Stamp> stamp_; ///< of what `document_` was read from or written to
    bool keepsToMemory_ = false; ///< there is a file that we must not overwrite
    bool couldBeOpened_;
};

} // namespace ambrel
