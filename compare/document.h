#pragma once

#include "compare/chart_block.h"
#include "compare/document_host.h"
#include "compare/note.h"
#include "compare/plots/plot.h"
#include "compare/ratings/choice.h"
#include "compare/run_state.h"
#include "compare/sampling.h"
#include "compare/signal.h"
#include "signal/nsignal.h"

#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

/// The comparison document: reference, computed signals, options, page list and the current page.
///
/// A run reads the chosen files, prepares the signals, makes the reference, computes the measures and tells the
/// observers. It needs no window; what it asks goes to a CDocumentHost. Everything runs on one thread.
class CQuorvelDoc {
public:
    /// `host` must outlive the document.
    explicit CQuorvelDoc(CDocumentHost& host);
    CQuorvelDoc(const CQuorvelDoc&) = delete;
    CQuorvelDoc& operator=(const CQuorvelDoc&) = delete;
    virtual ~CQuorvelDoc();

    /// Observers are told in the order in which they were added; each must be removed before it is destroyed. Adding
    /// and removing is allowed while they are told.
    void AddObserver(CDocumentObserver& observer);
    void RemoveObserver(CDocumentObserver& observer);

    // Runs.

    /// The interactive run: asks for files and options, reads, filters, cuts, makes the reference, compares, tells the
    /// observers with hint 1 and shows the collected messages. Cancel changes nothing.
    ///
    /// A step tries every signal; each failure becomes a message. A run stops after the first step in which any
    /// signal failed: it then gives no hint and does not change page list and page. A reference that cannot be
    /// read stops the run without a message and without ending the busy state. A run that stops for lack of memory
    /// gives back the copies and the points of the computed signals, so that its messages can be shown and written.
    void OnCompareFiles();

    /// The start-up run of a command line's file list. It empties the signal list and then stops because that list is
    /// empty, so it loads nothing; kept on purpose, the program then waits for commands.
    void CompareFileList(const std::vector<std::string>& files, std::int32_t channelClass, double windowStart,
                         double windowEnd);

    /// What the start-up run does with the computed signals that the document holds: reads them, filters them when
    /// `channelClass` is one of ks::kChannelClasses, cuts them when a bound is > 0, and compares them with a reference
    /// made from them.
    void CompareLoadedList(std::int32_t channelClass, double windowStart, double windowEnd);

    /// Spreads each step of a run over up to that many threads. What a run gives, and in which order hosts and
    /// observers are called, does not depend on it; they are called on the thread of the run alone. Default: 1.
    void SetJobs(unsigned jobs) { m_jobs = jobs; }

    /// Runs from now on rate every signal that they compare with these families; CSignal::Ratings() holds the result.
    /// FaultOf() of its parameters must give nothing. Default: none.
    void SetRatings(const ratings::CRatingChoice& choice) { m_ratings = choice; }
    [[nodiscard]] const ratings::CRatingChoice& Ratings() const { return m_ratings; }

    /// Whether runs keep a copy of each record as read. Without it, a step changes a record in place instead of making
    /// new arrays. Default: true.
    void SetKeepsCopies(bool keepsCopies) { m_keepsCopies = keepsCopies; }

    // Steps of a run. What the signal library throws becomes a message, the file's path before it.

    /// Replaces the computed signals with unread ones of these paths.
    void SetComputedFiles(const std::vector<std::string>& files);

    /// Reads every computed file and, if wanted, keeps a copy of each record as read: 1 when all were read, else 0.
    int ReadComputedSignals();
    /// Reads the reference from its path and resamples the computed signals to its time step: 1 when it was read and
    /// set. 0 does not change the reference; the sentences of an unreadable file join the reference messages.
    int ReadReference();
    /// Brings the computed signals to one time step and range and takes the first of them as the reference: 1 on
    /// success. 0 does not change the reference: there is no computed signal, no common time range, or one failed.
    int BuildAverageReference();
    /// Filters the computed signals, except those read from ASCII files; false when any failed.
    bool FilterComputedSignals(std::int32_t channelClass);
    /// Filters the reference, whatever its file type; false when that failed.
    bool FilterReference(std::int32_t channelClass);
    void BuildPageList();

