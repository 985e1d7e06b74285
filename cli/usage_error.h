#pragma once

#include <stdexcept>

/// Wrong usage; the text is the sentence for the user. The program ends with CExitStatus::Usage.
class CUsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};
