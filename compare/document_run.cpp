// The runs of the document and their steps.

#include "compare/document.h"
#include "compare/document_host.h"
#include "compare/in_order.h"
#include "compare/messages.h"
#include "compare/note.h"
#include "compare/plots/page_ids.h"
#include "compare/run_state.h"
#include "compare/sampling.h"
#include "compare/signal.h"
#include "files/messages.h"
#include "signal/channel_class.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <iterator>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

/// Step of a reference that has none, in X units.
constexpr double kDefaultTimeStep = 0.0001;
/// Smallest common step of an average run; the single-precision value, 9.999999747378752e-05.
constexpr double kSmallestTimeStep = static_cast<double>(0.0001F);

double LargestTimeStep(const std::vector<CSignal>& signalList) {
    double step = kSmallestTimeStep;
    for (const CSignal& signal : signalList) step = std::max(step, signal.Record().Getdelt());
    return step;
}

/// `signalList` holds at least one signal.
double LatestStart(const std::vector<CSignal>& signalList) {
    double start = signalList.front().Record().GetXMin();
    for (const CSignal& signal : signalList) start = std::max(start, signal.Record().GetXMin());
    return start;
}

/// `signalList` holds at least one signal.
double EarliestEnd(const std::vector<CSignal>& signalList) {
    double end = signalList.front().Record().GetXMax();
    for (const CSignal& signal : signalList) end = std::min(end, signal.Record().GetXMax());
    return end;
}

void Resample(CSignal& signal, double timeStep, CNoteKind kind) {
    const CSampling before = SamplingOf(signal.Record());
    signal.Record().Resample(timeStep);
    AppendResampling(signal.Notes(), kind, before, SamplingOf(signal.Record()));
}

}  // namespace

void CQuorvelDoc::OnCompareFiles() {
    const std::optional<CFileSelection> selection = m_host.SelectFiles(OfferedSelection());
    if (!selection) return;
    TakeSelection(*selection);
    m_host.SetBusy(true);
    ForgetMessages();

    const CRunEnd end = RunSteps(*selection, &CQuorvelDoc::PrepareAndCompare);
    if (end == CRunEnd::ReferenceUnreadable) {
        ShowErrors();  // still busy, and without the reference's own messages; kept, hosts end the busy state
                       // themselves
        return;
    }
    if (end == CRunEnd::Completed) PublishRun();
    m_host.SetBusy(false);
    ShowErrors();
}

void CQuorvelDoc::CompareFileList(const std::vector<std::string>& files, std::int32_t channelClass, double windowStart,
                                  double windowEnd) {
    if (files.empty()) return;
    m_computed.clear();
    m_copies.clear();
    // Always so at this point: files named at start-up load nothing. Kept, the program waits for commands instead.
    if (m_computed.empty()) return;
    CompareLoadedList(channelClass, windowStart, windowEnd);
}

void CQuorvelDoc::CompareLoadedList(std::int32_t channelClass, double windowStart, double windowEnd) {
    CFileSelection selection;
    selection.isReferenceAverage = true;
    selection.shouldFilter = ks::IsChannelClass(channelClass);
    selection.shouldTruncate = windowStart > 0.0 || windowEnd > 0.0;
    selection.channelClass = channelClass;
    selection.windowStart = windowStart;
    selection.windowEnd = windowEnd;

    m_shouldFilter = false;
    m_shouldTruncate = false;
    ForgetMessages();
    m_isReferenceAverage = true;

    const CRunEnd end = RunSteps(selection, &CQuorvelDoc::PrepareAndCompareLoaded);
    if (end == CRunEnd::Completed) PublishRun();
    ShowErrors();
}

CQuorvelDoc::CRunEnd CQuorvelDoc::RunSteps(const CFileSelection& selection,
                                           CRunEnd (CQuorvelDoc::*steps)(const CFileSelection&)) {
    CRunEnd end = CRunEnd::Stopped;
    try {
        SetRun(CRunState::AtWork);
        BeginProgress(selection);
        end = TrySteps(selection, steps);
    } catch (...) {
        EndRun(CRunEnd::Stopped);
        throw;
    }
    EndRun(end);
    return end;
}

/// Outside a single step, a run that lacks memory ends as stopped.
CQuorvelDoc::CRunEnd CQuorvelDoc::TrySteps(const CFileSelection& selection,
                                           CRunEnd (CQuorvelDoc::*steps)(const CFileSelection&)) {
    m_isMemoryShort = false;
    CRunEnd end = CRunEnd::Stopped;
    try {
        end = (this->*steps)(selection);
    } catch (const std::bad_alloc&) {
        ReleaseRecords();  // first: the message needs memory too
        m_errors.push_back({{}, std::string(compare_message::kNoMemoryForRun)});
    }
    if (end != CRunEnd::Completed && m_isMemoryShort) ReleaseRecords();
    return end;
}

