/// @file
/// A database file of a test's own.
#pragma once

#include <string>

#include "platform/store/store.h"
#include "support/temporary_folder.h"

namespace ov::testing {

/// A SQLite file made from SQL text; it goes, with its folder, at the end.
class TestDatabase {
public:
    /// @throws std::runtime_error with SQLite's words for bad SQL
    explicit TestDatabase(const std::string& sql, const std::string& name = "device.db");

    /// Changes the file, as another program does.
    void Run(const std::string& sql) const;
    /// Opened by the engine in a workspace of its own.
    Ref<Database> Open(bool exclusive = false) const;

    const std::string& path() const { return mPath; }
    Text Path() const { return Text::FromUtf8(mPath); }
    const TemporaryFolder& folder() const { return mFolder; }

private:
    TemporaryFolder mFolder;
    std::string mPath;
};

}  // namespace ov::testing
