#include "files/error.h"
#include "files/uds_field_table.h"
#include "files/uds_file.h"
#include "signal/data.h"
#include "tests/support/allocation_count.h"
#include "tests/support/memory_limit.h"
#include "tests/support/temp_folder.h"
#include "tests/support/uds_bytes.h"

#include <gmock/gmock.h>

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace ks {
namespace {

using testing::ElementsAre;
using testing::SizeIs;
using testing::ThrowsMessage;

/// A file object of three points.
CUDS1992 ThreePoints() {
    CUDS1992 file;
    file.Fields().SetNFP(-1);
    file.Fields().SetNLP(1);
    file.Fields().Setdelt(0.1F);
    file.SetColumns({{-0.1, 0.0, 0.1}, {1.0, -2.0, 4.0}, {}});
    return file;
}

/// Gives every header field a value of its own, wide enough to reach the end of its place in the file.
class CFieldFiller {
public:
    CUDSFields& fields;
    const CUDSField& field;
    int number;

    void operator()(const CUDSTextAccess& access) const {
        std::string text(static_cast<std::size_t>(field.width), static_cast<char>('A' + number % 26));
        const std::string digits = std::to_string(number);
        if (text.size() > digits.size()) text.replace(0, digits.size(), digits);
        (fields.*access.set)(text);
    }
    void operator()(const CUDSIntegerAccess& access) const { (fields.*access.set)(100'000 * number - 7); }
    void operator()(const CUDSRealAccess& access) const { (fields.*access.set)(0.1F * static_cast<float>(number)); }
};

/// The value of a field as text, for comparing.
class CFieldText {
public:
    const CUDSFields& fields;

    std::string operator()(const CUDSTextAccess& access) const { return (fields.*access.get)(); }
    std::string operator()(const CUDSIntegerAccess& access) const { return std::to_string((fields.*access.get)()); }
    std::string operator()(const CUDSRealAccess& access) const {
        return std::to_string(std::bit_cast<std::uint32_t>((fields.*access.get)()));
    }
};

CUDS1992 EveryFieldFilled() {
    CUDS1992 file;
    int number = 10;
    for (const CUDSField& field : UdsFieldTable())
        std::visit(CFieldFiller{file.Fields(), field, number++}, field.access);
    file.Fields().SetFILEID("UDS-1992");
    file.Fields().SetFILEFORM("X-Y");
    file.Fields().SetSTATUS("QUESTIONABLE DATA");
    file.Fields().SetNFP(-3);
    file.Fields().SetNLP(0);
    file.SetColumns({{0.5, 1.5, 2.5, 3.5}, {1.0, -2.0, 4.0, 8.0}, {}});
    file.SetSecondComponent(true);
    return file;
}

// Loading from a file object.

TEST(FromUDSFields, TakesPointsAndFieldsOver) {
    CUDS1992 file = ThreePoints();
    file.Fields().SetTITLE("Frontal");
    CData data;
    data.FromUDSFields(file);

    EXPECT_THAT(data.GetX(), ElementsAre(-0.1, 0.0, 0.1));
    EXPECT_THAT(data.GetY(), ElementsAre(1.0, -2.0, 4.0));
    EXPECT_THAT(data.GetZ(), ElementsAre(0.0, 0.0, 0.0));
    EXPECT_EQ(data.GetYMax(), 4.0);
    EXPECT_EQ(data.GetNFP(), -1);
    EXPECT_EQ(data.GetNLP(), 1);
    EXPECT_EQ(data.GetCount(), 3);
    EXPECT_EQ(data.GetTITLE(), "Frontal");
    EXPECT_FALSE(data.IsModified());
    EXPECT_THAT(file.Points(), SizeIs(3)) << "the file keeps its points";
}

TEST(FromUDSFields, WidensTheRealsAndComputesTheTimes) {
    CData data;
    data.FromUDSFields(ThreePoints());

    EXPECT_EQ(data.Getdelt(), static_cast<double>(0.1F));
    EXPECT_EQ(data.GetStartTime(), -static_cast<double>(0.1F));
    EXPECT_EQ(data.GetEndTime(), static_cast<double>(0.1F));
}

TEST(FromUDSFields, MovesThePointsOutOfAFileThatIsGivenAway) {
    CUDS1992 file = ThreePoints();
    const double* const block = file.Columns().y.data();
    CData data;
    data.FromUDSFields(std::move(file));

    EXPECT_EQ(data.GetY().data(), block);
}

TEST(FromUDSFields, TurnsTheStatusCodeIntoItsWord) {
    CUDS1992 file = ThreePoints();
    file.Fields().SetSTATUS("am");
    CData data;
    data.FromUDSFields(file);

    EXPECT_EQ(data.GetDataStatus(), "AS MEASURED");
    EXPECT_EQ(data.GetSTATUS(), "am");
}

TEST(FromUDSFields, ClassifiesByTheRecordedFrequencies) {
    CUDS1992 file = ThreePoints();
    CData data;
    data.FromUDSFields(file);
    EXPECT_EQ(data.GetCFCClass(), 1001);

    file.Fields().SetPREFIL(300.0F);
    data.FromUDSFields(file);
    EXPECT_EQ(data.GetCFCClass(), 180);

    file.Fields().SetFCUT(1000.0F);
    data.FromUDSFields(file);
    EXPECT_EQ(data.GetCFCClass(), 600);
}

TEST(FromUDSFields, PutsInjuryValueFiveIntoTheFourthFurtherReal) {
    CUDS1992 file = ThreePoints();
    file.Fields().SetINJ1(1.0F);
    file.Fields().SetINJ5(5.0F);
    CData data;
    for (std::size_t i = 0; i < 4; ++i) data.SetFurtherReal(i, 9.0);
    data.FromUDSFields(file);

    EXPECT_EQ(data.GetFurtherReal(0), 0.0);
    EXPECT_EQ(data.GetFurtherReal(1), 0.0);
    EXPECT_EQ(data.GetFurtherReal(2), 0.0);
    EXPECT_EQ(data.GetFurtherReal(3), 5.0);
}

TEST(FromUDSFields, ClearsTheSourceTextsOfAnEarlierFile) {
    CData data;
    data.SetFileType("ASCII File");
    data.SetSourcePath("earlier.txt");
    data.SetSecondComponent(true);
    data.FromUDSFields(ThreePoints());

    EXPECT_EQ(data.GetFileType(), "");
    EXPECT_EQ(data.GetSourcePath(), "");
    EXPECT_FALSE(data.HasSecondComponent());
}

TEST(FromUDSFields, RefusesAFileWithoutPointsAndKeepsTheRecord) {
    CData data;
    data.FromUDSFields(ThreePoints());
    CUDS1992 empty;
    empty.Fields().SetTITLE("empty");

    EXPECT_THAT([&] { data.FromUDSFields(empty); }, ThrowsMessage<CError>("No Information."));
    EXPECT_THAT(data.GetY(), SizeIs(3));
    EXPECT_EQ(data.GetTITLE(), "");
}

// The sentence was "std::bad_alloc".
TEST(SaveUDS, SaysInASentenceThatMemoryIsMissing) {
    if (!CMemoryLimit::IsUsable()) GTEST_SKIP() << "a sanitizer takes the memory";
    constexpr std::size_t kCount = 4 * 1024 * 1024;
    CData data;
    data.Setdelt(0.5);
    data.SetNLP(kCount - 1);
    data.SetData(std::vector<double>(kCount, 1.0));
    const CTempFolder folder;
    const std::string path = folder.Write("old.uds", "old");
    {
        const CMemoryLimit limit(16 * 1024 * 1024);
        EXPECT_THAT([&] { data.SaveUDS(path); },
                    ThrowsMessage<CError>("There is not enough memory to write the file: " + path + "."));
    }
    EXPECT_EQ(ReadAll(path), "old");
}

// Saving into a file object.

TEST(ToUDSFields, PutsPointsAndFieldsIntoTheFile) {
    CData data;
    data.SetData({0.0, 1.0}, {3.0, 4.0});
    data.SetNLP(1);
    data.Setdelt(1.0 / 3.0);
    data.SetTITLE("Frontal");
    data.SetSecondComponent(true);
    CUDS1992 file;
    data.ToUDSFields(file);

    EXPECT_THAT(file.Columns().x, ElementsAre(0.0, 1.0));
    EXPECT_THAT(file.Columns().y, ElementsAre(3.0, 4.0));
    EXPECT_EQ(file.Fields().GetTITLE(), "Frontal");
    EXPECT_EQ(file.Fields().Getdelt(), 1.0F / 3.0F);
    EXPECT_TRUE(file.HasSecondComponent());
}

TEST(ToUDSFields, WritesTheDataStatusAndTheFileIdentification) {
    CData data;
    data.SetFILEID("OTHER");
    data.SetSTATUS("CM");
    data.SetDataStatus("Truncated");
    CUDS1992 file;
    data.ToUDSFields(file);

    EXPECT_EQ(file.Fields().GetFILEID(), "UDS-1992");
    EXPECT_EQ(file.Fields().GetSTATUS(), "TRUNCATED");
    EXPECT_EQ(data.GetFILEID(), "OTHER") << "the record itself stays";
}

TEST(ToUDSFields, StoresPairsWhereThereIsNoTimeStep) {
    CData data;
    data.SetFILEFORM("Y");
    CUDS1992 file;
    data.ToUDSFields(file);
    EXPECT_EQ(file.Fields().GetFILEFORM(), "X-Y");

    data.Setdelt(0.001);
    data.ToUDSFields(file);
    EXPECT_EQ(file.Fields().GetFILEFORM(), "Y");
}

// Files.

class UdsRecord : public testing::Test {
protected:
    CTempFolder m_folder;

    CData Loaded(const CUDSRecipe& recipe) {
        CData data;
        data.LoadUDS(m_folder.Write("signal.uds", UdsFile(recipe).Text()));
        return data;
    }
};

TEST_F(UdsRecord, LoadsAHandMadeFileOfEachNumberFormat) {
    for (const auto& [numbers, name] :
         {std::pair{CUdsNumbers::Ieee, "IEEE"}, {CUdsNumbers::Sun, "SUN"}, {CUdsNumbers::Vax, "VAX"}}) {
        CUDSRecipe recipe;
        recipe.numbers = numbers;
        const CData data = Loaded(recipe);

        EXPECT_THAT(data.GetX(), ElementsAre(0.0, 0.5, 1.0)) << name;
        EXPECT_THAT(data.GetY(), ElementsAre(1.0, -2.0, 4.0)) << name;
        EXPECT_EQ(data.Getdelt(), 0.5) << name;
        EXPECT_EQ(data.GetCount(), 3) << name;
        EXPECT_EQ(data.GetYUNITS(), "G'S") << name;
        EXPECT_EQ(data.GetDataStatus(), "AS MEASURED") << name;
        EXPECT_EQ(data.GetSourceFormat(), name);
        EXPECT_EQ(data.GetSourcePath(), m_folder.Path("signal.uds"));
    }
}

TEST_F(UdsRecord, IsUnchangedWhenLoadingFails) {
    CData data = Loaded({});
    EXPECT_THAT([&] { data.LoadUDS(m_folder.Write("odd.uds", "short")); },
                ThrowsMessage<CError>("File size not a multiple of 512 bytes."));
    EXPECT_THAT([&] { data.LoadUDS(""); }, ThrowsMessage<CError>("Failure read file due to empty path and file name."));

    EXPECT_THAT(data.GetY(), SizeIs(3));
    EXPECT_EQ(data.GetSourcePath(), m_folder.Path("signal.uds"));
    EXPECT_EQ(data.GetYUNITS(), "G'S");
}

TEST_F(UdsRecord, SavesAndLoadsDataStatusPointsAndNumbers) {
    CData data = Loaded({});
    data.TruncateByIndex(0, 1);
    data.SaveUDS(m_folder.Path("saved.uds"));
    CData saved;
    saved.LoadUDS(m_folder.Path("saved.uds"));

    EXPECT_THAT(saved.GetX(), ElementsAre(0.0, 0.5));
    EXPECT_THAT(saved.GetY(), ElementsAre(1.0, -2.0));
    EXPECT_EQ(saved.GetNLP(), 1);
    EXPECT_EQ(saved.GetDataStatus(), "TRUNCATED");
    EXPECT_EQ(saved.GetSourceFormat(), "IEEE");
    EXPECT_FALSE(saved.IsModified());
}

TEST_F(UdsRecord, KeepsEveryFieldFromLoadToSave) {
    CUDS1992 original = EveryFieldFilled();
    original.Write(m_folder.Path("original.uds"));
    CData data;
    data.LoadUDS(m_folder.Path("original.uds"));
    data.SaveUDS(m_folder.Path("copy.uds"));
    CUDS1992 copy;
    copy.Read(m_folder.Path("copy.uds"));

    EXPECT_TRUE(copy.HasSecondComponent());
    EXPECT_EQ(copy.Columns().x, original.Columns().x);
    EXPECT_EQ(copy.Columns().y, original.Columns().y);
    for (const CUDSField& field : UdsFieldTable()) {
        if (field.name.substr(0, 2) == "RD") continue;
        EXPECT_EQ(std::visit(CFieldText{copy.Fields()}, field.access),
                  std::visit(CFieldText{original.Fields()}, field.access))
            << field.name;
    }
    // A reader gives all five user reals the first one's value.
    EXPECT_EQ(copy.Fields().GetRD1(), original.Fields().GetRD1());
    EXPECT_EQ(copy.Fields().GetRD5(), original.Fields().GetRD1());
}

TEST_F(UdsRecord, WritesTheSameBytesAfterASecondLoad) {
    EveryFieldFilled().Write(m_folder.Path("original.uds"));
    CData data;
    data.LoadUDS(m_folder.Path("original.uds"));
    data.SaveUDS(m_folder.Path("first.uds"));
    data.LoadUDS(m_folder.Path("first.uds"));
    data.SaveUDS(m_folder.Path("second.uds"));

    EXPECT_EQ(ReadAll(m_folder.Path("first.uds")), ReadAll(m_folder.Path("second.uds")));
}

TEST_F(UdsRecord, SavesACodeAsItsWord) {
    CUDS1992 file = ThreePoints();
    file.Fields().SetSTATUS("SC");
    CData data;
    data.FromUDSFields(file);
    data.SaveUDS(m_folder.Path("saved.uds"));
    file.Read(m_folder.Path("saved.uds"));

    EXPECT_EQ(file.Fields().GetSTATUS(), "SCALING FACTOR");
}

TEST_F(UdsRecord, PassesTheWritersSentencesOn) {
    CData data = Loaded({});
    EXPECT_THAT([&] { data.SaveUDS(""); },
                ThrowsMessage<CError>("Failure to write file due to empty path and file name."));
    data.SetNLP(4);
    EXPECT_THAT([&] { data.SaveUDS(m_folder.Path("saved.uds")); },
                ThrowsMessage<CError>("NLP - NFP + 1: 5 does not equal to array size: 3"));
    data.SetNLP(0);
    EXPECT_THAT([&] { data.SaveUDS(m_folder.Path("saved.uds")); },
                ThrowsMessage<CError>("Equal array indices, NFP = NLP"));
    data.SetNFP(1);
    EXPECT_THAT([&] { data.SaveUDS(m_folder.Path("saved.uds")); },
                ThrowsMessage<CError>("Crossed array indices, NFP > NLP"));
}

TEST_F(UdsRecord, LoadsAMillionSamplesWithFewAllocations) {
    constexpr std::size_t kSamples = 1'000'000;
    CUDS1992 file;
    file.Fields().SetNLP(static_cast<std::int32_t>(kSamples) - 1);
    file.Fields().Setdelt(0.5F);
    CPointColumns columns;
    for (std::size_t i = 0; i < kSamples; ++i) {
        columns.x.push_back(0.5 * static_cast<double>(i));
        columns.y.push_back(static_cast<double>(i % 97));
    }
    file.SetColumns(std::move(columns));
    const std::string path = m_folder.Path("million.uds");
    file.Write(path);

    CData data;
    const std::size_t before = AllocationCount();
    data.LoadUDS(path);
    const std::size_t allocations = AllocationCount() - before;

    EXPECT_THAT(data.GetY(), SizeIs(kSamples));
    EXPECT_GT(allocations, 0U) << "the counter counts";
    EXPECT_LT(allocations, 100U);
}

TEST(FromUDSFields, KeepsTheAbscissasThatAReaderMadeAsARule) {
    CUDS1992 file;
    file.Fields().SetFILEFORM("Y");
    file.Fields().SetNFP(-20);
    file.Fields().SetNLP(979);
    file.Fields().Setdelt(0.001F);
    std::vector<double> x;
    for (int i = -20; i <= 979; ++i) x.push_back(static_cast<double>(static_cast<float>(i) * 0.001F));
    file.SetColumns({x, std::vector<double>(1000, 1.0), {}});
    CData data;
    data.FromUDSFields(file);
    ASSERT_NE(data.GetX().Rule(), nullptr);
    EXPECT_EQ(data.GetX(), x);
    EXPECT_EQ(data.GetXMin(), x.front());
    EXPECT_EQ(data.GetXMax(), x.back());

    x[777] = std::nextafter(x[777], 0.0);
    file.SetColumns({x, std::vector<double>(1000, 1.0), {}});
    data.FromUDSFields(file);
    EXPECT_EQ(data.GetX().Rule(), nullptr);
    EXPECT_EQ(data.GetX(), x);
}

}  // namespace
}  // namespace ks
