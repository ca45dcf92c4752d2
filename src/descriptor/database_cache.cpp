#include "descriptor/database_cache.h"

#include <array>
#include <charconv>

#include "descriptor/shared_descriptor.h"
#include "platform/automation/errors.h"
#include "platform/automation/text_map.h"
#include "platform/locale/code_page.h"
#include "platform/locale/locale.h"
#include "platform/system/file_system.h"
#include "platform/system/folders.h"
#include "platform/system/private_copy.h"
#include "platform/system/registry.h"
#include "support/diagnostics.h"

namespace ov {

namespace {

constexpr const char16_t* kShellFolders = u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";

struct Caches {
    Ref<Workspace> workspace;
    TextMap<Ref<Database>> databases;             // by path as given
    TextMap<TextMap<Ref<Recordset>>> recordsets;  // by name of the database, then of the table
    TextMap<Text> tempCopies;                     // path of the copy by path of the file
    Text tempCopyBase;
};

// Lives to the end of the process and beyond the order in which its statics end.
Caches& Global() {
    static Caches& caches = *new Caches;
    return caches;
}

// Where the folders of the copies lie.
const Text& TempCopyBase() {
    Text& folder = Global().tempCopyBase;
    if (folder.empty()) {
        folder = ReadMachineRegistryString(kShellFolders, u"Common AppData", u"");
        if (folder.empty()) folder = CacheFolder();
        try {
            file_system::CreateFolder(folder);
        } catch (const RuntimeError&) {
            // A folder that cannot be made shows when the copy cannot be written.
        }
    }
    return folder;
}

Text CopyName(const Text& path) {
    std::array<char, 8> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), PathChecksum(path), 16).ptr;
    const Text checksum = ToUpperCase(Text::FromAscii({digits.data(), static_cast<std::size_t>(end - digits.data())}));
    return file_system::GetBaseName(path) + u"." + checksum + u"." + file_system::GetExtensionName(path);
}

bool IsLockFailure(const RuntimeError& error) {
    return error.number() == static_cast<std::int32_t>(ErrorNumber::CouldNotLockFile);
}

}  // namespace

Ref<Database> DatabaseCache(const Text& path) {
    Caches& caches = Global();
    if (!caches.workspace) caches.workspace = DefaultStoreEngine().CreateWorkspace(u"OV_Model", u"Admin", u"");
    if (const auto open = caches.databases.find(path); open != caches.databases.end()) return open->second;
    try {
        Ref<Database> opened = OpenDatabaseFile2(caches.workspace.get(), path, false, true, kDescriptorConnect);
        caches.databases.emplace(path, opened);
        return opened;
    } catch (const RuntimeError&) {
        LogEntry(u"Module1.DatabaseCache()",
                 u"OpenDatabaseFile2(" + path + u", False, True, \";PWD=\" + DB_TRYTO_CRYPTPW) failed!");
        return nullptr;
    }
}

void ForgetSharedDescriptors() noexcept {
    for (const auto& [path, db] : Global().databases) {
        SharedDescriptor::Forget(*db);
    }
}

Ref<Recordset> RecordSetCache(Database* db, const Text& table) {
    TextMap<Ref<Recordset>>& tables = Global().recordsets[db->Name()];
    if (const auto open = tables.find(table); open != tables.end()) return open->second;
    Ref<Recordset> opened;
    try {
        opened = db->OpenRecordset(table, RecordsetType::dbOpenTable);
        opened->let_Index(u"PrimaryKey");
    } catch (const RuntimeError&) {
        // A table without that index is of use for walking all the same.
    }
    if (opened) {
        tables.emplace(table, opened);
    } else {
        LogEntry(u"Module1.RecordSetCache()", u"OpenRecordset(" + table + u", dbOpenTable) failed!");
    }
    return opened;
}

Ref<Database> OpenDatabaseFile2(Workspace* workspace, const Text& path, bool exclusive, bool readOnly,
                                const Text& connect) {
    try {
        return workspace->OpenDatabase(path, exclusive, readOnly, connect);
    } catch (const RuntimeError& error) {
        if (!IsLockFailure(error) || !readOnly) throw;
    }
    try {
        return workspace->OpenDatabase(path, true, readOnly, connect);
    } catch (const RuntimeError& error) {
        if (!IsLockFailure(error)) throw;
        const Text copy = GetTempFileCopy(path);
        if (copy.empty()) throw;
        return workspace->OpenDatabase(copy, exclusive, readOnly, connect);
    }
}

Text GetTempFileCopy(const Text& path) {
    TextMap<Text>& copies = Global().tempCopies;
    if (const auto known = copies.find(path); known != copies.end()) return known->second;
    try {
        if (!file_system::FileExists(path)) return Text();
        const Text folder = file_system::BuildPath(TempCopyBase(), Text::FromAscii(kOwnFolder));
        const Text copy =
            file_system::BuildPath(file_system::BuildPath(folder, Text::FromAscii(kCopyFolder)), CopyName(path));
        // Known before it is copied: a copy that fails is not tried again, and the next open meets what is there.
        copies.emplace(path, copy);
        KeepPrivateCopy(file_system::NativePath(TempCopyBase()), CopyName(path).ToUtf8(),
                        file_system::NativePath(path));
        return copy;
    } catch (const RuntimeError&) {
        return Text();
    }
}

std::uint16_t PathChecksum(const Text& text) {
    if (text.empty()) return 0;
    unsigned crc = 0xFFFF;
    for (char16_t character : text.view()) {
        unsigned byte = ToCodePage(character);
        for (int bit = 0; bit < 8; ++bit) {
            const bool differs = ((crc ^ byte) & 1) != 0;
            crc = differs ? (crc >> 1) ^ 0x8408 : crc >> 1;
            byte >>= 1;
        }
    }
    return static_cast<std::uint16_t>(crc);
}

Text ReadMachineRegistryString(const Text& key, const Text& value, const Text& subkey) {
    const Variant found = registry::Read(subkey.empty() ? key : key + u"\\" + subkey, value);
    return found.IsString() ? found.AsText() : Text();
}

}  // namespace ov
