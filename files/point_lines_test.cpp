#include "files/point_lines.h"

#include "files/ascii_points.h"
#include "files/error.h"
#include "files/points.h"
#include "tests/support/memory_source.h"
#include "tests/support/point_reference.h"

#include <gmock/gmock.h>

#include <array>
#include <cstddef>
#include <random>
#include <span>
#include <string>
#include <vector>

namespace ks {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

struct CTaken {
    std::size_t length = 0;
    CPointColumns points;
};

CTaken Take(const std::string& text, int numbers) {
    CTaken taken;
    taken.length = TakeOrdinaryLines(text, text.size(), numbers, taken.points);
    return taken;
}

TEST(OrdinaryLines, OfOneNumber) {
    const std::string text = "1.5\n -2\r\n.5e1\n1e400\n";
    const CTaken taken = Take(text, 1);
    EXPECT_EQ(taken.length, text.size());
    EXPECT_THAT(taken.points.x, ElementsAre(0.0, 0.0, 0.0, 0.0));
    EXPECT_THAT(taken.points.y, ElementsAre(1.5, -2.0, 5.0, testing::Gt(1e308)));
    EXPECT_THAT(taken.points.z, IsEmpty());
}

TEST(OrdinaryLines, OfTwoNumbers) {
    const std::string text = "0.1 2\n0.2\t-3\r\n0.3,4\n 0.4, -.5\n5.,6E-1\r+6\t,\t+.7\n7 , 8\n";
    const CTaken taken = Take(text, 2);
    EXPECT_EQ(taken.length, text.size());
    EXPECT_THAT(taken.points.x, ElementsAre(0.1, 0.2, 0.3, 0.4, 5.0, 6.0, 7.0));
    EXPECT_THAT(taken.points.y, ElementsAre(2.0, -3.0, 4.0, -0.5, 0.6, 0.7, 8.0));
    EXPECT_THAT(taken.points.z, IsEmpty());
}

TEST(OrdinaryLines, OfThreeNumbersFillZFromTheFirstPointOn) {
    CPointColumns points{{0.0}, {7.0}, {}};
    const std::string text = "1 2 3\n4,5\t6\n";
    EXPECT_EQ(TakeOrdinaryLines(text, text.size(), 3, points), text.size());
    EXPECT_THAT(points.x, ElementsAre(0.0, 1.0, 4.0));
    EXPECT_THAT(points.y, ElementsAre(7.0, 2.0, 5.0));
    EXPECT_THAT(points.z, ElementsAre(0.0, 3.0, 6.0));
}

TEST(OrdinaryLines, NotThereLeaveThePointsAsTheyAre) {
    CPointColumns points{{0.0}, {7.0}, {}};
    EXPECT_EQ(TakeOrdinaryLines("1 2\n", 4, 3, points), 0U);
    EXPECT_THAT(points.y, ElementsAre(7.0));
    EXPECT_THAT(points.z, IsEmpty());
}

TEST(OrdinaryLines, EndBeforeEveryOther) {
    for (const char* const other :
         {"",        "3",      "3 4",     "3 4\r",   "3\n4\n",   "3\r4\r",   "3 4 5\n",  "3  4\n",
          "3\t 4\n", "3,,4\n", "3,  4\n", "3  ,4\n", "  3 4\n",  "\t3 4\n",  "\n3 4\n",  "\r3 4\n",
          "3-4\n",   "3 4 \n", "3 4,\n",  "3 inf\n", "3 -nan\n", "-inf 4\n", "+inf 4\n", "3 -\n",
          "3 .\n",   "3 +.\n", "3 +-4\n", "3 1e\n",  "x\n",      "3;4\n",    "3\v4\n",   "3 4\f\n"}) {
        const std::string first = "1 2\n";
        const CTaken taken = Take(first + other, 2);
        EXPECT_EQ(taken.length, first.size()) << testing::PrintToString(other);
        EXPECT_THAT(taken.points.x, ElementsAre(1.0)) << testing::PrintToString(other);
        EXPECT_THAT(taken.points.y, ElementsAre(2.0)) << testing::PrintToString(other);
    }
}

TEST(OrdinaryLines, BeginBeforeTheCertainEnd) {
    const std::string text = "1 2\n3 4\n5 6\n";
    for (std::size_t certain = 0; certain <= text.size(); ++certain) {
        CPointColumns points;
        EXPECT_EQ(TakeOrdinaryLines(text, certain, 2, points), (certain + 3) / 4 * 4);
        EXPECT_THAT(points.y, SizeIs((certain + 3) / 4));
    }
}

TEST(OrdinaryLines, AreTakenInAnyNumber) {
    std::string text;
    for (std::size_t count = 0; count < 600; ++count) {
        const CTaken taken = Take(text, 2);
        ASSERT_EQ(taken.length, text.size());
        ASSERT_THAT(taken.points.y, SizeIs(count));
        EXPECT_EQ(taken.points.y.empty() ? -1.0 : taken.points.y.back(), static_cast<double>(count) - 1.0);
        text += "0.5 " + std::to_string(count) + "\n";
    }
}

/// Mostly ordinary lines of a growing number of numbers; here and there something else.
class CLongText {
public:
    explicit CLongText(unsigned seed) : m_random(seed) {}

