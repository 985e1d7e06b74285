// Compares two UDS-1992 files: compare_two REFERENCE COMPUTED

#include "compare/comparison.h"
#include "compare/plots/covariance.h"
#include "signal/nsignal.h"

#include <cstdlib>
#include <exception>
#include <iostream>

int main(int argc, char* argv[]) try {
    if (argc != 3) return std::cerr << "usage: compare_two REFERENCE COMPUTED\n", EXIT_FAILURE;
    ks::CNSignal reference;
    ks::CNSignal computed;
    reference.LoadUDS(argv[1]);
    computed.LoadUDS(argv[2]);
    CComparison comparison;
    comparison.Compute(computed, reference);
    std::cout << comparison.GetPointCount() << " points, mean square residual " << comparison.GetMeanSquareResidual()
              << ", covariance " << Covariances(reference.GetY(), computed.GetY(), 0).front() << '\n';
    return EXIT_SUCCESS;
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return EXIT_FAILURE;
}
