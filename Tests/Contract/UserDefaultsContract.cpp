#include "Contract/ContractTest.h"
#include "Platform/UserDefaults.h"

namespace ambrel {
namespace {

using Strings = std::vector<std::string>;

class UserDefaultsContract : public ContractTest {
protected:
    UserDefaults& defaults = platform.userDefaults();
    /// A fresh suite, as a desktop keeps its files from one test to the next.
    DefaultsSuiteRef suite = defaults.suite(name());

    static std::string name() {
        return std::string("org.example.contract.") + ::testing::UnitTest::GetInstance()->current_test_info()->name();
    }
};

TEST_F(UserDefaultsContract, RegisteredValuesStandInForAbsentOnesAndForThoseOfAnotherType) {
    EXPECT_FALSE(suite->boolForKey("flag"));
    EXPECT_EQ(suite->doubleForKey("delay"), 0);
    EXPECT_EQ(suite->object("flag"), std::nullopt);
    suite->registerDefaults({{"flag", true}, {"delay", 0.5}, {"list", Strings{"a"}}});
    EXPECT_EQ(suite->object("flag"), DefaultsValue(true));
    EXPECT_TRUE(suite->boolForKey("flag"));
    suite->set("flag", std::string("yes"));
    suite->set("delay", true);
    suite->set("list", std::string("a"));
    EXPECT_TRUE(suite->boolForKey("flag"));
    EXPECT_EQ(suite->doubleForKey("delay"), 0.5);
    EXPECT_EQ(suite->stringArrayForKey("list"), Strings{"a"});
    EXPECT_EQ(suite->object("flag"), DefaultsValue(std::string("yes"))) << "untyped, the stored value shows";

    suite->set("flag", false);
    suite->set("delay", -1.0);
    EXPECT_FALSE(suite->boolForKey("flag"));
    EXPECT_EQ(suite->doubleForKey("delay"), -1);
    suite->set("unregistered", 1.0);
    EXPECT_FALSE(suite->boolForKey("unregistered"));

    suite->registerDefaults({{"later", true}});
    EXPECT_EQ(suite->stringArrayForKey("list"), Strings{"a"}) << "a second registration adds to the first";
    EXPECT_TRUE(suite->boolForKey("later"));
}

} // namespace
} // namespace ambrel
