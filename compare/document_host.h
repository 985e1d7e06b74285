#pragma once

#include "compare/critical_values.h"
#include "compare/run_state.h"
#include "compare/setting_keys.h"
#include "files/file_request.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// What the user chose to compare.
struct CFileSelection {
    std::vector<std::string> files;     ///< computed files, in order; UTF-8 paths
    std::string referencePath;          ///< reference file; unused when isReferenceAverage is set
    bool isReferenceAverage = false;    ///< make the reference from the computed signals
    bool shouldFilter = true;           ///< filter the computed signals at channelClass
    bool shouldFilterReference = true;  ///< filter the reference too
    bool shouldTruncate = false;        ///< cut every signal to the time window
    std::int32_t channelClass = 60;     ///< channel frequency class, one of ks::kChannelClasses
    double windowStart = 0.0;           ///< X units
    double windowEnd = static_cast<double>(0.3F);
};

/// A message of a run or of a page.
struct CRunMessage {
    std::string path;  ///< the file that `text` is about; empty where it is about no file, or names it itself
    std::string text;  ///< the sentence, UTF-8

    bool operator==(const CRunMessage&) const = default;
};

/// What the document asks of the program around it: the desktop window, the command line, a test.
class CDocumentHost {
public:
    virtual ~CDocumentHost() = default;

    /// Lets the user choose what to compare. `offered` holds files, reference, flags and channel class of the document;
    /// the rest has its defaults. No value: canceled.
    virtual std::optional<CFileSelection> SelectFiles(const CFileSelection& offered) = 0;
    /// Shows the messages of a run or of a page; never called without any. Those about one file follow each other.
    virtual void ShowErrorList(const std::vector<CRunMessage>& messages) = 0;
    /// Lets the user edit the corridor size (> 0). No value: canceled.
    virtual std::optional<double> EditCorridorSize(double size) = 0;
    /// Lets the user edit the critical values. No value: canceled.
    virtual std::optional<CCriticalValues> EditCriticalValues(const CCriticalValues& values) = 0;
    /// Lets the user name a file to write. No value: canceled.
    virtual std::optional<std::string> AskSavePath(const ks::CFileRequest& request) = 0;

    /// A per-user setting, or its fallback when it was never stored.
    virtual std::string ReadSetting(const CTextSetting& key) = 0;
    virtual void StoreSetting(const CTextSetting& key, const std::string& value) = 0;

    virtual void Beep() = 0;
    /// Shows or ends the wait cursor. A run whose reference cannot be read does not end it.
    virtual void SetBusy(bool isBusy) = 0;
    /// `done` of `total` steps of a run are done; `path` is the file being processed, empty at the end.
    virtual void Progress(std::size_t done, std::size_t total, const std::string& path) = 0;
};

/// Learns of changes in the document.
class CDocumentObserver {
public:
    virtual ~CDocumentObserver() = default;
    /// `hint` is kRunCompleted or kPageOrLimitsChanged.
    virtual void OnDocumentUpdate(int hint) = 0;
    /// The page is about to change: who shares the chart block should release it, so that it need not be made anew.
    virtual void OnPageChanging() {}
    /// A run began or ended. For a completed run, this comes before its hint.
    virtual void OnRunStateChanged(CRunState /*run*/) {}
};

inline constexpr int kRunCompleted = 1;         ///< after a completed run
inline constexpr int kPageOrLimitsChanged = 2;  ///< after a page change or an edit of corridor size or critical values
