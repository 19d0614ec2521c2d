#pragma once

#include "Options.h"
#include "TrayIcons.h"
#include "XDisplay.h"

#include <map>
#include <set>
#include <string>

#include <fmt/format.h>

namespace ambrel::sample {

/// What the application does when it is asked to close a window.
enum class DeleteAnswer { destroy, ignore, confirm };

/// An application whose windows and manners are driven by lines of text. It lives on without windows; only SIGTERM, the
/// end of its display or, if it was told to save, that of its last window end it.
class SampleApp {
public:
    explicit SampleApp(Options options);

    /// The exit status.
    [[nodiscard]] int run();

private:
    void execute(const std::string& line);
    [[nodiscard]] bool executeOnWindow(const std::string& verb, const std::string& rest, xcb_window_t window);
    /// Writes for four seconds, and ends.
    void save();
    void open(bool isDialog);

    void readInput();
    void readSignal();
    void handle(const xcb_generic_event_t& event);
    void deleteRequested(xcb_window_t window);

    /// One line on stdout, never held back in a buffer.
    template <typename... Parts> void say(fmt::format_string<Parts...> format, Parts&&... parts) const {
        write(fmt::format(format, std::forward<Parts>(parts)...));
    }
    void write(const std::string& text) const;

    Options options_;
    XDisplay display_;
    TrayIcons icons_{display_};
    std::map<int, xcb_window_t> windows_; ///< by their number, which counts from 1 and is never given again
    std::set<xcb_window_t> unseen_;       ///< asked for, and not yet on the screen
    int opened_ = 0;
    std::string input_;
    DeleteAnswer deleteAnswer_ = DeleteAnswer::destroy;
    std::string savedFile_; ///< written after the last window has gone; empty for an application that lives on
    bool ignoresTerm_ = false;
    bool inputEnded_ = false;
    bool finished_ = false;
    int signals_ = -1;
};

} // namespace ambrel::sample
