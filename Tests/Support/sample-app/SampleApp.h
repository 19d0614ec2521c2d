#pragma once

#include "Options.h"
#include "Output.h"
#include "TrayIcons.h"
#include "XDisplay.h"

#include <map>
#include <string>
#include <string_view>

namespace ambrel::sample {

/// What the application does when it is asked to close a window.
enum class DeleteAnswer { destroy, ignore, confirm };

/// An application whose windows and manners are driven by lines of text. It lives on without windows; only SIGTERM,
/// "exit" or the end of its display end it.
class SampleApp {
public:
    explicit SampleApp(Options options);

    /// The exit status.
    [[nodiscard]] int run();

private:
    /// A window's number counts the windows opened so far, from 1, and is never given again.
    struct Window {
        xcb_window_t id = XCB_NONE;
        bool shown = false;
    };

    void execute(std::string_view line);
    void executeOnWindow(std::string_view verb, xcb_window_t window);
    void open(bool isDialog);
    void storm(int count);
    bool executeOnTray(std::string_view verb);
    void forkChild();

    void readInput();
    void readSignal();
    void readEvents();
    void handle(const xcb_generic_event_t& event);
    void deleteRequested(xcb_window_t window);
    void reportMapped(xcb_window_t window);
    [[nodiscard]] Window* find(xcb_window_t window);

    Options options_;
    Output output_;
    XDisplay display_;
    TrayIcons icons_{display_};
    std::map<int, Window> windows_;
    int opened_ = 0;
    std::string input_;
    DeleteAnswer deleteAnswer_ = DeleteAnswer::destroy;
    bool ignoresTerm_ = false;
    bool inputEnded_ = false;
    bool finished_ = false;
    int signals_ = -1;
};

} // namespace ambrel::sample
