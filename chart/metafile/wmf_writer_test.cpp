#include "chart/metafile/wmf_writer.h"

#include "chart/plane_geometry.h"
#include "chart/testing/wmf_reader.h"

#include <gmock/gmock.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::SizeIs;

constexpr CWmfPen kPen{3, 0x010203};

CWmfWriter Writer() {
    return {100, 50, 1440};
}

std::string Bytes(std::initializer_list<int> values) {
    std::string bytes;
    for (const int value : values) bytes += static_cast<char>(value);
    return bytes;
}

CPolyline Zigzag(int count) {
    CPolyline line;
    for (int index = 0; index < count; ++index) line.push_back({(index / 50) % 100 * 1.0, index % 50 * 1.0});
    return line;
}

TEST(WmfWriter, WritesALineByteForByte) {
    CWmfWriter writer = Writer();
    writer.Polyline(CPolyline{{0, 0}, {10, 20}}, kPen);
    // Laid out by hand from the published format: the placeable header with the exclusive or of its words, the header
    // with 54 words, one object and a largest record of 8 words, then nine records.
    EXPECT_EQ(
        writer.Finish(),
        Bytes({0xD7, 0xCD, 0xC6, 0x9A, 0,    0,    0,  0, 0,   0, 100, 0, 50, 0, 0xA0, 0x05, 0, 0, 0, 0, 0xE7, 0x52,  //
               1,    0,    9,    0,    0,    3,    54, 0, 0,   0, 1,   0, 8,  0, 0,    0,    0, 0,                    //
               5,    0,    0,    0,    0x0B, 0x02, 0,  0, 0,   0,                                                     //
               5,    0,    0,    0,    0x0C, 0x02, 50, 0, 100, 0,                                                     //
               4,    0,    0,    0,    0x02, 0x01, 1,  0,                                                             //
               4,    0,    0,    0,    0x06, 0x01, 2,  0,                                                             //
               4,    0,    0,    0,    0x2E, 0x01, 24, 0,                                                             //
               8,    0,    0,    0,    0xFA, 0x02, 0,  0, 3,   0, 0,   0, 1,  2, 3,    0,                             //
               4,    0,    0,    0,    0x2D, 0x01, 0,  0,                                                             //
               8,    0,    0,    0,    0x25, 0x03, 2,  0, 0,   0, 0,   0, 10, 0, 20,   0,                             //
               3,    0,    0,    0,    0,    0}));
}

TEST(WmfWriter, WritesATextByteForByte) {
    CWmfWriter writer = Writer();
    const std::array<std::int16_t, 3> advances{7, 8, 9};
    writer.Text({{10, 20}, "abc", advances, {12, 900, true, true}, 0x0000FF});
    const std::string file = writer.Finish();
    const std::string records =
        Bytes({15,  0, 0, 0, 0xFB, 0x02, 0xF4, 0xFF, 0,    0,   0x84, 0x03, 0x84, 0x03, 0xBC, 0x02,  //
               1,   0, 0, 0, 0,    0,    0,    0x22, 'A',  'r', 'i',  'a',  'l',  0,                 //
               4,   0, 0, 0, 0x2D, 0x01, 0,    0,                                                    //
               5,   0, 0, 0, 0x09, 0x02, 0,    0,    0xFF, 0,                                        //
               12,  0, 0, 0, 0x32, 0x0A, 20,   0,    10,   0,   3,    0,    0,    0,    'a',  'b',
               'c', 0, 7, 0, 8,    0,    9,    0,  //
               3,   0, 0, 0, 0,    0});
    ASSERT_GE(file.size(), records.size());
    EXPECT_EQ(file.substr(file.size() - records.size()), records);
}

TEST(WmfWriter, AnEmptyPictureIsSound) {
    const CWmfPicture picture = ReadWmf(Writer().Finish());
    EXPECT_EQ(picture.fault, "");
    EXPECT_EQ(picture.width, 100);
    EXPECT_EQ(picture.height, 50);
    EXPECT_EQ(picture.unitsPerInch, 1440);
}

TEST(WmfWriter, PointsThatRoundToOneAreWrittenOnce) {
    CWmfWriter writer = Writer();
    writer.Polyline(CPolyline{{1.0, 1.0}, {1.2, 1.3}, {0.9, 0.8}, {2.6, 1.0}}, kPen);
    const CWmfPicture picture = ReadWmf(writer.Finish());
    ASSERT_THAT(picture.lines, SizeIs(1));
    EXPECT_THAT(picture.lines[0].points, ElementsAre(CWmfPlace{1, 1}, CWmfPlace{3, 1}));
}

TEST(WmfWriter, ALineThatRoundsToOnePointIsLeftOut) {
    CWmfWriter writer = Writer();
    writer.Polyline(CPolyline{{1.0, 1.0}, {1.2, 1.3}}, kPen);
    writer.Polyline(CPolyline{}, kPen);
    EXPECT_THAT(ReadWmf(writer.Finish()).lines, SizeIs(0));
}

