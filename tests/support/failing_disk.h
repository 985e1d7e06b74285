#pragma once

#include <csignal>
#include <cstdlib>
#include <sys/resource.h>
#include <unistd.h>

/// While it lives, no file of this process can grow beyond `bytes`: writing more fails as on a full disk.
class CFileSizeLimit {
public:
    explicit CFileSizeLimit(rlim_t bytes) : m_oldHandler(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &m_old);
        const rlimit limited{bytes, m_old.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limited);
    }
    CFileSizeLimit(const CFileSizeLimit&) = delete;
    CFileSizeLimit& operator=(const CFileSizeLimit&) = delete;
    ~CFileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &m_old);
        std::signal(SIGXFSZ, m_oldHandler);
    }

private:
    rlimit m_old{};
    void (*m_oldHandler)(int);
};

/// While it lives, a superuser has the rights of an ordinary user, for whom permissions count.
class COrdinaryUser {
public:
    COrdinaryUser() {
        if (geteuid() == 0) m_isChanged = seteuid(65534) == 0;
    }
    COrdinaryUser(const COrdinaryUser&) = delete;
    COrdinaryUser& operator=(const COrdinaryUser&) = delete;
    ~COrdinaryUser() {
        if (m_isChanged && seteuid(0) != 0) std::abort();  // the tests that follow would run with the wrong rights
    }

private:
    bool m_isChanged = false;
};