    std::string Next() {
        std::string text;
        unsigned numbers = 1 + Below(2);
        for (unsigned line = 1 + Below(80); line > 0; --line) {
            if (numbers < 3 && Below(60) == 0) ++numbers;
            for (unsigned i = 0; i < numbers; ++i) text += (i > 0 ? Separator() : Lead()) + Number();
            text += One({"\n", "\n", "\r\n", "\r"});
            if (Below(50) == 0) text += Oddity();
        }
        return text;
    }

private:
    using Texts = std::vector<std::string>;

    unsigned Below(unsigned end) { return static_cast<unsigned>(m_random() % end); }
    std::string One(const Texts& texts) { return texts[Below(static_cast<unsigned>(texts.size()))]; }
    std::string Lead() { return Below(10) > 0 ? "" : " "; }
    std::string Separator() { return One({" ", "\t", ",", ", ", " ,\t"}); }
    std::string Number() { return One({"", "-", "+"}) + std::to_string(Below(100)) + One({"", ".", ".5", ".25e-3"}); }
    std::string Oddity() {
        return One({"+", "1", "1 2", "\n", "\r", "\t", "  ", ",", "\v", "1\r2\r", "-", "1 2 3 4\n", "e", "x", ".\n"});
    }

    std::mt19937 m_random;
};

std::vector<std::array<double, 3>> ListOf(const CPointColumns& columns) {
    std::vector<std::array<double, 3>> list;
    for (std::size_t i = 0; i < columns.Count(); ++i) {
        list.push_back({columns.x[i], columns.y[i], columns.z.empty() ? 0.0 : columns.z[i]});
    }
    return list;
}

/// Whether `read` reads without an error of ours.
template <class Read>
bool Accepts(Read read) {
    try {
        read();
        return true;
    } catch (const CError&) {
        return false;
    }
}

TEST(OrdinaryLines, AmongOthersAreReadAsAPlainReaderReadsThem) {
    CLongText texts(11);
    int accepted = 0;
    for (int i = 0; i < 3000; ++i) {
        const std::string text = texts.Next();
        CPoints points;
        const ReferencePoints whole = ReadPointsPlainly(text);
        ASSERT_EQ(Accepts([&] { points.ParseData(text); }), whole.isAccepted) << testing::PrintToString(text);
        ASSERT_EQ(ListOf(points.Columns()), whole.points) << testing::PrintToString(text);
        const ReferencePoints cut = ReadPointsPlainly(CutStepByStep(text));
        for (const std::size_t bytesAtATime : {9U, 50U, 333U, 5000U}) {
            CMemorySource source(std::as_bytes(std::span(text)));
            ASSERT_EQ(Accepts([&] { points.ReadFrom(source, "", bytesAtATime); }), cut.isAccepted)
                << bytesAtATime << testing::PrintToString(text);
            ASSERT_EQ(ListOf(points.Columns()), cut.points) << bytesAtATime << testing::PrintToString(text);
        }
        accepted += cut.isAccepted ? 1 : 0;
    }
    EXPECT_GT(accepted, 800);
    EXPECT_LT(accepted, 2700);
}

}  // namespace
}  // namespace ks
