// Our side of the speed table: each work item on the record level, timed inside the process. See bench/work_item.h for
// the arguments and commands; speed_table.py runs it.

#include "bench/work_item.h"
#include "compare/comparison.h"
#include "compare/plots/page_ids.h"
#include "compare/plots/page_table.h"
#include "files/ascii_points.h"
#include "signal/nsignal.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

ks::CNSignal Loaded(const std::string& path) {
    ks::CNSignal record;
    record.LoadUDS(path);
    return record;
}

/// What a reader of files gives: both columns count.
class CReadItem : public CWorkItem {
public:
    explicit CReadItem(const std::vector<std::string>& paths) : m_path(paths.at(0)) {}

    void Prepare() override { m_record = ks::CNSignal(); }
    std::vector<double> Digest() override {
        std::vector<double> digest = DigestOf(m_record.GetX());
        for (const double value : DigestOf(m_record.GetY())) digest.push_back(value);
        return digest;
    }

protected:
    const std::string& Path() const { return m_path; }
    ks::CNSignal& Record() { return m_record; }

private:
    std::string m_path;
    ks::CNSignal m_record;
};

class CReadUds : public CReadItem {
public:
    using CReadItem::CReadItem;
    void Run() override { Record().LoadUDS(Path()); }
};

class CReadAscii : public CReadItem {
public:
    using CReadItem::CReadItem;
    void Run() override {
        ks::CPoints points;
        points.ReadFile(Path());
        Record().SetPoints(points.TakeColumns());
    }
};

/// An operation that changes the record: every run begins with a fresh copy.
class COperation : public CWorkItem {
public:
    explicit COperation(const std::vector<std::string>& paths) : m_original(Loaded(paths.at(0))) {}

    void Prepare() override { m_record = m_original; }
    std::vector<double> Digest() override { return DigestOf(m_record.GetY()); }

protected:
    ks::CNSignal& Record() { return m_record; }

private:
    ks::CNSignal m_original;
    ks::CNSignal m_record;
};

class CFilter : public COperation {
public:
    using COperation::COperation;
    void Run() override { Record().FilterCFC(60); }
};

class CResample : public COperation {
public:
    using COperation::COperation;
    void Run() override { Record().Resample(0.7 * Record().Getdelt()); }
};

class CIntegrate : public COperation {
public:
    using COperation::COperation;
    void Run() override { Record().Integrate(); }
};

/// All measures of the first file against the second; where the ranges differ, cutting both is part of the work.
class CMeasures : public COperation {
public:
    explicit CMeasures(const std::vector<std::string>& paths) : COperation(paths), m_reference(Loaded(paths.at(1))) {}

    void Run() override { m_measures.Compute(Record(), m_reference); }
    std::vector<double> Digest() override {
        return {static_cast<double>(m_measures.GetPointCount()),
                m_measures.GetComputedPeak(),
                m_measures.GetReferencePeak(),
                m_measures.GetComputedMaximum(),
                m_measures.GetReferenceMinimum(),
                m_measures.GetResidualSum(),
                m_measures.GetResidualSumOfSquares(),
                m_measures.GetPercentOutsideCorridor(),
                m_measures.GetMomentDifferences().front(),
                m_measures.GetMomentDifferences().back(),
                m_measures.GetCorrelationFactor(),
                m_measures.GetComprehensiveError()};
    }

private:
    ks::CNSignal m_reference;
    CComparison m_measures;
};

/// One chart page of the first file as the computed signal and the second as the reference.
class CPageItem : public CWorkItem {
public:
    CPageItem(std::int32_t pageId, const std::vector<std::string>& paths) : m_pageId(pageId), m_reference(paths.at(1)) {
        m_reference.Record() = Loaded(paths.at(1));
        CSignal signal(paths.at(0));
        signal.Record() = Loaded(paths.at(0));
        signal.Compare(m_reference);
        m_computed.push_back(std::move(signal));
    }

    void Prepare() override { m_series.clear(); }
    void Run() override { MakePage(m_pageId)->BuildSeries(m_computed, m_reference.Record(), m_series, m_names); }
    std::vector<double> Digest() override { return DigestOf(m_series.back()->GetY()); }

private:
    std::int32_t m_pageId;
    CSignal m_reference;
    std::vector<CSignal> m_computed;
    CSeriesList m_series;
    std::vector<std::string> m_names;
};

template <class Item>
CWorkItemMaker Make() {
    return [](const std::vector<std::string>& paths) { return std::make_unique<Item>(paths); };
}

CWorkItemMaker MakePageItem(std::int32_t pageId) {
    return [pageId](const std::vector<std::string>& paths) { return std::make_unique<CPageItem>(pageId, paths); };
}

}  // namespace

int main(int argc, char** argv) {
    return ServeWorkItems({{"read-uds", Make<CReadUds>()},
                           {"read-ascii", Make<CReadAscii>()},
                           {"filter", Make<CFilter>()},
                           {"resample", Make<CResample>()},
                           {"integrate", Make<CIntegrate>()},
                           {"measures", Make<CMeasures>()},
                           {"cross-correlation", MakePageItem(page::kCrossCorrelation)},
                           {"cumulative-density", MakePageItem(page::kCumulativeDensity)}},
                          {argv + 1, argv + argc});
}
