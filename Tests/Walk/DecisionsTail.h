#pragma once

#include <array>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace ambrel::walk {

/// Reads the decisions log as it grows, by the layout of its lines alone.
class DecisionsTail {
public:
    explicit DecisionsTail(std::filesystem::path file) : file_(std::move(file)) {}

    /// The lines since the last call that say something was done, not held back, as "PATH ACTION pid=PID".
    [[nodiscard]] std::vector<std::string> newDeeds() {
        std::vector<std::string> deeds;
        std::ifstream file(file_);
        file.seekg(offset_);
        for (std::string text; std::getline(file, text);) {
            offset_ += static_cast<std::streamoff>(text.size() + 1);
            std::istringstream line(text);
            std::array<std::string, 6> fields; // date, path, action, bundle, name, pid
            for (auto& field : fields) {
                std::getline(line, field, '\t');
            }
            const auto kind = fields[1] + " " + fields[2];
            ++counts[kind];
            if (!fields[2].starts_with("skipped(")) {
                deeds.push_back(kind + " " + fields[5]);
            }
        }
        return deeds;
    }

    /// The path of the one new line that says something was done, if it says this of this process; else empty.
    [[nodiscard]] std::string pathOfOnlyDeed(const std::string& action, int pid) {
        const auto deeds = newDeeds();
        const auto end = " " + action + " pid=" + std::to_string(pid);
        const bool right = deeds.size() == 1 && deeds[0].ends_with(end);
        return right ? deeds[0].substr(0, deeds[0].size() - end.size()) : "";
    }

    std::map<std::string, long> counts; ///< of lines by path and action

private:
    std::filesystem::path file_;
    std::streamoff offset_ = 0;
};

} // namespace ambrel::walk
