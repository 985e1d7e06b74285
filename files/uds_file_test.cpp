#include "files/uds_file.h"

#include "files/uds_layout.h"
#include "tests/support/expect_error.h"
#include "tests/support/failing_flush.h"
#include "tests/support/temp_folder.h"
#include "tests/support/uds_bytes.h"
#include "tests/support/uds_image.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace ks {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using namespace std::string_literals;

class UdsFileOnDisk : public testing::Test {
protected:
    static std::string ReadErrorOf(const std::string& path) {
        CUDS1992 file;
        return ErrorOf([&] { file.Read(path); });
    }
    static CUDS1992 TwoPoints() {
        CUDS1992 file;
        file.SetColumns({{0.0, 0.5}, {1.0, 2.0}, {}});
        file.Fields().SetNLP(1);
        return file;
    }
    CTempFolder m_folder;
};

TEST_F(UdsFileOnDisk, IsRead) {
    CUDS1992 file;
    file.Read(m_folder.Write("a.uds", UdsFile({}).Text()));
    EXPECT_THAT(file.Columns().x, ElementsAre(0.0, 0.5, 1.0));
    EXPECT_THAT(file.Columns().y, ElementsAre(1.0, -2.0, 4.0));
    EXPECT_THAT(file.Points(), SizeIs(3));
    EXPECT_EQ(file.Points()[1]->y, -2.0);
}

TEST_F(UdsFileOnDisk, IsRefusedWithoutAPath) {
    EXPECT_EQ(ReadErrorOf(""), "Failure read file due to empty path and file name.");
}

TEST_F(UdsFileOnDisk, IsRefusedWhenItCannotBeOpened) {
    ASSERT_EQ(mkfifo(m_folder.Path("pipe").c_str(), 0600), 0);
    for (const std::string& path :
         {m_folder.Path("missing"), m_folder.Path(""), m_folder.Path("pipe"), "/dev/zero"s, "/dev/null"s}) {
        EXPECT_EQ(ReadErrorOf(path), "Failure to open file: " + path + " for reading.");
    }
}

TEST_F(UdsFileOnDisk, IsRefusedWhenTheSystemTellsNoSize) {
    if (!std::filesystem::exists("/proc/self/mem")) GTEST_SKIP() << "no /proc here";
    EXPECT_EQ(ReadErrorOf("/proc/self/mem"), "Failure to get file information: /proc/self/mem");
}

TEST_F(UdsFileOnDisk, IsRefusedWithTheSentencesOfAnImage) {
    EXPECT_EQ(ReadErrorOf(m_folder.Write("a", "")), "Data buffer too small");
    EXPECT_EQ(ReadErrorOf(m_folder.Write("b", UdsFile({}).Text() + "x")), "File size not a multiple of 512 bytes.");
    EXPECT_EQ(ReadErrorOf(m_folder.Write("c", UdsFile({}).Text().substr(0, 512))), "Data buffer too small");
    EXPECT_EQ(ReadErrorOf(m_folder.Write("d", UdsFile({}).Text().substr(0, 1024))),
              "File size too small - Insufficient data points");
}

TEST_F(UdsFileOnDisk, OfFourGibibytesIsRefusedWithoutReadingIt) {
    constexpr std::uint64_t kSize = std::uint64_t{4} << 30U;
    CUDSRecipe recipe;
    recipe.lastPoint = 300000000;
    const std::string data = m_folder.Write("data", UdsHeaders(recipe).Text());
    const std::string zeros = m_folder.Write("zeros", "");
    std::filesystem::resize_file(data, kSize);
    std::filesystem::resize_file(zeros, kSize);
    EXPECT_EQ(ReadErrorOf(data), "Unknown Data Block");
    EXPECT_EQ(ReadErrorOf(zeros), "Not a UDS-1992 Signal File");
    std::filesystem::resize_file(zeros, kSize + 1);
    EXPECT_EQ(ReadErrorOf(zeros), "File size not a multiple of 512 bytes.");
}

TEST_F(UdsFileOnDisk, LeavesNothingOfTheFileBeforeAfterAFailure) {
    CUDS1992 file;
    file.Read(m_folder.Write("a.uds", UdsFile({}).Text()));
    EXPECT_NE(ErrorOf([&] { file.Read(m_folder.Path("missing")); }), "");
    EXPECT_THAT(file.Columns().y, IsEmpty());
}

TEST_F(UdsFileOnDisk, HasNoFieldOfTheFileBeforeAfterAFailure) {
    CUDSRecipe recipe;
    recipe.hasSecondComponent = true;
    CUDS1992 file;
    const auto read = [&] { file.Read(m_folder.Write("a.uds", UdsFile(recipe).Text())); };
    const auto expectNothing = [&] {
        EXPECT_EQ(file.Fields().GetNLP(), 0);
        EXPECT_EQ(file.NumberFormatName(), "UKNOWN");
        EXPECT_FALSE(file.HasSecondComponent());
    };
    read();
    EXPECT_NE(file.Fields().GetNLP(), 0);
    EXPECT_NE(ErrorOf([&] { file.Read(m_folder.Path("missing")); }), "");
    expectNothing();
    read();
    EXPECT_NE(ErrorOf([&] { file.Read(""); }), "");
    expectNothing();
    read();
    EXPECT_NE(ErrorOf([&] { file.Read(m_folder.Write("short", "x")); }), "");
    expectNothing();
}

