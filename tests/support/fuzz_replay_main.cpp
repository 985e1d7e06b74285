// Runs a fuzz target over a corpus and over seeded mutations of it, under any compiler.
//
//   TARGET_fuzz_replay CORPUS [MUTATIONS]      default: 10000 mutations
//
// When an input ends the program, it is kept as "crash-TARGET_fuzz_replay" in the current folder.

#include <algorithm>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <ios>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Present only in a program built with a sanitizer.
extern "C" __attribute__((weak)) void __sanitizer_set_death_callback(void (*callback)());

namespace {

namespace fs = std::filesystem;

using Bytes = std::vector<std::uint8_t>;

constexpr unsigned kSeed = 1992;
constexpr unsigned kDefaultMutations = 10000;
constexpr std::size_t kRecord = 512;
constexpr std::size_t kLargestInput = std::size_t{1} << 16U;

Bytes ReadBytes(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<Bytes> ReadCorpus(const fs::path& folder) {
    std::vector<fs::path> paths;
    for (const auto& entry : fs::directory_iterator(folder)) paths.push_back(entry.path());
    std::sort(paths.begin(), paths.end());
    std::vector<Bytes> corpus;
    for (const fs::path& path : paths) corpus.push_back(ReadBytes(path));
    return corpus;
}

/// Changes an input in one to five places: bits, bytes, numbers at the edges of their ranges, pieces left out, doubled
/// or taken from another input, whole records of 512 bytes more or less.
class Mutator {
public:
    explicit Mutator(const std::vector<Bytes>& corpus) : m_corpus(corpus) {}

    Bytes Next() {
        Bytes bytes = m_corpus[Below(m_corpus.size())];
        const bool hasWholeRecords = !bytes.empty() && bytes.size() % kRecord == 0;
        for (std::size_t changes = 1 + Below(5); changes > 0; --changes) {
            if (bytes.empty()) bytes.push_back(Byte());
            Change(bytes);
        }
        bytes.resize(std::min(bytes.size(), kLargestInput));
        // Files of whole records mostly stay that way: else their size alone would end nearly every run.
        if (hasWholeRecords && Below(8) > 0) bytes.resize((bytes.size() + kRecord / 2) / kRecord * kRecord);
        return bytes;
    }

private:
    std::size_t Below(std::size_t end) { return m_random() % end; }
    std::uint8_t Byte() { return static_cast<std::uint8_t>(m_random() & 255U); }

    void Change(Bytes& bytes) {
        const std::size_t at = Below(bytes.size());
        switch (Below(9)) {
            case 0:
                bytes[at] = static_cast<std::uint8_t>(bytes[at] ^ (1U << Below(8)));
                break;
            case 1:
                bytes[at] = Byte();
                break;
            case 2:
                bytes.insert(bytes.begin() + Offset(at), Byte());
                break;
            case 3:
                bytes.erase(bytes.begin() + Offset(at));
                break;
            case 4:
                bytes.resize(at);
                break;
            case 5:
                PutEdge(bytes, at);
                break;
            case 6:
                DoublePiece(bytes, at);
                break;
            case 7:
                TakeOver(bytes, at);
                break;
            default:
                ChangeRecords(bytes);
                break;
        }
    }

    void PutEdge(Bytes& bytes, std::size_t at) {
        static const std::vector<Bytes> edges{
            {0xFF, 0xFF, 0xFF, 0x7F}, {0x00, 0x00, 0x00, 0x80}, {0x7F, 0xFF, 0xFF, 0xFF}, {0xFF, 0xFF, 0xFF, 0xFF},
            {0x00, 0x00, 0x00, 0x00}, {0x00, 0x00, 0x80, 0x7F}, {0x00, 0x00, 0xC0, 0x7F}, {'e', '9', '9', '9'}};
        Overwrite(bytes, at, edges[Below(edges.size())]);
    }

    void DoublePiece(Bytes& bytes, std::size_t at) {
        const std::size_t length = std::min(bytes.size() - at, 1 + Below(64));
        const Bytes piece(bytes.begin() + Offset(at), bytes.begin() + Offset(at + length));
        bytes.insert(bytes.begin() + Offset(at), piece.begin(), piece.end());
    }

    void TakeOver(Bytes& bytes, std::size_t at) {
        const Bytes& other = m_corpus[Below(m_corpus.size())];
        if (at >= other.size()) return;
        const std::size_t length = std::min(other.size() - at, 1 + Below(512));
        Overwrite(bytes, at, {other.begin() + Offset(at), other.begin() + Offset(at + length)});
    }

    void ChangeRecords(Bytes& bytes) {
        if (bytes.size() < kRecord) return;
        const std::size_t record = Below(bytes.size() / kRecord) * kRecord;
        const auto first = bytes.begin() + Offset(record);
        const Bytes piece(first, first + Offset(kRecord));
        if (Below(2) == 0) {
            bytes.erase(first, first + Offset(kRecord));
        } else {
            bytes.insert(bytes.end(), piece.begin(), piece.end());
        }
    }

    static void Overwrite(Bytes& bytes, std::size_t at, const Bytes& piece) {
        const std::size_t length = std::min(piece.size(), bytes.size() - at);
        std::copy_n(piece.begin(), length, bytes.begin() + Offset(at));
    }
    static std::ptrdiff_t Offset(std::size_t index) { return static_cast<std::ptrdiff_t>(index); }

    const std::vector<Bytes>& m_corpus;
    std::mt19937 m_random{kSeed};
};

Bytes runningInput;
std::string crashFile;

/// Keeps the input that is running; called when the program is about to end by a fault.
void KeepInput() {
    std::FILE* const file = std::fopen(crashFile.c_str(), "wb");
    if (file == nullptr) return;
    std::fwrite(runningInput.data(), 1, runningInput.size(), file);
    std::fclose(file);
    std::fprintf(stderr, "the input is kept in %s\n", crashFile.c_str());
}

void OnFault(int signal) {
    KeepInput();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

void KeepInputOnFaults() {
    for (const int signal : {SIGABRT, SIGSEGV, SIGFPE, SIGILL}) std::signal(signal, OnFault);
    if (__sanitizer_set_death_callback != nullptr) __sanitizer_set_death_callback(KeepInput);
}

void Run(Bytes bytes) {
    // Of the exact size, so that the sanitizer sees every read beyond the input.
    bytes.shrink_to_fit();
    runningInput.swap(bytes);
    LLVMFuzzerTestOneInput(runningInput.data(), runningInput.size());
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s CORPUS [MUTATIONS]\n", argv[0]);
        return 2;
    }
    const std::vector<Bytes> corpus = ReadCorpus(argv[1]);
    if (corpus.empty()) {
        std::fprintf(stderr, "no corpus in %s\n", argv[1]);
        return 2;
    }
    const unsigned long mutations = argc > 2 ? std::stoul(argv[2]) : kDefaultMutations;
    crashFile = "crash-" + fs::path(argv[0]).filename().string();
    KeepInputOnFaults();
    for (const Bytes& bytes : corpus) Run(bytes);
    Mutator mutator(corpus);
    for (unsigned long i = 0; i < mutations; ++i) Run(mutator.Next());
    std::printf("%zu corpus files and %lu mutations\n", corpus.size(), mutations);
    return 0;
}
