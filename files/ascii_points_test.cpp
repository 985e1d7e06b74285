#include "files/ascii_points.h"

#include "files/byte_source.h"
#include "files/error.h"
#include "files/number_text.h"
#include "files/points.h"
#include "tests/support/expect_error.h"
#include "tests/support/memory_source.h"
#include "tests/support/point_reference.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <ostream>
#include <random>
#include <span>
#include <string>
#include <sys/stat.h>
#include <utility>
#include <vector>

namespace ks {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::string_literals;

using Points = std::vector<std::array<double, 3>>;

Points PointsOf(const CPointColumns& columns) {
    Points points;
    for (std::size_t i = 0; i < columns.Count(); ++i) {
        points.push_back({columns.x.at(i), columns.y.at(i), columns.z.empty() ? 0.0 : columns.z.at(i)});
    }
    return points;
}

Points Parsed(const std::string& text) {
    CPoints points;
    points.ParseData(text);
    return PointsOf(points.Columns());
}

bool Parses(const std::string& text) {
    CPoints points;
    try {
        points.ParseData(text);
    } catch (const CError& error) {
        EXPECT_STREQ(error.what(), "Failure to parse the data.");
        return false;
    }
    return true;
}

// The language.

struct Accepted {
    std::string name, text;
    Points points;
};
std::ostream& operator<<(std::ostream& out, const Accepted& row) {
    return out << row.name;
}

class AsciiPoints : public testing::TestWithParam<Accepted> {};

TEST_P(AsciiPoints, AreReadFromTheText) {
    EXPECT_EQ(Parsed(GetParam().text), GetParam().points);
}

constexpr double kInfinity = std::numeric_limits<double>::infinity();

const std::vector<Accepted> kAccepted = {
    {"Nothing", "", {}},
    {"OneNumber", "1.5", {{0, 1.5, 0}}},
    {"OneNumberPerLine", "1.5\n-2\n", {{0, 1.5, 0}, {0, -2, 0}}},
    {"Comma", "0.001,2\n", {{0.001, 2, 0}}},
    {"CommaAndBlank", "0.001, 2\n", {{0.001, 2, 0}}},
    {"Blank", "0.001 2\n", {{0.001, 2, 0}}},
    {"Tab", "0.001\t2\n", {{0.001, 2, 0}}},
    {"TwoBlanks", "0.001  2\n", {{0.001, 2, 0}}},
    {"ManySeparators", "1 ,\t\v\f,, 2", {{1, 2, 0}}},
    {"NoSeparator", "1-2", {{1, -2, 0}}},
    {"NoSeparatorPlus", "1+2", {{1, 2, 0}}},
    {"NoSeparatorPoint", "1.5.5", {{1.5, 0.5, 0}}},
    {"TwoPoints", "1..5", {{1, 0.5, 0}}},
    {"Three", "1 2 3\n", {{1, 2, 3}}},
    {"ThreeWithoutSeparators", "1-2-3", {{1, -2, -3}}},
    {"OneThenTwoThenThree", "1\n2 3\n4 5 6\n", {{0, 1, 0}, {2, 3, 0}, {4, 5, 6}}},
    {"OneThenThree", "1\n4 5 6\n", {{0, 1, 0}, {4, 5, 6}}},
    {"CarriageReturnAndLineFeed", "1 2\r\n3 4\r\n", {{1, 2, 0}, {3, 4, 0}}},
    {"CarriageReturnOnly", "1 2\r3 4\r", {{1, 2, 0}, {3, 4, 0}}},
    {"NoLastLineEnd", "1 2\n3 4", {{1, 2, 0}, {3, 4, 0}}},
    {"LeadingWhiteSpace", " \t\n 1 2\n \v\f 3 4\n", {{1, 2, 0}, {3, 4, 0}}},
    {"EmptyLinesBetween", "1\n\n\n2\n", {{0, 1, 0}, {0, 2, 0}}},
    {"ASeparatorSpansLines", "1,\n2\n", {{1, 2, 0}}},
    {"TwoLinesOfOneAfterALineOfTwo", "1 2\n3\n4\n", {{1, 2, 0}, {3, 4, 0}}},
    {"LeadingPlus", "+1", {{0, 1, 0}}},
    {"PointFirst", ".5", {{0, 0.5, 0}}},
    {"PointLast", "5.", {{0, 5, 0}}},
    {"PointThenExponent", "1.E3", {{0, 1000, 0}}},
    {"Exponents", "1e3\n1E+3\n1e-3\n-.5e1\n", {{0, 1000, 0}, {0, 1000, 0}, {0, 0.001, 0}, {0, -5, 0}}},
    {"TooLarge", "1e400\n-1e400\n", {{0, kInfinity, 0}, {0, -kInfinity, 0}}},
    {"TooSmall", "1e-400", {{0, 0, 0}}},
    {"HugeExponent", "1e99999999999999999999\n1e-99999999999999999999", {{0, kInfinity, 0}, {0, 0, 0}}},
    {"ManyDigits", "0."s + std::string(2000, '3') + "\n", {{0, 1.0 / 3.0, 0}}},
};
INSTANTIATE_TEST_SUITE_P(Texts, AsciiPoints, testing::ValuesIn(kAccepted),
                         [](const auto& row) { return row.param.name; });

class AsciiPointsRefuse : public testing::TestWithParam<std::string> {};

TEST_P(AsciiPointsRefuse, TheText) {
    EXPECT_FALSE(Parses(GetParam())) << GetParam();
}

INSTANTIATE_TEST_SUITE_P(Texts, AsciiPointsRefuse,
                         testing::Values("time y\n1 2\n", "1 2\ntime y\n", "1 2\nend", "1 2\n3\n", "1 2 3\n4 5\n",
                                         "1 2 3\n4\n", "1 2 3 4\n", "1 \n", "1 2 \n", "1 2\n ", "1\n\n", ",1", "1,",
                                         "1 2,\n", "inf", "nan", "-inf", "0x10", "1e", "1e+", "1d3", "e5", "+", "-",
                                         ".", "-.", "+-1", "- 1", "1 2;3", "1\x1A", "1,5 2,5 3",
                                         "\xEF\xBB\xBF"
                                         "1 2\n",
                                         "1\xA0"
                                         "2\n",
                                         "1_000", "\n"));

INSTANTIATE_TEST_SUITE_P(ZeroBytes, AsciiPointsRefuse, testing::Values("\0"s, "1\0"s, "1 2\n\0"s));

TEST(AsciiPointsRefuse, KeepsThePointsBeforeTheFailureOnce) {
    CPoints points;
    EXPECT_EQ(ErrorOf([&] { points.ParseData("1\n2 3\n4 5 6\n7 8 9 x\n"); }), "Failure to parse the data.");
    EXPECT_EQ(PointsOf(points.Columns()), (Points{{0, 1, 0}, {2, 3, 0}, {4, 5, 6}}));
}

TEST(AsciiPoints, ForgetsTheTextBefore) {
    CPoints points;
    points.ParseData("1 2 3\n");
    points.ParseData("4\n");
    EXPECT_THAT(points.Columns().y, ElementsAre(4.0));
    EXPECT_THAT(points.Columns().z, IsEmpty());
    EXPECT_EQ(points.Points().size(), 1U);
}

TEST(AsciiPoints, FillsZOnlyWhenALineHasIt) {
    CPoints points;
    points.ParseData("1\n2 3\n4 5 6\n");
    EXPECT_THAT(points.Columns().z, ElementsAre(0.0, 0.0, 6.0));
    EXPECT_THAT(points.TakeColumns().x, ElementsAre(0.0, 2.0, 4.0));
    EXPECT_THAT(points.Columns().x, IsEmpty());
    EXPECT_THAT(points.Columns().z, IsEmpty());
}

TEST(AsciiPoints, AreCorrectlyRounded) {
    std::mt19937_64 random(3);
    std::string text;
    std::vector<double> values;
    while (values.size() < 10000) {
        const auto value = std::bit_cast<double>(random());
        if (!std::isfinite(value)) continue;
        values.push_back(value);
        text += ShortestText(value) + "\n";
    }
    CPoints points;
    points.ParseData(text);
    EXPECT_EQ(points.Columns().y, values);
}

/// Texts near the language: a document with, at times, a few characters changed.
class TextGenerator {
public:
    std::string Next() {
        std::string text = Below(4) == 0 ? Noise() : Document();
        for (unsigned changes = Below(8) < 4 ? 0 : Below(3); changes > 0 && !text.empty(); --changes) Change(text);
        return text;
    }

private:
    unsigned Below(unsigned end) { return static_cast<unsigned>(m_random() % end); }
    char One(const std::string& set) { return set[Below(static_cast<unsigned>(set.size()))]; }

