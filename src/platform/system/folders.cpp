#include "platform/system/folders.h"

#include <dlfcn.h>
#include <pwd.h>
#include <sys/auxv.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

namespace ov {

namespace {

namespace fs = std::filesystem;

// The value of an environment variable; "" if it is not set.
std::string Environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

Text FolderText(std::string path) {
    while (path.size() > 1 && (path.back() == '/' || path.back() == '\\'))
        path.pop_back();
    return Text::FromUtf8(path);
}

// The file that holds this code: the shared library, or the program if the code is linked into that.
fs::path FileOfThisCode() {
    Dl_info own{};
    Dl_info program{};
    // Any object with static storage will do as an address inside the file.
    static const char kAnchor = 0;
    if (dladdr(&kAnchor, &own) == 0 || !own.dli_fname) return {};
    const unsigned long programHeaders = getauxval(AT_PHDR);
    const bool inProgram =
        dladdr(reinterpret_cast<const void*>(programHeaders), &program) == 0 || program.dli_fbase == own.dli_fbase;
    // The name of a program is what it was called by, which need not be a path.
    return inProgram ? fs::path("/proc/self/exe") : fs::path(own.dli_fname);
}

std::string FolderOfThisCode() {
    std::error_code error;
    const fs::path file = fs::canonical(FileOfThisCode(), error);
    return error ? std::string(".") : file.parent_path().string();
}

std::string HomeFolder() {
    std::string home = Environment("HOME");
    if (!home.empty()) return home;
    const passwd* user = getpwuid(getuid());
    return user && user->pw_dir ? user->pw_dir : "";
}

}  // namespace

Text LibraryFile() {
    std::error_code error;
    const fs::path file = fs::canonical(FileOfThisCode(), error);
    return Text::FromUtf8(file.string());
}

Text LibraryFolder() {
    const std::string told = Environment("OV_MODEL_HOME");
    if (!told.empty()) return FolderText(told);
    // Once, since a relative name would lead elsewhere after a change of the current folder.
    static const std::string found = FolderOfThisCode();
    return FolderText(found);
}

Text LogFolder() {
    const std::string told = Environment("OV_MODEL_LOG_FOLDER");
    return told.empty() ? LibraryFolder() : FolderText(told);
}

Text CacheFolder() {
    const std::string told = Environment("XDG_CACHE_HOME");
    if (told.starts_with('/')) return FolderText(told);
    return FolderText(HomeFolder() + "/.cache");
}

}  // namespace ov
