#include "files/uds_reader.h"

#include "files/byte_source.h"
#include "files/uds_content.h"
#include "files/uds_file.h"
#include "files/uds_layout.h"
#include "tests/support/expect_error.h"
#include "tests/support/memory_source.h"
#include "tests/support/uds_bytes.h"
#include "tests/support/uds_image.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <ostream>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace ks {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

CUDS1992 Read(const CUDSBytes& bytes) {
    CUDS1992 file;
    ReadImage(file, bytes.Text());
    return file;
}

std::string ReadError(const CUDSBytes& bytes) {
    return ErrorOf([&bytes] { Read(bytes); });
}

std::vector<double> Ramp(std::size_t count, double first, double step) {
    std::vector<double> values;
    for (std::size_t i = 0; i < count; ++i) values.push_back(first + static_cast<double>(i) * step);
    return values;
}

/// A good file of `count` points (i / 8, 100 - i), all exact in single precision.
CUDSRecipe RecipeOf(std::int32_t count) {
    CUDSRecipe recipe;
    recipe.lastPoint = count - 1;
    recipe.x = Ramp(static_cast<std::size_t>(count), 0.0, 0.125);
    recipe.y = Ramp(static_cast<std::size_t>(count), 100.0, -1.0);
    return recipe;
}

// What is read.

class EveryNumberFormat : public testing::TestWithParam<CUdsNumbers> {};

TEST_P(EveryNumberFormat, GivesTheSamePointsAndNumbers) {
    CUDSRecipe recipe;
    recipe.numbers = GetParam();
    recipe.firstPoint = -1;
    recipe.lastPoint = 1;
    recipe.timeStep = 0.125;
    recipe.y = {1.5, -1234.5, static_cast<double>(1e-6F)};

    CUDSBytes bytes = UdsFile(recipe);
    bytes.PutInteger(173, -30).PutReal(177, 56.25);
    const CUDS1992 file = Read(bytes);

    EXPECT_THAT(file.Columns().x, ElementsAre(0.0, 0.5, 1.0));
    EXPECT_THAT(file.Columns().y, ElementsAre(1.5, -1234.5, static_cast<double>(1e-6F)));
    EXPECT_THAT(file.Columns().z, IsEmpty());
    EXPECT_EQ(file.Fields().GetNFP(), -1);
    EXPECT_EQ(file.Fields().GetNLP(), 1);
    EXPECT_EQ(file.Fields().Getdelt(), 0.125F);
    EXPECT_EQ(file.Fields().GetIMPANG(), -30);
    EXPECT_EQ(file.Fields().GetCLSSPD(), 56.25F);
    EXPECT_EQ(file.Fields().GetYTYPE(), "ACCELERATION");
    EXPECT_EQ(file.Fields().GetYUNITS(), "G'S");
    EXPECT_EQ(file.NumberFormatName(), file.Fields().GetNUMFORM());
}

INSTANTIATE_TEST_SUITE_P(Formats, EveryNumberFormat,
                         testing::Values(CUdsNumbers::Ieee, CUdsNumbers::Sun, CUdsNumbers::Vax));

TEST(UdsReader, TrimsBlanksOnBothSidesAndNothingElse) {
    CUDSBytes bytes = UdsFile({});
    bytes.PutText(65, 70, "   a title\t").PutText(34, 15, " ");
    const CUDS1992 file = Read(bytes);
    EXPECT_EQ(file.Fields().GetTITLE(), "a title\t");
    EXPECT_EQ(file.Fields().GetTSTSRC(), "");
}

TEST(UdsReader, TakesTextsAsLatin1) {
    CUDSBytes bytes = UdsFile({});
    bytes.PutText(65, 70, "M\xFCnchen 20\xB0");
    EXPECT_EQ(Read(bytes).Fields().GetTITLE(), "M\xC3\xBCnchen 20\xC2\xB0");
}

TEST(UdsReader, GivesAllFiveUserRealsTheFirstOnesValue) {
    CUDSBytes bytes = UdsFile({});
    for (std::size_t i = 0; i < 5; ++i) bytes.PutReal(512 + 334 + 4 * i, 10.5 + static_cast<double>(i));
    const CUDS1992 file = Read(bytes);
    EXPECT_EQ(file.Fields().GetRD1(), 10.5F);
    EXPECT_EQ(file.Fields().GetRD2(), 10.5F);
    EXPECT_EQ(file.Fields().GetRD3(), 10.5F);
    EXPECT_EQ(file.Fields().GetRD4(), 10.5F);
    EXPECT_EQ(file.Fields().GetRD5(), 10.5F);
}

