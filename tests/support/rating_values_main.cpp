// Prints every rating of pairs of signals from a text file, for an independent check.
//
//     rating_values FILE
//
// FILE holds, per pair, a line "pair NAME COUNT START STEP" (seconds) and COUNT lines "REFERENCE COMPUTED". Numbers
// are as C prints them, "nan" and "inf" included. One line goes out per value: "NAME KEY number VALUE" or
// "NAME KEY unavailable REASON".

#include "compare/ratings/anova.h"
#include "compare/ratings/cora.h"
#include "compare/ratings/iso18571.h"
#include "compare/ratings/knowles_gear.h"
#include "compare/ratings/magnitude_phase.h"
#include "compare/ratings/samples.h"
#include "compare/ratings/single_values.h"
#include "compare/ratings/value.h"

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace {

using ratings::CValue;

struct Pair {
    std::string name;
    ratings::CTimeBase time;
    std::vector<double> reference, computed;
};

double NumberOf(const std::string& text) {
    return std::strtod(text.c_str(), nullptr);
}

/// Reads the next pair; false at the end of the file.
bool Read(std::istream& in, Pair& pair) {
    std::string word, start, step;
    std::size_t count = 0;
    if (!(in >> word >> pair.name >> count >> start >> step)) return false;
    pair.time = {NumberOf(start), NumberOf(step)};
    pair.reference.resize(count);
    pair.computed.resize(count);
    for (std::size_t i = 0; i < count; ++i) {
        std::string reference, computed;
        in >> reference >> computed;
        pair.reference[i] = NumberOf(reference);
        pair.computed[i] = NumberOf(computed);
    }
    return true;
}

class Printer {
public:
    explicit Printer(std::string name) : m_name(std::move(name)) {
        std::cout.precision(std::numeric_limits<double>::max_digits10);
    }

    void Print(const std::string& key, const CValue& value) const {
        std::cout << m_name << ' ' << key;
        if (value.IsNumber()) {
            std::cout << " number " << value.Number() << '\n';
        } else {
            std::cout << " unavailable " << value.Reason() << '\n';
        }
    }

    void Print(const std::string& family, const ratings::CMagnitudePhase& errors) const {
        Print(family + ".m", errors.magnitude);
        Print(family + ".p", errors.phase);
        Print(family + ".c", errors.combined);
    }

private:
    std::string m_name;
};

/// A word as a value: 1 for true.
CValue Flag(bool isSet) {
    return CValue::Of(isSet ? 1.0 : 0.0);
}

void PrintIso(const Printer& printer, const ratings::CSamples& samples) {
    const ratings::CIso18571Rating iso = ratings::Iso18571(samples);
    printer.Print("iso.r", iso.r);
    printer.Print("iso.z", iso.z);
    printer.Print("iso.ep", iso.ep);
    printer.Print("iso.em", iso.em);
    printer.Print("iso.es", iso.es);
    printer.Print("iso.lag", iso.lag);
    printer.Print("iso.correlation", iso.correlation);
    printer.Print("iso.grade", iso.grade ? CValue::Of(static_cast<double>(*iso.grade)) : iso.r);
    printer.Print("iso.magnitudeByRule", Flag(iso.isMagnitudeByRule));
    printer.Print("iso.slopeByRule", Flag(iso.isSlopeByRule));
}

void PrintValues(const Printer& printer, const ratings::CSamples& samples) {
    const ratings::CSingleValues values = ratings::SingleValues(samples);
    printer.Print("values.rms", values.rms);
    printer.Print("values.nrmsePeak", values.nrmsePeak);
    printer.Print("values.nrmseRange", values.nrmseRange);
    printer.Print("values.nrmseRms", values.nrmseRms);
    printer.Print("values.pearson", values.pearson);
    printer.Print("values.nard", values.nard);
    printer.Print("values.r2", values.r2);
    printer.Print("values.regression", values.regression);
    printer.Print("values.theil", values.theil);
    printer.Print("values.whang", values.whang);
    printer.Print("values.zilliacus", values.zilliacus);
    printer.Print("values.rss", values.rss);
    printer.Print("values.wifac", values.wifac);
}

void PrintAnova(const Printer& printer, const ratings::CSamples& samples) {
    const ratings::CAnova anova = ratings::Anova(samples);
    printer.Print("anova.mean", anova.mean);
    printer.Print("anova.standardDeviation", anova.standardDeviation);
    printer.Print("anova.t", anova.t);
    const ratings::CRoadside roadside = ratings::RoadsideAcceptance(samples);
    printer.Print("roadside.passes", roadside.verdict ? Flag(*roadside.verdict == ratings::CRoadsideVerdict::Pass)
                                                      : CValue::Unavailable(roadside.reason));
}

void PrintTimed(const Printer& printer, const ratings::CSamples& samples, const ratings::CTimeBase& time) {
    const ratings::CKnowlesGear knowlesGear = ratings::KnowlesGear(samples, time);
    printer.Print("knowlesGear.m", knowlesGear.magnitude);
    printer.Print("knowlesGear.toa", knowlesGear.arrival);
    printer.Print("knowlesGear.c", knowlesGear.combined);
    const ratings::CCora cora = ratings::Cora(samples, time);
    printer.Print("cora.corridor", cora.corridor);
    printer.Print("cora.shape", cora.shape);
    printer.Print("cora.size", cora.size);
    printer.Print("cora.phase", cora.phase);
    printer.Print("cora.crossCorrelation", cora.crossCorrelation);
    printer.Print("cora.total", cora.total);
    printer.Print("cora.lag", cora.lag);
    printer.Print("cora.start", cora.startS);
    printer.Print("cora.end", cora.endS);
}

void PrintAll(const Pair& pair) {
    const Printer printer(pair.name);
    const ratings::CSamples samples{pair.reference, pair.computed};
    PrintIso(printer, samples);
    printer.Print("spragueGeers", ratings::SpragueGeers(samples));
    printer.Print("geers", ratings::Geers(samples));
    printer.Print("geersCsa", ratings::GeersCsa(samples));
    printer.Print("russell", ratings::Russell(samples));
    PrintAnova(printer, samples);
    PrintValues(printer, samples);
    PrintTimed(printer, samples, pair.time);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: rating_values FILE\n";
        return 2;
    }
    std::ifstream in(argv[1]);
    if (!in) {
        std::cerr << "The file cannot be read: " << argv[1] << '\n';
        return 3;
    }
    Pair pair;
    while (Read(in, pair)) PrintAll(pair);
    return 0;
}
