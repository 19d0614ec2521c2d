#pragma once

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
    struct Line {
        std::string path;
        std::string action;
        std::string pid; ///< "pid=…"
    };

    explicit DecisionsTail(std::filesystem::path file) : file_(std::move(file)) {}

    /// The lines since the last call that say something was done, not held back.
    [[nodiscard]] std::vector<Line> newDeeds() {
        std::vector<Line> deeds;
        std::ifstream file(file_);
        file.seekg(offset_);
        for (std::string text; std::getline(file, text);) {
            offset_ += static_cast<std::streamoff>(text.size() + 1);
            const auto line = parse(text);
            ++counts[line.path + " " + line.action];
            if (!line.action.starts_with("skipped(")) {
                deeds.push_back(line);
            }
        }
        return deeds;
    }

    /// The path of the one new line that says something was done, if it says this of this process; else empty.
    [[nodiscard]] std::string pathOfOnlyDeed(const std::string& action, int pid) {
        const auto deeds = newDeeds();
        const bool right =
            deeds.size() == 1 && deeds[0].action == action && deeds[0].pid == "pid=" + std::to_string(pid);
        return right ? deeds[0].path : "";
    }

    std::map<std::string, long> counts; ///< of lines by path and action

private:
    [[nodiscard]] static Line parse(const std::string& text) {
        std::istringstream stream(text);
        std::string date;
        std::string bundleID;
        std::string name;
        Line line;
        for (auto* field : {&date, &line.path, &line.action, &bundleID, &name, &line.pid}) {
            std::getline(stream, *field, '\t');
        }
        return line;
    }

    std::filesystem::path file_;
    std::streamoff offset_ = 0;
};

} // namespace ambrel::walk
