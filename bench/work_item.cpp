#include "bench/work_item.h"

#include <cmath>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <iomanip>
#include <iostream>
#include <limits>
#include <map>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace {

/// Gives freed memory back to the system, so that every run needs fresh pages as the first one of a program does.
/// Without it the times jump between two values, by what the allocator happens to keep.
void ReturnFreedMemory() {
#if defined(__GLIBC__)
    malloc_trim(0);
#endif
}

double ProcessorMilliseconds() {
    std::timespec now{};
    if (clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now) != 0) throw std::runtime_error("No clock of processor time");
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) * 1e-6;
}

void PrintRun(CWorkItem& item) {
    item.Prepare();
    ReturnFreedMemory();
    const double start = ProcessorMilliseconds();
    item.Run();
    std::cout << ProcessorMilliseconds() - start << std::endl;
}

void PrintDigest(CWorkItem& item) {
    for (const double value : item.Digest()) std::cout << value << ' ';
    std::cout << std::endl;
}

void Serve(CWorkItem& item) {
    std::cout << std::setprecision(std::numeric_limits<double>::max_digits10);
    std::string command;
    while (std::getline(std::cin, command)) {
        if (command == "run") {
            PrintRun(item);
        } else if (command == "digest") {
            PrintDigest(item);
        } else {
            throw std::runtime_error("Unknown command: " + command);
        }
    }
}

}  // namespace

std::vector<double> DigestOf(std::span<const double> values) {
    double magnitudes = 0.0;
    double squares = 0.0;
    for (const double value : values.subspan(values.size() / 4, values.size() / 2)) {
        magnitudes += std::abs(value);
        squares += value * value;
    }
    return {static_cast<double>(values.size()), magnitudes, squares};
}

int ServeWorkItems(const std::map<std::string, CWorkItemMaker>& makers, const std::vector<std::string>& arguments) {
    try {
        const auto maker = makers.find(arguments.at(0));
        if (maker == makers.end()) throw std::runtime_error("Unknown work item: " + arguments.at(0));
        Serve(*maker->second({arguments.begin() + 1, arguments.end()}));
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
