#pragma once

#include "compare/ratings/verification/reference_case.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ratings {

/// One of the 42 cases of the annex: a test, a model of it, and the scores.
struct CAnnexCase {
    std::string_view table;  ///< "C.1.1"
    std::string_view test;   ///< "AC1"
    int model = 1;           ///< CAE1 to CAE3
    /// Scores times 10 000, as they are printed.
    int r = 0, z = 0, ep = 0, em = 0, es = 0;
};

std::span<const CAnnexCase> AnnexCases();

/// The case that a file's name belongs to: among the words of the name, letters and digits, are the test and the
/// model, as in annex_c_1_1__ac1__cae1.csv; .csv or .txt. Null for another file.
const CAnnexCase* FindAnnexCase(std::string_view fileName);

/// A file or a folder, and a sentence about it.
struct CAnnexError {
    std::string path;
    std::string sentence;
};

struct CAnnexRun {
    std::vector<CReferenceCase> cases;  ///< of the files that could be read, in the order of the annex
    std::vector<CAnnexError> errors;    ///< empty when all 42 could
};

/// Scores the files of the annex in a folder, samples as they are in the files.
/// @param folder  path in UTF-8; its subfolders do not count
CAnnexRun RunAnnex(const std::string& folder);

}  // namespace ratings
