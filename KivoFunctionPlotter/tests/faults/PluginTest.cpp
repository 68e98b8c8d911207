// A plugin that uses the library is unloaded and loaded again. What the library is made with registers its
// types once in the life of the process, so that it has to stay.
#include "support/ChildProcess.h"

#include <gtest/gtest.h>

#include <string>

using namespace KivoTest;

namespace {

class Plugin : public testing::TestWithParam<const char*> {};

TEST_P(Plugin, DrawsEachTimeItIsLoaded) {
    ChildProcess host(KIVO_PLUGIN_HOST, {KIVO_PLUGIN, GetParam()}, WithoutDisplay());
    const std::optional<int> code = host.WaitForExit(std::chrono::minutes(1));
    ASSERT_TRUE(code.has_value()) << "it hangs";
    EXPECT_EQ(*code, 0) << host.Errors();
}

INSTANTIATE_TEST_SUITE_P(Threads, Plugin, testing::Values("main", "worker", "both"),
                         [](const auto& test) { return std::string(test.param); });

} // namespace
