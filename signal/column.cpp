#include "signal/column.h"

#include "signal/limits.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <boost/smart_ptr/intrusive_ref_counter.hpp>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace ks {
namespace {

/// Memory for values. Its count of users is read with acquire semantics, so whoever finds himself alone sees everything
/// that other threads did before they let go.
class CBuffer : public boost::intrusive_ref_counter<CBuffer> {
public:
    explicit CBuffer(std::vector<double> values) : m_given(std::move(values)), m_values(m_given) {}
    explicit CBuffer(std::size_t count)
        : m_own(std::make_unique_for_overwrite<CValues>(count)), m_values(m_own.get(), count) {}

    [[nodiscard]] std::span<double> Values() const { return m_values; }

private:
    std::vector<double> m_given;
    using CValues = double[];  // NOLINT(*-c-arrays): a vector would set every value before it is written

    std::unique_ptr<CValues> m_own;
    std::span<double> m_values;
};

using CBufferPointer = boost::intrusive_ptr<CBuffer>;

}  // namespace

/// What columns with the same values share. Copies of a column share the node; its parts have their own ones, and share
/// the buffer. Whoever alone holds a node may change it, others only fill in what nobody has asked for yet.
class CColumnNode : public boost::intrusive_ref_counter<CColumnNode> {
public:
    CColumnNode(CBufferPointer buffer, double* values, std::size_t count)
        : m_count(count), m_buffer(std::move(buffer)), m_values(values) {}
    CColumnNode(const CColumnRule& rule, std::size_t count) : m_count(count), m_rule(rule) {}

    [[nodiscard]] std::size_t Count() const { return m_count; }
    [[nodiscard]] const CColumnRule* Rule() const { return m_rule ? &*m_rule : nullptr; }
    [[nodiscard]] double At(std::size_t i) const {
        return m_rule ? m_rule->At(i) : m_values.load(std::memory_order_acquire)[i];
    }

    double* Values() {
        if (double* const values = m_values.load(std::memory_order_acquire)) return values;
        const std::lock_guard lock(m_mutex);
        if (m_values.load(std::memory_order_relaxed) == nullptr) {
            m_buffer = new CBuffer(m_count);
            Generate(m_buffer->Values());
            m_values.store(m_buffer->Values().data(), std::memory_order_release);
        }
        return m_values.load(std::memory_order_relaxed);
    }

    void Generate(std::span<double> target) const {
        const auto generate = [&](const auto& axis) {
            for (std::size_t i = 0; i < target.size(); ++i) target[i] = axis[i];
        };
        if (m_rule->precision == CRulePrecision::Single) return generate(CRuleAxis<float>(*m_rule));
        generate(CRuleAxis<double>(*m_rule));
    }

    CExtrema Extrema() {
        if (!m_hasExtrema.load(std::memory_order_acquire)) {
            const CExtrema found = ExtremaOf({Values(), m_count});
            const std::lock_guard lock(m_mutex);
            if (!m_hasExtrema.load(std::memory_order_relaxed)) {
                m_extrema = found;
                m_hasExtrema.store(true, std::memory_order_release);
            }
        }
        return m_extrema;
    }

    boost::intrusive_ptr<CColumnNode> Part(std::size_t begin, std::size_t count) {
        const std::lock_guard lock(m_mutex);
        if (!m_lastPart || m_lastPartBegin != begin || m_lastPart->Count() != count) {
            m_lastPart = MakePart(begin, count);
            m_lastPartBegin = begin;
        }
        return m_lastPart;
    }

    /// For the only holder of the node: whether the values are nobody else's; if so, they may be changed.
    bool BecomeMutable() {
        m_lastPart.reset();
        if (m_rule || m_buffer->use_count() > 1) return false;
        m_hasExtrema.store(false, std::memory_order_relaxed);
        return true;
    }

private:
    boost::intrusive_ptr<CColumnNode> MakePart(std::size_t begin, std::size_t count) const {
        if (!m_rule) return new CColumnNode(m_buffer, m_values.load(std::memory_order_relaxed) + begin, count);
        CColumnRule rule = *m_rule;
        rule.first += static_cast<std::int64_t>(begin);
        return new CColumnNode(rule, count);
    }