    // Pages.

    /// Whether the pages selected from now on fill the matrices of the chart block; if not, the matrices are empty. A
    /// program that reads the series alone saves their memory and time. Default: true.
    void SetNeedsMatrices(bool needsMatrices);
    /// Builds the page's series, chart block and titles and tells the observers with hint 2. False, with the page id
    /// unchanged, when no page has that id. A cut of a signal becomes a note of it. What a page throws becomes the only
    /// error message, is shown, and leaves the page without series.
    bool SelectPage(std::int32_t pageId);
    /// Lays the series out in the chart block; false, with counts of 0, when there are none. A page without a chart
    /// keeps the block and gives true.
    /// @throws std::bad_alloc or std::length_error; the matrices are then empty
    bool BuildSeriesMatrices();

    // Commands.

    void ShowErrors();        ///< hands the error messages to the host with a beep; nothing without any
    void OnCorridorSize();    ///< edits the corridor size; hint 2. Measures follow with the next run.
    void OnCriticalValues();  ///< edits the process-wide critical values; hint 2
    /// Asks for a file per series of a chart page and writes each; stores the folder of the last one. Cancel skips the
    /// series. Warnings about files whose times are not those of their series become the only error messages and are
    /// shown. @throws ks::CError from the writer; the folder is then not stored
    void OnSaveUds();
    /// Asks for one file, writes the ASCII table of the page and stores the folder. A file that cannot be written
    /// becomes the only error message and is shown; the folder is then not stored.
    void OnSaveAscii();

    // What views and exports read.

    /// Whether a run is in progress, and how the last one ended.
    [[nodiscard]] CRunState Run() const { return m_run; }
    [[nodiscard]] const std::vector<CSignal>& ComputedSignals() const { return m_computed; }
    /// Each record as it was read, before any step of a run, unless no copies are kept; for programs that link the
    /// library.
    [[nodiscard]] const std::vector<boost::shared_ptr<ks::CNSignal>>& SignalCopies() const { return m_copies; }
    [[nodiscard]] const CSignal& Reference() const { return m_reference; }
    [[nodiscard]] const std::vector<std::int32_t>& PageList() const { return m_pageList; }
    [[nodiscard]] std::int32_t CurrentPageId() const { return m_pageId; }
    [[nodiscard]] const CChartBlock& ChartBlock() const { return *m_block; }
    /// The same, for whoever shows the matrices: while they are shared, the next page gets new ones.
    [[nodiscard]] std::shared_ptr<const CChartBlock> SharedChartBlock() const { return m_block; }
    [[nodiscard]] const CSeriesList& Series() const { return m_series; }
    [[nodiscard]] const std::vector<std::string>& SeriesNames() const { return m_seriesNames; }
    /// The sentences of the error messages, in order.
    [[nodiscard]] std::vector<std::string> ErrorMessages() const;
    [[nodiscard]] const std::vector<std::string>& ReferenceMessages() const { return m_referenceErrors; }
    /// What the last run did without being asked, in order; the signals and the reference have notes of their own.
    [[nodiscard]] const std::vector<CNote>& Notes() const { return m_notes; }
    [[nodiscard]] double CorridorSize() const { return m_corridorSize; }

private:
    /// How a run ended.
    enum class CRunEnd { Completed, Stopped, ReferenceUnreadable };
    /// How a step ended on one signal.
    struct CStepEnd {
        std::vector<CRunMessage> messages;       ///< why it failed; none when it is done
        bool isMemoryShort = false;              ///< it failed for lack of memory
        boost::shared_ptr<ks::CNSignal> copy{};  ///< of a record as read
    };
    /// How making the reference ended. NotMade: unreadable, or nothing to make it from.
    enum class CReferenceEnd { Made, NotMade, SignalFailed };

