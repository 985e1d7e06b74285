#include "files/messages.h"

#include "files/replacing_file.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace ks {

std::string read_message::NotOpenedForReading(const std::string& path) {
    return "Failure to open file: " + path + " for reading.";
}

std::string read_message::NoMemoryToRead(const std::string& path) {
    return "There is not enough memory to read the file: " + path + ".";
}

std::string read_message::ReadFailed(const std::string& path) {
    return "Failure to read the whole file: " + path;
}

std::string uds_read_message::NoFileInformation(const std::string& path) {
    return "Failure to get file information: " + path;
}

std::string uds_write_message::CountMismatch(std::int64_t byIndices, std::size_t points) {
    return "NLP - NFP + 1: " + std::to_string(byIndices) + " does not equal to array size: " + std::to_string(points);
}

std::string uds_write_message::ColumnsDiffer(std::size_t abscissas, std::size_t ordinates) {
    return "The points have " + std::to_string(abscissas) + " X values and " + std::to_string(ordinates) + " Y values.";
}

std::string uds_write_message::NotCompleted(const std::string& path, const CWriteTrouble& trouble) {
    const std::string start = "Failure to complete the file: " + path + ". ";
    if (trouble.isDeviceFull) return start + "The device may be full; an existing file was kept.";
    return start + "An existing file was kept.";
}

std::string uds_write_message::Damaged(const std::string& path) {
    return "Failure to complete the file: " + path + ". The existing file is damaged.";
}

std::string ascii_message::ParseFile(const std::string& path, std::string_view inner) {
    return "Failure to parse the file: " + path + " for reading.\n" + std::string(inner);
}

std::string ascii_message::TooLarge(const std::string& path) {
    return "The file is too large: " + path + ". Text files of up to 1 GiB can be read.";
}

}  // namespace ks
