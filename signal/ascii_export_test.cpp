#include "signal/ascii_export.h"

#include "files/ascii_points.h"
#include "files/replacing_file.h"
#include "signal/data.h"
#include "tests/support/expect_error.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace ks {
namespace {

using Values = std::vector<double>;
using testing::Each;
using testing::ElementsAre;

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

CData Record(Values x, Values y) {
    CData record;
    record.SetData(std::move(x), std::move(y));
    return record;
}

std::vector<std::uint64_t> Bits(const Values& values) {
    std::vector<std::uint64_t> bits;
    for (const double value : values) bits.push_back(std::bit_cast<std::uint64_t>(value));
    return bits;
}

/// Doubles that a shorter or a rounded text would lose.
Values HardValues() {
    Values values = {0.0,
                     -0.0,
                     5e-324,
                     -5e-324,
                     2.2250738585072009e-308,
                     2.2250738585072014e-308,
                     1e308,
                     -1e308,
                     1.7976931348623157e308,
                     0.1,
                     1.0 / 3.0,
                     9007199254740993.0,
                     1e22,
                     1e23,
                     123456789012345680.0,
                     -1e-5,
                     static_cast<double>(0.1F),
                     static_cast<double>(-3.4028235e38F),
                     static_cast<double>(1e-45F)};
    std::mt19937_64 random(1992);
    while (values.size() < 2000) {
        const auto value = std::bit_cast<double>(random());
        if (std::isfinite(value)) values.push_back(value);
        const auto single = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        if (std::isfinite(single)) values.push_back(static_cast<double>(single));
    }
    return values;
}

TEST(AsciiPoints, StandOnePerLineWithTheirAbscissas) {
    EXPECT_EQ(AsciiPoints(Record({-0.5, 0.0, 1e-4}, {1.0, -0.0, 2.5}), CAsciiForm::XY),
              "-0.5 1\r\n"
              "0 -0\r\n"
              "1e-04 2.5\r\n");
}

TEST(AsciiPoints, StandOnePerLineWithoutTheirAbscissas) {
    EXPECT_EQ(AsciiPoints(Record({-0.5, 0.0, 1e-4}, {1.0, -0.0, 1e300}), CAsciiForm::X), "1\r\n-0\r\n1e+300\r\n");
}

TEST(AsciiPoints, OfAnEmptyRecordAreAnEmptyText) {
    EXPECT_EQ(AsciiPoints(CData(), CAsciiForm::XY), "");
    EXPECT_EQ(AsciiPoints(CData(), CAsciiForm::X), "");
}

TEST(AsciiPoints, WithAbscissasReadBackBitForBit) {
    const CTempFolder folder;
    const Values y = HardValues();
    const Values x(y.rbegin(), y.rend());
    ASSERT_EQ(ExportAsciiPoints(folder.Path("a.txt"), Record(x, y), CAsciiForm::XY), CWriteResult::Written);
    CPoints points;
    points.ReadFile(folder.Path("a.txt"));
    EXPECT_EQ(Bits(points.Columns().x), Bits(x));
    EXPECT_EQ(Bits(points.Columns().y), Bits(y));
}

TEST(AsciiPoints, WithoutAbscissasReadBackBitForBit) {
    const CTempFolder folder;
    const Values y = HardValues();
    ASSERT_EQ(ExportAsciiPoints(folder.Path("a.txt"), Record(y, y), CAsciiForm::X), CWriteResult::Written);
    CPoints points;
    points.ReadFile(folder.Path("a.txt"));
    EXPECT_EQ(Bits(points.Columns().y), Bits(y));
    EXPECT_THAT(points.Columns().x, Each(0.0));
}

TEST(AsciiPoints, OfASinglePointReadBack) {
    CPoints points;
    points.ParseData(AsciiPoints(Record({0.25}, {-4.0}), CAsciiForm::XY));
    EXPECT_THAT(points.Columns().x, ElementsAre(0.25));
    EXPECT_THAT(points.Columns().y, ElementsAre(-4.0));
}

struct Row {
    std::string name;
    CAsciiForm form;
    Values x, y;
    std::string sentence;
};

class RefusedAsciiExport : public testing::TestWithParam<Row> {};

TEST_P(RefusedAsciiExport, SaysWhichPointAndKeepsTheOldFile) {
    const Row& row = GetParam();
    const CTempFolder folder;
    const std::string old = folder.Write("old.txt", "old");
    const CData record = Record(row.x, row.y);
    for (const std::string& path : {old, folder.Path("new.txt")}) {
        EXPECT_EQ(ErrorOf([&] { static_cast<void>(ExportAsciiPoints(path, record, row.form)); }), row.sentence);
    }
    EXPECT_EQ(ReadAll(old), "old");
    EXPECT_EQ(folder.Listing(), "old.txt\n");
}

const Row kRows[] = {
    {"NotANumberInY",
     CAsciiForm::X,
     {0.0, 1.0},
     {1.0, kNotANumber},
     "Point 2 of 2 holds no finite number; an ASCII file cannot hold it."},
    {"InfinityInY",
     CAsciiForm::XY,
     {0.0, 1.0, 2.0},
     {kInfinity, 1.0, 1.0},
     "Point 1 of 3 holds no finite number; an ASCII file cannot hold it."},
    {"NegativeInfinityInX",
     CAsciiForm::XY,
     {0.0, -kInfinity},
     {1.0, 1.0},
     "Point 2 of 2 holds no finite number; an ASCII file cannot hold it."},
    {"TheFirstOfXAndY",
     CAsciiForm::XY,
     {0.0, kNotANumber, 2.0},
     {1.0, 1.0, kNotANumber},
     "Point 2 of 3 holds no finite number; an ASCII file cannot hold it."},
};

INSTANTIATE_TEST_SUITE_P(Rows, RefusedAsciiExport, testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.name; });

TEST(AsciiPoints, DoNotNeedAbscissasThatAreNotWritten) {
    EXPECT_EQ(AsciiPoints(Record({kNotANumber}, {1.0}), CAsciiForm::X), "1\r\n");
}

TEST(AsciiPoints, CannotBeWrittenIntoAFolderThatIsNotThere) {
    const CTempFolder folder;
    EXPECT_EQ(ExportAsciiPoints(folder.Path("none/a.txt"), Record({0.0}, {1.0}), CAsciiForm::X),
              CWriteResult::NotOpened);
    EXPECT_EQ(ExportAsciiPoints("", Record({0.0}, {1.0}), CAsciiForm::X), CWriteResult::NotOpened);
}

}  // namespace
}  // namespace ks
