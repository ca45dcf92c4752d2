/// @file
/// A folder of a test's own, which goes with all that is in it.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <string>
#include <system_error>

#include "platform/automation/text.h"

namespace ov::testing {

class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "ov_model_test-XXXXXX").string();
        if (mkdtemp(pattern.data())) mPath = pattern;
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(mPath, ignored);
    }

    const std::string& path() const { return mPath; }
    std::string operator/(const std::string& name) const { return mPath + "/" + name; }
    Text Of(const std::string& name) const { return Text::FromUtf8(*this / name); }

private:
    std::string mPath;
};

}  // namespace ov::testing
