#include "compare/critical_values.h"

CCriticalValues& CriticalValues() {
    static CCriticalValues values;
    return values;
}
