#pragma once

#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <vector>

/// One work item of the speed table, in a process of its own.
class CWorkItem {
public:
    CWorkItem() = default;
    CWorkItem(const CWorkItem&) = delete;
    CWorkItem& operator=(const CWorkItem&) = delete;
    virtual ~CWorkItem() = default;

    /// Sets up what the next Run changes or replaces; outside the time.
    virtual void Prepare() {}
    /// The work whose time counts.
    virtual void Run() = 0;
    /// Some numbers that tell whether the last Run did the work: other programs' numbers for the same data are close.
    virtual std::vector<double> Digest() = 0;
};

/// The number of values and, of their middle half, the sums of the magnitudes and of the squares. The ends stay out,
/// since filters differ in how they start.
std::vector<double> DigestOf(std::span<const double> values);

/// Makes a work item from the paths of its signal files.
using CWorkItemMaker = std::function<std::unique_ptr<CWorkItem>(const std::vector<std::string>& paths)>;

/// Runs the item named by the first argument on the files named by the rest. Each line of standard input is a command:
/// "run" prints the milliseconds of user and system time that one run took, "digest" prints the digest of the last
/// one. The end of standard input ends the process.
/// @return the exit status
int ServeWorkItems(const std::map<std::string, CWorkItemMaker>& makers, const std::vector<std::string>& arguments);
