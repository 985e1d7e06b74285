#include "cli/output/streamed_output.h"

#include "cli/output/console.h"
#include "cli/output/outputs.h"
#include "tests/support/failing_disk.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

std::string TextOf(std::FILE* file) {
    std::string text(1000, '\0');
    std::fflush(file);
    std::rewind(file);
    text.resize(std::fread(text.data(), 1, text.size(), file));
    return text;
}

class StreamedOutput : public testing::Test {
protected:
    CTempFolder folder;
    std::unique_ptr<std::FILE, CloseFile> out{std::tmpfile()}, err{std::tmpfile()};
    CConsole console{out.get(), err.get()};
    COutputs outputs{console};
    const std::vector<std::string> rest{" three", " four"};
};

TEST_F(StreamedOutput, IsAFileOnceItIsFinished) {
    const std::string path = folder.Write("old", "old");
    CStreamedOutput output(outputs, "The text", path);
    output.Put("one");
    output.Put(" two");
    EXPECT_EQ(ReadAll(path), "old");
    output.Finish(rest);
    EXPECT_EQ(ReadAll(path), "one two three four");
    EXPECT_EQ(folder.Listing(), "old\n");
    EXPECT_FALSE(outputs.HasFailed());
}

TEST_F(StreamedOutput, WaitsForItsEndOnStandardOutput) {
    CStreamedOutput output(outputs, "The text", "-");
    output.Put("one");
    output.Put(" two");
    EXPECT_EQ(TextOf(out.get()), "");
    output.Finish(rest);
    EXPECT_EQ(TextOf(out.get()), "one two three four");
}

TEST_F(StreamedOutput, OfPiecesOnlyIsWrittenAtOnce) {
    CStreamedOutput file(outputs, "The text", folder.Path("a")), printed(outputs, "The text", "-");
    EXPECT_EQ(folder.Listing(), "");
    file.Finish(rest);
    printed.Finish(rest);
    EXPECT_EQ(ReadAll(folder.Path("a")), " three four");
    EXPECT_EQ(TextOf(out.get()), " three four");
}

TEST_F(StreamedOutput, LeavesNothingUnlessItIsFinished) {
    for (const std::string& path : {folder.Path("new"), folder.Write("old", "old"), std::string("-")}) {
        CStreamedOutput output(outputs, "The text", path);
        output.Put("one");
    }
    EXPECT_EQ(folder.Listing(), "old\n");
    EXPECT_EQ(ReadAll(folder.Path("old")), "old");
    EXPECT_EQ(TextOf(out.get()), "");
    EXPECT_EQ(TextOf(err.get()), "");
}

TEST_F(StreamedOutput, IsOpenedByTheFirstText) {
    CStreamedOutput output(outputs, "The text", folder.Path("folder/a"));
    std::filesystem::create_directory(folder.Path("folder"));
    output.Put("one");
    output.Finish({});
    EXPECT_EQ(ReadAll(folder.Path("folder/a")), "one");
}

TEST_F(StreamedOutput, SaysInTheEndThatItCouldNotBeOpened) {
    CStreamedOutput output(outputs, "The text", folder.Path("missing/a"));
    output.Put("one");
    EXPECT_EQ(TextOf(err.get()), "");
    output.Finish(rest);
    EXPECT_EQ(TextOf(err.get()), "quorvel-cli: The text could not be written; the file cannot be opened for writing: " +
                                     folder.Path("missing/a") + "\n");
}

TEST_F(StreamedOutput, SaysOnceInTheEndThatTheDiskIsFull) {
    const std::string path = folder.Write("old", "old");
    CStreamedOutput output(outputs, "The text", path);
    {
        const CFileSizeLimit fullDisk(1000);
        for (int i = 0; i < 3; ++i) output.Put(std::string(100000, 'x'));
        EXPECT_EQ(TextOf(err.get()), "");
        output.Finish(rest);
    }
    EXPECT_EQ(TextOf(err.get()), "quorvel-cli: The text could not be written in full: " + path + "\n");
    EXPECT_EQ(ReadAll(path), "old");
    EXPECT_EQ(folder.Listing(), "old\n");
}

// What a pipe has got cannot be taken back.
TEST_F(StreamedOutput, ReachesADeviceWhenItIsFinished) {
    if (!std::filesystem::is_character_file("/dev/full")) GTEST_SKIP() << "no /dev/full here";
    CStreamedOutput output(outputs, "The text", "/dev/full");
    output.Put(std::string(100000, 'x'));
    EXPECT_EQ(TextOf(err.get()), "");
    output.Finish(rest);
    EXPECT_EQ(TextOf(err.get()), "quorvel-cli: The text could not be written in full: /dev/full\n");
}

}  // namespace
