#include "files/input_file.h"

#include "files/byte_source.h"
#include "tests/support/memory_source.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <sys/stat.h>

namespace ks {
namespace {

using namespace std::string_literals;

std::string ReadUpTo(CByteSource& source, std::size_t size) {
    std::string text(size, '?');
    text.resize(source.Read(std::as_writable_bytes(std::span(text))));
    return text;
}

TEST(InputFile, TellsItsSizeAndReadsAllOfIt) {
    const CTempFolder folder;
    CInputFile file;
    ASSERT_TRUE(file.Open(folder.Write("file",
                                       "one\r\ntwo\0\x1A"
                                       "three"s)));
    ASSERT_TRUE(file.FindSize());

    EXPECT_EQ(file.Size(), 15U);
    EXPECT_EQ(ReadUpTo(file, 5), "one\r\n");
    EXPECT_EQ(ReadUpTo(file, 100), "two\0\x1Athree"s);
    EXPECT_EQ(ReadUpTo(file, 100), "");
}

TEST(InputFile, OpensANameBeyondAscii) {
    const CTempFolder folder;
    CInputFile file;
    EXPECT_TRUE(file.Open(folder.Write("gr\xC3\xB6\xC3\x9F", "text")));
}

TEST(InputFile, OpensRegularFilesOnly) {
    const CTempFolder folder;
    ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0600), 0);
    std::filesystem::create_symlink("pipe", folder.Path("link to the pipe"));
    for (const std::string& path : {folder.Path(""), folder.Path("pipe"), folder.Path("link to the pipe"), "/dev/zero"s,
                                    "/dev/tty"s, folder.Path("missing"), ""s, "a\0b"s}) {
        CInputFile file;
        EXPECT_FALSE(file.Open(path)) << path;
    }
}

TEST(InputFile, FollowsALinkToAFile) {
    const CTempFolder folder;
    folder.Write("file", "text");
    std::filesystem::create_symlink("file", folder.Path("link"));
    CInputFile file;
    ASSERT_TRUE(file.Open(folder.Path("link")));
    EXPECT_EQ(ReadUpTo(file, 10), "text");
}

TEST(InputFile, SaysWhenTheSystemTellsNoSize) {
    CInputFile file;
    if (!file.Open("/proc/self/mem")) GTEST_SKIP() << "no /proc here";
    EXPECT_FALSE(file.FindSize());
}

TEST(MemorySource, ReadsFrontToBack) {
    const std::string text = "abcdef";
    CMemorySource source(std::as_bytes(std::span(text)));
    EXPECT_EQ(source.Size(), 6U);
    EXPECT_EQ(ReadUpTo(source, 4), "abcd");
    EXPECT_EQ(ReadUpTo(source, 4), "ef");
    EXPECT_EQ(ReadUpTo(source, 4), "");
    EXPECT_EQ(source.Size(), 6U);
}

}  // namespace
}  // namespace ks