TEST(UdsReader, ReadsTheSecondComponent) {
    CUDSRecipe recipe;
    recipe.hasSecondComponent = true;
    CUDSBytes bytes = UdsFile(recipe);
    bytes.PutInteger(512 + 12, 77).PutText(512 + 166, 20, "BELT").PutInteger(512 + 88, 72);
    const CUDS1992 file = Read(bytes);
    EXPECT_TRUE(file.HasSecondComponent());
    EXPECT_EQ(file.Fields().GetCMPNO2(), 77);
    EXPECT_EQ(file.Fields().GetRSTSEC2(), "BELT");
    EXPECT_EQ(file.Fields().GetYEAR2(), 72) << "only the first component's year is completed";
    EXPECT_THAT(file.Columns().y, ElementsAre(1.0, -2.0, 4.0));
}

TEST(UdsReader, KnowsThatThereIsNoSecondComponent) {
    EXPECT_FALSE(Read(UdsFile({})).HasSecondComponent());
}

TEST(UdsReader, ForgetsTheFileBefore) {
    CUDSRecipe two;
    two.hasSecondComponent = true;
    two.numbers = CUdsNumbers::Sun;
    CUDSBytes bytes = UdsFile(two);
    bytes.PutInteger(512 + 12, 77);
    CUDS1992 file = Read(bytes);

    ReadImage(file, UdsFile({}).Text());

    EXPECT_FALSE(file.HasSecondComponent());
    EXPECT_EQ(file.Fields().GetCMPNO2(), 0);
    EXPECT_EQ(file.NumberFormatName(), "IEEE");
    EXPECT_THAT(file.Columns().y, ElementsAre(1.0, -2.0, 4.0));
}

TEST(UdsReader, CompletesATwoDigitYear) {
    const std::vector<std::pair<std::int32_t, std::int32_t>> years{{49, 2049}, {50, 1950}, {1, 2001},    {99, 1999},
                                                                   {0, 0},     {100, 100}, {1987, 1987}, {-1, -1}};
    for (const auto& [stored, read] : years) {
        CUDSBytes bytes = UdsFile({});
        bytes.PutInteger(257, stored);
        EXPECT_EQ(Read(bytes).Fields().GetYEAR1(), read) << stored;
    }
}

TEST(UdsReader, ReplacesNotANumberByZero) {
    CUDSBytes bytes = UdsFile({});
    bytes.PutBytes(1024 + 12, "\x01\x02\xC0\x7F").PutBytes(177, "\xFF\xFF\xFF\xFF").PutBytes(1024 + 16, "\x01");
    const CUDS1992 file = Read(bytes);
    EXPECT_EQ(file.Columns().y[0], 0.0);
    EXPECT_EQ(file.Fields().GetCLSSPD(), 0.0F);
}

TEST(UdsReader, TellsWhatItDidNotTakeOver) {
    CUDSBytes bytes = UdsFile({});
    for (std::size_t i = 0; i < 5; ++i) bytes.PutReal(512 + 334 + 4 * i, 10.5 + static_cast<double>(i));
    bytes.PutInteger(257, 86).PutBytes(1024 + 12, "\x01\x02\xC0\x7F").PutBytes(177, "\xFF\xFF\xFF\xFF");
    bytes.AddBlock("Y DATA", {}).AddBlock("X DATA", {});
    CUDS1992 file = Read(bytes);
    EXPECT_THAT(file.Repairs().userReals, ElementsAre(11.5F, 12.5F, 13.5F, 14.5F));
    EXPECT_EQ(file.Repairs().year, 86);
    EXPECT_EQ(file.Repairs().notNumbers, 2U);
    EXPECT_EQ(file.Repairs().unusedRecords, 2U);

    ReadImage(file, UdsFile({}).Text());
    EXPECT_THAT(file.Repairs().userReals, ElementsAre(0.0F, 0.0F, 0.0F, 0.0F));
    EXPECT_EQ(file.Repairs().year, 0);
    EXPECT_EQ(file.Repairs().notNumbers, 0U);
    EXPECT_EQ(file.Repairs().movedTexts, 0U);
    EXPECT_EQ(file.Repairs().clearedRecords, 0U);
    EXPECT_EQ(file.Repairs().unusedRecords, 0U);
}

