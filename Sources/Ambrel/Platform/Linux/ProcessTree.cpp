#include "Platform/Linux/ProcessTree.h"

#include "Platform/Linux/ProcFiles.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <memory>

#include <fmt/format.h>

#include <dirent.h>

namespace ambrel {

namespace {

constexpr std::size_t mostProcesses = 512;

struct CloseFolder {
    void operator()(DIR* folder) const { closedir(folder); }
};

std::vector<ProcessId> childrenOf(ProcessId pid) {
    std::vector<ProcessId> children;
    for (const auto thread : threadsOf(pid)) {
        const auto list = readProcFile(pid, fmt::format("task/{}/children", thread));
        if (list) {
            const auto some = parseNumbers(*list);
            children.insert(children.end(), some.begin(), some.end());
        }
    }
    return children;
}

} // namespace

std::vector<ProcessId> threadsOf(ProcessId pid) {
    std::vector<ProcessId> threads;
    const std::unique_ptr<DIR, CloseFolder> folder(opendir(fmt::format("/proc/{}/task", pid).c_str()));
    while (const auto* const entry = folder ? readdir(folder.get()) : nullptr) {
        if (const auto thread = std::atoi(entry->d_name); thread > 0) {
            threads.push_back(thread);
        }
    }
    return threads;
}

std::vector<ProcessId> processTree(ProcessId root, const std::function<bool(ProcessId)>& isAnother) {
    std::vector<ProcessId> tree{root};
    for (std::size_t next = 0; next < tree.size() && tree.size() < mostProcesses; ++next) {
        for (const auto child : childrenOf(tree[next])) {
            // A process that ends during the search may hand its children up.
            if (!isAnother(child) && std::find(tree.begin(), tree.end(), child) == tree.end()) {
                tree.push_back(child);
            }
        }
    }
    return tree;
}

} // namespace ambrel
