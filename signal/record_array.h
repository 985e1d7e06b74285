#pragma once

#include "signal/column.h"
#include "signal/limits.h"

#include <utility>

namespace ks {

/// One array of a record with its extrema, which follow the values only when told to: until then they are those of the
/// values before. They are found when asked for.
class CRecordArray {
public:
    [[nodiscard]] const CColumn& Values() const { return m_values; }

    /// The extrema stay as they are until Update.
    void Replace(CColumn values) {
        if (!m_isBehind) m_before = std::move(m_values);
        m_isBehind = true;
        m_values = std::move(values);
    }

    /// For changing single values; Update must follow.
    CColumn& Change() { return m_values; }

    /// The extrema become those of the values. Without any values they do not change.
    void Update() {
        if (!m_isBehind) return;
        if (m_values.empty()) m_last = Extrema();
        m_before = {};
        m_isBehind = false;
    }

    /// Zeros for an array that never had values.
    [[nodiscard]] CExtrema Extrema() const {
        const CColumn& measured = m_isBehind ? m_before : m_values;
        return measured.empty() ? m_last : measured.Extrema();
    }

private:
    CColumn m_values;
    CColumn m_before;         ///< the values that the extrema are those of, while `m_isBehind`
    CExtrema m_last;          ///< the extrema while there are no values
    bool m_isBehind = false;  ///< the values were replaced since the last Update
};

}  // namespace ks