TEST(UdsReader, TellsOfUserRealsThatAreNotANumber) {
    CUDSBytes bytes = UdsFile({});
    bytes.PutReal(512 + 334, 2.5).PutBytes(512 + 338, "\x01\x02\xC0\x7F").PutReal(512 + 342, 3.5);
    const CUDS1992 file = Read(bytes);
    EXPECT_TRUE(std::isnan(file.Repairs().userReals[0]));
    EXPECT_EQ(file.Repairs().userReals[1], 3.5F);
    EXPECT_EQ(file.Repairs().notNumbers, 0U) << "it became RD1, not 0";
    EXPECT_EQ(file.Fields().GetRD2(), 2.5F);
}

TEST(UdsReader, CountsTextsAfterBlanks) {
    CUDSRecipe recipe = RecipeOf(126);
    recipe.hasSecondComponent = true;
    CUDSBytes bytes = UdsFile(recipe);
    bytes.PutText(65, 70, " TITLE").PutText(34, 15, "").PutText(49 + 4, 12, "A B ");  // only the first moves
    bytes.PutText(512, 12, "  CMP-2 HDR").PutText(512 + 48, 15, "  MAKE").PutText(1024 + 374, 70, "   CD2");
    bytes.PutText(1536 + 512, 12, " Y DATA");
    const CUDS1992 file = Read(bytes);
    EXPECT_EQ(file.Repairs().movedTexts, 5U);
    EXPECT_EQ(file.Repairs().clearedRecords, 0U);
    EXPECT_EQ(file.Fields().GetTITLE(), "TITLE");
}

TEST(UdsReader, CountsRecordsWithBytesAfterTheirLastFieldOrPoint) {
    CUDSRecipe recipe = RecipeOf(126);
    recipe.hasSecondComponent = true;
    CUDSBytes bytes = UdsFile(recipe);  // three headers, two records of ordinates, two of abscissas
    EXPECT_EQ(Read(bytes).Repairs().clearedRecords, 0U);
    bytes.PutBytes(380, "f").PutBytes(512 + 186, "s").PutBytes(1024 + 511, " ");
    EXPECT_EQ(Read(bytes).Repairs().clearedRecords, 3U);
    bytes.PutBytes(4 * 512 + 12 + 4, "y").PutBytes(7 * 512 - 1, "x");
    EXPECT_EQ(Read(bytes).Repairs().clearedRecords, 5U);
    EXPECT_EQ(Read(bytes).Repairs().notNumbers, 0U);
    bytes.AddBlock("Y DATA", {1.0}).AddBlock(" X DATA", {1.0});  // left out as a whole
    EXPECT_EQ(Read(bytes).Repairs().clearedRecords, 5U);
    EXPECT_EQ(Read(bytes).Repairs().movedTexts, 0U);
    EXPECT_EQ(Read(bytes).Repairs().unusedRecords, 2U);
}

TEST(UdsReader, KeepsInfinities) {
    CUDSBytes bytes = UdsFile({});
    bytes.PutBytes(1024 + 12, std::string("\0\0\x80\x7F", 4));
    EXPECT_EQ(Read(bytes).Columns().y[0], std::numeric_limits<double>::infinity());
}

TEST(UdsReader, GivesZeroForAVaxExponentByteOf0Or128) {
    CUDSRecipe recipe;
    recipe.numbers = CUdsNumbers::Vax;
    CUDSBytes bytes = UdsFile(recipe);
    bytes.PutBytes(1024 + 12, std::string("\x40\x00\x11\x22", 4)).PutBytes(1024 + 16, "\x40\x80\x11\x22");
    EXPECT_THAT(Read(bytes).Columns().y, ElementsAre(0.0, 0.0, 4.0));
}

TEST(UdsReader, PairsTheNthAbscissaWithTheNthOrdinateInAnyInterleaving) {
    const CUDSRecipe recipe = RecipeOf(126);
    const std::vector<double> x1(recipe.x.begin(), recipe.x.begin() + 125), x2(recipe.x.begin() + 125, recipe.x.end());
    const std::vector<double> y1(recipe.y.begin(), recipe.y.begin() + 125), y2(recipe.y.begin() + 125, recipe.y.end());
    CUDSBytes bytes = UdsHeaders(recipe);
    bytes.AddBlock("X DATA", x1).AddBlock("Y DATA", y1).AddBlock("X DATA", x2).AddBlock("Y DATA", y2);

    const CUDS1992 file = Read(bytes);

    EXPECT_EQ(file.Columns().x, recipe.x);
    EXPECT_EQ(file.Columns().y, recipe.y);
}