TEST_F(UdsFileOnDisk, IsWrittenAsItsImage) {
    CUDS1992 file = TwoPoints();
    const std::vector<std::byte> image = file.MakeImage();
    file.Write(m_folder.Path("a.uds"));
    EXPECT_EQ(ReadAll(m_folder.Path("a.uds")), std::string(reinterpret_cast<const char*>(image.data()), image.size()));
    EXPECT_EQ(m_folder.Listing(), "a.uds\n");
}

TEST_F(UdsFileOnDisk, TakesPathsBeyondAscii) {
    CUDS1992 file = TwoPoints();
    const std::string path = m_folder.Path(
        "pr\xC3\xBC"
        "fung \xE2\x82\xAC.uds");
    file.Write(path);
    CUDS1992 back;
    back.Read(path);
    EXPECT_THAT(back.Columns().y, ElementsAre(1.0, 2.0));
}

// The order of the writer's checks: path, crossed, equal, opening, number of points.
TEST_F(UdsFileOnDisk, IsNotWrittenForTheFirstFault) {
    CUDS1992 file = TwoPoints();
    const std::string missing = m_folder.Path("missing/a.uds");
    const std::string good = m_folder.Path("a.uds");
    const auto error = [&file](const std::string& path) { return ErrorOf([&] { file.Write(path); }); };

    file.Fields().SetNFP(5);
    EXPECT_EQ(error(""), "Failure to write file due to empty path and file name.");
    EXPECT_EQ(error(missing), "Crossed array indices, NFP > NLP");
    file.Fields().SetNFP(1);
    EXPECT_EQ(error(missing), "Equal array indices, NFP = NLP");
    file.Fields().SetNFP(-1);
    EXPECT_EQ(error(missing), "Failure to open file for writing.");
    EXPECT_EQ(error(m_folder.Path("")), "Failure to open file for writing.");
    EXPECT_EQ(error(good), "NLP - NFP + 1: 3 does not equal to array size: 2");
    EXPECT_EQ(m_folder.Listing(), "");
}

TEST_F(UdsFileOnDisk, IsUnchangedWhenTheNewOneIsRefused) {
    const std::string path = m_folder.Write("a.uds", "an old file");
    CUDS1992 file = TwoPoints();
    file.Fields().SetNLP(2);
    EXPECT_EQ(ErrorOf([&] { file.Write(path); }), "NLP - NFP + 1: 3 does not equal to array size: 2");
    EXPECT_EQ(ReadAll(path), "an old file");
    EXPECT_EQ(m_folder.Listing(), "a.uds\n");
}

TEST_F(UdsFileOnDisk, SaysWhenTheDeviceIsFull) {
    if (!std::filesystem::is_character_file("/dev/full")) GTEST_SKIP() << "no /dev/full here";
    CUDS1992 file = TwoPoints();
    EXPECT_EQ(ErrorOf([&] { file.Write("/dev/full"); }),
              "Failure to complete the file: /dev/full. The device may be full; an existing file was kept.");
}

TEST_F(UdsFileOnDisk, SaysWhenTheExistingFileIsDamaged) {
    const std::string path = m_folder.Write("a.uds", "an old file");
    std::filesystem::create_hard_link(path, m_folder.Path("other name"));
    CUDS1992 file = TwoPoints();
    const CFailingFlush failing(kUntilInPlace);
    EXPECT_EQ(ErrorOf([&] { file.Write(path); }),
              "Failure to complete the file: " + path + ". The existing file is damaged.");
}

TEST_F(UdsFileOnDisk, KeepsItsPointsWhenTheyAreWritten) {
    CUDS1992 file = TwoPoints();
    file.Write(m_folder.Path("a.uds"));
    EXPECT_THAT(file.Columns().y, ElementsAre(1.0, 2.0));
}

TEST(UDSFile, GivesItsColumnsAway) {
    CUDS1992 file;
    ReadImage(file, UdsFile({}).Text());
    EXPECT_THAT(file.TakeColumns().y, ElementsAre(1.0, -2.0, 4.0));
    EXPECT_THAT(file.Columns().x, IsEmpty());
    EXPECT_THAT(file.Columns().y, IsEmpty());
}

TEST(UDSFile, RefusesColumnsOfDifferentLengthsAndKeepsItsOwn) {
    CUDS1992 file;
    file.SetColumns({{0.0, 0.5}, {1.0, 2.0}, {}});
    EXPECT_EQ(ErrorOf([&] { file.SetColumns({{0.0}, {3.0, 4.0}, {}}); }), "The points have 1 X values and 2 Y values.");
    EXPECT_THAT(file.Columns().y, ElementsAre(1.0, 2.0));
}

TEST(UDSFile, StartsWithoutAFile) {
    const CUDS1992 file;
    EXPECT_EQ(file.NumberFormatName(), "UKNOWN");
    EXPECT_FALSE(file.HasSecondComponent());
    EXPECT_THAT(file.Points(), IsEmpty());
}

TEST(UDSGeometry, IsThatOf1992) {
    const CUDSGeometry geometry;
    EXPECT_EQ(geometry.recordSize, 512U);
    EXPECT_EQ(geometry.tagWidth, 12U);
    EXPECT_EQ(geometry.valuesPerRecord, 125U);
    EXPECT_EQ(geometry.integerWidth, 4U);
    EXPECT_EQ(geometry.realWidth, 4U);
}

}  // namespace
}  // namespace ks
