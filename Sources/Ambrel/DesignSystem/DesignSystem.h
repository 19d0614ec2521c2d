#pragma once

namespace ambrel {

/// Lets every QML engine of the process import Ambrel.DesignSystem. To be called before the first import.
void registerDesignSystem();

} // namespace ambrel
