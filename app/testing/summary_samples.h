#pragma once

#include "app/table/summary_model.h"
#include "compare/signal.h"
#include "tests/support/summary_samples.h"
#include "tests/support/test_signals.h"

#include <string>
#include <vector>

/// Two signals that were compared with "ref.uds": "/a/close.uds" follows it closely, "/a/distant.uds" does not.
inline std::vector<CSignal> ComparedSignals() {
    CSignal reference("ref.uds"), close("/a/close.uds"), distant("/a/distant.uds");
    reference.Record() = MakeTimeSignal(std::vector<double>{1.0, 2.0, 3.0, 4.0}, 0.001);
    close.Record() = MakeTimeSignal(std::vector<double>{1.0, 2.01, 3.0, 4.0}, 0.001);
    distant.Record() = MakeTimeSignal(std::vector<double>{-1.0, 9.0, -3.0, 4.0}, 0.001);
    close.Compare(reference);
    distant.Compare(reference);
    return {close, distant};
}

/// A snapshot with a plain row per name.
inline CSummarySnapshot PlainSnapshot(const std::vector<std::string>& names) {
    CSummarySnapshot snapshot;
    for (const std::string& name : names) {
        snapshot.table.rows.push_back(PlainRow(name));
        snapshot.paths.push_back(name);
    }
    return snapshot;
}