    std::string Noise() {
        std::string text;
        for (unsigned i = Below(12); i > 0; --i) text += One("0123456789+-.eE ,\t\n\r");
        return text;
    }
    std::string Digits() {
        std::string text(1, One("0123456789"));
        while (Below(3) == 0) text += One("0123456789");
        return text;
    }
    std::string Number() {
        std::string text;
        if (Below(3) == 0) text += One("+-");
        const bool isPointFirst = Below(5) == 0;
        if (isPointFirst) text += '.';
        text += Digits();
        if (!isPointFirst && Below(3) == 0) {
            text += '.';
            if (Below(3) > 0) text += Digits();
        }
        if (Below(5) == 0) {
            text += One("eE");
            if (Below(2) == 0) text += One("+-");
            text += Digits();
        }
        return text;
    }
    std::string Separator() {
        std::string text(1, One(" ,\t"));
        while (Below(4) == 0) text += One(" ,\t\n");
        return text;
    }
    std::string Document() {
        static const std::array<std::string, 3> lineEnds{"\n", "\r\n", "\r"};
        std::string text;
        unsigned numbers = 1;
        for (unsigned line = Below(6); line > 0; --line) {
            if (Below(3) == 0) numbers = Below(8) == 0 ? 1 + Below(3) : std::min(3U, numbers + Below(3));
            if (Below(8) == 0) text += One(" \t\n\v\f");
            for (unsigned i = 0; i < numbers; ++i) {
                if (i > 0) text += Separator();
                text += Number();
            }
            text += lineEnds[Below(3)];
        }
        return text;
    }
    void Change(std::string& text) {
        const std::size_t at = Below(static_cast<unsigned>(text.size()));
        const unsigned kind = Below(3);
        if (kind == 0) text.erase(at, 1);
        if (kind == 1) text.insert(at, 1, One("0123456789+-.eE ,\t\n\rx"));
        if (kind == 2) text[at] = One("0123456789+-.eE ,\t\n\r");
    }

