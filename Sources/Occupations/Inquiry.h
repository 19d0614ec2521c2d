#pragma once

#include <string>

#include <glib.h>

namespace ambrel {

/// Collects the answers to questions that are asked all at once. The first one that says yes ends it.
class Inquiry {
public:
    Inquiry();
    Inquiry(const Inquiry&) = delete;
    Inquiry& operator=(const Inquiry&) = delete;
    ~Inquiry();

    /// A question is under way until answered() is called for it.
    void asked() { ++open_; }
    void answered();
    /// Ends the inquiry with this word.
    void found(const char* word);

    /// Runs the main loop until the last question is answered, or `limit` has passed. "none" if no answer said yes,
    /// "unknown" if one is still missing.
    [[nodiscard]] std::string run(guint limitMilliseconds);

private:
    GMainLoop* loop_;
    int open_ = 0;
    std::string word_;
};

} // namespace ambrel
