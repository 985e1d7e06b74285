#pragma once

/// The state of the document's runs.
enum class CRunState {
    None,       ///< there was no run yet
    AtWork,     ///< a run is in progress; what the document holds is incomplete
    Stopped,    ///< the last run stopped: the document holds what it left, a table shown is from an earlier run
    Completed,  ///< document and table belong together
};