    std::mt19937 m_random{20240229};
};

std::vector<std::array<std::uint64_t, 3>> BitsOf(const Points& points) {
    std::vector<std::array<std::uint64_t, 3>> bits;
    for (const auto& point : points) bits.push_back(std::bit_cast<std::array<std::uint64_t, 3>>(point));
    return bits;
}

TEST(AsciiPoints, AreThoseOfAPlainReaderOn100000Texts) {
    TextGenerator texts;
    int accepted = 0;
    int several = 0;
    for (int i = 0; i < 100000; ++i) {
        const std::string text = texts.Next();
        const ReferencePoints expected = ReadPointsPlainly(text);
        CPoints points;
        bool isParsed = true;
        try {
            points.ParseData(text);
        } catch (const CError&) {
            isParsed = false;
        }
        ASSERT_EQ(isParsed, expected.isAccepted) << testing::PrintToString(text);
        ASSERT_EQ(BitsOf(PointsOf(points.Columns())), BitsOf(expected.points)) << testing::PrintToString(text);
        accepted += isParsed ? 1 : 0;
        several += isParsed && expected.points.size() > 1 ? 1 : 0;
    }
    // Both outcomes must occur.
    EXPECT_GT(accepted, 30000);
    EXPECT_GT(several, 10000);
    EXPECT_LT(accepted, 90000);
}

/// What reading `text` in pieces gives: whether it is a document, and its points.
ReferencePoints ReadInPieces(const std::string& text, std::size_t bytesAtATime) {
    CMemorySource source(std::as_bytes(std::span(text)));
    CPoints points;
    ReferencePoints result;
    try {
        points.ReadFrom(source, "p", bytesAtATime);
        result.isAccepted = true;
    } catch (const CError&) {
        result.isAccepted = false;
    }
    result.points = PointsOf(points.Columns());
    return result;
}

// Whatever the pieces: what is decided early is what the whole text decides.
TEST(AsciiPoints, InPiecesAreThoseOfAPlainReaderOnTheWholeText) {
    TextGenerator texts;
    int accepted = 0;
    for (int i = 0; i < 20000; ++i) {
        std::string text = texts.Next();
        for (int more = i % 4; more > 0; --more) text += texts.Next();
        const ReferencePoints expected = ReadPointsPlainly(CutStepByStep(text));
        for (const std::size_t bytesAtATime : {1U, 2U, 3U, 7U, 16U, 1000U}) {
            const ReferencePoints read = ReadInPieces(text, bytesAtATime);
            ASSERT_EQ(read.isAccepted, expected.isAccepted) << bytesAtATime << testing::PrintToString(text);
            ASSERT_EQ(BitsOf(read.points), BitsOf(expected.points)) << bytesAtATime << testing::PrintToString(text);
        }
        accepted += expected.isAccepted ? 1 : 0;
    }
    EXPECT_GT(accepted, 4000);
    EXPECT_LT(accepted, 16000);
}

// Short texts of the characters that decide, among them every way in which a pair can meet the border of two pieces.
TEST(AsciiPoints, InPiecesAreThoseOfAPlainReaderOnEveryKindOfGap) {
    std::mt19937 random(7);
    const std::string characters = "1112.+-e,\n\n\r\t  ";
    int accepted = 0;
    for (int i = 0; i < 100000; ++i) {
        std::string text;
        for (auto length = random() % 24; length > 0; --length) text += characters[random() % characters.size()];
        const ReferencePoints expected = ReadPointsPlainly(CutStepByStep(text));
        const ReferencePoints read = ReadInPieces(text, 1 + random() % 9);
        ASSERT_EQ(read.isAccepted, expected.isAccepted) << testing::PrintToString(text);
        ASSERT_EQ(BitsOf(read.points), BitsOf(expected.points)) << testing::PrintToString(text);
        accepted += expected.isAccepted && !expected.points.empty() ? 1 : 0;
    }
    EXPECT_GT(accepted, 5000);
}

/// A start and then one line without an end, and how many bytes of both were asked for.
class CEndlessSource : public CByteSource {
public:
    CEndlessSource(std::string start, std::string line) : m_start(std::move(start)), m_line(std::move(line)) {}