/// Gives back the memory of a run that failed for lack of it; telling so needs some. The records of files that could
/// not be read hold the readers' sentences and no points, so they stay.
void CQuorvelDoc::ReleaseRecords() {
    m_copies = {};
    for (CSignal& signal : m_computed) {
        if (signal.GetPointCount() > 0) signal.Record() = ks::CNSignal();
    }
}

void CQuorvelDoc::EndRun(CRunEnd end) {
    const CRunState state = end == CRunEnd::Completed ? CRunState::Completed : CRunState::Stopped;
    try {
        EndProgress(end);
        SetRun(state);
    } catch (...) {
        m_run = state;  // whatever a host or an observer throws, the run is over
        throw;
    }
}

void CQuorvelDoc::SetRun(CRunState run) {
    m_run = run;
    TellObservers([run](CDocumentObserver& observer) { observer.OnRunStateChanged(run); });
}

CFileSelection CQuorvelDoc::OfferedSelection() const {
    CFileSelection offered;
    for (const CSignal& signal : m_computed) offered.files.push_back(signal.GetPath());
    offered.referencePath = m_reference.GetPath();
    offered.isReferenceAverage = m_isReferenceAverage;
    offered.shouldFilter = m_shouldFilter;
    offered.shouldTruncate = m_shouldTruncate;
    offered.channelClass = m_channelClass;
    return offered;
}

void CQuorvelDoc::TakeSelection(const CFileSelection& selection) {
    SetComputedFiles(selection.files);
    m_reference.SetPath(selection.referencePath);
    m_reference.Comparison().SetCorridor(m_corridorSize);
    m_isReferenceAverage = selection.isReferenceAverage;
    m_shouldFilter = selection.shouldFilter;
    m_shouldTruncate = selection.shouldTruncate;
    m_channelClass = selection.channelClass;
}

CQuorvelDoc::CRunEnd CQuorvelDoc::PrepareAndCompare(const CFileSelection& selection) {
    if (ReadComputedSignals() == 0) return CRunEnd::Stopped;
    if (m_shouldFilter && !FilterComputedSignals(selection.channelClass)) return CRunEnd::Stopped;
    if (m_shouldTruncate && !CutComputedSignals(selection.windowStart, selection.windowEnd)) return CRunEnd::Stopped;

    const CReferenceEnd made = m_isReferenceAverage ? MakeAverageReference() : PrepareReference(selection);
    if (made == CReferenceEnd::SignalFailed) return CRunEnd::Stopped;
    if (made == CReferenceEnd::NotMade && !m_isReferenceAverage) return CRunEnd::ReferenceUnreadable;

    m_reference.Comparison().SetCorridor(m_corridorSize);
    for (CSignal& signal : m_computed) signal.Comparison().SetCorridor(m_corridorSize);
    return CompareComputedSignals(selection.channelClass) ? CRunEnd::Completed : CRunEnd::Stopped;
}

CQuorvelDoc::CRunEnd CQuorvelDoc::PrepareAndCompareLoaded(const CFileSelection& selection) {
    if (ReadComputedSignals() == 0) return CRunEnd::Stopped;
    m_shouldFilter = selection.shouldFilter;
    if (m_shouldFilter && !FilterComputedSignals(selection.channelClass)) return CRunEnd::Stopped;
    m_shouldTruncate = selection.shouldTruncate;
    if (m_shouldTruncate && !CutComputedSignals(selection.windowStart, selection.windowEnd)) return CRunEnd::Stopped;
    if (MakeAverageReference() == CReferenceEnd::SignalFailed) return CRunEnd::Stopped;
    return CompareComputedSignals(selection.channelClass) ? CRunEnd::Completed : CRunEnd::Stopped;
}

void CQuorvelDoc::PublishRun() {
    m_block->seriesCount = static_cast<std::int32_t>(m_computed.size());
    BuildPageList();
    m_pageId = page::kSummary;
    Notify(kRunCompleted);
}

int CQuorvelDoc::ReadComputedSignals() {
    const std::function<CStepEnd(CSignal&)> read = [this](CSignal& signal) { return ReadComputed(signal); };
    return ForEachComputed(read) ? 1 : 0;
}

CQuorvelDoc::CStepEnd CQuorvelDoc::ReadComputed(CSignal& signal) const {
    signal.Notes().clear();
    if (!signal.Read()) return Unread(signal);
    if (!m_keepsCopies) return {};
    boost::shared_ptr<ks::CNSignal> copy;
    CStepEnd end = Attempt(signal, [&copy](CSignal& read) { copy = boost::make_shared<ks::CNSignal>(read.Record()); });
    end.copy = std::move(copy);
    return end;
}

