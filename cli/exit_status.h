#pragma once

/// How the program ends. Frozen: scripts depend on the numbers. Where several apply, the first one listed here wins.
enum class CExitStatus : int {
    Usage = 2,       ///< wrong usage; nothing was read or written
    Output = 4,      ///< an output could not be written; the others were, and existing files stay unchanged unless the
                     ///< message says that one is damaged
    Input = 3,       ///< a file could not be read, or the run collected an error message
    BadVerdict = 1,  ///< --fail-on-bad found a bad verdict, or a check of verify failed
    Good = 0,        ///< everything requested was done
};
