#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

/// Wrong usage; the text is the sentence for the user. The program ends with CExitStatus::Usage.
class CUsageError : public std::runtime_error {
public:
    explicit CUsageError(std::string_view sentence) : std::runtime_error(std::string(sentence)) {}
};
