#include "Platform/UserDefaults.h"

namespace ambrel {

DefaultsSuiteRef UserDefaults::productSuite() {
    if (auto product = suite("app.ambrel.Ambrel")) {
        return product;
    }
    return standard();
}

} // namespace ambrel
