#pragma once

#include <stdexcept>

namespace ks {

/// The one exception of the signal and file library. Its text is exactly the sentence that the user reads.
class CError : public std::logic_error {
public:
    using std::logic_error::logic_error;
};

}  // namespace ks
