#pragma once

#include <boost/lexical_cast.hpp>
#include <cstddef>
#include <cstdint>
#include <string>

#include "files/replacing_file.h"

namespace ks {

// Every sentence that files/ throws as CError, once. Settled: users search for them, scripts compare them.

/// Sentences of the UDS reader.
namespace udsread {
inline constexpr const char* kEmptyPath = "Failure read file due to empty path and file name.";
inline constexpr const char* kSizeNotMultiple = "File size not a multiple of 512 bytes.";
inline constexpr const char* kBufferTooSmall = "Data buffer too small";
inline constexpr const char* kNotUds = "Not a UDS-1992 Signal File";
inline constexpr const char* kInvalidCurveHeader = "Invalid 3rd Record Header";
inline constexpr const char* kEqualIndices = "Equal array indices, NFP = NLP in file";
inline constexpr const char* kCrossedIndices = "Crossed array indices, NFP > NLP in file";
inline constexpr const char* kInsufficientData = "File size too small - Insufficient data points";
inline constexpr const char* kNoRecords = "no signal records";
inline constexpr const char* kUnknownBlock = "Unknown Data Block";
inline constexpr const char* kUnknownForm = "Format is not known.";

inline std::string NoFileInformation(const std::string& path) {
    return "Failure to get file information: " + path;
}
}  // namespace udsread

/// Sentences of the UDS writer.
namespace udswrite {
inline constexpr const char* kEmptyPath = "Failure to write file due to empty path and file name.";
inline constexpr const char* kCrossedIndices = "Crossed array indices, NFP > NLP";
inline constexpr const char* kEqualIndices = "Equal array indices, NFP = NLP";
inline constexpr const char* kNotOpened = "Failure to open file for writing.";
inline constexpr const char* kUnknownFormat = "Couldn't set byte order of float format.";

inline std::string CountMismatch(std::int64_t byIndices, std::size_t points) {
    return "NLP - NFP + 1: " + boost::lexical_cast<std::string>(byIndices) +
           " does not equal to array size: " + boost::lexical_cast<std::string>(points);
}
inline std::string ColumnsDiffer(std::size_t abscissas, std::size_t ordinates) {
    return "The points have " + boost::lexical_cast<std::string>(abscissas) + " X values and " +
           boost::lexical_cast<std::string>(ordinates) + " Y values.";
}
inline std::string NotCompleted(const std::string& path, const CWriteTrouble& trouble) {
    const std::string start = "Failure to complete the file: " + path + ". ";
    if (trouble.isOldFileLost) return start + "The existing file is damaged.";
    if (trouble.isDeviceFull) return start + "The device may be full; an existing file was kept.";
    return start + "An existing file was kept.";
}
}  // namespace udswrite

/// Sentences of the ASCII point reader.
namespace ascii {
inline constexpr const char* kParseData = "Failure to parse the data.";

inline std::string ParseFile(const std::string& path, const std::string& inner) {
    return "Failure to parse the file: " + path + " for reading.\n" + inner;
}
inline std::string TooLarge(const std::string& path) {
    return "The file is too large: " + path + ". Text files of up to 1 GiB can be read.";
}
}  // namespace ascii

/// Sentences of both readers.
inline std::string NotOpenedForReading(const std::string& path) {
    return "Failure to open file: " + path + " for reading.";
}
inline std::string NoMemoryToRead(const std::string& path) {
    return "There is not enough memory to read the file: " + path + ".";
}
inline std::string ReadFailed(const std::string& path) {
    return "Failure to read the whole file: " + path;
}

}  // namespace ks
