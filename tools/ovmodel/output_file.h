/// @file
/// What commands write: files, and standard output.
#pragma once

#include <array>
#include <streambuf>
#include <string>
#include <string_view>

#include "platform/system/atomic_file.h"

namespace ovmodel {

/// What becomes of a file that exists.
enum class Existing {
    Kept,       ///< the command fails
    Replaced,   ///< it asks for that
    Overwrite,  ///< replaced as well, unless it is a database, which nobody means to lose for a result
};

/// A file under its making: it has its content once that is whole, and keeps its former one if it never becomes that.
/// "-" is standard output. What is no regular file is written to and never replaced.
class OutputFile {
public:
    /// @throws Failure if @p target cannot be had
    OutputFile(std::string target, Existing existing);
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    ~OutputFile();

    /// Where it is written.
    const std::string& path() const { return mFile.path(); }
    /// Whether nothing else may stand on standard output.
    bool isStandardOutput() const { return mTarget == "-"; }
    /// Whether there is a file that it takes the place of.
    bool WouldReplace() const { return mFile.WouldReplace(); }
    /// @throws Failure
    void Write(std::string_view content);
    /// Puts it in its place. @throws Failure
    void Finish();

private:
    [[noreturn]] void Fail(int error) const;

    std::string mTarget;
    Existing mExisting;
    ov::AtomicFile mFile;
};

/// Makes @p content that of a result, a file or "-". @throws Failure
void WriteWhole(const std::string& target, std::string_view content);

/// Standard output behind std::cout while this lives: it keeps the reason of the first write that failed.
class StandardOutput final : public std::streambuf {
public:
    StandardOutput();
    StandardOutput(const StandardOutput&) = delete;
    StandardOutput& operator=(const StandardOutput&) = delete;
    ~StandardOutput() override;

    /// Lets it have what was written so far. @throws Failure, of status 2, if it does not take it
    static void Flush();

private:
    int_type overflow(int_type character) override;
    int sync() override;

    static inline int sError = 0;
    std::array<char, 65536> mBuffer;
    std::streambuf* mFormer;
};

}  // namespace ovmodel
