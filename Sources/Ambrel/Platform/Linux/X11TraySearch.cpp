#include "Platform/Linux/X11TraySearch.h"

namespace ambrel {

namespace {

constexpr int deepestLevel = 10;
/// More have only an application's own lists and grids.
constexpr int mostChildren = 512;

struct Node {
    xcb_window_t window;
    bool inTray; ///< it is a window of the tray's program
};

class Search {
public:
    Search(X11Connection& connection, xcb_window_t tray)
        : connection_(connection), idMask_(xcb_get_setup(connection.raw())->resource_id_mask),
          client_(tray & ~idMask_) {}

    X11TrayContents run() {
        std::vector<Node> level{{connection_.root(), false}};
        for (int depth = 0; depth < deepestLevel && !level.empty(); ++depth) {
            level = descend(level);
        }
        return std::move(contents_);
    }

private:
    std::vector<Node> descend(const std::vector<Node>& level) {
        std::vector<xcb_query_tree_cookie_t> questions;
        questions.reserve(level.size());
        for (const auto& node : level) {
            questions.push_back(xcb_query_tree(connection_.raw(), node.window));
        }
        std::vector<Node> next;
        for (std::size_t index = 0; index < level.size(); ++index) {
            const X11Message<xcb_query_tree_reply_t> tree(
                xcb_query_tree_reply(connection_.raw(), questions[index], nullptr));
            const int count = tree ? xcb_query_tree_children_length(tree.get()) : 0;
            for (int child = 0; count <= mostChildren && child < count; ++child) {
                take(level[index], xcb_query_tree_children(tree.get())[child], next);
            }
        }
        return next;
    }

    void take(const Node& parent, xcb_window_t child, std::vector<Node>& next) {
        // The ids of a program's windows have their upper bits in common.
        const bool inTray = (child & ~idMask_) == client_;
        if (inTray) {
            contents_.own.insert(child);
        } else if (parent.inTray) {
            contents_.docked.push_back(child);
            return;
        }
        next.push_back({child, inTray});
    }

    X11Connection& connection_;
    std::uint32_t idMask_;
    std::uint32_t client_;
    X11TrayContents contents_;
};

} // namespace

X11TrayContents searchX11Tray(X11Connection& connection, xcb_window_t tray) {
    return Search(connection, tray).run();
}

} // namespace ambrel
