#include "ovmodel/output_file.h"

#include <errno.h>
#include <fcntl.h>
#include <string.h>
#include <unistd.h>

#include <iostream>

#include "ovmodel/command.h"

namespace ovmodel {

namespace {

// The first bytes of descriptor files: of SQLite, and of Jet behind four bytes.
bool IsDatabase(const std::string& path) {
    const ov::FileDescriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    std::array<char, 19> head{};
    const ssize_t count = file ? pread(file.get(), head.data(), head.size(), 0) : -1;
    const std::string_view begin(head.data(), count > 0 ? static_cast<std::size_t>(count) : 0);
    return begin.starts_with("SQLite format 3") ||
           (begin.size() == head.size() && begin.substr(4) == "Standard Jet DB");
}

}  // namespace

OutputFile::OutputFile(std::string target, Existing existing)
    : mTarget(std::move(target)),
      mExisting(existing),
      mFile(isStandardOutput() ? ov::AtomicFile(STDOUT_FILENO) : ov::AtomicFile(mTarget, 0666)) {
    if (!mFile.ok()) {
        if (errno == EISDIR) throw Failure("'" + mTarget + "' is a folder");
        Fail(errno);
    }
    if (!WouldReplace()) return;
    if (mExisting == Existing::Kept) throw Failure("'" + mTarget + "' exists; use --force to replace it");
    if (mExisting == Existing::Overwrite && IsDatabase(mTarget)) {
        throw Failure("'" + mTarget + "' is a database, and is not replaced by another kind of file");
    }
}

OutputFile::~OutputFile() {
    if (!path().empty()) unlink((path() + "-journal").c_str());  // of a database whose making failed
}

void OutputFile::Write(std::string_view content) {
    if (!ov::WriteAll(mFile.get(), content)) Fail(errno);
}

void OutputFile::Finish() {
    if (isStandardOutput()) StandardOutput::Flush();
    if (mFile.Commit(mExisting != Existing::Kept)) return;
    if (errno == EEXIST) throw Failure("'" + mTarget + "' exists; use --force to replace it");
    Fail(errno);
}

void OutputFile::Fail(int error) const {
    if (isStandardOutput()) throw Failure(std::string("cannot write to standard output: ") + strerror(error), 2);
    throw Failure("cannot write '" + mTarget + "': " + strerror(error));
}

void WriteWhole(const std::string& target, std::string_view content) {
    OutputFile file(target, Existing::Overwrite);
    file.Write(content);
    file.Finish();
}

StandardOutput::StandardOutput() : mFormer(std::cout.rdbuf(this)) {
    setp(mBuffer.data(), mBuffer.data() + mBuffer.size());
    if (isatty(STDOUT_FILENO)) std::cout << std::unitbuf;
}

StandardOutput::~StandardOutput() {
    sync();
    std::cout.rdbuf(mFormer);
}

StandardOutput::int_type StandardOutput::overflow(int_type character) {
    if (sync() != 0) return traits_type::eof();
    return traits_type::eq_int_type(character, traits_type::eof()) ? traits_type::not_eof(character)
                                                                   : sputc(traits_type::to_char_type(character));
}

int StandardOutput::sync() {
    const std::string_view held(pbase(), static_cast<std::size_t>(pptr() - pbase()));
    setp(mBuffer.data(), mBuffer.data() + mBuffer.size());
    if (sError == 0 && !ov::WriteAll(STDOUT_FILENO, held)) sError = errno;
    return sError == 0 ? 0 : -1;
}

void StandardOutput::Flush() {
    std::cout.flush();
    if (sError != 0) throw Failure(std::string("cannot write to standard output: ") + strerror(sError), 2);
}

}  // namespace ovmodel
