#include "files/same_file.h"

#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace ks {
namespace {

namespace fs = std::filesystem;

class SameFile : public testing::Test {
protected:
    /// A path that a test goes through on purpose; CTempFolder::Path may tidy it up.
    std::string In(const std::string& name) const { return m_folder.Path("") + "/" + name; }

    CTempFolder m_folder;
};

TEST_F(SameFile, IsFoundThroughDotsAndFolders) {
    m_folder.Write("a.uds", "1");
    fs::create_directory(In("runs"));
    EXPECT_TRUE(IsSameFile(In("a.uds"), In("a.uds")));
    EXPECT_TRUE(IsSameFile(In("a.uds"), In("./a.uds")));
    EXPECT_TRUE(IsSameFile(In("a.uds"), In("runs/../a.uds")));
    EXPECT_TRUE(IsSameFile(In("a.uds"), In("runs//..//.//a.uds")));
}

TEST_F(SameFile, IsFoundThroughLinksAndSecondNames) {
    m_folder.Write("a.uds", "1");
    fs::create_symlink("a.uds", In("link.uds"));
    fs::create_symlink("link.uds", In("chain.uds"));
    fs::create_hard_link(In("a.uds"), In("second.uds"));
    for (const char* const name : {"link.uds", "chain.uds", "second.uds"}) {
        EXPECT_TRUE(IsSameFile(In("a.uds"), In(name))) << name;
        EXPECT_TRUE(IsSameFile(In(name), In("a.uds"))) << name;
    }
}

TEST_F(SameFile, IsNoOtherFileWithTheSameContent) {
    m_folder.Write("a.uds", "1");
    m_folder.Write("b.uds", "1");
    EXPECT_FALSE(IsSameFile(In("a.uds"), In("b.uds")));
    EXPECT_FALSE(IsSameFile(In("a.uds"), In("new.uds")));
}

TEST_F(SameFile, IsFoundBeforeTheFileExists) {
    fs::create_directory(In("runs"));
    fs::create_symlink("runs", In("also"));
    EXPECT_TRUE(IsSameFile(In("new.uds"), In("./new.uds")));
    EXPECT_TRUE(IsSameFile(In("runs/new.uds"), In("also/new.uds")));
    EXPECT_TRUE(IsSameFile(In("runs/new.uds"), In("runs/../also/new.uds")));
    EXPECT_FALSE(IsSameFile(In("runs/new.uds"), In("new.uds")));
    EXPECT_FALSE(IsSameFile(In("new.uds"), In("New2.uds")));
}

TEST_F(SameFile, IsFoundInAFolderThatDoesNotExistEither) {
    EXPECT_TRUE(IsSameFile(In("later/new.uds"), In("./later//new.uds")));
    EXPECT_TRUE(IsSameFile(In("later/new.uds"), In("later/deeper/../new.uds")));
    EXPECT_TRUE(IsSameFile(In("later/"), In("later")));
    EXPECT_FALSE(IsSameFile(In("later/new.uds"), In("new.uds")));
}

TEST_F(SameFile, IsFoundThroughALinkWhoseEndDoesNotExistYet) {
    fs::create_symlink("new.uds", In("link.uds"));
    fs::create_symlink("link.uds", In("chain.uds"));
    EXPECT_TRUE(IsSameFile(In("link.uds"), In("new.uds")));
    EXPECT_TRUE(IsSameFile(In("chain.uds"), In("link.uds")));
    EXPECT_FALSE(IsSameFile(In("chain.uds"), In("other.uds")));
}

TEST_F(SameFile, IsFoundFromTheCurrentFolder) {
    EXPECT_TRUE(IsSameFile("not-there.uds", "./not-there.uds"));
    EXPECT_TRUE(IsSameFile("not-there.uds", (fs::current_path() / "not-there.uds").string()));
}

TEST_F(SameFile, IsReplacedOnlyWhenItExists) {
    m_folder.Write("a.uds", "1");
    fs::create_symlink("a.uds", In("link.uds"));
    EXPECT_TRUE(WouldReplace(In("link.uds"), In("a.uds")));
    EXPECT_TRUE(WouldReplace(In("./a.uds"), In("link.uds")));
    EXPECT_FALSE(WouldReplace(In("new.uds"), In("new.uds")));
    EXPECT_FALSE(WouldReplace("", ""));
}

TEST_F(SameFile, IsNeverAPathThatNamesNothing) {
    EXPECT_FALSE(IsSameFile("", ""));
    EXPECT_FALSE(IsSameFile("", In("a.uds")));
    EXPECT_FALSE(IsSameFile(std::string("a\0b", 3), std::string("a\0b", 3)));
}

TEST_F(SameFile, EndsInACircleOfLinks) {
    fs::create_symlink("b", In("a"));
    fs::create_symlink("a", In("b"));
    EXPECT_FALSE(IsSameFile(In("a"), In("c")));
}

}  // namespace
}  // namespace ks
