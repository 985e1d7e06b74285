#include "files/ascii_points.h"
#include "files/points.h"
#include "files/uds_file.h"
#include "tests/support/allocation_count.h"
#include "tests/support/expect_error.h"
#include "tests/support/temp_folder.h"
#include "tests/support/uds_bytes.h"
#include "tests/support/uds_image.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace ks {
namespace {

constexpr std::int32_t kMillion = 1000000;

/// Allocations that `call` makes.
template <class Call>
std::size_t AllocationsOf(Call call) {
    const std::size_t before = AllocationCount();
    call();
    return AllocationCount() - before;
}

class MillionPoints : public testing::Test {
protected:
    CUDS1992 MakeFile() {
        CUDS1992 file;
        CPointColumns columns;
        for (int i = 0; i < kMillion; ++i) {
            columns.x.push_back(i * 1e-4);
            columns.y.push_back(i % 1000);
        }
        file.SetColumns(std::move(columns));
        file.Fields().SetNLP(kMillion - 1);
        file.Fields().Setdelt(1e-4F);
        return file;
    }
    CTempFolder m_folder;
};

TEST_F(MillionPoints, AreReadWithFewAllocations) {
    for (const char* const form : {"X-Y", "Y"}) {
        const std::string path = m_folder.Path("million.uds");
        CUDS1992 written = MakeFile();
        written.Fields().SetFILEFORM(form);
        written.Write(path);

        CUDS1992 file;
        EXPECT_LT(AllocationsOf([&] { file.Read(path); }), 60U) << form;
        ASSERT_EQ(file.Columns().Count(), std::size_t{kMillion});
    }
}

TEST_F(MillionPoints, AreReadFromTextWithFewAllocations) {
    std::string text;
    for (int i = 0; i < kMillion; ++i) text += std::to_string(i) + " 1\n";
    const std::string path = m_folder.Write("million.txt", text);

    CPoints points;
    EXPECT_LT(AllocationsOf([&] { points.ReadFile(path); }), 60U);
    ASSERT_EQ(points.Columns().Count(), std::size_t{kMillion});
}

TEST_F(MillionPoints, AreWrittenWithFewAllocations) {
    CUDS1992 file = MakeFile();
    EXPECT_LT(AllocationsOf([&] { file.MakeImage(); }), 200U);
}

TEST_F(MillionPoints, BecomeAListWithFewAllocations) {
    CUDS1992 file = MakeFile();
    EXPECT_LT(AllocationsOf([&] { EXPECT_EQ(file.Points().size(), std::size_t{kMillion}); }), 10U);
}

// Point numbers may promise more than any memory holds; the file's size decides.
TEST(DamagedFile, NeverMakesRoomForWhatItPromises) {
    CUDSRecipe recipe;
    recipe.firstPoint = -2147483647;
    recipe.lastPoint = 2147483647;
    const CUDSBytes bytes = UdsFile(recipe);
    CUDS1992 file;
    ResetLargestAllocation();
    EXPECT_EQ(ErrorOf([&] { ReadImage(file, bytes.Text()); }), "File size too small - Insufficient data points");
    EXPECT_LT(LargestAllocation(), 100000U);

    file.Fields().SetNFP(-2147483647);
    file.Fields().SetNLP(2147483647);
    ResetLargestAllocation();
    EXPECT_EQ(ErrorOf([&] { file.MakeImage(); }), "NLP - NFP + 1: 4294967295 does not equal to array size: 0");
    EXPECT_LT(LargestAllocation(), 100000U);
}

TEST(DamagedFile, OfGigabytesTakesNoGigabytes) {
    const CTempFolder folder;
    CUDSRecipe recipe;
    recipe.lastPoint = 300000000;
    const std::string path = folder.Write("sparse.uds", UdsHeaders(recipe).Text());
    std::filesystem::resize_file(path, std::uint64_t{4} << 30U);
    CUDS1992 file;
    ResetLargestAllocation();
    EXPECT_EQ(ErrorOf([&] { file.Read(path); }), "Unknown Data Block");
    EXPECT_LE(LargestAllocation(), std::size_t{8} << 20U);
}

TEST(DamagedFile, TakesMemoryByTheValuesThatItHas) {
    const CTempFolder folder;
    CUDSRecipe recipe;
    recipe.fileForm = "Y";
    recipe.lastPoint = 300000000;
    CUDSBytes bytes = UdsHeaders(recipe);
    const std::vector<double> values(125, 1.0);
    for (int i = 0; i < 8400; ++i) bytes.AddBlock("Y DATA", values);  // a little more than 2^20 values
    const std::string path = folder.Write("sparse.uds", bytes.Text());
    std::filesystem::resize_file(path, std::uint64_t{4} << 30U);
    CUDS1992 file;
    ResetLargestAllocation();
    EXPECT_EQ(ErrorOf([&] { file.Read(path); }), "Unknown Data Block");
    EXPECT_LE(LargestAllocation(), std::size_t{65} << 20U);
}

}  // namespace
}  // namespace ks
