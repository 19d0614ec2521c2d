#pragma once

#include "Platform/Occupations.h"

#include <filesystem>
#include <string>
#include <string_view>

#include <QObject>
#include <QStringList>

namespace ambrel {

/// Starts a small program for each question, which asks the services and ends: nothing of theirs stays here between
/// two questions, and none of them can hold up the main thread.
class LinuxOccupations final : public Occupations {
public:
    /// Processes for which `isApplication` answers true are not looked at for their parents.
    LinuxOccupations(const std::filesystem::path& program, std::function<bool(ProcessId)> isApplication);

    void ask(const RunningApplication& app, std::function<void(std::optional<Occupation>)> answer) override;

    /// What a word of the program means; an empty or strange one is no answer.
    [[nodiscard]] static std::optional<Occupation> parse(std::string_view word);

private:
    [[nodiscard]] QStringList arguments(const RunningApplication& app) const;
    void sayMissing();

    QString program_;
    std::function<bool(ProcessId)> isApplication_;
    bool saidMissing_ = false;
    QObject running_; ///< the parent of the programs that run
};

} // namespace ambrel
