#include "Core/Uuid.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <random>

#include <fmt/format.h>

namespace ambrel {

namespace {

constexpr std::size_t textLength = 36;

constexpr bool isHyphenPlace(std::size_t index) {
    return index == 8 || index == 13 || index == 18 || index == 23;
}

bool isHexDigit(char character) {
    return (character >= '0' && character <= '9') || (character >= 'A' && character <= 'F');
}

char upperCased(char character) {
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
}

} // namespace

Uuid Uuid::random() {
    std::random_device device;
    std::array<std::uint32_t, 4> words{};
    std::generate(words.begin(), words.end(), [&device] { return device(); });
    words[1] = (words[1] & 0xFFFF0FFFU) | 0x00004000U; // version 4
    words[2] = (words[2] & 0x3FFFFFFFU) | 0x80000000U; // the variant of RFC 4122
    return Uuid(fmt::format("{:08X}-{:04X}-{:04X}-{:04X}-{:04X}{:08X}", words[0], words[1] >> 16U, words[1] & 0xFFFFU,
                            words[2] >> 16U, words[2] & 0xFFFFU, words[3]));
}

std::optional<Uuid> Uuid::parse(std::string_view text) {
    if (text.size() != textLength) {
        return std::nullopt;
    }
    std::string canonical(text);
    std::transform(canonical.begin(), canonical.end(), canonical.begin(), upperCased);
    for (std::size_t index = 0; index < textLength; ++index) {
        if (isHyphenPlace(index) ? canonical[index] != '-' : !isHexDigit(canonical[index])) {
            return std::nullopt;
        }
    }
    return Uuid(std::move(canonical));
}

} // namespace ambrel
