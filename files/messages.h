#pragma once

#include "files/replacing_file.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// Every sentence that files/ throws as CError, once. Settled letter for letter: users search for them, scripts compare
// them.

namespace ks {

/// Sentences of both readers.
namespace read_message {

/// The file does not exist, may not be read or is not a regular file.
std::string NotOpenedForReading(const std::string& path);
/// Memory ran out while the file was read.
std::string NoMemoryToRead(const std::string& path);
/// The file gave fewer bytes than it has.
std::string ReadFailed(const std::string& path);

}  // namespace read_message

/// Sentences of the UDS reader.
namespace uds_read_message {

/// No file was named.
inline constexpr std::string_view kEmptyPath = "Failure read file due to empty path and file name.";
/// Part of a record is missing or too much.
inline constexpr std::string_view kSizeNotMultiple = "File size not a multiple of 512 bytes.";
/// The file ends within its headers, or became shorter while it was read.
inline constexpr std::string_view kBufferTooSmall = "Data buffer too small";
/// The tag of the first record is another.
inline constexpr std::string_view kNotUds = "Not a UDS-1992 Signal File";
/// The record where the curve header must be has another tag.
inline constexpr std::string_view kInvalidCurveHeader = "Invalid 3rd Record Header";
/// The curve header says that there is one point.
inline constexpr std::string_view kEqualIndices = "Equal array indices, NFP = NLP in file";
/// The curve header says that the last point comes before the first.
inline constexpr std::string_view kCrossedIndices = "Crossed array indices, NFP > NLP in file";
/// There are fewer data records, or fewer values of X or Y, than the curve header says.
inline constexpr std::string_view kInsufficientData = "File size too small - Insufficient data points";
/// There is no data record.
inline constexpr std::string_view kNoRecords = "no signal records";
/// A data record has a tag that the file's form does not have.
inline constexpr std::string_view kUnknownBlock = "Unknown Data Block";
/// FILEFORM is neither "X-Y" nor "Y".
inline constexpr std::string_view kUnknownForm = "Format is not known.";

/// The size of an open file could not be found.
std::string NoFileInformation(const std::string& path);

}  // namespace uds_read_message

/// Sentences of the UDS writer.
namespace uds_write_message {

/// No file was named.
inline constexpr std::string_view kEmptyPath = "Failure to write file due to empty path and file name.";
/// NFP is greater than NLP.
inline constexpr std::string_view kCrossedIndices = "Crossed array indices, NFP > NLP";
/// NFP and NLP are equal.
inline constexpr std::string_view kEqualIndices = "Equal array indices, NFP = NLP";
/// The target, or a file to replace it with, cannot be opened.
inline constexpr std::string_view kNotOpened = "Failure to open file for writing.";
/// The machine's byte order or number format is not known.
inline constexpr std::string_view kUnknownFormat = "Couldn't set byte order of float format.";

/// NFP and NLP ask for another number of points than there are.
std::string CountMismatch(std::int64_t byIndices, std::size_t points);
/// The points that a file object is to hold have columns of different lengths.
std::string ColumnsDiffer(std::size_t abscissas, std::size_t ordinates);
/// Writing failed partway, and an existing file is unchanged.
std::string NotCompleted(const std::string& path, const CWriteTrouble& trouble);
/// Writing failed partway, in the place of the existing file.
std::string Damaged(const std::string& path);

}  // namespace uds_write_message

/// Sentences of the ASCII point reader.
namespace ascii_message {

/// The text is not a list of points.
inline constexpr std::string_view kParseData = "Failure to parse the data.";

/// The same about a file; `inner` follows as the second line.
std::string ParseFile(const std::string& path, std::string_view inner);
/// The text is larger than the reader takes.
std::string TooLarge(const std::string& path);

}  // namespace ascii_message

}  // namespace ks
