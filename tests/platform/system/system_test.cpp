#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cmath>
#include <filesystem>

#include "platform/automation/conversions.h"
#include "platform/system/clock.h"
#include "platform/system/debug_output.h"
#include "platform/system/folders.h"
#include "support/scoped_settings.h"

namespace ov {
namespace {

using ::ov::testing::ScopedVariable;

TEST(Folders, ComeFromTheEnvironmentFirst) {
    const ScopedVariable home("OV_MODEL_HOME", "/some/where//");
    const ScopedVariable noLogFolder("OV_MODEL_LOG_FOLDER", std::nullopt);
    EXPECT_EQ(LibraryFolder().ToUtf8(), "/some/where");
    EXPECT_EQ(LogFolder().ToUtf8(), "/some/where");
    const ScopedVariable logs("OV_MODEL_LOG_FOLDER", "/var/log/ö\\");
    EXPECT_EQ(LogFolder().ToUtf8(), "/var/log/ö");
    const ScopedVariable root("OV_MODEL_HOME", "/");
    EXPECT_EQ(LibraryFolder().ToUtf8(), "/");
}

TEST(Folders, LibraryIsWhereThisCodeWasLoadedFrom) {
    const ScopedVariable noHome("OV_MODEL_HOME", std::nullopt);
    const auto program = std::filesystem::canonical("/proc/self/exe");
    EXPECT_EQ(LibraryFolder().ToUtf8(), program.parent_path().string());
    const ScopedVariable emptyHome("OV_MODEL_HOME", "");
    EXPECT_EQ(LibraryFolder().ToUtf8(), program.parent_path().string());
}

TEST(Folders, CacheIsTheUsers) {
    const ScopedVariable home("HOME", "/home/somebody");
    const struct {
        std::optional<std::string> told;
        const char* folder;
    } cases[] = {{"/caches/", "/caches"},
                 {"relative", "/home/somebody/.cache"},
                 {"", "/home/somebody/.cache"},
                 {std::nullopt, "/home/somebody/.cache"}};
    for (const auto& [told, folder] : cases) {
        const ScopedVariable cache("XDG_CACHE_HOME", told);
        EXPECT_EQ(CacheFolder().ToUtf8(), folder);
    }
    const ScopedVariable noHome("HOME", std::nullopt);
    const ScopedVariable noCache("XDG_CACHE_HOME", std::nullopt);
    EXPECT_TRUE(CacheFolder().ToUtf8().ends_with("/.cache"));
}

TEST(Clock, TellsLocalTime) {
    for (const char* zone : {"UTC0", "XXX-14", "YYY12"}) {
        const ScopedVariable variable("TZ", zone);
        tzset();
        // Twice, since a second or midnight may pass between the readings.
        for (int attempt = 0; attempt < 2; ++attempt) {
            const time_t system = time(nullptr);
            const Date now = Now();
            const double seconds = SecondsSinceMidnight();
            if (time(nullptr) != system) continue;
            const std::tm local = *localtime(&system);
            const CalendarTime calendar = ToCalendar(now);
            EXPECT_EQ(calendar.year, local.tm_year + 1900) << zone;
            EXPECT_EQ(calendar.month, local.tm_mon + 1);
            EXPECT_EQ(calendar.day, local.tm_mday);
            EXPECT_EQ(calendar.hour, local.tm_hour);
            EXPECT_EQ(calendar.minute, local.tm_min);
            EXPECT_EQ(calendar.second, local.tm_sec);
            EXPECT_EQ(std::floor(seconds), (local.tm_hour * 60 + local.tm_min) * 60 + local.tm_sec);
            break;
        }
    }
    tzset();
}

TEST(Clock, CounterGoesForwardInNanoseconds) {
    const std::int64_t start = PerformanceCounter();
    usleep(2000);
    const std::int64_t passed = PerformanceCounter() - start;
    EXPECT_GE(passed, 2'000'000);
    EXPECT_LT(passed, 60'000'000'000);
}

TEST(DebugOutput, IsUtf8OnStandardError) {
    ::testing::internal::CaptureStderr();
    WriteDebuggerOutput(u"größer \U0001F600");
    WriteDebuggerOutput(Text());
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "größer \xF0\x9F\x98\x80\n\n");
}

TEST(DebugOutput, SurvivesAReaderThatHasGone) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        int ends[2];
        signal(SIGPIPE, SIG_DFL);
        if (pipe(ends) != 0 || close(ends[0]) != 0 || dup2(ends[1], STDERR_FILENO) < 0) _exit(2);
        WriteDebuggerOutput(u"nobody reads this");
        close(STDERR_FILENO);
        WriteDebuggerOutput(u"nor this");
        _exit(0);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status)) << "signal " << WTERMSIG(status);
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

}  // namespace
}  // namespace ov
