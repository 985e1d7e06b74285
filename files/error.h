#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace ks {

/// The one exception with which the signal and file library refuses an input, a value or an operation. Its text is
/// exactly the sentence that the user reads.
///
/// Only these others may leave the library, all derived from std::exception, without a sentence for the user:
/// - std::bad_alloc, when there is not enough memory. The loader and CData::SaveUDS turn it into a sentence.
/// - std::runtime_error from CData::SetPoint and std::out_of_range from the further reals of CData: an index that is
///   out of bounds, a mistake of the caller.
class CError : public std::logic_error {
public:
    explicit CError(std::string_view sentence) : std::logic_error(std::string(sentence)) {}
};

}  // namespace ks