    /// Sets the run state: in progress while `steps` runs, then how it ended, even if it throws.
    CRunEnd RunSteps(const CFileSelection& selection, CRunEnd (CQuorvelDoc::*steps)(const CFileSelection&));
    CRunEnd TrySteps(const CFileSelection& selection, CRunEnd (CQuorvelDoc::*steps)(const CFileSelection&));
    void ReleaseRecords();
    CStepEnd ReadComputed(CSignal& signal) const;
    static CStepEnd Unread(const CSignal& signal);
    /// Runs `work`; what it throws becomes a message.
    static CStepEnd Attempt(CSignal& signal, const std::function<void(CSignal&)>& work);
    bool TakeEnd(CStepEnd end);
    void EndRun(CRunEnd end);
    void SetRun(CRunState run);

    [[nodiscard]] CFileSelection OfferedSelection() const;
    void TakeSelection(const CFileSelection& selection);
    CRunEnd PrepareAndCompare(const CFileSelection& selection);
    CRunEnd PrepareAndCompareLoaded(const CFileSelection& selection);
    CReferenceEnd TakeReference();
    CReferenceEnd PrepareReference(const CFileSelection& selection);
    CReferenceEnd MakeAverageReference();
    void PublishRun();

    // One step over all computed signals, or on the reference; false when any failed.
    bool CutComputedSignals(double start, double end);
    bool CutToCommonRange(double start, double end);
    bool ResampleComputedSignals(double timeStep);
    bool CompareComputedSignals(std::int32_t channelClass);
    bool CutReference(double start, double end);
    bool AttemptAlone(CSignal& signal, const std::function<void(CSignal&)>& work);
    bool ForEachComputed(const std::function<void(CSignal&)>& work);
    bool ForEachComputed(const std::function<CStepEnd(CSignal&)>& step);

    void ForgetMessages();
    void NoteNoCommonTime(const CSignal& reference);
    void NoteFailedAverage();
    void BeginProgress(const CFileSelection& selection);
    void AtWork(const std::string& path);
    void EndProgress(CRunEnd end);

    bool BuildSeries();
    [[nodiscard]] std::vector<CSampling> ComputedSamplings() const;
    void NoteCutsByPage(const std::vector<CSampling>& before);
    bool LayOutSeries();
    void FailPage(std::string sentence);
    /// Asks for a file per series and writes it; adds to `warnings`.
    void SaveSeries(std::vector<CRunMessage>& warnings);
    void ShowWarnings(std::vector<CRunMessage> warnings);
    void FillMatrices(std::size_t rows);
    void ReserveMatrices(std::int64_t cellCount);
    void FreeMatrices();
    void Notify(int hint);
    void TellObservers(const std::function<void(CDocumentObserver&)>& tell);

    CDocumentHost& m_host;
    std::vector<CDocumentObserver*> m_observers;
    std::shared_ptr<CChartBlock> m_block = std::make_shared<CChartBlock>();
    std::vector<std::int32_t> m_pageList;
    std::vector<CSignal> m_computed;
    std::vector<boost::shared_ptr<ks::CNSignal>> m_copies;
    std::vector<std::string> m_seriesNames;
    CSeriesList m_series;
    std::vector<CRunMessage> m_errors;
    std::vector<std::string> m_referenceErrors;
    std::vector<CNote> m_notes;
    ratings::CRatingChoice m_ratings;
    CSignal m_reference;
    double m_corridorSize = 4.0;
    std::int32_t m_pageId = 0;
    std::int32_t m_channelClass = 60;  ///< of the last run, offered again
    unsigned m_jobs = 1;
    std::size_t m_stepsDone = 0;
    std::size_t m_stepsTotal = 0;  ///< 0 outside a run
    std::unique_ptr<CPlot> m_page;
    CRunState m_run = CRunState::None;
    bool m_isMemoryShort = false;  ///< whether a step of the last run lacked memory
    bool m_keepsCopies = true;
    bool m_needsMatrices = true;
    bool m_isReferenceAverage = false;
    bool m_shouldFilter = true;
    bool m_shouldTruncate = false;
};
