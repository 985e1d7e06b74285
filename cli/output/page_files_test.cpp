#include "cli/output/page_files.h"

#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(PageFiles, NameThePageAndTheSeries) {
    EXPECT_EQ(AsciiPagePath("folder", 10), "folder/page-10.txt");
    EXPECT_EQ(UdsPagePath("folder/", 7, 12), "folder/page-7-12.uds");
}

TEST(PageFiles, AreKnownByTheirExactNames) {
    for (const char* const name : {"page-1-1.uds", "page-11-1.uds", "page-7-1234.uds"}) {
        EXPECT_TRUE(IsUdsPageName(name)) << name;
    }
    for (const char* const name : {"",
                                   "page-7.uds",
                                   "page-7-1.UDS",
                                   "Page-7-1.uds",
                                   "page-07-1.uds",
                                   "page-7-01.uds",
                                   "page-7-0.uds",
                                   "page-7--1.uds",
                                   "page-+7-1.uds",
                                   "page-7-1.uds.bak",
                                   "my-page-7-1.uds",
                                   "page-7-1x.uds",
                                   "page-7- 1.uds",
                                   "page-7-1-2.uds",
                                   "page-0-1.uds",
                                   "page--7-1.uds",
                                   "page-1000-1.uds",
                                   "page-.uds",
                                   "page-7-.uds",
                                   "page-7-99999999999999999999.uds",
                                   "page-4294967303-1.uds"}) {
        EXPECT_FALSE(IsUdsPageName(name)) << name;
    }
}

TEST(PageFiles, InAFolderAreFilesAndLinks) {
    const CTempFolder folder;
    folder.Write("page-7-2.uds", "");
    folder.Write("page-7-1.uds", "");
    folder.Write("page-7.txt", "");
    std::filesystem::create_symlink("nowhere", folder.Path("page-8-1.uds"));
    std::filesystem::create_directory(folder.Path("page-9-1.uds"));
    EXPECT_THAT(UdsPagesIn(folder.Path("")),
                ElementsAre(folder.Path("page-7-1.uds"), folder.Path("page-7-2.uds"), folder.Path("page-8-1.uds")));
    EXPECT_THAT(UdsPagesIn(folder.Path("missing")), IsEmpty());
}

}  // namespace