/// The end of reading a signal that could not be read, with what the loader said about the file.
CQuorvelDoc::CStepEnd CQuorvelDoc::Unread(const CSignal& signal) {
    CStepEnd end;
    const std::vector<std::string>& sentences = signal.GetMessages();
    for (const std::string& sentence : sentences) end.messages.push_back({signal.GetPath(), sentence});
    end.isMemoryShort = !sentences.empty() && sentences.back() == ks::read_message::NoMemoryToRead(signal.GetPath());
    return end;
}

bool CQuorvelDoc::FilterComputedSignals(std::int32_t channelClass) {
    return ForEachComputed([channelClass](CSignal& signal) {
        if (signal.ShouldFilter()) {
            signal.Record().FilterCFC(channelClass);
        } else {
            signal.Notes().push_back({CNoteKind::NotFiltered, compare_message::NotFilteredNote(signal.FormatName())});
        }
    });
}

bool CQuorvelDoc::CutComputedSignals(double start, double end) {
    return ForEachComputed([start, end](CSignal& signal) { signal.Record().TruncateByTime(start, end); });
}

bool CQuorvelDoc::CutToCommonRange(double start, double end) {
    return ForEachComputed([start, end](CSignal& signal) {
        const CSampling before = SamplingOf(signal.Record());
        signal.Record().TruncateByTime(start, end);
        AppendCutToCommonRange(signal.Notes(), before, SamplingOf(signal.Record()));
    });
}

bool CQuorvelDoc::ResampleComputedSignals(double timeStep) {
    return ForEachComputed([timeStep](CSignal& signal) { Resample(signal, timeStep, CNoteKind::Resampled); });
}

/// `reference` as read: resampling may carry a curve to times at which it has no samples.
void CQuorvelDoc::NoteNoCommonTime(const CSignal& reference) {
    const CSampling sampling = SamplingOf(reference.Record());
    for (CSignal& signal : m_computed) {
        AppendNoCommonTime(signal.Notes(), SamplingOf(signal.Record()), reference.GetPath(), sampling);
    }
}

/// `channelClass` counts only in a run that filters.
bool CQuorvelDoc::CompareComputedSignals(std::int32_t channelClass) {
    return ForEachComputed([this, channelClass](CSignal& signal) {
        signal.Compare(m_reference);
        const bool isFiltered = m_shouldFilter && signal.ShouldFilter();
        signal.Rate(m_reference, m_ratings, isFiltered ? std::optional(channelClass) : std::nullopt);
    });
}

int CQuorvelDoc::ReadReference() {
    return TakeReference() == CReferenceEnd::Made ? 1 : 0;
}

CQuorvelDoc::CReferenceEnd CQuorvelDoc::TakeReference() {
    // An empty record: nothing of an earlier reference may survive in the new one.
    CSignal reading(m_reference.GetPath());
    reading.SetReferenceName(m_reference.GetReferenceName());
    reading.Comparison() = m_reference.Comparison();

    AtWork(reading.GetPath());
    if (!reading.Read()) {
        const CStepEnd end = Unread(reading);
        m_isMemoryShort |= end.isMemoryShort;
        for (const CRunMessage& message : end.messages) m_referenceErrors.push_back(message.text);
        return CReferenceEnd::NotMade;
    }

    NoteNoCommonTime(reading);
    bool isResampled = true;
    double timeStep = reading.Record().Getdelt();
    if (!(timeStep > 0.0)) {
        timeStep = kDefaultTimeStep;
        isResampled = AttemptAlone(
            reading, [timeStep](CSignal& signal) { Resample(signal, timeStep, CNoteKind::ReferenceResampled); });
    }
    if (!ResampleComputedSignals(timeStep) || !isResampled) return CReferenceEnd::SignalFailed;
    m_reference = std::move(reading);
    return CReferenceEnd::Made;
}

CQuorvelDoc::CReferenceEnd CQuorvelDoc::PrepareReference(const CFileSelection& selection) {
    const CReferenceEnd read = TakeReference();
    if (read != CReferenceEnd::Made) return read;
    if (selection.shouldFilterReference && !FilterReference(selection.channelClass)) return CReferenceEnd::SignalFailed;
    if (m_shouldTruncate && !CutReference(selection.windowStart, selection.windowEnd))
        return CReferenceEnd::SignalFailed;
    return CReferenceEnd::Made;
}

bool CQuorvelDoc::FilterReference(std::int32_t channelClass) {
    return AttemptAlone(m_reference, [channelClass](CSignal& signal) { signal.Record().FilterCFC(channelClass); });
}

bool CQuorvelDoc::CutReference(double start, double end) {
    return AttemptAlone(m_reference, [start, end](CSignal& signal) { signal.Record().TruncateByTime(start, end); });
}

int CQuorvelDoc::BuildAverageReference() {
    return MakeAverageReference() == CReferenceEnd::Made ? 1 : 0;
}

