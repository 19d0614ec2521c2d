#include "Inquiry.h"

namespace ambrel {

Inquiry::Inquiry() : loop_(g_main_loop_new(nullptr, FALSE)) {}

Inquiry::~Inquiry() {
    g_main_loop_unref(loop_);
}

void Inquiry::answered() {
    if (--open_ == 0) {
        g_main_loop_quit(loop_);
    }
}

void Inquiry::found(const char* word) {
    word_ = word;
    g_main_loop_quit(loop_);
}

std::string Inquiry::run(guint limitMilliseconds) {
    const auto end = [](gpointer loop) {
        g_main_loop_quit(static_cast<GMainLoop*>(loop));
        return G_SOURCE_REMOVE;
    };
    if (open_ > 0 && word_.empty()) {
        g_timeout_add(limitMilliseconds, end, loop_);
        g_main_loop_run(loop_);
    }
    return !word_.empty() ? word_ : open_ > 0 ? "unknown" : "none";
}

} // namespace ambrel
