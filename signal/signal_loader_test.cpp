#include "signal/signal_loader.h"

#include "files/error.h"
#include "signal/formats/formats.h"
#include "tests/support/allocation_count.h"
#include "tests/support/temp_folder.h"
#include "tests/support/uds_bytes.h"

#include <gmock/gmock.h>

#include <array>
#include <cstdint>
#include <new>
#include <string>
#include <string_view>
#include <vector>

namespace ks {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::string_literals;

class SignalLoader : public testing::Test {
protected:
    std::string Uds() { return m_folder.Write("a.uds", UdsFile({}).Text()); }
    static std::string ParseFailure(const std::string& path) {
        return "Failure to parse the file: " + path + " for reading.\nFailure to parse the data.";
    }
    CTempFolder m_folder;
};

TEST_F(SignalLoader, ReadsAUdsFile) {
    const std::string path = Uds();
    const CLoadedSignal loaded = LoadSignal(path);
    ASSERT_TRUE(loaded.IsLoaded());
    EXPECT_EQ(loaded.format->name, "UDS-1992");
    EXPECT_TRUE(loaded.format->shouldFilter);
    EXPECT_THAT(loaded.complaints, IsEmpty());
    EXPECT_THAT(loaded.record.GetY(), ElementsAre(1.0, -2.0, 4.0));
    EXPECT_EQ(loaded.record.GetSourcePath(), path);
    EXPECT_EQ(loaded.record.GetFileType(), "");
}

TEST_F(SignalLoader, ReadsAsciiPointsWhereNoUdsFileIs) {
    const CLoadedSignal loaded = LoadSignal(m_folder.Write("a.txt", "0 1\n0.5 2\n"));
    ASSERT_TRUE(loaded.IsLoaded());
    EXPECT_EQ(loaded.format->name, "ASCII points");
    EXPECT_FALSE(loaded.format->shouldFilter);
    EXPECT_THAT(loaded.complaints, ElementsAre("File size not a multiple of 512 bytes."));
    EXPECT_THAT(loaded.record.GetX(), ElementsAre(0.0, 0.5));
    EXPECT_EQ(loaded.record.GetNLP(), 1);
    EXPECT_EQ(loaded.record.GetXTYPE(), "TIME");
    EXPECT_EQ(loaded.record.GetXUNITS(), "SECONDS");
    EXPECT_EQ(loaded.record.GetFileType(), "ASCII File");
}

TEST_F(SignalLoader, TellsWhyEachFormatCouldNotRead) {
    const std::string path = m_folder.Write("a.txt", "words");
    const CLoadedSignal loaded = LoadSignal(path);
    EXPECT_FALSE(loaded.IsLoaded());
    EXPECT_THAT(loaded.complaints, ElementsAre("File size not a multiple of 512 bytes.", ParseFailure(path)));
    EXPECT_EQ(loaded.record.GetPointCount(), 0U);
}

TEST_F(SignalLoader, TriesOnlyTheFormatsItIsGiven) {
    const std::string path = m_folder.Write("a.txt", "0 1\n0.5 2\n");
    EXPECT_THAT(LoadSignal(path, "", std::array{&kUdsFormat}).complaints,
                ElementsAre("File size not a multiple of 512 bytes."));
    EXPECT_TRUE(LoadSignal(path, "", std::array{&kPointsFormat}).IsLoaded());
}

TEST_F(SignalLoader, ListsTheOnlyChannelOfTodaysFormats) {
    for (const std::string& path : {Uds(), m_folder.Write("a.txt", "0 1\n0.5 2\n")}) {
        const CChannelList list = ListChannels(path);
        ASSERT_NE(list.format, nullptr) << path;
        EXPECT_THAT(list.channels, ElementsAre(""));
        EXPECT_TRUE(LoadSignal(path, list.channels.front()).IsLoaded());
    }
    const std::string words = m_folder.Write("words.txt", "words");
    const CChannelList list = ListChannels(words);
    EXPECT_EQ(list.format, nullptr);
    EXPECT_THAT(list.channels, IsEmpty());
    EXPECT_THAT(list.complaints, ElementsAre("File size not a multiple of 512 bytes.", ParseFailure(words)));
}

TEST_F(SignalLoader, RefusesAChannelThatAFileDoesNotHave) {
    const CLoadedSignal loaded = LoadSignal(Uds(), "HEAD X", std::array{&kUdsFormat});
    EXPECT_FALSE(loaded.IsLoaded());
    EXPECT_THAT(loaded.complaints, ElementsAre("The file has no channel of this name: HEAD X"));
}

// A format with several channels per file, as the seam is meant for.

CNSignal LoadEither(const std::string&, const std::string& channel) {
    if (channel != "left" && channel != "right") throw CError("no " + channel);
    CNSignal record;
    record.SetTITLE(channel);
    return record;
}
const CSignalFormat kTwoChannels{"two channels", true, nullptr,
                                 [](const std::string&) {
                                     return std::vector{"left"s, "right"s};
                                 },
                                 LoadEither};

TEST_F(SignalLoader, ListsAndLoadsOneOfSeveralChannels) {
    const std::array formats{&kUdsFormat, &kTwoChannels};
    const CChannelList list = ListChannels("any", formats);
    EXPECT_THAT(list.channels, ElementsAre("left", "right"));
    EXPECT_EQ(LoadSignal("any", "right", formats).record.GetTITLE(), "right");
    EXPECT_THAT(LoadSignal("any", "up", formats).complaints,
                ElementsAre("Failure to open file: any for reading.", "no up"));
}

bool IsNamedTwo(const std::string& path) {
    return path == "two";
}

TEST_F(SignalLoader, PassesAFileOverThatAFormatDoesNotRecognize) {
    CSignalFormat format = kTwoChannels;
    format.recognizes = IsNamedTwo;
    const std::array formats{&kUdsFormat, static_cast<const CSignalFormat*>(&format)};
    EXPECT_TRUE(LoadSignal("two", "left", formats).IsLoaded());
    EXPECT_THAT(ListChannels("two", formats).channels, ElementsAre("left", "right"));
    const CLoadedSignal loaded = LoadSignal("one", "left", formats);
    EXPECT_FALSE(loaded.IsLoaded());
    EXPECT_THAT(loaded.complaints, ElementsAre("Failure to open file: one for reading."));
}

// Memory.

CNSignal RunOut(const std::string&, const std::string&) {
    throw std::bad_alloc();
}
const CSignalFormat kTooLarge{"too large", true, nullptr,
                              [](const std::string&) -> std::vector<std::string> { throw std::bad_alloc(); }, RunOut};

TEST_F(SignalLoader, SaysThatTheMemoryDoesNotSufficeAndTriesNoOtherFormat) {
    const std::string path = Uds();
    const std::array formats{&kPointsFormat, &kTooLarge, &kUdsFormat};
    const std::string sentence = "There is not enough memory to read the file: " + path + ".";
    const CLoadedSignal loaded = LoadSignal(path, "", formats);
    EXPECT_FALSE(loaded.IsLoaded());
    EXPECT_THAT(loaded.complaints, ElementsAre(ParseFailure(path), sentence));
    EXPECT_THAT(ListChannels(path, formats).complaints, ElementsAre(ParseFailure(path), sentence));
}

TEST_F(SignalLoader, SaysSoOfTheRealFormatsToo) {
    constexpr std::int32_t kLast = 199999;
    CUDSRecipe recipe;
    recipe.lastPoint = kLast;
    recipe.x.assign(kLast + 1, 0.5);
    recipe.y.assign(kLast + 1, 0.5);
    std::string lines;
    for (int i = 0; i <= kLast; ++i) lines += "0 1\n";
    for (const std::string& path :
         {m_folder.Write("large.uds", UdsFile(recipe).Text()), m_folder.Write("l.txt", lines)}) {
        EXPECT_TRUE(LoadSignal(path).IsLoaded()) << path;
        const CAllocationLimit limit(1000000);
        const CLoadedSignal loaded = LoadSignal(path);
        EXPECT_FALSE(loaded.IsLoaded());
        EXPECT_EQ(loaded.complaints.back(), "There is not enough memory to read the file: " + path + ".");
    }
}

TEST_F(SignalLoader, RefusesWhatIsNoFileOnceForEachFormat) {
    const std::string sentence = "Failure to open file: " + m_folder.Path("") + " for reading.";
    EXPECT_THAT(LoadSignal(m_folder.Path("")).complaints, ElementsAre(sentence, sentence));
}

}  // namespace
}  // namespace ks
