#include "compare/ratings/verification/messages.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace ratings::annex_message {

std::string FilesMissing(std::string_view cases) {
    return "Files of the annex are missing: " + std::string(cases) + ".";
}

std::string AlreadyRead(std::string_view other) {
    return "Another file of this folder is of the same case: " + std::string(other);
}

std::string ColumnMissing(std::size_t line, std::string_view column) {
    return "Line " + std::to_string(line) + " ends before the column " + std::string(column) + ".";
}

std::string NotANumber(std::size_t line, std::string_view column, std::string_view cell) {
    return "Line " + std::to_string(line) + " has no number in the column " + std::string(column) + ": " +
           std::string(cell);
}

std::string UnevenTime(std::size_t sample) {
    return "The time step before sample " + std::to_string(sample) +
           " is not above 0, or differs from the mean step by more than half of it.";
}

}  // namespace ratings::annex_message
