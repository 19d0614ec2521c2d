#pragma once

#include "Platform/LoginItem.h"

#include <filesystem>
#include <string>

namespace ambrel {

class Environment;
class FileLocations;

/// The login item as the desktop's autostart entry of this program: a file of the user's own, which the desktop's
/// settings show, and in which they say "off" where the user wants that.
class AutostartEntry final : public LoginItem {
public:
    /// `executable` is what the entry is to start. What is passed must outlive this object.
    AutostartEntry(const FileLocations& files, const Environment& environment, std::filesystem::path executable)
        : files_(files), environment_(environment), executable_(std::move(executable)) {}

    [[nodiscard]] LoginItemStatus status() const override;
    LoginItemFailure registerItem() override;
    LoginItemFailure unregisterItem() override;
    LoginItemFailure followProgram() override;

private:
    [[nodiscard]] std::filesystem::path path() const;

    const FileLocations& files_;
    const Environment& environment_;
    std::filesystem::path executable_;
};

/// One argument of an Exec key, quoted as the desktop entry rules want it.
[[nodiscard]] std::string quotedForExec(const std::string& argument);

} // namespace ambrel
