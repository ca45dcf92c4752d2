#include "platform/store/sqlite/file_opening.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <charconv>
#include <fstream>
#include <string_view>

#include "platform/automation/errors.h"
#include "platform/store/sqlite/engine_error.h"

namespace ov::sqlite {

namespace {

using Status = struct stat;

enum class Locking {
    Shared,  // SQLite's locks, taken and given back by each call
    None,    // nobody else is at the file: neither locks nor journals nor shared memory
};

// A URI says what is a file and what are options, whatever characters the path has.
std::string ToUri(const std::string& path, Locking locking) {
    constexpr std::string_view kHexDigits = "0123456789ABCDEF";
    constexpr std::string_view kPlain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789/-._~";
    std::string uri = path.starts_with('/') ? "file://" : "file:./";
    for (const char c : path) {
        if (kPlain.find(c) != std::string_view::npos) {
            uri += c;
        } else {
            const auto code = static_cast<unsigned char>(c);
            uri += {'%', kHexDigits[code >> 4], kHexDigits[code & 0xF]};
        }
    }
    return uri + (locking == Locking::None ? "?immutable=1" : "?mode=ro");
}

Handle OpenHandle(const std::string& path, Locking locking) {
    // One thread uses it, so it needs no mutex.
    constexpr int kFlags =
        SQLITE_OPEN_READONLY | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_PRIVATECACHE | SQLITE_OPEN_EXRESCODE;
    sqlite3* db = nullptr;
    const int code = sqlite3_open_v2(ToUri(path, locking).c_str(), &db, kFlags, nullptr);
    Handle handle(db);
    if (!db) Raise(ErrorNumber::OutOfMemory);
    if (code != SQLITE_OK) RaiseEngineError(db, code);
    return handle;
}

// A descriptor under which this process has opened `file` already: SQLite's. One of our own would not do, since closing
// it would drop all locks that the process has on the file, under whatever descriptor.
int FindDescriptor(const Status& file) {
    DIR* folder = opendir("/proc/self/fd");
    if (!folder) return -1;
    int found = -1;
    while (const dirent* entry = readdir(folder)) {
        const std::string_view name(entry->d_name);
        int descriptor = -1;
        std::from_chars(name.data(), name.data() + name.size(), descriptor);
        Status status{};
        if (descriptor >= 0 && fstat(descriptor, &status) == 0 && status.st_dev == file.st_dev &&
            status.st_ino == file.st_ino) {
            found = descriptor;
            break;
        }
    }
    closedir(folder);
    return found;
}

// True if another process has any of SQLite's locks on the file, or if that cannot be told.
bool IsLockedByOthers(const char* path) {
    constexpr off_t kFirstLockByte = 0x40000000;
    constexpr off_t kLockBytes = 512;
    Status status{};
    if (stat(path, &status) != 0) return true;
    const int descriptor = FindDescriptor(status);
    if (descriptor < 0) return true;
    struct flock lock {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    lock.l_start = kFirstLockByte;
    lock.l_len = kLockBytes;
    return fcntl(descriptor, F_GETLK, &lock) != 0 || lock.l_type != F_UNLCK;
}

// Without locks a journal is not looked at, so there must be none with anything in it that the file lacks.
bool HasJournal(const char* path) {
    Status status{};
    if (stat(sqlite3_filename_wal(path), &status) == 0 && status.st_size > 0) return true;
    if (stat(sqlite3_filename_journal(path), &status) != 0 || status.st_size == 0) return false;
    // A journal that is kept for the next time begins with zeros.
    std::ifstream journal(sqlite3_filename_journal(path), std::ios::binary);
    return journal.get() != 0;
}

}  // namespace

std::shared_ptr<Connection> OpenFile(const std::string& path, bool exclusive) {
    // SQLite would take an empty file for an empty database.
    Status status{};
    if (stat(path.c_str(), &status) == 0 && status.st_size == 0) return nullptr;
    Handle db = OpenHandle(path, Locking::Shared);
    if (exclusive) {
        const char* name = sqlite3_db_filename(db.get(), "main");
        if (IsLockedByOthers(name) || HasJournal(name)) Raise(ErrorNumber::CouldNotLockFile);
        db = OpenHandle(path, Locking::None);
    }
    auto connection = std::make_shared<Connection>(std::move(db));
    return connection->ReadFirstTime() ? connection : nullptr;
}

}  // namespace ov::sqlite