TEST(WmfWriter, SplitsLongLinesAtASharedPoint) {
    for (const int count : {7999, 8000, 8001, 15999, 16000, 20000}) {
        CWmfWriter writer = Writer();
        writer.Polyline(Zigzag(count), kPen);
        const CWmfPicture picture = ReadWmf(writer.Finish());
        ASSERT_EQ(picture.fault, "") << count;
        std::size_t segments = 0;
        CWmfPlace end = picture.lines[0].points.front();
        for (const CReadLine& line : picture.lines) {
            EXPECT_EQ(line.points.front(), end);
            segments += line.points.size() - 1;
            end = line.points.back();
        }
        EXPECT_EQ(segments, static_cast<std::size_t>(count - 1)) << count;
        EXPECT_EQ(picture.lines.size(), static_cast<std::size_t>((count - 2) / 7999 + 1)) << count;
    }
}

TEST(WmfWriter, WritesAnObjectOnlyWhenItChanges) {
    CWmfWriter writer = Writer();
    writer.Polyline(CPolyline{{0, 0}, {1, 1}}, kPen);
    const std::size_t before = CWmfWriter(writer).Finish().size();
    writer.Polyline(CPolyline{{0, 0}, {1, 1}}, kPen);
    EXPECT_EQ(writer.Finish().size(), before + 16);
}

TEST(WmfWriter, ChangesOfPensBrushesAndFontsReuseTheSlots) {
    CWmfWriter writer = Writer();
    const std::vector<CPolyline> square{{{0, 0}, {9, 0}, {9, 9}}};
    const std::array<std::int16_t, 1> advance{5};
    for (int round = 0; round < 20; ++round) {
        const auto value = static_cast<std::uint16_t>(round + 1);
        writer.Polyline(CPolyline{{0, 0}, {1, 1}}, {value, value});
        writer.Fill(square, value);
        writer.Text({{1, 1}, "a", advance, {static_cast<std::int16_t>(value), 0, false, false}, value});
    }
    const std::string file = writer.Finish();
    EXPECT_LE(file[32], 4);  // objects, as the header has them
    const CWmfPicture picture = ReadWmf(file);
    ASSERT_EQ(picture.fault, "");
    ASSERT_THAT(picture.lines, SizeIs(20));
    ASSERT_THAT(picture.areas, SizeIs(20));
    ASSERT_THAT(picture.texts, SizeIs(20));
    EXPECT_EQ(picture.lines[19].penWidth, 20);
    EXPECT_EQ(picture.areas[18].rgb, 19U);
    EXPECT_EQ(picture.texts[17].height, -18);
    EXPECT_EQ(picture.texts[17].rgb, 18U);
}

TEST(WmfWriter, FillsSeveralOutlinesTogether) {
    CWmfWriter writer = Writer();
    const std::vector<CPolyline> ring{{{0, 0}, {9, 0}, {9, 9}}, {{2, 2}, {3, 3}, {2, 4}}, {{5, 5}, {5.1, 5.1}, {5, 5}}};
    writer.Fill(ring, 0x123456);
    const CWmfPicture picture = ReadWmf(writer.Finish());
    ASSERT_EQ(picture.fault, "");
    ASSERT_THAT(picture.areas, SizeIs(1));
    EXPECT_THAT(picture.areas[0].outlines, SizeIs(2));  // the third is no larger than a point
    EXPECT_EQ(picture.areas[0].rgb, 0x123456U);
}

TEST(WmfWriter, AnEmptyTextIsLeftOut) {
    CWmfWriter writer = Writer();
    writer.Text({{1, 1}, "", {}, {}, 0});
    EXPECT_THAT(ReadWmf(writer.Finish()).texts, SizeIs(0));
}

TEST(WmfReader, FindsWhatIsWrong) {
    CWmfWriter writer = Writer();
    writer.Polyline(CPolyline{{0, 0}, {10, 20}}, kPen);
    const std::string sound = writer.Finish();
    const auto with = [&sound](std::size_t position, char value) {
        std::string broken = sound;
        broken[position] = value;
        return ReadWmf(broken).fault;
    };
    EXPECT_EQ(with(20, 0), "The checksum is wrong.");
    EXPECT_EQ(with(28, 1), "The header gives a different size.");
    EXPECT_EQ(with(32, 0), "There are more objects than the header says.");
    EXPECT_EQ(with(34, 9), "The header gives a different largest record.");
    EXPECT_EQ(with(44, 0), "A record has an unknown function.");
    EXPECT_EQ(with(sound.size() - 8, 60), "A point is outside.");
    EXPECT_EQ(ReadWmf(sound.substr(0, sound.size() - 6)).fault, "The header gives a different size.");
}

}  // namespace
