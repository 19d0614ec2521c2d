#include "Support/AmbrelTest.h"

namespace ambrel {

AmbrelTest::~AmbrelTest() {
    for (const auto& complaint : log.complaints()) {
        ADD_FAILURE() << complaint;
    }
}

} // namespace ambrel
