#include "platform/store/jet/file_opening.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <utility>

#include "platform/store/sqlite/engine_error.h"
#include "platform/store/sqlite/text_collation.h"

namespace ov::jet {

namespace {

/// A file that is read. Closed at the end, and with it the lock.
class OpenedFile {
public:
    explicit OpenedFile(const std::string& path) : mDescriptor(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {
        if (mDescriptor < 0) Raise(ErrorNumber::CouldNotLockFile);
    }
    OpenedFile(const OpenedFile&) = delete;
    OpenedFile& operator=(const OpenedFile&) = delete;
    ~OpenedFile() { close(mDescriptor); }

    // False if another process holds a lock that excludes one of this kind. A
    // system without locks has no holders.
    bool Lock(bool exclusive) const {
        if (flock(mDescriptor, (exclusive ? LOCK_EX : LOCK_SH) | LOCK_NB) != 0 && errno == EWOULDBLOCK) return false;
        struct flock whole {};
        whole.l_type = exclusive ? F_WRLCK : F_RDLCK;
        whole.l_whence = SEEK_SET;
        return fcntl(mDescriptor, F_GETLK, &whole) != 0 || whole.l_type == F_UNLCK;
    }

    // A file of the engine's cannot be larger, and it has all its bytes: one that has not would take memory that it
    // never took on the disk.
    bool MayBeWhole() const {
        constexpr off_t kMostBytes = off_t{1} << 31;
        struct stat status {};
        if (fstat(mDescriptor, &status) != 0) Raise(ErrorNumber::CouldNotLockFile);
        if (status.st_size > kMostBytes) return false;
        const off_t hole = lseek(mDescriptor, 0, SEEK_HOLE);
        return hole < 0 || hole >= status.st_size;
    }

    // Up to `most` bytes from the front.
    std::vector<std::uint8_t> Read(std::size_t most) const {
        struct stat status {};
        if (fstat(mDescriptor, &status) != 0) Raise(ErrorNumber::CouldNotLockFile);
        std::vector<std::uint8_t> content(std::min(most, static_cast<std::size_t>(std::max<off_t>(status.st_size, 0))));
        std::size_t length = 0;
        while (length < content.size()) {
            const ssize_t count =
                pread(mDescriptor, content.data() + length, content.size() - length, static_cast<off_t>(length));
            if (count < 0 && errno == EINTR) continue;
            if (count < 0) Raise(ErrorNumber::ObjectDamaged);
            if (count == 0) break;
            length += static_cast<std::size_t>(count);
        }
        content.resize(length);
        return content;
    }

private:
    int mDescriptor;
};

sqlite::Handle OpenMemory() {
    constexpr int kFlags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_MEMORY | SQLITE_OPEN_NOMUTEX |
                           SQLITE_OPEN_PRIVATECACHE | SQLITE_OPEN_EXRESCODE;
    sqlite3* db = nullptr;
    const int code = sqlite3_open_v2(":memory:", &db, kFlags, nullptr);
    sqlite::Handle handle(db);
    if (!db) Raise(ErrorNumber::OutOfMemory);
    if (code != SQLITE_OK) sqlite::RaiseEngineError(db, code);
    if (sqlite::AddTextCollation(db) != SQLITE_OK) sqlite::RaiseEngineError(db, SQLITE_NOMEM);
    return handle;
}

// A query may stand on others, which come before it or behind it.
void AddQueries(sqlite::Connection& connection, std::vector<ImportReport::Query> queries) {
    for (std::size_t before = queries.size() + 1; queries.size() < before;) {
        before = queries.size();
        std::erase_if(queries, [&](ImportReport::Query& query) {
            if (query.sql.empty()) return false;
            query.obstacle = connection.AddView(query.name, query.sql);
            return query.obstacle.empty();
        });
    }
    for (const ImportReport::Query& query : queries) {
        connection.AddLoss("query '" + query.name + "': " + query.obstacle);
    }
}

}  // namespace

Text PasswordOf(const Text& connect) {
    constexpr std::u16string_view kName = u"PWD=";
    std::u16string_view rest = connect.view();
    while (!rest.empty()) {
        const std::u16string_view part = rest.substr(0, rest.find(u';'));
        if (EqualNoCase(part.substr(0, kName.size()), kName)) return Text(part.substr(kName.size()));
        rest.remove_prefix(std::min(rest.size(), part.size() + 1));
    }
    return Text();
}

std::optional<PageFile> ReadFile(const std::string& path, bool exclusive, const Text& password) {
    const OpenedFile opened(path);
    if (!RecognizeVersion(opened.Read(kSignatureBytes))) return std::nullopt;
    if (!opened.Lock(exclusive)) Raise(ErrorNumber::CouldNotLockFile);
    if (!opened.MayBeWhole()) Raise(ErrorNumber::ObjectDamaged);
    PageFile file(opened.Read(std::vector<std::uint8_t>().max_size()));
    const Text& wanted = file.header().password;
    if (!wanted.empty() && wanted.view() != password.view()) Raise(ErrorNumber::NotAValidPassword);
    return file;
}

std::shared_ptr<sqlite::Connection> OpenFile(const std::string& path, bool exclusive, const Text& password) {
    std::optional<PageFile> file = ReadFile(path, exclusive, password);
    if (!file) return nullptr;
    sqlite::Handle db = OpenMemory();
    const ImportReport report = Import(*file, db.get(), sqlite::kTextCollation);
    if (report.isDamaged) Raise(ErrorNumber::ObjectDamaged);
    file.reset();
    auto connection = std::make_shared<sqlite::Connection>(std::move(db), sqlite::Connection::Texts::IgnoreCase);
    for (const std::string& loss : report.losses) {
        connection->AddLoss(loss);
    }
    AddQueries(*connection, report.queries);
    return connection;
}

}  // namespace ov::jet
