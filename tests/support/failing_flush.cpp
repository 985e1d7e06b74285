#include "tests/support/failing_flush.h"

#include <atomic>
#include <cerrno>
#include <limits>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

std::atomic<int> flushesLeft{std::numeric_limits<int>::max()};

}  // namespace

CFailingFlush::CFailingFlush(int allowed) {
    flushesLeft = allowed;
}

CFailingFlush::~CFailingFlush() {
    flushesLeft = std::numeric_limits<int>::max();
}

extern "C" int fsync(int descriptor) {
    if (flushesLeft.fetch_sub(1) > 0) return static_cast<int>(::syscall(SYS_fsync, descriptor));
    errno = EIO;
    return -1;
}
