#include "compare/in_order.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

namespace {

void ForEachAlone(std::size_t count, const CItemWork& item) {
    for (std::size_t i = 0; i < count; ++i) {
        item.announce(i);
        item.work(i);
        item.finish(i);
    }
}

/// Threads that take one item after the other.
class CTeam {
public:
    CTeam(std::size_t count, const CItemWork& item) : m_item(item), m_ends(count) {}
    CTeam(const CTeam&) = delete;
    CTeam& operator=(const CTeam&) = delete;

    /// Gives up what no thread has begun, and waits for the rest.
    ~CTeam() {
        m_next = m_ends.size();
        for (std::thread& thread : m_threads) thread.join();
    }

    /// As many of `jobs` threads as the system gives, at least one unless it gives none.
    /// @return whether there is one
    bool Start(unsigned jobs) {
        const auto threads = std::min<std::size_t>(jobs, m_ends.size());
        m_threads.reserve(threads);
        while (m_threads.size() < threads && AddThread()) continue;
        return !m_threads.empty();
    }

    /// Returns when the item's work has ended.
    /// @throws what the work threw
    void WaitFor(std::size_t i) {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this, i] { return m_ends[i].hasEnded; });
        if (m_ends[i].failure) std::rethrow_exception(m_ends[i].failure);
    }

private:
    /// False when there are no more threads to be had; those that run do the work.
    bool AddThread() {
        try {
            m_threads.emplace_back([this] { WorkOnMany(); });
        } catch (const std::system_error&) {
            return false;
        }
        return true;
    }

    struct CEnd {
        bool hasEnded = false;
        std::exception_ptr failure;
    };

    void WorkOnMany() {
        for (std::size_t i = m_next++; i < m_ends.size(); i = m_next++) {
            CEnd end{true, nullptr};
            try {
                m_item.work(i);
            } catch (...) {
                end.failure = std::current_exception();
            }
            const std::scoped_lock lock(m_mutex);
            m_ends[i] = end;
            m_changed.notify_one();
        }
    }

    const CItemWork& m_item;
    std::vector<CEnd> m_ends;  ///< guarded by m_mutex
    std::vector<std::thread> m_threads;
    std::atomic<std::size_t> m_next = 0;
    std::mutex m_mutex;
    std::condition_variable m_changed;
};

}  // namespace

void ForEachInOrder(std::size_t count, unsigned jobs, const CItemWork& item) {
    if (count <= 1 || jobs <= 1) return ForEachAlone(count, item);
    CTeam team(count, item);
    if (!team.Start(jobs)) return ForEachAlone(count, item);
    for (std::size_t i = 0; i < count; ++i) {
        item.announce(i);
        team.WaitFor(i);
        item.finish(i);
    }
}
