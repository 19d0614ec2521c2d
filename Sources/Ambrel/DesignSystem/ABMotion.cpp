#include "DesignSystem/ABMotion.h"

namespace ambrel {

namespace {

QVariantList easeInAndOut() {
    return {0.42, 0, 0.58, 1, 1, 1};
}

} // namespace

ABTimedMotion ABMotion::hover() {
    return {120, easeInAndOut()};
}

ABTimedMotion ABMotion::crossfade() {
    return {180, easeInAndOut()};
}

} // namespace ambrel