TEST(UdsReader, TakesNoValuesBeyondTheLastPoint) {
    CUDSBytes bytes = UdsFile({});
    bytes.AddBlock("Y DATA", {7.0}).AddBlock("X DATA", {8.0});
    const CUDS1992 file = Read(bytes);
    EXPECT_THAT(file.Columns().x, SizeIs(3));
    EXPECT_THAT(file.Columns().y, ElementsAre(1.0, -2.0, 4.0));
}

TEST(UdsReader, ReadsFilesOfManyRecords) {
    for (const std::int32_t count : {2, 124, 125, 126, 250, 251, 31999, 32000, 32001, 100000, 1100000}) {
        CUDSRecipe recipe = RecipeOf(count);
        for (const char* const form : {"X-Y", "Y"}) {
            recipe.fileForm = form;
            recipe.timeStep = 0.125;
            const CUDS1992 file = Read(UdsFile(recipe));
            EXPECT_EQ(file.Columns().x, recipe.x) << count << form;
            EXPECT_EQ(file.Columns().y, recipe.y) << count << form;
        }
    }
}

// The product is formed in single precision, and differs from the product of doubles.
TEST(UdsReader, FormsTheAbscissasOfAYFileInSinglePrecision) {
    CUDSRecipe recipe;
    recipe.fileForm = "Y";
    recipe.firstPoint = 16777215;  // 2^24 - 1; the point after the next is no float
    recipe.lastPoint = 16777217;
    recipe.timeStep = static_cast<double>(1e-4F);
    const CUDS1992 file = Read(UdsFile(recipe));
    EXPECT_THAT(file.Columns().x,
                ElementsAre(static_cast<double>(16777215.0F * 1e-4F), static_cast<double>(16777216.0F * 1e-4F),
                            static_cast<double>(16777216.0F * 1e-4F)));
    EXPECT_NE(file.Columns().x[0], 16777215.0 * static_cast<double>(1e-4F));
}

TEST(UdsReader, CountsPointNumbersFromNegativeNumbers) {
    CUDSRecipe recipe;
    recipe.fileForm = "Y";
    recipe.firstPoint = -2;
    recipe.lastPoint = 0;
    EXPECT_THAT(Read(UdsFile(recipe)).Columns().x, ElementsAre(-1.0, -0.5, 0.0));
}

// What is refused. Every file has the fault of its row and, where there is one, that of the next: the first must win.

struct Refused {
    std::string name;
    std::function<CUDSBytes()> file;
    std::string message;
};
std::ostream& operator<<(std::ostream& out, const Refused& row) {
    return out << row.name;
}

CUDSBytes Cut(CUDSBytes bytes, std::size_t size) {
    return bytes.Resize(size);
}

CUDSBytes WithIndices(std::int32_t first, std::int32_t last, const std::string& form = "X-Y") {
    CUDSRecipe recipe;
    recipe.firstPoint = first;
    recipe.lastPoint = last;
    recipe.fileForm = form;
    return UdsFile(recipe);
}

CUDSBytes WithText(std::size_t offset, std::size_t width, const std::string& text, CUDSBytes bytes = UdsFile({})) {
    return bytes.PutText(offset, width, text);
}

CUDSRecipe SecondComponentRecipe() {
    CUDSRecipe recipe;
    recipe.hasSecondComponent = true;
    return recipe;
}

const std::string kMultiple = "File size not a multiple of 512 bytes.";
const std::string kTooSmall = "Data buffer too small";
const std::string kNotUds = "Not a UDS-1992 Signal File";
const std::string kThird = "Invalid 3rd Record Header";
const std::string kEqual = "Equal array indices, NFP = NLP in file";
const std::string kCrossed = "Crossed array indices, NFP > NLP in file";
const std::string kInsufficient = "File size too small - Insufficient data points";
const std::string kBlock = "Unknown Data Block";
const std::string kForm = "Format is not known.";

class UdsReaderRefuses : public testing::TestWithParam<Refused> {};

TEST_P(UdsReaderRefuses, WithItsSentence) {
    EXPECT_EQ(ReadError(GetParam().file()), GetParam().message);
}

