#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// How often an option may be given, and with what values.
enum class COptionKind {
    Flag,       ///< no value
    Names,      ///< a value only after "=": --name or --name=A,B; repeatable
    Single,     ///< one value, once
    Pair,       ///< two values, once
    Repeatable  ///< one value, any number of times
};

struct COptionDeclaration {
    std::string_view name;  ///< with its two hyphens
    COptionKind kind;
    std::string_view argument;  ///< what the value is called in sentences, for example "PATH"
};

/// The number that `text`, a value of `option`, is.
/// @throws CUsageError when it is not a finite decimal number
double ReadNumber(std::string_view option, const std::string& text);

/// The arguments of a command, sorted into options and files.
class CArguments {
public:
    /// @throws CUsageError for an unknown option, a missing or unwanted value, an option given too often
    CArguments(std::span<const COptionDeclaration> declarations, const std::vector<std::string>& arguments);

    [[nodiscard]] bool Has(std::string_view name) const;
    /// The values of an option, in order; an option of the kind Names without a value gives an empty text.
    [[nodiscard]] const std::vector<std::string>& Values(std::string_view name) const;
    [[nodiscard]] std::optional<std::string> Value(std::string_view name) const;
    /// What is neither option nor value: everything after "--", and before it what does not begin with "-".
    [[nodiscard]] const std::vector<std::string>& Files() const { return m_files; }

private:
    struct COption {
        std::string_view name;
        bool isPresent = false;
        std::vector<std::string> values;
    };
    [[nodiscard]] const COption& Find(std::string_view name) const;

    std::vector<COption> m_options;
    std::vector<std::string> m_files;
};
