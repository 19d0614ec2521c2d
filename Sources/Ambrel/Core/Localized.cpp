#include "Core/Localized.h"

namespace ambrel {

namespace {

std::string (*current)(const char*) = nullptr;

} // namespace

std::string localized(const char* text) {
    return current == nullptr ? text : current(text);
}

void setTranslation(std::string (*translation)(const char*)) {
    current = translation;
}

} // namespace ambrel
