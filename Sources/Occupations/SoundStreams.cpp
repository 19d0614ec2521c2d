#include "SoundStreams.h"

#include <charconv>
#include <cstring>
#include <string>

#include <pulse/glib-mainloop.h>
#include <pulse/pulseaudio.h>

namespace ambrel {

namespace {

/// Lives as long as this short-lived program.
struct Question {
    const Subject& subject;
    Inquiry& inquiry;
};

/// Without a server the library would leave files of its own in the user's folders.
bool isServerNamed() {
    const std::string socket = std::string(g_get_user_runtime_dir()) + "/pulse/native";
    return g_getenv("PULSE_SERVER") != nullptr || g_file_test(socket.c_str(), G_FILE_TEST_EXISTS) != FALSE;
}

/// PipeWire knows the process itself; another server only what the client told.
bool isOf(const pa_proplist* facts, const Subject& subject) {
    for (const char* key : {"pipewire.sec.pid", PA_PROP_APPLICATION_PROCESS_ID}) {
        const char* const text = pa_proplist_gets(facts, key);
        ProcessId pid = 0;
        if (text != nullptr && std::from_chars(text, text + std::strlen(text), pid).ec == std::errc()) {
            return subject.mayHave(pid);
        }
    }
    const char* const sandbox = pa_proplist_gets(facts, "pipewire.access.portal.app_id");
    return sandbox != nullptr && subject.isNamed(sandbox);
}

void heardClient(pa_context*, const pa_client_info* client, int end, void* data) {
    const auto& question = *static_cast<Question*>(data);
    if (end != 0) {
        question.inquiry.answered();
    } else if (isOf(client->proplist, question.subject)) {
        question.inquiry.found("playing");
    }
}

/// A stream is a pa_sink_input_info or a pa_source_output_info.
template <typename Stream> void heardStream(pa_context* context, const Stream* stream, int end, void* data) {
    const auto& question = *static_cast<Question*>(data);
    if (end != 0) {
        question.inquiry.answered();
    } else if (stream->corked == 0 && stream->client != PA_INVALID_INDEX) {
        question.inquiry.asked();
        pa_operation_unref(pa_context_get_client_info(context, stream->client, heardClient, data));
    }
}

void stateChanged(pa_context* context, void* data) {
    const auto state = pa_context_get_state(context);
    auto& inquiry = static_cast<Question*>(data)->inquiry;
    if (state == PA_CONTEXT_READY) {
        inquiry.asked();
        pa_operation_unref(pa_context_get_sink_input_info_list(context, heardStream<pa_sink_input_info>, data));
        pa_operation_unref(pa_context_get_source_output_info_list(context, heardStream<pa_source_output_info>, data));
    } else if (PA_CONTEXT_IS_GOOD(state) == 0) {
        inquiry.answered();
    }
}

} // namespace

void askSoundServer(const Subject& subject, Inquiry& inquiry) {
    if (!isServerNamed()) {
        return;
    }
    auto* const loop = pa_glib_mainloop_new(nullptr);
    auto* const context = pa_context_new(pa_glib_mainloop_get_api(loop), "Ambrel");
    auto* const question = new Question{subject, inquiry};
    inquiry.asked();
    pa_context_set_state_callback(context, stateChanged, question);
    pa_context_connect(context, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr);
}

} // namespace ambrel