TEST_P(UdsReaderRefuses, AndHoldsNoPoints) {
    CUDS1992 file = Read(UdsFile({}));
    EXPECT_NE(ErrorOf([&file] { ReadImage(file, GetParam().file().Text()); }), "");
    EXPECT_THAT(file.Columns().x, IsEmpty());
    EXPECT_THAT(file.Columns().y, IsEmpty());
    EXPECT_THAT(file.Points(), IsEmpty());
}

const std::vector<Refused> kRefused = {
    {"OneByteMore", [] { return Cut(WithText(0, 12, "other"), 2049); }, kMultiple},
    {"OneByte", [] { return Cut(CUDSBytes(), 1); }, kMultiple},
    {"Empty", [] { return CUDSBytes(); }, kTooSmall},
    {"OtherFileTag", [] { return Cut(WithText(0, 12, "UDS-1993"), 512); }, kNotUds},
    {"LowerCaseFileTag", [] { return WithText(0, 12, "uds-1992"); }, kNotUds},
    {"LongerFileTag", [] { return WithText(0, 12, "UDS-1992A"); }, kNotUds},
    {"FileTagWithTab", [] { return WithText(0, 12, "UDS-1992\t"); }, kNotUds},
    {"ZeroRecords", [] { return Cut(CUDSBytes(), 4096); }, kNotUds},
    {"FileHeaderAlone", [] { return Cut(UdsFile({}), 512); }, kTooSmall},
    {"SecondComponentAlone", [] { return Cut(UdsFile(SecondComponentRecipe()), 1024); }, kTooSmall},
    {"OtherSecondTag", [] { return WithText(512, 12, "CMP-3 HDR", WithIndices(1, 1)); }, kThird},
    {"OtherThirdTag", [] { return WithText(1024, 12, "CURVE", UdsFile(SecondComponentRecipe())); }, kThird},
    {"SecondComponentTwice", [] { return WithText(1024, 12, "CMP-2 HDR", UdsFile(SecondComponentRecipe())); }, kThird},
    {"EqualIndices", [] { return Cut(WithIndices(7, 7), 1024); }, kEqual},
    {"BothIndicesZero", [] { return Cut(WithIndices(0, 0), 1024); }, kEqual},
    {"UnknownNumberFormat", [] { return WithText(26, 5, "CRAY"); }, kEqual},
    {"CrossedIndices", [] { return Cut(WithIndices(5, 4), 1024); }, kCrossed},
    {"CrossedByFarIndices", [] { return WithIndices(2147483647, -2147483647 - 1); }, kCrossed},
    {"HeadersAlone", [] { return Cut(UdsFile({}), 1024); }, kInsufficient},
    {"HeadersAloneInYForm", [] { return Cut(WithIndices(0, 2, "Y"), 1024); }, kInsufficient},
    {"OneRecordForPairs", [] { return WithText(1024, 12, "other", Cut(UdsFile({}), 1536)); }, kInsufficient},
    {"AllPointNumbers", [] { return WithIndices(-2147483647 - 1, 2147483647); }, kInsufficient},
    {"AllPointNumbersInYForm", [] { return WithIndices(-2147483647 - 1, 2147483647, "Y"); }, kInsufficient},
    {"OnePointMoreThanARecord", [] { return WithIndices(0, 125); }, kInsufficient},
    {"OnePointMoreThanARecordInYForm", [] { return WithIndices(1, 126, "Y"); }, kInsufficient},
    {"OtherFormTooSmall", [] { return Cut(WithIndices(0, 2, "Z"), 1536); }, kInsufficient},
    {"OtherForm", [] { return WithText(1024, 12, "other", WithText(16, 10, "Z")); }, kForm},
    {"LowerCaseForm", [] { return WithText(16, 10, "x-y"); }, kForm},
    {"EmptyForm", [] { return WithText(16, 10, ""); }, kForm},
    {"OtherBlock", [] { return WithText(1024, 12, "Z DATA"); }, kBlock},
    {"LowerCaseBlock", [] { return WithText(1536, 12, "x data"); }, kBlock},
    {"ZeroBlockAfterTheData", [] { return Cut(UdsFile({}), 2560); }, kBlock},
    {"ZeroBlockLongAfterTheData", [] { return Cut(UdsFile(RecipeOf(40000)), 1024 + 800 * 512); }, kBlock},
    {"AbscissasInYForm", [] { return WithIndices(0, 2, "Y").AddBlock("X DATA", {1.0}); }, kBlock},
    {"NoAbscissas", [] { return UdsHeaders({}).AddBlock("Y DATA", {1.0}).AddBlock("Y DATA", {1.0}); }, kInsufficient},
    {"NoOrdinates", [] { return UdsHeaders({}).AddBlock("X DATA", {1.0}).AddBlock("X DATA", {1.0}); }, kInsufficient},
    {"NoAbscissasAndOtherBlock", [] { return UdsHeaders({}).AddBlock("Y DATA", {1.0}).AddBlock("other", {1.0}); },
     kBlock},
};
INSTANTIATE_TEST_SUITE_P(Files, UdsReaderRefuses, testing::ValuesIn(kRefused),
                         [](const auto& row) { return row.param.name; });

