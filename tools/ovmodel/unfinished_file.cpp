#include "ovmodel/unfinished_file.h"

#include <unistd.h>

#include "ovmodel/command.h"

namespace ovmodel {

namespace fs = std::filesystem;

UnfinishedFile::UnfinishedFile(const fs::path& target, bool replace)
    : mTarget(target), mPath(target.string() + "." + std::to_string(getpid()) + ".tmp") {
    if (fs::is_directory(target)) throw Failure("'" + target.string() + "' is a folder");
    if (!replace && fs::exists(target)) throw Failure("'" + target.string() + "' exists; use --force to replace it");
    std::error_code ignored;
    fs::remove(mPath, ignored);
}

UnfinishedFile::~UnfinishedFile() {
    std::error_code ignored;
    fs::remove(mPath, ignored);
    fs::remove(mPath + "-journal", ignored);
}

void UnfinishedFile::Finish() {
    std::error_code error;
    fs::rename(mPath, mTarget, error);
    if (error) throw Failure("cannot write '" + mTarget.string() + "': " + error.message());
}

}  // namespace ovmodel
