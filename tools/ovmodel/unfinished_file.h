/// @file
/// Files that commands write.
#pragma once

#include <filesystem>
#include <string>

namespace ovmodel {

/// A file under its making: it gets its name only once it is whole, and is gone if it never becomes that.
class UnfinishedFile {
public:
    /// @param replace takes the place of a file that exists. @throws Failure if @p target cannot be had
    UnfinishedFile(const std::filesystem::path& target, bool replace);
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;
    ~UnfinishedFile();

    /// Where it is written.
    const std::string& path() const { return mPath; }
    /// @throws Failure
    void Finish();

private:
    std::filesystem::path mTarget;
    std::string mPath;
};

}  // namespace ovmodel
