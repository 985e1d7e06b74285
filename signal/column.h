#pragma once

#include "signal/limits.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace ks {

class CColumnNode;
void intrusive_ptr_add_ref(CColumnNode* node) noexcept;
void intrusive_ptr_release(CColumnNode* node) noexcept;

/// How exactly the multiples of a step are formed.
enum class CRulePrecision {
    Double,  ///< step * number
    Single,  ///< number and step are each rounded to single precision, and so is their product: as readers of files
             ///< without abscissas make them
};

/// Values that follow from three numbers: value i is the step times (first + i).
struct CColumnRule {
    double step = 0.0;
    std::int64_t first = 0;
    CRulePrecision precision = CRulePrecision::Double;

    [[nodiscard]] double At(std::size_t i) const {
        const auto number = static_cast<double>(first + static_cast<std::int64_t>(i));
        if (precision == CRulePrecision::Double) return step * number;
        return static_cast<double>(static_cast<float>(number) * static_cast<float>(step));
    }
};

struct CColumnRewrite;

/// The values of one array of a record. A copy and a part cost nothing however long they are: they share the values
/// until one of them is changed, and a change is seen only through the column that was changed. Values that follow a
/// rule take no memory until someone asks for them as an array.
///
/// Const member functions may be called by several threads at once, also on columns that share values; so may others
/// on a column that only the calling thread uses. Everything except size, ends, elements, rule and parts may throw
/// std::bad_alloc.
class CColumn {
public:
    using value_type = double;
    using size_type = std::size_t;
    using difference_type = std::ptrdiff_t;
    using reference = const double&;
    using const_reference = const double&;
    using const_iterator = const double*;
    using iterator = const_iterator;

    CColumn() = default;
    /// Takes the values over; nothing is copied from a vector that is moved here.
    explicit CColumn(std::vector<double> values);

    /// `count` values by a rule.
    static CColumn Regular(const CColumnRule& rule, std::size_t count);
    static CColumn Zeros(std::size_t count) { return Regular({}, count); }
    /// `count` values that are not set yet, to be written through Mutable().
    static CColumn WithRoom(std::size_t count);

    [[nodiscard]] std::size_t size() const noexcept;
    [[nodiscard]] bool empty() const noexcept { return size() == 0; }
    [[nodiscard]] double operator[](std::size_t i) const noexcept;  ///< i < size()
    [[nodiscard]] double front() const noexcept { return (*this)[0]; }
    [[nodiscard]] double back() const noexcept { return (*this)[size() - 1]; }

    /// The values as an array, valid until the column changes or ends. For values by a rule the array is made by the
    /// first call and kept with all columns that share them; Visit, CopyTo and the elements do without it.
    [[nodiscard]] std::span<const double> Values() const;
    [[nodiscard]] const double* data() const { return Values().data(); }
    [[nodiscard]] const_iterator begin() const { return data(); }
    [[nodiscard]] const_iterator end() const { return data() + size(); }

    /// The first target.size() values; the column has as many.
    void CopyTo(std::span<double> target) const;
    [[nodiscard]] std::vector<double> ToVector() const;

    /// The rule, valid as long as Values(); null for values that follow none.
    [[nodiscard]] const CColumnRule* Rule() const noexcept;
    /// Whether the values follow a rule, are finite, and none is followed by a smaller one.
    [[nodiscard]] bool IsAscendingByRule() const noexcept;

    /// `count` values from `begin` on, all within the column. The same part asked for again is the same one, so what
    /// was found out about it is known.
    [[nodiscard]] CColumn Part(std::size_t begin, std::size_t count) const;

    /// As ExtremaOf; the column must not be empty. The values are looked at once, those of an ascending rule never.
    [[nodiscard]] CExtrema Extrema() const;

    /// The values for changing them, valid until the column is copied, cut or ended. Where they are shared or follow a
    /// rule, the column has its own array from now on.
    std::span<double> Mutable();

    /// For an operation that reads all values and writes each one after its last reading: in place, or from the shared
    /// values to new ones.
    CColumnRewrite Rewrite();

    friend bool operator==(const CColumn& a, const CColumn& b);
    friend bool operator==(const CColumn& a, const std::vector<double>& b);

private:
    explicit CColumn(boost::intrusive_ptr<CColumnNode> node) : m_node(std::move(node)) {}

    boost::intrusive_ptr<CColumnNode> m_node;  ///< null only if empty
};

/// What CColumn::Rewrite gives. `output` is the same memory as `input`, or is not set yet.
struct CColumnRewrite {
    CColumn before;  ///< keeps the input alive
    std::span<const double> input;
    std::span<double> output;
};

/// The values of an axis by the index, for loops that should not need them as an array.
class CStoredAxis {
public:
    explicit CStoredAxis(std::span<const double> values) : m_values(values.data()) {}
    double operator[](std::size_t i) const { return m_values[i]; }

private:
    const double* m_values;
};

/// The same by a rule. `Number` is the type that the multiples are formed in.
template <class Number>
class CRuleAxis {
public:
    explicit CRuleAxis(const CColumnRule& rule)
        : m_step(static_cast<Number>(rule.step)), m_first(static_cast<double>(rule.first)) {}
    // Whole numbers are exact as doubles, so this sum is, and its rounding is the only one.
    double operator[](std::size_t i) const {
        const double number = m_first + static_cast<double>(static_cast<std::int64_t>(i));
        return static_cast<double>(static_cast<Number>(number) * m_step);
    }

private:
    Number m_step;
    double m_first;
};

/// Calls `work` with the axis that gives the values of `column` by their index.
template <class Work>
decltype(auto) VisitAxis(const CColumn& column, Work work) {
    const CColumnRule* const rule = column.Rule();
    if (rule == nullptr) return work(CStoredAxis(column.Values()));
    if (rule->precision == CRulePrecision::Single) return work(CRuleAxis<float>(*rule));
    return work(CRuleAxis<double>(*rule));
}

}  // namespace ks
