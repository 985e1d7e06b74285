#pragma once

#include "compare/comparison.h"
#include "compare/document.h"
#include "compare/document_host.h"
#include "signal/nsignal.h"
#include "tests/support/recording_host.h"
#include "tests/support/temp_folder.h"
#include "tests/support/test_signals.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

/// A document with a recording host and observer, and a folder for its files.
class CDocumentFixture : public testing::Test {
protected:
    CDocumentFixture() { document.AddObserver(observer); }
    ~CDocumentFixture() override { document.RemoveObserver(observer); }

    /// Writes a UDS file of a signal in G'S; its times are exact in single precision with the default step.
    std::string Write(const std::string& name, std::vector<double> y, double timeStep = 0.5, std::int32_t first = 0) {
        return WriteUds(folder, name, MakeTimeSignal(std::move(y), timeStep, first));
    }

    /// A choice that filters and cuts nothing.
    static CFileSelection Choice(std::vector<std::string> files, std::string referencePath) {
        CFileSelection choice;
        choice.files = std::move(files);
        choice.referencePath = std::move(referencePath);
        choice.shouldFilter = false;
        choice.shouldFilterReference = false;
        return choice;
    }

    /// The same without a reference file.
    static CFileSelection AverageChoice(std::vector<std::string> files) {
        CFileSelection choice = Choice(std::move(files), "");
        choice.isReferenceAverage = true;
        return choice;
    }

    /// Clears the host's record and runs a comparison.
    void Run(const CFileSelection& choice) {
        Forget();
        host.selection = choice;
        document.OnCompareFiles();
    }

    /// What the next run would offer, by a run that is canceled.
    CFileSelection Offered() {
        host.selection.reset();
        document.OnCompareFiles();
        return host.offered.value();
    }

    void Forget() {
        host.calls.clear();
        host.progress.clear();
        host.errorLists.clear();
        host.saveRequests.clear();
    }

    [[nodiscard]] const ks::CNSignal& Computed(std::size_t i) const {
        return document.ComputedSignals().at(i).Record();
    }
    [[nodiscard]] const CComparison& Measures(std::size_t i) const {
        return document.ComputedSignals().at(i).Comparison();
    }
    [[nodiscard]] const ks::CNSignal& Reference() const { return document.Reference().Record(); }

    CTempFolder folder;
    CRecordingHost host;
    CRecordingObserver observer{host};
    CQuorvelDoc document{host};
};
