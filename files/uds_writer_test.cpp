#include "files/uds_writer.h"

#include "files/number_format.h"
#include "files/points.h"
#include "files/uds_content.h"
#include "files/uds_field_table.h"
#include "files/uds_file.h"
#include "files/uds_layout.h"
#include "tests/support/expect_error.h"
#include "tests/support/uds_bytes.h"
#include "tests/support/uds_image.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace ks {
namespace {

using testing::Each;
using testing::ElementsAre;

constexpr CNumberFormats kIeeeMachine{CByteOrder::LittleEndian, CNumberFormat::Ieee};

std::string TextOf(const std::vector<std::byte>& bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// A file object with `count` points (i / 8, 100 - i) and the default header.
CUDS1992 FileOf(std::int32_t count) {
    CUDS1992 file;
    CPointColumns columns;
    for (std::int32_t i = 0; i < count; ++i) {
        columns.x.push_back(i / 8.0);
        columns.y.push_back(100.0 - i);
    }
    file.SetColumns(columns);
    file.Fields().SetNLP(count - 1);
    return file;
}

std::string ImageOf(CUDS1992 file) {
    return TextOf(file.MakeImage());
}

/// The bytes of a new file with two points, made by hand.
CUDSBytes NewFile(CUdsNumbers numbers, const std::string& numform) {
    CUDSBytes bytes(numbers);
    bytes.AddRecord();
    const auto blank = [&bytes](std::size_t offset, std::size_t width) { bytes.PutText(offset, width, ""); };
    bytes.PutText(0, 12, "UDS-1992").PutInteger(12, 1).PutText(16, 10, "X-Y").PutText(26, 5, numform);
    bytes.PutText(31, 3, "MET").PutText(34, 15, "USER DATA").PutText(53, 12, "0").PutText(135, 25, "OTHER");
    bytes.PutText(170, 3, "OTH").PutText(315, 20, "NONE").PutText(335, 20, "NONE");
    blank(65, 70);
    blank(160, 10);
    blank(185, 2 + 30 + 15 + 25);
    blank(261, 25 + 4);
    blank(298, 6);
    blank(308, 1);
    blank(313, 2);
    blank(379, 1);

    bytes.AddRecord();
    bytes.PutText(512, 12, "CURVE HDR").PutInteger(524, 1).PutText(528, 10, "X-Y").PutText(542, 12, "0");
    blank(554, 30 + 2);
    blank(598, 2 + 20 + 20);
    bytes.PutText(640, 20, "TIME").PutText(660, 20, "SECONDS").PutText(680, 20, "COMPUTED");
    bytes.PutText(700, 20, "TIME SERIES").PutText(720, 70, "COMPUTED / SIMULATED DATA");
    bytes.PutInteger(790, -1).PutInteger(794, 0).PutReal(798, 0.25);
    blank(866, 20 + 70);
    return bytes.AddBlock("Y DATA", {1.5, -2.25}).AddBlock("X DATA", {-0.25, 1e-3});
}

CUDS1992 NewFileObject() {
    CUDS1992 file;
    file.SetColumns({{-0.25, 1e-3}, {1.5, -2.25}, {}});
    file.Fields().SetNFP(-1);
    file.Fields().SetNLP(0);
    file.Fields().Setdelt(0.25F);
    return file;
}

TEST(UdsWriter, WritesAnIeeeFileByteForByte) {
    if (ProbeMachineFormats().numberFormat != CNumberFormat::Ieee) GTEST_SKIP() << "this machine is not little-endian";
    EXPECT_EQ(ImageOf(NewFileObject()), NewFile(CUdsNumbers::Ieee, "IEEE").Text());
}

TEST(UdsWriter, WritesASunFileByteForByte) {
    CUDS1992 file = NewFileObject();
    file.SetSunOutput(true);
    EXPECT_EQ(TextOf(file.MakeImage()), NewFile(CUdsNumbers::Sun, "SUN").Text());
    EXPECT_EQ(file.Fields().GetNUMFORM(), "SUN");
    EXPECT_EQ(file.NumberFormatName(), "SUN");
}

TEST(UdsWriter, WritesTheFormatOfAVaxMachine) {
    CUDSContent content;
    content.fields = NewFileObject().Fields();
    content.fields.SetNUMFORM("VAX");
    content.columns = NewFileObject().TakeColumns();
    content.formats = {CByteOrder::LittleEndian, CNumberFormat::Vax};
    EXPECT_EQ(TextOf(MakeUdsImage(content, CUDSGeometry{}, kIeeeMachine)), NewFile(CUdsNumbers::Vax, "VAX").Text());
}

TEST(UdsWriter, PutsTheSecondComponentBetweenTheHeaders) {
    CUDS1992 file = NewFileObject();
    file.SetSecondComponent(true);
    file.Fields().SetCMPNO2(258);
    file.Fields().SetRSTSEC2("BELT");
    const std::string without = ImageOf(NewFileObject());

    const std::string with = ImageOf(file);

    EXPECT_EQ(with.substr(0, 512), without.substr(0, 512));
    EXPECT_EQ(with.substr(1024), without.substr(512));
    EXPECT_EQ(with.substr(512, 12), "CMP-2 HDR   ");
    EXPECT_EQ(with.substr(512 + 12, 4), std::string("\2\1\0\0", 4));
    EXPECT_EQ(with.substr(512 + 166, 20), "BELT                ");
    EXPECT_THAT(with.substr(512 + 186, 512 - 186), Each('\0'));
}

TEST(UdsWriter, PutsOrdinatesBeforeAbscissasAndPadsWithZeros) {
    const std::string image = ImageOf(FileOf(126));
    ASSERT_EQ(image.size(), 1024U + 4U * 512U);
    EXPECT_EQ(image.substr(1024, 12), "Y DATA      ");
    EXPECT_EQ(image.substr(1536, 12), "Y DATA      ");
    EXPECT_EQ(image.substr(2048, 12), "X DATA      ");
    EXPECT_EQ(image.substr(2560, 12), "X DATA      ");
    EXPECT_NE(image.substr(1536 + 12, 4), std::string(4, '\0'));
    EXPECT_THAT(image.substr(1536 + 16, 496), Each('\0'));
    EXPECT_THAT(image.substr(2560 + 16, 496), Each('\0'));
}

TEST(UdsWriter, NeedsNoPaddingForAWholeRecord) {
    EXPECT_EQ(ImageOf(FileOf(250)).size(), 1024U + 4U * 512U);
}

TEST(UdsWriter, WritesOrdinatesOnlyInTheYForm) {
    CUDS1992 file = FileOf(126);
    file.Fields().SetFILEFORM("Y");
    const std::string image = ImageOf(file);
    ASSERT_EQ(image.size(), 1024U + 2U * 512U);
    EXPECT_EQ(image.substr(1024, 12), "Y DATA      ");
    EXPECT_EQ(image.substr(1536, 12), "Y DATA      ");
}

TEST(UdsWriter, WritesHeadersOnlyInAnyOtherForm) {
    CUDS1992 file = FileOf(126);
    file.Fields().SetFILEFORM("Z");
    EXPECT_EQ(ImageOf(file).size(), 1024U);
}

TEST(UdsWriter, CutsAndPadsTexts) {
    CUDS1992 file = FileOf(2);
    file.Fields().SetTSTREF("0123456789ABC");
    file.Fields().SetTSTCFN("F");
    const std::string image = ImageOf(file);
    EXPECT_EQ(image.substr(160, 10), "0123456789");
    EXPECT_EQ(image.substr(170, 3), "F  ");
    EXPECT_EQ(image.substr(173, 4), std::string(4, '\0'));
}

TEST(UdsWriter, WritesLatin1AndCutsItsBytes) {
    CUDS1992 file = FileOf(2);
    file.Fields().SetTSTCFN("\xC3\xA4\xC3\xB6\xC3\xBC\xC3\x9F");
    file.Fields().SetTSTREF("5 \xE2\x82\xAC!");
    const std::string image = ImageOf(file);
    EXPECT_EQ(image.substr(170, 3), "\xE4\xF6\xFC");
    EXPECT_EQ(image.substr(160, 10), "5 ?!      ");
}

TEST(UdsWriter, PutsEachUserRealAtItsOwnPlaceThoughTheReaderTakesTheFirst) {
    CUDS1992 file = FileOf(2);
    CUDSFields& fields = file.Fields();
    fields.SetRD1(1.0F);
    fields.SetRD2(2.0F);
    fields.SetRD3(3.0F);
    fields.SetRD4(4.0F);
    fields.SetRD5(5.0F);
    CUDSBytes reals;
    reals.Resize(20).PutReal(0, 1.0).PutReal(4, 2.0).PutReal(8, 3.0).PutReal(12, 4.0).PutReal(16, 5.0);

    const std::vector<std::byte> image = file.MakeImage();
    CUDS1992 back;
    ReadImage(back, TextOf(image));

    EXPECT_EQ(TextOf(image).substr(512 + 334, 20), reals.Text());
    EXPECT_THAT(std::vector<float>({back.Fields().GetRD1(), back.Fields().GetRD2(), back.Fields().GetRD3(),
                                    back.Fields().GetRD4(), back.Fields().GetRD5()}),
                Each(1.0F));
}

TEST(UdsWriter, CompletesATwoDigitYearInFileAndFields) {
    CUDS1992 file = FileOf(2);
    file.Fields().SetYEAR1(50);
    file.Fields().SetYEAR2(50);
    CUDSBytes year;
    year.Resize(4).PutInteger(0, 1950);
    EXPECT_EQ(TextOf(file.MakeImage()).substr(257, 4), year.Text());
    EXPECT_EQ(file.Fields().GetYEAR1(), 1950);
    EXPECT_EQ(file.Fields().GetYEAR2(), 50);
}

TEST(UdsWriter, NarrowsBeyondTheRangeToInfinity) {
    CUDS1992 file = FileOf(2);
    file.SetColumns({{0.0, 1.0}, {1e300, -1e300}, {}});
    const std::vector<std::byte> image = file.MakeImage();
    CUDS1992 back;
    ReadImage(back, TextOf(image));
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    EXPECT_THAT(back.Columns().y, ElementsAre(kInfinity, -kInfinity));
}

// Refusals, in the order of the checks.

TEST(UdsWriterRefuses, CrossedBeforeEqualIndices) {
    CUDS1992 file = FileOf(2);
    file.Fields().SetNFP(2);
    EXPECT_EQ(ErrorOf([&] { file.MakeImage(); }), "Crossed array indices, NFP > NLP");
    file.Fields().SetNLP(2);
    EXPECT_EQ(ErrorOf([&] { file.MakeImage(); }), "Equal array indices, NFP = NLP");
}

TEST(UdsWriterRefuses, AnEmptySignal) {
    EXPECT_EQ(ErrorOf([] { CUDS1992().MakeImage(); }), "Equal array indices, NFP = NLP");
}

TEST(UdsWriterRefuses, PointsThatAreNotAsManyAsTheirNumbersSay) {
    CUDS1992 file = FileOf(3);
    file.Fields().SetNLP(3);
    EXPECT_EQ(ErrorOf([&] { file.MakeImage(); }), "NLP - NFP + 1: 4 does not equal to array size: 3");
    file.Fields().SetNLP(1);
    EXPECT_EQ(ErrorOf([&] { file.MakeImage(); }), "NLP - NFP + 1: 2 does not equal to array size: 3");
}

TEST(UdsWriterRefuses, AllPointNumbersWithoutMakingRoomForThem) {
    CUDS1992 file = FileOf(2);
    file.Fields().SetNFP(std::numeric_limits<std::int32_t>::min());
    file.Fields().SetNLP(std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(ErrorOf([&] { file.MakeImage(); }), "NLP - NFP + 1: 4294967296 does not equal to array size: 2");
}

TEST(UdsWriterRefuses, ColumnsOfDifferentLengthsInPairs) {
    CUDSContent content;
    content.fields = FileOf(2).Fields();
    content.columns = {{0.0, 1.0, 2.0}, {0.0, 1.0}, {}};
    EXPECT_EQ(ErrorOf([&] { MakeUdsImage(content, CUDSGeometry{}, kIeeeMachine); }),
              "NLP - NFP + 1: 2 does not equal to array size: 3");
}

TEST(UdsWriterRefuses, AMachineOfUnknownFormats) {
    const std::string sentence = "Couldn't set byte order of float format.";
    for (const bool isSun : {false, true}) {
        EXPECT_EQ(ErrorOf([isSun] { OutputFormats(isSun, {CByteOrder::Unknown, CNumberFormat::Ieee}); }), sentence);
        EXPECT_EQ(ErrorOf([isSun] {
                      OutputFormats(isSun, {CByteOrder::LittleEndian, CNumberFormat::Unknown});
                  }),
                  sentence);
    }
}

TEST(OutputFormats, AreTheMachinesOwnOrSun) {
    EXPECT_EQ(OutputFormats(false, kIeeeMachine).numberFormat, CNumberFormat::Ieee);
    EXPECT_EQ(OutputFormats(false, kIeeeMachine).byteOrder, CByteOrder::LittleEndian);
    EXPECT_EQ(OutputFormats(true, kIeeeMachine).numberFormat, CNumberFormat::Sun);
    EXPECT_EQ(OutputFormats(true, kIeeeMachine).byteOrder, CByteOrder::BigEndian);
}

// Round trips.

/// Gives every field a value of its own that fills its width.
class FieldFiller {
public:
    CUDSFields& fields;
    const CUDSField& field;
    int number;

    void operator()(const CUDSTextAccess& access) const {
        std::string text;
        while (static_cast<int>(text.size()) < field.width) {
            text += static_cast<char>('!' + (number * 7 + static_cast<int>(text.size())) % 90);
        }
        (fields.*access.set)(text);
    }
    void operator()(const CUDSIntegerAccess& access) const { (fields.*access.set)(-70000 * number); }
    void operator()(const CUDSRealAccess& access) const { (fields.*access.set)(1.25F * static_cast<float>(number)); }
};

/// Whether both sets hold the same in a field.
bool SameField(const CUDSFields& a, const CUDSFields& b, const CUDSField& field) {
    return std::visit([&](const auto& access) { return (a.*access.get)() == (b.*access.get)(); }, field.access);
}

class RoundTrip : public testing::TestWithParam<bool> {
protected:
    /// Every field different, except those that the file itself needs.
    CUDS1992 Filled() const {
        CUDS1992 file = FileOf(3);
        int number = 1;
        for (const CUDSField& field : UdsFieldTable()) {
            std::visit(FieldFiller{file.Fields(), field, number++}, field.access);
        }
        file.Fields().SetFILEID("UDS-1992");
        file.Fields().SetFILEFORM("X-Y");
        file.Fields().SetNFP(-7);
        file.Fields().SetNLP(-5);
        file.SetSecondComponent(true);
        file.SetSunOutput(GetParam());
        return file;
    }
};

TEST_P(RoundTrip, KeepsEveryFieldExceptTheFourUserReals) {
    CUDS1992 file = Filled();
    const std::vector<std::byte> image = file.MakeImage();
    CUDS1992 back;
    ReadImage(back, TextOf(image));

    const std::string_view exceptions = "RD2 RD3 RD4 RD5";
    for (const CUDSField& field : UdsFieldTable()) {
        const bool isSame = SameField(file.Fields(), back.Fields(), field);
        EXPECT_EQ(isSame, exceptions.find(field.name) == std::string_view::npos) << field.name;
    }
    EXPECT_EQ(back.Columns().x, file.Columns().x);
    EXPECT_EQ(back.Columns().y, file.Columns().y);
    EXPECT_TRUE(back.HasSecondComponent());
}

TEST_P(RoundTrip, EncodesTheDecodedToTheSameBytes) {
    CUDS1992 first = Filled();
    first.Fields().SetRD2(first.Fields().GetRD1());
    first.Fields().SetRD3(first.Fields().GetRD1());
    first.Fields().SetRD4(first.Fields().GetRD1());
    first.Fields().SetRD5(first.Fields().GetRD1());
    const std::vector<std::byte> image = first.MakeImage();

    CUDS1992 second;
    ReadImage(second, TextOf(image));
    second.SetSunOutput(GetParam());

    EXPECT_EQ(second.MakeImage(), image);
}

INSTANTIATE_TEST_SUITE_P(MachineAndSun, RoundTrip, testing::Bool());

}  // namespace
}  // namespace ks
