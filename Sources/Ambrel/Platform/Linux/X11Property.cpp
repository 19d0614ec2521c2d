#include "Platform/Linux/X11Property.h"

#include <cstring>
#include <string_view>

#include <QString>
#include <QStringDecoder>

namespace ambrel {

namespace {

/// Properties are Latin-1 by their rule book and UTF-8 in many programs, whatever type they are given.
std::string toUtf8(std::string_view bytes) {
    const QByteArrayView view(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString decoded = decoder(view);
    return (decoder.hasError() ? QString::fromLatin1(view) : decoded).toStdString();
}

} // namespace

bool X11Property::exists() const {
    return reply_ && reply_->type != XCB_ATOM_NONE;
}

std::vector<std::uint32_t> X11Property::words() const {
    if (!isWords() || reply_->value_len == 0) {
        return {};
    }
    std::vector<std::uint32_t> words(reply_->value_len);
    std::memcpy(words.data(), xcb_get_property_value(reply_.get()), words.size() * sizeof words[0]);
    return words;
}

std::optional<std::uint32_t> X11Property::word() const {
    const auto all = words();
    return all.empty() ? std::nullopt : std::optional(all.front());
}

std::vector<std::string> X11Property::texts() const {
    if (!exists() || reply_->format != 8) {
        return {};
    }
    std::string_view rest(static_cast<const char*>(xcb_get_property_value(reply_.get())), reply_->value_len);
    std::vector<std::string> texts;
    while (!rest.empty()) {
        const auto end = rest.find('\0');
        texts.push_back(toUtf8(rest.substr(0, end)));
        rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
    }
    return texts;
}

std::string X11Property::text() const {
    const auto all = texts();
    return all.empty() ? std::string() : all.front();
}

X11PropertyRequest::X11PropertyRequest(X11Connection& connection, xcb_window_t window, xcb_atom_t property,
                                       std::uint32_t limit)
    : connection_(connection.raw()),
      cookie_(xcb_get_property(connection_, 0, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, limit / 4)) {}

X11Property X11PropertyRequest::take() const {
    return X11Property(X11Message<xcb_get_property_reply_t>(xcb_get_property_reply(connection_, cookie_, nullptr)));
}

} // namespace ambrel
