#pragma once

/// The limits against which summary cells are judged; a value below its limit is good.
class CCriticalValues {
public:
    double averageResidual = 5.0;     ///< percent of the reference peak
    double standardDeviation = 20.0;  ///< of the residual, percent of the reference peak
    double corridor = 0.1;            ///< share of points outside the corridor, as a fraction
    double correlation = 0.05;        ///< 1 minus the correlation factor
    double tStatistic = 2.58;         ///< magnitude of T
    double moment = 0.2;              ///< moment differences of order 0 to 5
};

/// The one set of limits of the process.
CCriticalValues& CriticalValues();
