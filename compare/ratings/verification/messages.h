#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// The sentences about the files of the annex of ISO/TS 18571.
namespace ratings::annex_message {

/// The folder does not exist, is no folder or may not be read.
inline constexpr std::string_view kFolderNotRead = "This folder could not be read.";
/// No name in the folder is that of a case.
inline constexpr std::string_view kNoFiles =
    "There is no file of the annex in this folder. Names of such files contain the case and the model, for example "
    "annex_c_1_1__ac1__cae1.csv.";
/// The first line is not the expected one.
inline constexpr std::string_view kNoColumns = "The first line does not name the columns Time, Test and CAE once each.";
/// There is no sample that has a time and both values.
inline constexpr std::string_view kNoSamples = "There are no samples with numbers in the columns Time, Test and CAE.";

/// Some of the 42 files are there; `cases` are the names of the others.
std::string FilesMissing(std::string_view cases);
/// A second file has the name of the same case.
std::string AlreadyRead(std::string_view other);
/// A line has fewer columns than the first line names.
std::string ColumnMissing(std::size_t line, std::string_view column);
/// A cell is neither empty nor a number.
std::string NotANumber(std::size_t line, std::string_view column, std::string_view cell);
/// The times do not go on in steps of about the same size, so samples are missing or in another order.
std::string UnevenTime(std::size_t sample);

}  // namespace ratings::annex_message
