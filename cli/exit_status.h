#pragma once

/// How the program ends. Frozen: scripts depend on the numbers. Where several apply, the first named here wins.
enum class CExitStatus : int {
    Usage = 2,       ///< wrong usage; nothing was read or written
    Output = 4,      ///< an output could not be written; the others are, and an old file is as it was
    Input = 3,       ///< a file could not be read, or the run collected an error message
    BadVerdict = 1,  ///< --fail-on-bad found a bad verdict
    Good = 0,        ///< everything asked for was done
};
