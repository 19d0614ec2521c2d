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

TEST_F(ProcessContract, FoldersAreAbsoluteAndApart) {
    const auto support = platform.fileLocations().applicationSupport();
    const auto logs = platform.fileLocations().logs();
    EXPECT_TRUE(support.is_absolute());
    EXPECT_TRUE(logs.is_absolute());
    EXPECT_NE(support, logs) << "a log is no setting";
}

TEST_F(ProcessContract, ABundleHasAFolderOfItsOwnAndABareBinaryNoIdentifier) {
    const auto& bundle = platform.bundle();
    EXPECT_TRUE(bundle.bundleURL().is_absolute());
    EXPECT_EQ(bundle.bundleIdentifier().has_value(), bundle.bundleURL().extension() == ".app");
}

TEST_F(ProcessContract, ThePlaceInTheTaskBarIsRemembered) {
    auto& host = platform.application();
    EXPECT_FALSE(host.hasVisibleTitledWindow());
    for (const auto policy : {ActivationPolicy::regular, ActivationPolicy::accessory}) {
        host.setActivationPolicy(policy);
        EXPECT_EQ(host.activationPolicy(), policy);
    }
}

} // namespace
} // namespace ambrel