    const std::size_t m_count;
    const std::optional<CColumnRule> m_rule;
    std::mutex m_mutex;  ///< for what is filled in later
    CBufferPointer m_buffer;
    std::atomic<double*> m_values = nullptr;  ///< null as long as nobody needs the values of the rule as an array
    std::atomic<bool> m_hasExtrema = false;
    CExtrema m_extrema;
    boost::intrusive_ptr<CColumnNode> m_lastPart;
    std::size_t m_lastPartBegin = 0;
};

void intrusive_ptr_add_ref(CColumnNode* node) noexcept {
    boost::sp_adl_block::intrusive_ptr_add_ref(node);
}

void intrusive_ptr_release(CColumnNode* node) noexcept {
    boost::sp_adl_block::intrusive_ptr_release(node);
}

namespace {

CColumnNode* NewNode(const CBufferPointer& buffer) {
    return new CColumnNode(buffer, buffer->Values().data(), buffer->Values().size());
}

}  // namespace

CColumn::CColumn(std::vector<double> values) {
    if (!values.empty()) m_node = NewNode(new CBuffer(std::move(values)));
}

CColumn CColumn::Regular(const CColumnRule& rule, std::size_t count) {
    return count == 0 ? CColumn() : CColumn(boost::intrusive_ptr<CColumnNode>(new CColumnNode(rule, count)));
}

CColumn CColumn::WithRoom(std::size_t count) {
    return count == 0 ? CColumn() : CColumn(boost::intrusive_ptr<CColumnNode>(NewNode(new CBuffer(count))));
}

std::size_t CColumn::size() const noexcept {
    return m_node ? m_node->Count() : 0;
}

double CColumn::operator[](std::size_t i) const noexcept {
    return m_node->At(i);
}

std::span<const double> CColumn::Values() const {
    if (!m_node) return {};
    return {m_node->Values(), m_node->Count()};
}

void CColumn::CopyTo(std::span<double> target) const {
    if (target.empty()) return;
    if (m_node->Rule() != nullptr) return m_node->Generate(target);
    std::ranges::copy(Values().first(target.size()), target.begin());
}

std::vector<double> CColumn::ToVector() const {
    if (m_node && m_node->Rule() == nullptr) return {begin(), end()};
    std::vector<double> values(size());
    CopyTo(values);
    return values;
}

const CColumnRule* CColumn::Rule() const noexcept {
    return m_node ? m_node->Rule() : nullptr;
}

bool CColumn::IsAscendingByRule() const noexcept {
    const CColumnRule* const rule = Rule();
    // Rounding keeps the order, so the ends bound the values in between.
    return rule != nullptr && rule->step >= 0.0 && std::isfinite(front()) && std::isfinite(back());
}

CColumn CColumn::Part(std::size_t begin, std::size_t count) const {
    if (count == 0) return {};
    if (count == size()) return *this;
    return CColumn(m_node->Part(begin, count));
}

CExtrema CColumn::Extrema() const {
    // The first of equals counts: multiples of 0 are zeros of both signs.
    if (IsAscendingByRule()) return {front(), front() == back() ? front() : back()};
    return m_node->Extrema();
}

std::span<double> CColumn::Mutable() {
    if (!m_node) return {};
    if (m_node->use_count() > 1 || !m_node->BecomeMutable()) {
        CColumn own = WithRoom(size());
        CopyTo({own.m_node->Values(), own.size()});
        *this = std::move(own);
    }
    return {m_node->Values(), m_node->Count()};
}

CColumnRewrite CColumn::Rewrite() {
    if (!m_node) return {};
    if (m_node->use_count() == 1 && m_node->BecomeMutable()) {
        const std::span<double> values{m_node->Values(), m_node->Count()};
        return {{}, values, values};
    }
    CColumnRewrite rewrite{*this, Values(), {}};
    *this = WithRoom(size());
    rewrite.output = {m_node->Values(), m_node->Count()};
    return rewrite;
}

bool operator==(const CColumn& a, const CColumn& b) {
    return std::ranges::equal(a.Values(), b.Values());
}

bool operator==(const CColumn& a, const std::vector<double>& b) {
    return std::ranges::equal(a.Values(), b);
}

}  // namespace ks