CQuorvelDoc::CReferenceEnd CQuorvelDoc::MakeAverageReference() {
    if (m_computed.empty()) return CReferenceEnd::NotMade;
    NoteNoCommonTime(m_computed.front());
    if (!ResampleComputedSignals(LargestTimeStep(m_computed))) return CReferenceEnd::SignalFailed;

    const double start = LatestStart(m_computed);
    const double end = EarliestEnd(m_computed);
    if (!(start < end)) {
        m_errors.push_back({{}, std::string(compare_message::kNoCommonTimeRange)});
        NoteFailedAverage();
        return CReferenceEnd::NotMade;
    }
    if (!CutToCommonRange(start, end)) return CReferenceEnd::SignalFailed;

    m_notes.push_back({CNoteKind::AverageIsFirst, compare_message::AverageIsFirstNote(m_computed.front().GetPath())});
    m_reference = m_computed.front();
    m_block->pointCount = static_cast<std::int32_t>(m_reference.GetPointCount());
    // The values stay those of the first signal. Kept, older results depend on it; the mean of all signals has never
    // been seen by anyone, so it is not formed.
    m_reference.Record().SetDataStatus("Computed");
    // The comparisons that follow in a run replace this name by the reference's path.
    const std::string name = compare_message::AverageName(m_computed.size());
    for (CSignal& signal : m_computed) signal.SetReferenceName(name);
    return CReferenceEnd::Made;
}

/// The run continues with what the reference holds.
void CQuorvelDoc::NoteFailedAverage() {
    const bool isEmpty = m_reference.GetPointCount() == 0;
    m_notes.push_back({CNoteKind::NoCommonTime, std::string(isEmpty ? compare_message::kNothingComparedNote
                                                                    : compare_message::kOldReferenceNote)});
}

CQuorvelDoc::CStepEnd CQuorvelDoc::Attempt(CSignal& signal, const std::function<void(CSignal&)>& work) {
    const auto failure = [&signal](std::string_view reason) {
        return std::vector<CRunMessage>{{{}, compare_message::SignalFailure(signal.GetPath(), reason)}};
    };
    try {
        work(signal);
    } catch (const std::bad_alloc&) {
        return {failure(compare_message::kNoMemoryForStep), true};
    } catch (const std::exception& error) {
        return {failure(error.what())};
    }
    return {};
}

bool CQuorvelDoc::AttemptAlone(CSignal& signal, const std::function<void(CSignal&)>& work) {
    return TakeEnd(Attempt(signal, work));
}

bool CQuorvelDoc::ForEachComputed(const std::function<void(CSignal&)>& work) {
    return ForEachComputed(
        std::function<CStepEnd(CSignal&)>([&work](CSignal& signal) { return Attempt(signal, work); }));
}

bool CQuorvelDoc::ForEachComputed(const std::function<CStepEnd(CSignal&)>& step) {
    bool areAllDone = true;
    std::vector<CStepEnd> ends(m_computed.size());
    ForEachInOrder(m_computed.size(), m_jobs,
                   {.announce = [this](std::size_t i) { AtWork(m_computed[i].GetPath()); },
                    .work = [&](std::size_t i) { ends[i] = step(m_computed[i]); },
                    .finish = [&](std::size_t i) { areAllDone = TakeEnd(std::move(ends[i])) && areAllDone; }});
    return areAllDone;
}

/// Whether the step is done.
bool CQuorvelDoc::TakeEnd(CStepEnd end) {
    if (end.copy) m_copies.push_back(std::move(end.copy));
    m_isMemoryShort |= end.isMemoryShort;
    const bool isDone = end.messages.empty();
    std::ranges::move(end.messages, std::back_inserter(m_errors));
    return isDone;
}

void CQuorvelDoc::ForgetMessages() {
    m_errors.clear();
    m_referenceErrors.clear();
    m_notes.clear();
}

void CQuorvelDoc::BeginProgress(const CFileSelection& selection) {
    std::size_t passes = 3;  // reading, resampling, comparing
    if (selection.shouldFilter) ++passes;
    if (selection.shouldTruncate) ++passes;
    if (selection.isReferenceAverage) ++passes;  // the common range
    m_stepsDone = 0;
    m_stepsTotal = passes * m_computed.size() + (selection.isReferenceAverage ? 0 : 1);
}

void CQuorvelDoc::AtWork(const std::string& path) {
    if (m_stepsTotal == 0) return;  // a step called on its own
    m_host.Progress(m_stepsDone, m_stepsTotal, path);
    ++m_stepsDone;
}

void CQuorvelDoc::EndProgress(CRunEnd end) {
    if (end == CRunEnd::Completed) m_stepsDone = m_stepsTotal;
    const std::size_t total = std::exchange(m_stepsTotal, 0);
    m_host.Progress(m_stepsDone, total, {});
}
