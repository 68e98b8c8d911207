// An empty folder that only the user can read, such as programs want for XDG_RUNTIME_DIR.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace KivoTest {

/// Removed with the object, and all that is in it.
class PrivateFolder {
public:
    PrivateFolder() {
        if (!mkdtemp(m_path.data())) ADD_FAILURE() << "no folder " << m_path;
    }
    ~PrivateFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    PrivateFolder(const PrivateFolder&) = delete;
    PrivateFolder& operator=(const PrivateFolder&) = delete;

    const std::string& Path() const { return m_path; }

private:
    std::string m_path = testing::TempDir() + "kivo-XXXXXX";
};

} // namespace KivoTest
