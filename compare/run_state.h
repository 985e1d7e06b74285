#pragma once

/// Where the document stands between its runs.
enum class CRunState {
    None,       ///< there was no run yet
    AtWork,     ///< a run is at work; what the document holds is incomplete
    Stopped,    ///< the last run stopped: the document holds what it left, a table on show is that of an earlier run
    Completed,  ///< document and table belong together
};