TEST(UdsReader, ReadsNumbersOfAnUnknownFormatAsZero) {
    CUDSBytes bytes = UdsFile({});
    bytes.PutText(26, 5, "CRAY").PutInteger(12, 3).PutReal(177, 2.5);
    CUDS1992 file;
    EXPECT_EQ(ErrorOf([&] { ReadImage(file, bytes.Text()); }), kEqual);
    EXPECT_EQ(file.Fields().GetFILEVER(), 0);
    EXPECT_EQ(file.Fields().GetCLSSPD(), 0.0F);
    EXPECT_EQ(file.Fields().GetYUNITS(), "G'S");
    EXPECT_EQ(file.NumberFormatName(), "UKNOWN");
}

TEST(UdsReader, LeavesTheFieldsAsFarAsTheyWereRead) {
    CUDSBytes bytes = WithIndices(5, 4);
    bytes.PutInteger(257, 49);
    CUDS1992 file;
    EXPECT_EQ(ErrorOf([&] { ReadImage(file, bytes.Text()); }), kCrossed);
    EXPECT_EQ(file.Fields().GetNFP(), 5);
    EXPECT_EQ(file.Fields().GetYEAR1(), 49) << "the year is completed last";
}

TEST(UdsReader, AcceptsAFileTagThatIsNotLeftAligned) {
    EXPECT_THAT(Read(WithText(0, 12, "  UDS-1992")).Columns().y, SizeIs(3));
}

/// A source that ends before the size it promised, as a file that is cut while it is read.
class ShrunkenSource : public CByteSource {
public:
    ShrunkenSource(std::span<const std::byte> bytes, std::uint64_t promised) : m_memory(bytes), m_promised(promised) {}
    std::uint64_t Size() const override { return m_promised; }
    std::size_t Read(std::span<std::byte> target) override { return m_memory.Read(target); }

private:
    CMemorySource m_memory;
    std::uint64_t m_promised;
};

TEST(UdsReader, RefusesASourceThatEndsEarly) {
    const CUDSBytes bytes = UdsFile({});
    for (const std::size_t size : {0U, 100U, 512U, 600U, 1024U, 1536U, 2047U}) {
        ShrunkenSource source(bytes.Bytes().first(size), 2048);
        CUDSContent content;
        EXPECT_EQ(ErrorOf([&] { ReadUds(source, CUDSGeometry{}, content); }), kTooSmall) << size;
    }
}

/// Gives a header and then zero bytes without end, and counts what was asked for.
class EndlessSource : public CByteSource {
public:
    EndlessSource(std::span<const std::byte> head, std::uint64_t size) : m_head(head), m_size(size) {}
    std::uint64_t Size() const override { return m_size; }
    std::size_t Read(std::span<std::byte> target) override {
        std::ranges::fill(target, std::byte{0});
        m_head.Read(target);
        m_bytesRead += target.size();
        return target.size();
    }
    std::uint64_t BytesRead() const { return m_bytesRead; }

private:
    CMemorySource m_head;
    std::uint64_t m_size;
    std::uint64_t m_bytesRead = 0;
};

TEST(UdsReader, LooksAtTheTagsOfAHugeFileBeforeItReadsTheRest) {
    CUDSRecipe recipe;
    recipe.lastPoint = 500000000;
    const CUDSBytes headers = UdsHeaders(recipe);
    EndlessSource source(headers.Bytes(), std::uint64_t{1} << 40U);
    CUDSContent content;
    EXPECT_EQ(ErrorOf([&] { ReadUds(source, CUDSGeometry{}, content); }), kBlock);
    EXPECT_LT(source.BytesRead(), 1000000U);
}

}  // namespace
}  // namespace ks
