#include "Platform/Linux/X11ClientSearch.h"

#include "Platform/Linux/X11Property.h"
#include "Platform/Linux/X11WindowMirror.h"

#include <utility>

namespace ambrel {

namespace {

constexpr int deepestLevel = 4;
/// What has more children than any frame is an application's own pop-up.
constexpr int mostChildren = 128;

/// A window on the way between a child of the root and a client.
struct Step {
    xcb_window_t origin; ///< where the way began
    xcb_window_t window;
};
using Level = std::vector<Step>;

using Tree = X11Message<xcb_query_tree_reply_t>;

/// Goes up from managed clients: a step or two each, of however many parts their frames are made.
class Climb {
public:
    Climb(X11Connection& connection, X11WindowMirror& mirror) : connection_(connection), mirror_(mirror) {}

    void run(std::span<const xcb_window_t> clients) {
        Level level;
        for (const auto client : clients) {
            level.push_back({client, client});
        }
        for (int depth = 0; depth < deepestLevel && !level.empty(); ++depth) {
            level = climbOnce(level);
        }
    }

private:
    Level climbOnce(const Level& level) {
        std::vector<xcb_query_tree_cookie_t> cookies;
        for (const auto& step : level) {
            cookies.push_back(xcb_query_tree(connection_.raw(), step.window));
        }
        Level next;
        for (std::size_t index = 0; index < level.size(); ++index) {
            const Tree tree(xcb_query_tree_reply(connection_.raw(), cookies[index], nullptr));
            if (tree && tree->parent == connection_.root()) {
                mirror_.rememberTop(level[index].origin, level[index].window);
            } else if (tree && tree->parent != XCB_WINDOW_NONE) {
                next.push_back({level[index].origin, tree->parent});
            }
        }
        return next;
    }

    X11Connection& connection_;
    X11WindowMirror& mirror_;
};

/// Goes down from children of the root under which no known client is, to one that has not been placed yet.
class Descent {
public:
    Descent(X11Connection& connection, const X11WindowMirror& mirror, std::span<const xcb_window_t> tops)
        : connection_(connection) {
        for (const auto top : tops) {
            const auto* const known = mirror.findByTop(top);
            clients_[top] = known != nullptr ? known->window.id : xcb_window_t{XCB_WINDOW_NONE};
        }
    }

    void run() {
        Level level;
        for (const auto& [top, client] : clients_) {
            if (client == XCB_WINDOW_NONE) {
                level.push_back({top, top});
            }
        }
        for (int depth = 0; depth < deepestLevel && !level.empty(); ++depth) {
            level = descendOnce(level);
        }
    }

    [[nodiscard]] X11Clients take() && { return std::move(clients_); }

private:
    Level descendOnce(const Level& level) {
        struct Question {
            Step step;
            X11PropertyRequest state;
            xcb_query_tree_cookie_t tree;
        };
        std::vector<Question> questions;
        for (const auto& step : level) {
            questions.push_back({step,
                                 X11PropertyRequest(connection_, step.window, connection_.atom(X11Atom::wmState), 8),
                                 xcb_query_tree(connection_.raw(), step.window)});
        }
        Level next;
        for (const auto& question : questions) {
            const bool isClient = question.state.take().exists();
            const Tree tree(xcb_query_tree_reply(connection_.raw(), question.tree, nullptr));
            if (isClient) {
                clients_[question.step.origin] = question.step.window;
            } else {
                addChildren(question.step, tree, next);
            }
        }
        std::erase_if(next, [this](const Step& step) { return clients_[step.origin] != XCB_WINDOW_NONE; });
        return next;
    }

    static void addChildren(const Step& step, const Tree& tree, Level& next) {
        const int count = tree ? xcb_query_tree_children_length(tree.get()) : 0;
        for (int child = 0; count <= mostChildren && child < count; ++child) {
            next.push_back({step.origin, xcb_query_tree_children(tree.get())[child]});
        }
    }

    X11Connection& connection_;
    X11Clients clients_;
};

} // namespace

void placeX11Clients(X11Connection& connection, X11WindowMirror& mirror) {
    Climb(connection, mirror).run(mirror.takeUnplaced());
}

X11Clients findX11Clients(X11Connection& connection, const X11WindowMirror& mirror,
                          std::span<const xcb_window_t> tops) {
    Descent descent(connection, mirror, tops);
    descent.run();
    return std::move(descent).take();
}

} // namespace ambrel
