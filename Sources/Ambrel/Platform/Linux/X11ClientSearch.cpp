#include "Platform/Linux/X11ClientSearch.h"

#include "Platform/Linux/X11Property.h"
#include "Platform/Linux/X11WindowMirror.h"

#include <utility>

namespace ambrel {

namespace {

constexpr int deepestLevel = 4;
/// Frames have few children; what has many is an application's own pop-up.
constexpr int mostChildren = 32;

struct Candidate {
    std::size_t top;
    xcb_window_t window;
};

struct Question {
    Candidate candidate;
    X11PropertyRequest state;
    xcb_query_tree_cookie_t tree;
};

class Search {
public:
    Search(X11Connection& connection, const X11WindowMirror& mirror, std::size_t size)
        : connection_(connection), mirror_(mirror), clients_(size) {}

    /// Looks at one level and gives the next.
    std::vector<Candidate> step(const std::vector<Candidate>& level) {
        std::vector<Question> questions;
        for (const auto& candidate : level) {
            auto& client = clients_[candidate.top];
            if (!client && mirror_.find(candidate.window) != nullptr) {
                client = candidate.window;
            } else if (!client) {
                questions.push_back(ask(candidate));
            }
        }
        std::vector<Candidate> next;
        for (const auto& question : questions) {
            take(question, next);
        }
        return next;
    }

    [[nodiscard]] std::vector<std::optional<xcb_window_t>> clients() && { return std::move(clients_); }

private:
    [[nodiscard]] Question ask(const Candidate& candidate) const {
        return {candidate, X11PropertyRequest(connection_, candidate.window, connection_.atom(X11Atom::wmState), 8),
                xcb_query_tree(connection_.raw(), candidate.window)};
    }

    void take(const Question& question, std::vector<Candidate>& next) {
        const X11Message<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(connection_.raw(), question.tree, nullptr));
        auto& client = clients_[question.candidate.top];
        if (question.state.take().exists() && !client) {
            client = question.candidate.window;
        }
        const int children = tree ? xcb_query_tree_children_length(tree.get()) : 0;
        for (int child = 0; !client && children <= mostChildren && child < children; ++child) {
            next.push_back({question.candidate.top, xcb_query_tree_children(tree.get())[child]});
        }
    }

    X11Connection& connection_;
    const X11WindowMirror& mirror_;
    std::vector<std::optional<xcb_window_t>> clients_;
};

} // namespace

std::vector<std::optional<xcb_window_t>> findX11Clients(X11Connection& connection, const X11WindowMirror& mirror,
                                                        std::span<const xcb_window_t> tops) {
    Search search(connection, mirror, tops.size());
    std::vector<Candidate> level;
    for (std::size_t top = 0; top < tops.size(); ++top) {
        level.push_back({top, tops[top]});
    }
    for (int depth = 0; depth < deepestLevel && !level.empty(); ++depth) {
        level = search.step(level);
    }
    return std::move(search).clients();
}

} // namespace ambrel
