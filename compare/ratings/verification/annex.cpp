#include "compare/ratings/verification/annex.h"

#include "compare/ratings/iso18571.h"
#include "compare/ratings/verification/annex_file.h"
#include "compare/ratings/verification/iso_formula_cases.h"
#include "compare/ratings/verification/messages.h"
#include "compare/ratings/verification/reference_case.h"
#include "files/error.h"
#include "files/input_file.h"
#include "files/messages.h"
#include "files/native_path.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstddef>
#include <filesystem>
#include <new>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace ratings {
namespace {

namespace fs = std::filesystem;

constexpr CPrecision kAnnexDigits{1e-3, 4};

constexpr std::array<CAnnexCase, 42> kCases = {{
    {"C.1.1", "AC1", 1, 9169, 9560, 9518, 9524, 7683}, {"C.1.1", "AC1", 2, 8848, 8977, 9196, 9640, 7449},
    {"C.1.1", "AC1", 3, 9122, 9225, 9839, 9716, 7606}, {"C.1.2", "AC2", 1, 4379, 4059, 65, 6471, 7241},
    {"C.1.2", "AC2", 2, 6993, 6423, 6254, 8219, 7648}, {"C.1.2", "AC2", 3, 8542, 8452, 7720, 9659, 8427},
    {"C.1.3", "AC3", 1, 8045, 7263, 9401, 8977, 7321}, {"C.1.3", "AC3", 2, 8701, 8164, 9401, 9310, 8467},
    {"C.1.3", "AC3", 3, 8314, 7499, 9401, 9088, 8084}, {"C.1.4", "AC4", 1, 7877, 7927, 9771, 8709, 5052},
    {"C.1.4", "AC4", 2, 6540, 6476, 9200, 7909, 2641}, {"C.1.4", "AC4", 3, 7910, 7837, 9943, 8486, 5446},
    {"C.2.1", "AN1", 1, 6994, 5297, 7175, 8924, 8276}, {"C.2.1", "AN1", 2, 6242, 5406, 9177, 4633, 6588},
    {"C.2.1", "AN1", 3, 7060, 5379, 7496, 8476, 8568}, {"C.2.2", "AN2", 1, 5912, 4033, 7203, 7599, 6694},
    {"C.2.2", "AN2", 2, 3643, 2868, 9056, 980, 2441},  {"C.2.2", "AN2", 3, 5835, 3740, 7448, 6426, 7819},
    {"C.3.1", "DS1", 1, 9214, 8878, 9369, 9765, 9182}, {"C.3.1", "DS1", 2, 9825, 10000, 9747, 9814, 9563},
    {"C.3.1", "DS1", 3, 9834, 9994, 9495, 9948, 9741}, {"C.3.2", "DS2", 1, 6518, 4702, 8085, 6796, 8303},
    {"C.3.2", "DS2", 2, 8632, 8069, 9362, 9422, 8236}, {"C.3.2", "DS2", 3, 8368, 7916, 8582, 9553, 7875},
    {"C.4.1", "FO1", 1, 5364, 4501, 6899, 6177, 4739}, {"C.4.1", "FO1", 2, 6556, 5267, 5930, 9111, 7206},
    {"C.4.1", "FO1", 3, 9297, 9112, 9225, 9572, 9465}, {"C.4.2", "FO2", 1, 2761, 3753, 5238, 0, 1060},
    {"C.4.2", "FO2", 2, 5766, 4277, 3810, 8390, 8079}, {"C.4.2", "FO2", 3, 6463, 5214, 8810, 6582, 6498},
    {"C.4.3", "FO3", 1, 7133, 6548, 9769, 7384, 5414}, {"C.4.3", "FO3", 2, 4658, 4910, 8731, 3628, 1109},
    {"C.4.3", "FO3", 3, 8642, 9032, 9596, 9282, 6269}, {"C.5.1", "MO1", 1, 8203, 7402, 9784, 9099, 7329},
    {"C.5.1", "MO1", 2, 7549, 7233, 5905, 9668, 7703}, {"C.5.1", "MO1", 3, 8084, 7901, 8060, 9618, 6939},
    {"C.5.2", "MO2", 1, 2946, 2049, 4979, 0, 5652},    {"C.5.2", "MO2", 2, 3770, 2797, 5711, 1995, 5551},
    {"C.5.2", "MO2", 3, 5592, 4281, 9268, 4683, 5450}, {"C.5.3", "MO3", 1, 6607, 5390, 6958, 8390, 6907},
    {"C.5.3", "MO3", 2, 6637, 5380, 7338, 7983, 7102}, {"C.5.3", "MO3", 3, 6713, 5563, 10000, 7304, 5132},
}};

std::string LowerCase(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return lower;
}

std::string ModelOf(const CAnnexCase& annexCase) {
    return "CAE" + std::to_string(annexCase.model);
}

std::string NameOf(const CAnnexCase& annexCase) {
    return std::string(annexCase.test) + " " + ModelOf(annexCase);
}

std::vector<std::string> WordsOf(std::string_view name) {
    std::vector<std::string> words(1);
    for (const char c : name) {
        if (std::isalnum(static_cast<unsigned char>(c)) != 0) {
            words.back() += c;
        } else if (!words.back().empty()) {
            words.emplace_back();
        }
    }
    return words;
}

bool Contains(const std::vector<std::string>& words, std::string_view word) {
    return std::find(words.begin(), words.end(), LowerCase(word)) != words.end();
}

std::string ReadWhole(const std::string& path) {
    ks::CInputFile file;
    if (!file.Open(path) || !file.FindSize()) throw ks::CError(ks::read_message::NotOpenedForReading(path));
    std::string text(static_cast<std::size_t>(file.Size()), '\0');
    if (file.Read(std::as_writable_bytes(std::span(text))) != text.size()) {
        throw ks::CError(ks::read_message::ReadFailed(path));
    }
    return text;
}

CReferenceCase Score(const CAnnexCase& annexCase, const std::string& path) {
    CReferenceCase referenceCase{NameOf(annexCase),
                                 "Table " + std::string(annexCase.table) + ": columns Test and CAE of " + path,
                                 CCaseSource::Annex};
    const auto score = [](int printed) { return printed / 10000.0; };
    ExpectScores(
        referenceCase,
        {score(annexCase.r), score(annexCase.z), score(annexCase.ep), score(annexCase.em), score(annexCase.es)},
        ScoreIso18571(ReadAnnexPair(ReadWhole(path)).View()), kAnnexDigits);
    return referenceCase;
}

// The paths in a folder, in order; no value where it cannot be read.
std::optional<std::vector<std::string>> PathsIn(const std::string& folder) {
    std::error_code error;
    std::vector<std::string> paths;
    for (fs::directory_iterator entry(ks::NativePath(folder), error), end; !error && entry != end;
         entry.increment(error)) {
        paths.push_back(ks::Utf8Path(entry->path()));
    }
    if (error) return std::nullopt;
    std::sort(paths.begin(), paths.end());
    return paths;
}

// The file of each case, empty where there is none.
using CFilesOfCases = std::array<std::string, kCases.size()>;

CFilesOfCases Assign(const std::vector<std::string>& paths, std::vector<CAnnexError>& errors) {
    CFilesOfCases files;
    for (const std::string& path : paths) {
        const CAnnexCase* const found = FindAnnexCase(ks::Utf8Path(ks::NativePath(path).filename()));
        if (found == nullptr) continue;
        std::string& file = files[static_cast<std::size_t>(found - kCases.data())];
        if (file.empty()) {
            file = path;
        } else {
            errors.push_back({path, annex_message::AlreadyRead(file)});
        }
    }
    return files;
}

void TryToScore(CAnnexRun& run, const CAnnexCase& annexCase, const std::string& path) {
    try {
        run.cases.push_back(Score(annexCase, path));
    } catch (const ks::CError& error) {
        run.errors.push_back({path, error.what()});
    } catch (const std::bad_alloc&) {
        run.errors.push_back({path, ks::read_message::NoMemoryToRead(path)});
    }
}

void ReportMissing(CAnnexRun& run, const std::string& folder, const CFilesOfCases& files) {
    std::string missing;
    for (std::size_t i = 0; i < kCases.size(); ++i) {
        if (files[i].empty()) missing += (missing.empty() ? "" : ", ") + NameOf(kCases[i]);
    }
    if (missing.empty()) return;
    const bool isEmpty = std::all_of(files.begin(), files.end(), [](const std::string& file) { return file.empty(); });
    run.errors.push_back(
        {folder, isEmpty ? std::string(annex_message::kNoFiles) : annex_message::FilesMissing(missing)});
}

}  // namespace

std::span<const CAnnexCase> AnnexCases() {
    return kCases;
}

const CAnnexCase* FindAnnexCase(std::string_view fileName) {
    const std::vector<std::string> words = WordsOf(LowerCase(fileName));
    if (words.back() != "csv" && words.back() != "txt") return nullptr;
    const auto* const found = std::find_if(kCases.begin(), kCases.end(), [&words](const CAnnexCase& annexCase) {
        return Contains(words, annexCase.test) && Contains(words, ModelOf(annexCase));
    });
    return found == kCases.end() ? nullptr : found;
}

CAnnexRun RunAnnex(const std::string& folder) {
    CAnnexRun run;
    const std::optional<std::vector<std::string>> paths = PathsIn(folder);
    if (!paths) {
        run.errors.push_back({folder, std::string(annex_message::kFolderNotRead)});
        return run;
    }
    const CFilesOfCases files = Assign(*paths, run.errors);
    for (std::size_t i = 0; i < kCases.size(); ++i) {
        if (!files[i].empty()) TryToScore(run, kCases[i], files[i]);
    }
    ReportMissing(run, folder, files);
    return run;
}

}  // namespace ratings
