#pragma once

#include <cstddef>
#include <fstream>
#include <sys/resource.h>
#include <unistd.h>

/// While it lives, this process gets no more than `bytes` of memory beyond what it has.
class CMemoryLimit {
public:
    explicit CMemoryLimit(std::size_t bytes) {
        getrlimit(RLIMIT_AS, &m_old);
        std::size_t pages = 0;
        std::ifstream("/proc/self/statm") >> pages;
        const rlimit limited{pages * static_cast<std::size_t>(sysconf(_SC_PAGESIZE)) + bytes, m_old.rlim_max};
        setrlimit(RLIMIT_AS, &limited);
    }
    CMemoryLimit(const CMemoryLimit&) = delete;
    CMemoryLimit& operator=(const CMemoryLimit&) = delete;
    ~CMemoryLimit() { setrlimit(RLIMIT_AS, &m_old); }

    /// A sanitizer's own memory comes out of the same limit, and it ends the program when there is none left.
    static constexpr bool IsUsable() {
#if defined(__SANITIZE_ADDRESS__)
        return false;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
        return false;
#else
        return true;
#endif
#else
        return true;
#endif
    }

private:
    rlimit m_old{};
};
