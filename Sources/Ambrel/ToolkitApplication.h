#pragma once

#include <filesystem>
#include <memory>

class QGuiApplication;

namespace ambrel {

/// The toolkit's application object, kept small: nothing is loaded that only a window of the desktop's own look needs.
/// Programs started from this one inherit none of what is arranged for it. `argc` and `argv` must outlive it.
[[nodiscard]] std::unique_ptr<QGuiApplication> makeApplication(int& argc, char** argv);

/// Lets the program speak the user's language, if the bundle has words in it.
void translateApplication(const std::filesystem::path& bundle);

} // namespace ambrel
