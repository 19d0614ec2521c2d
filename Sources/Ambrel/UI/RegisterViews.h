#pragma once

namespace ambrel {

/// Lets every QML engine of the process import Ambrel.UI. To be called before the first import.
void registerViews();

} // namespace ambrel
