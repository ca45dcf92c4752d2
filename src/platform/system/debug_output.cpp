#include "platform/system/debug_output.h"

#include <errno.h>
#include <pthread.h>
#include <signal.h>
#include <unistd.h>

#include <ctime>
#include <string>

namespace ov {

namespace {

// Keeps a pipe whose reader has gone from ending the process, which is the host's and not ours.
class BrokenPipeGuard {
public:
    BrokenPipeGuard() {
        sigemptyset(&mPipe);
        sigaddset(&mPipe, SIGPIPE);
        sigset_t pending;
        sigpending(&pending);
        mWasPending = sigismember(&pending, SIGPIPE) == 1;
        pthread_sigmask(SIG_BLOCK, &mPipe, &mFormer);
    }
    BrokenPipeGuard(const BrokenPipeGuard&) = delete;
    BrokenPipeGuard& operator=(const BrokenPipeGuard&) = delete;
    ~BrokenPipeGuard() {
        constexpr timespec kNoWait{};
        if (!mWasPending) sigtimedwait(&mPipe, nullptr, &kNoWait);
        pthread_sigmask(SIG_SETMASK, &mFormer, nullptr);
    }

private:
    sigset_t mPipe;
    sigset_t mFormer;
    bool mWasPending = false;
};

}  // namespace

void WriteDebuggerOutput(const Text& line) {
    try {
        const std::string bytes = line.ToUtf8() + '\n';
        const BrokenPipeGuard guard;
        // As a rule one call writes it all, so that the lines of several processes do not run into each other.
        for (std::size_t done = 0; done < bytes.size();) {
            const ssize_t count = write(STDERR_FILENO, bytes.data() + done, bytes.size() - done);
            if (count < 0 && errno != EINTR) return;
            if (count > 0) done += static_cast<std::size_t>(count);
        }
    } catch (...) {
        // No memory for a line of the log is no reason to fail.
        return;
    }
}

}  // namespace ov
