#include "Support/TemporaryFolder.h"

#include <cstdlib>
#include <system_error>

namespace ambrel {

TemporaryFolder::TemporaryFolder() {
    std::string name = std::filesystem::temp_directory_path() / "ambrel-test-XXXXXX";
    if (mkdtemp(name.data()) == nullptr) {
        std::abort();
    }
    path_ = name;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

} // namespace ambrel
