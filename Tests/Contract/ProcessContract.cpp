#include "Contract/ContractTest.h"
#include "Platform/ApplicationHost.h"
#include "Platform/Bundle.h"
#include "Platform/Environment.h"
#include "Platform/FileLocations.h"

namespace ambrel {
namespace {

/// What the program learns of itself.
using ProcessContract = ContractTest;

TEST_F(ProcessContract, EnvironmentVariablesAreReadAfresh) {
    const auto& environment = platform.environment();
    driver->setEnvironment("AMBREL_CONTRACT", std::nullopt);
    EXPECT_EQ(environment.value("AMBREL_CONTRACT"), std::nullopt);
    EXPECT_EQ(environment.number("AMBREL_CONTRACT"), std::nullopt);
    driver->setEnvironment("AMBREL_CONTRACT", "");
    EXPECT_TRUE(environment.isSet("AMBREL_CONTRACT")) << "set to nothing is set";
    EXPECT_EQ(environment.number("AMBREL_CONTRACT"), std::nullopt);
    driver->setEnvironment("AMBREL_CONTRACT", "2.5");
    EXPECT_EQ(environment.number("AMBREL_CONTRACT"), 2.5);
    driver->setEnvironment("AMBREL_CONTRACT", "2.5s");
    EXPECT_EQ(environment.number("AMBREL_CONTRACT"), std::nullopt);
    EXPECT_EQ(environment.value("AMBREL_CONTRACT"), "2.5s");
    driver->setEnvironment("AMBREL_CONTRACT", std::nullopt);
    EXPECT_FALSE(environment.isSet("AMBREL_CONTRACT"));
}

} // namespace
} // namespace ambrel
