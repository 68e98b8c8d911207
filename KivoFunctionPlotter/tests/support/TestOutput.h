// Where tests leave what a person may want to look at.
#pragma once

#include <string>

namespace KivoTest {

/// The path of a file in the run's own folder, which is made where it is not there: the folder that the
/// variable KIVO_TEST_OUTPUT names, else test-output in the build folder.
std::string OutputPath(const std::string& name);

} // namespace KivoTest
