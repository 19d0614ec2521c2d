#include "Core/Utf8.h"

#include <algorithm>

namespace ambrel {

namespace {

/// What may follow a leading byte: `count` bytes of 80 to BF, the first of them within narrower limits.
struct Continuation {
    std::size_t count;
    unsigned char low = 0x80;
    unsigned char high = 0xBF;
};

constexpr std::size_t notALead = 9;

Continuation continuation(unsigned char lead) {
    if (lead < 0x80) {
        return {0};
    }
    if (lead >= 0xC2 && lead <= 0xDF) {
        return {1};
    }
    if (lead >= 0xE0 && lead <= 0xEF) {
        return {2, static_cast<unsigned char>(lead == 0xE0 ? 0xA0 : 0x80),
                static_cast<unsigned char>(lead == 0xED ? 0x9F : 0xBF)};
    }
    if (lead >= 0xF0 && lead <= 0xF4) {
        return {3, static_cast<unsigned char>(lead == 0xF0 ? 0x90 : 0x80),
                static_cast<unsigned char>(lead == 0xF4 ? 0x8F : 0xBF)};
    }
    return {notALead};
}

struct Character {
    std::size_t length; ///< bytes that fit
    bool complete;
};

/// The longest beginning of a not empty `text` that can be one character.
Character firstCharacter(std::string_view text) {
    const auto follows = continuation(static_cast<unsigned char>(text.front()));
    if (follows.count == notALead) {
        return {0, false};
    }
    std::size_t length = 1;
    while (length <= follows.count && length < text.size()) {
        const auto byte = static_cast<unsigned char>(text[length]);
        if (byte < (length == 1 ? follows.low : 0x80) || byte > (length == 1 ? follows.high : 0xBF)) {
            break;
        }
        ++length;
    }
    return {length, length == follows.count + 1};
}

/// The index of the first byte that starts no complete character, or the text's size.
std::size_t validLength(std::string_view text) {
    std::size_t index = 0;
    while (index < text.size()) {
        const auto character = firstCharacter(text.substr(index));
        if (!character.complete) {
            break;
        }
        index += character.length;
    }
    return index;
}

} // namespace

bool isValidUtf8(std::string_view text) {
    return validLength(text) == text.size();
}

std::string replacingInvalidUtf8(std::string_view text) {
    std::string result;
    while (true) {
        const auto valid = validLength(text);
        result += text.substr(0, valid);
        if (valid == text.size()) {
            return result;
        }
        result += "\uFFFD";
        text.remove_prefix(valid + 1);
    }
}

bool endsInsideCharacter(std::string_view text) {
    constexpr std::size_t longest = 4;
    for (std::size_t back = 1; back <= std::min(longest, text.size()); ++back) {
        const auto tail = text.substr(text.size() - back);
        if (continuation(static_cast<unsigned char>(tail.front())).count != notALead) {
            const auto character = firstCharacter(tail);
            return !character.complete && character.length == back;
        }
    }
    return false;
}

} // namespace ambrel