    std::uint64_t Size() const override { return std::uint64_t{1} << 30U; }
    std::size_t Read(std::span<std::byte> target) override {
        for (std::byte& byte : target) {
            byte = static_cast<std::byte>(
                m_count < m_start.size() ? m_start[m_count] : m_line[(m_count - m_start.size()) % m_line.size()]);
            ++m_count;
        }
        return target.size();
    }
    std::size_t Count() const { return m_count; }

private:
    std::string m_start, m_line;
    std::size_t m_count = 0;
};

TEST(AsciiPointsRefuse, ALongTextAfterItsFirstLines) {
    for (const char* const line :
         {"0 0 0 0\n", "1,2,3,4,5,6,7,8\r\n", "1 2 \n", "- 1\n", "1e,\n", "words\n", "1 2;\n"}) {
        CEndlessSource source("", line);
        CPoints points;
        EXPECT_EQ(ErrorOf([&] { points.ReadFrom(source, "p", 1000); }),
                  "Failure to parse the file: p for reading.\nFailure to parse the data.");
        EXPECT_LE(source.Count(), 1000U) << line;
    }
}

TEST(AsciiPointsRefuse, AnEndlessLineThatCanBeNoPoint) {
    for (const char* const line : {"-", ",", "1e", "e", ".-", "1-"}) {
        CEndlessSource source("", line);
        CPoints points;
        EXPECT_NE(ErrorOf([&] { points.ReadFrom(source, "p", 1000); }), "") << line;
        EXPECT_LE(source.Count(), 1000U) << line;
    }
}

TEST(AsciiPointsRefuse, AnEndlessLineAfterPoints) {
    CEndlessSource source("1\n2\n3\n4\n", "-");
    CPoints points;
    EXPECT_NE(ErrorOf([&] { points.ReadFrom(source, "p", 10); }), "");
    EXPECT_LE(source.Count(), 100U);
}

TEST(AsciiPointsRefuse, ALongTextAfterTheFirstLineOfFewerNumbers) {
    std::string start;
    for (int i = 0; i < 1000; ++i) start += "1 2\n";
    CEndlessSource source(start + "1 2 3\n", "1 2\n");
    CPoints points;
    EXPECT_NE(ErrorOf([&] { points.ReadFrom(source, "p", 1000); }), "");
    EXPECT_EQ(points.Columns().Count(), 1001U);
    EXPECT_LE(source.Count(), start.size() + 2000);
}

// A point that does not match gives its position back; that must not make long texts slow.
TEST(AsciiPoints, TakeTimeInProportionToTheText) {
    const std::string blanks(4000000, ' ');
    EXPECT_FALSE(Parses(blanks));
    EXPECT_FALSE(Parses("1" + blanks));
    EXPECT_FALSE(Parses("1" + blanks + "2" + blanks));
    const std::string commas(4000000, ',');
    EXPECT_TRUE(Parses("1" + commas + "2"));
    EXPECT_TRUE(Parses(std::string(4000000, '1')));
    EXPECT_TRUE(ReadInPieces(std::string(4000000, '1'), 1000).isAccepted);
    EXPECT_TRUE(ReadInPieces("1" + commas + "2", 1000).isAccepted);
}

// The end of the data.

struct Cut {
    std::string name, text, kept;
};
std::ostream& operator<<(std::ostream& out, const Cut& row) {
    return out << row.name;
}

class DataEnd : public testing::TestWithParam<Cut> {};

TEST_P(DataEnd, IsWhereItIs) {
    EXPECT_EQ(CutStepByStep(GetParam().text), GetParam().kept);
    const ReferencePoints expected = ReadPointsPlainly(GetParam().kept);
    const ReferencePoints read = ReadInPieces(GetParam().text, 1000);
    EXPECT_EQ(read.isAccepted, expected.isAccepted);
    EXPECT_EQ(BitsOf(read.points), BitsOf(expected.points));
}

INSTANTIATE_TEST_SUITE_P(
    Texts, DataEnd,
    testing::Values(Cut{"Nowhere", "1 2\n3\t4\n", "1 2\n3\t4\n"}, Cut{"EmptyText", "", ""},
                    Cut{"EmptyLine", "1 2\n\n3 4\n", "1 2\n"}, Cut{"LineThatBeginsWithATab", "1 2\n\t3 4\n", "1 2\n"},
                    Cut{"TabAtTheEndOfALine", "1 2\t\n3 4\n", "1 2"}, Cut{"TabThenBlank", "1\t 2\n", "1"},
                    Cut{"TwoBlanks", "1  2\n", "1"}, Cut{"BlankThenTab", "1 \t2\n", "1 \t2\n"},
                    Cut{"EmptyLineWithCarriageReturns", "1\r\n\r\n2\r\n", "1\r\n\r\n2\r\n"},
                    Cut{"AtTheStart", "\n\n1", "\n"}, Cut{"BlanksAtTheStart", "  1", ""},
                    Cut{"TabAndTwoLineFeeds", "1\t\n\n", "1"}, Cut{"LineFeedTabLineFeed", "1\n\t\n2", "1\n"},
                    Cut{"TabBlankBlank", "1\t  2", "1"}, Cut{"LineFeedTabBlank", "1\n\t 2", "1\n"},
                    Cut{"Words", "a b\n\nc", "a b\n"}, Cut{"TheFirstOfMany", "1\t 2\n\n3  4", "1"}),
    [](const auto& row) { return row.param.name; });

// Files.

class AsciiFile : public testing::Test {
protected:
    Points Read(const std::string& text) {
        CPoints points;
        points.ReadFile(m_folder.Write("points.txt", text));
        return PointsOf(points.Columns());
    }
    static std::string ReadErrorOf(const std::string& path) {
        CPoints points;
        return ErrorOf([&] { points.ReadFile(path); });
    }
    static std::string ParseErrorOf(const std::string& path) {
        return "Failure to parse the file: " + path + " for reading.\nFailure to parse the data.";
    }
    CTempFolder m_folder;
};

TEST_F(AsciiFile, IsCutAndParsed) {
    EXPECT_EQ(Read("1 2\r\n3 4\r\n"), (Points{{1, 2, 0}, {3, 4, 0}}));
    EXPECT_EQ(Read("1 2\n3 4\n\nfree text"), (Points{{1, 2, 0}, {3, 4, 0}}));
    EXPECT_EQ(Read("0.001  2"), (Points{{0, 0.001, 0}}));
    EXPECT_EQ(Read("1.5\t\nfree text"), (Points{{0, 1.5, 0}}));
    EXPECT_EQ(Read(""), Points{});
}

TEST_F(AsciiFile, IsRefusedWhenItCannotBeOpened) {
    ASSERT_EQ(mkfifo(m_folder.Path("pipe").c_str(), 0600), 0);
    for (const std::string& path :
         {m_folder.Path("missing"), m_folder.Path(""), m_folder.Path("pipe"), "/dev/zero"s, ""s}) {
        EXPECT_EQ(ReadErrorOf(path), "Failure to open file: " + path + " for reading.");
    }
}

TEST_F(AsciiFile, IsRefusedWithBothSentencesWhenItDoesNotParse) {
    for (const char* const text : {"time y\n1 2\n", "1 2\nend\n", "1 2 \n", "1 2\n3\n"}) {
        const std::string path = m_folder.Write("points.txt", text);
        EXPECT_EQ(ReadErrorOf(path), ParseErrorOf(path));
    }
}

TEST_F(AsciiFile, IsReadAcrossThePiecesOfTheReading) {
    // Lines of seven characters cross every border of the pieces; so does, at one of the lengths, the data's end.
    std::string text;
    while (text.size() < 1200000) text += "12 345\n";
    for (std::size_t shift = 0; shift < 8; ++shift) {
        const std::string data = std::string(shift, '0') + text;
        EXPECT_EQ(Read(data + "\nfree  text").size(), text.size() / 7);
    }
    const std::size_t border = std::size_t{1} << 18U;
    const std::string upToBorder = text.substr(0, border / 7 * 7);
    for (std::size_t fill = 0; fill < 16; ++fill) {
        EXPECT_EQ(Read(std::string(fill, '0') + upToBorder + "\n\nfree text").size(), upToBorder.size() / 7) << fill;
    }
}

TEST_F(AsciiFile, LargerThanOneGibibyteIsRefused) {
    const std::string path = m_folder.Write("large.txt", "1 2\n");
    std::filesystem::resize_file(path, (std::uint64_t{1} << 30U) + 1);
    EXPECT_EQ(ReadErrorOf(path), "The file is too large: " + path + ". Text files of up to 1 GiB can be read.");
}

TEST_F(AsciiFile, ThatNoParserCouldTakeIsNotReadToItsEnd) {
    const std::string path = m_folder.Write("zeros.txt", "1 2\n");
    std::filesystem::resize_file(path, std::uint64_t{1} << 30U);
    EXPECT_EQ(ReadErrorOf(path), ParseErrorOf(path));
}

TEST_F(AsciiFile, IsRefusedThoughTheHopelessCharacterEndsTheReading) {
    const std::string path = m_folder.Write("points.txt", "1 2x");
    CPoints points;
    EXPECT_EQ(ErrorOf([&] { points.ReadFile(path); }), ParseErrorOf(path));
    EXPECT_THAT(points.Columns().y, IsEmpty());
}

}  // namespace
}  // namespace ks
