#include "files/replacing_file.h"

#include "files/messages.h"
#include "tests/support/failing_disk.h"
#include "tests/support/failing_flush.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>

#include <csignal>
#include <filesystem>
#include <new>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ks {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

TEST(WriteFile, MakesANewFile) {
    const CTempFolder folder;
    const std::string bytes = "a\r\nb\nc\0d"s;

    EXPECT_EQ(WriteFile(folder.Path("new"), bytes), CWriteResult::Written);

    EXPECT_EQ(ReadAll(folder.Path("new")), bytes);
    EXPECT_EQ(folder.Listing(), "new\n");
}

TEST(WriteFile, ReplacesAnOldFileWhole) {
    const CTempFolder folder;
    const std::string path = folder.Write("old", "a much longer text than the new one");

    EXPECT_EQ(WriteFile(path, "short"), CWriteResult::Written);

    EXPECT_EQ(ReadAll(path), "short");
    EXPECT_EQ(folder.Listing(), "old\n");
}

TEST(WriteFile, WritesNothingAsAnEmptyFile) {
    const CTempFolder folder;
    const std::string path = folder.Write("old", "text");
    EXPECT_EQ(WriteFile(path, ""), CWriteResult::Written);
    EXPECT_EQ(ReadAll(path), "");
}

TEST(WriteFile, KeepsThePermissionsOfAnOldFile) {
    const CTempFolder folder;
    const std::string path = folder.Write("old", "text");
    for (const unsigned mode : {0640U, 0600U, 0755U}) {
        fs::permissions(path, fs::perms(mode));
        EXPECT_EQ(WriteFile(path, "new"), CWriteResult::Written);
        EXPECT_EQ(fs::status(path).permissions(), fs::perms(mode));
    }
}

TEST(WriteFile, GivesANewFileTheUsualPermissions) {
    const CTempFolder folder;
    const mode_t old = umask(027);
    EXPECT_EQ(WriteFile(folder.Path("new"), "text"), CWriteResult::Written);
    umask(old);
    EXPECT_EQ(fs::status(folder.Path("new")).permissions(), fs::perms(0640));
}

TEST(WriteFile, FollowsALink) {
    const CTempFolder folder;
    const std::string target = folder.Write("target", "old");
    fs::create_symlink("target", folder.Path("link"));
    fs::create_symlink("link", folder.Path("link of a link"));

    EXPECT_EQ(WriteFile(folder.Path("link of a link"), "new"), CWriteResult::Written);

    EXPECT_EQ(ReadAll(target), "new");
    EXPECT_TRUE(fs::is_symlink(folder.Path("link")));
    EXPECT_EQ(folder.Listing(), "link\nlink of a link\ntarget\n");
}

TEST(WriteFile, MakesTheFileThatALinkWaitsFor) {
    const CTempFolder folder;
    fs::create_directory(folder.Path("inner"));
    fs::create_symlink("inner/target", folder.Path("link"));

    EXPECT_EQ(WriteFile(folder.Path("link"), "new"), CWriteResult::Written);

    EXPECT_EQ(ReadAll(folder.Path("inner/target")), "new");
    EXPECT_TRUE(fs::is_symlink(folder.Path("link")));
}

TEST(WriteFile, TakesNamesBeyondAsciiAndOfFullLength) {
    const CTempFolder folder;
    for (const std::string& name : {"gr\xC3\xB6\xC3\x9F.uds"s, std::string(255, 'n')}) {
        EXPECT_EQ(WriteFile(folder.Path(name), "text"), CWriteResult::Written);
        EXPECT_EQ(ReadAll(folder.Path(name)), "text");
    }
}

TEST(WriteFile, TakesANameInTheCurrentFolder) {
    const CTempFolder folder;
    const fs::path before = fs::current_path();
    fs::current_path(folder.Path("."));
    EXPECT_EQ(WriteFile("name", "text"), CWriteResult::Written);
    fs::current_path(before);
    EXPECT_EQ(ReadAll(folder.Path("name")), "text");
}

TEST(WriteFile, ThatFailsOnTheWayLeavesTheOldFile) {
    const CTempFolder folder;
    const std::string path = folder.Write("old", "the old text");
    {
        const CFileSizeLimit fullDisk(1000);
        EXPECT_EQ(WriteFile(path, std::string(100000, 'x')), CWriteResult::NotCompleted);
    }
    EXPECT_EQ(ReadAll(path), "the old text");
    EXPECT_EQ(folder.Listing(), "old\n");
}

TEST(WriteFile, ThatFailsOnTheWayLeavesNoNewFile) {
    const CTempFolder folder;
    {
        const CFileSizeLimit fullDisk(1000);
        EXPECT_EQ(WriteFile(folder.Path("new"), std::string(100000, 'x')), CWriteResult::NotCompleted);
    }
    EXPECT_EQ(folder.Listing(), "");
}

TEST(WriteFile, WritesIntoADeviceDirectly) {
    if (!fs::is_character_file("/dev/full")) GTEST_SKIP() << "no /dev/full here";
    EXPECT_EQ(WriteFile("/dev/null", "text"), CWriteResult::Written);
    EXPECT_EQ(WriteFile("/dev/full", "text"), CWriteResult::NotCompleted);
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST(WriteFile, DoesNotWaitForThePipeThatNobodyReads) {
    const CTempFolder folder;
    ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0600), 0);
    EXPECT_EQ(WriteFile(folder.Path("pipe"), "text"), CWriteResult::NotOpened);
    EXPECT_TRUE(fs::is_fifo(folder.Path("pipe")));
}

TEST(WriteFile, WritesIntoAPipeOfThisProcess) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    EXPECT_EQ(WriteFile("/dev/fd/" + std::to_string(ends[1]), "text"), CWriteResult::Written);
    std::string read(4, '\0');
    EXPECT_EQ(::read(ends[0], read.data(), read.size()), 4);
    EXPECT_EQ(read, "text");
    close(ends[0]);
    close(ends[1]);
}

class Unwritable : public testing::Test {
protected:
    void ExpectNotOpened(const std::string& path) {
        EXPECT_FALSE(CanWrite(path)) << path;
        EXPECT_EQ(WriteFile(path, "text"), CWriteResult::NotOpened) << path;
    }
    CTempFolder m_folder;
};

TEST_F(Unwritable, IsAFolder) {
    ExpectNotOpened(m_folder.Path(""));
}

TEST_F(Unwritable, IsAPathWithoutAName) {
    ExpectNotOpened("");
    ExpectNotOpened(m_folder.Path("missing/"));
    ExpectNotOpened("a\0b"s);
}

TEST_F(Unwritable, IsAFileInAMissingFolder) {
    ExpectNotOpened(m_folder.Path("missing/file"));
    EXPECT_EQ(m_folder.Listing(), "");
}

TEST_F(Unwritable, IsAFileBelowAFile) {
    m_folder.Write("file", "text");
    ExpectNotOpened(m_folder.Path("file/below"));
    EXPECT_EQ(ReadAll(m_folder.Path("file")), "text");
}

TEST_F(Unwritable, IsACircleOfLinks) {
    fs::create_symlink("b", m_folder.Path("a"));
    fs::create_symlink("a", m_folder.Path("b"));
    ExpectNotOpened(m_folder.Path("a"));
}

TEST_F(Unwritable, IsANameTooLongForTheSystem) {
    ExpectNotOpened(m_folder.Path(std::string(300, 'n')));
}

TEST_F(Unwritable, IsAReadOnlyFile) {
    const std::string path = m_folder.Write("file", "text");
    fs::permissions(path, fs::perms(0444));
    fs::permissions(m_folder.Path("."), fs::perms(0777));
    {
        const COrdinaryUser user;
        ExpectNotOpened(path);
    }
    EXPECT_EQ(ReadAll(path), "text");
}

TEST_F(Unwritable, IsANewFileInAReadOnlyFolder) {
    fs::permissions(m_folder.Path("."), fs::perms(0555));
    {
        const COrdinaryUser user;
        ExpectNotOpened(m_folder.Path("new"));
    }
    fs::permissions(m_folder.Path("."), fs::perms(0755));
    EXPECT_EQ(m_folder.Listing(), "");
}

/// A file that everybody may write, in a folder of the given permissions.
class InPlace : public testing::Test {
protected:
    void ExpectWrittenInPlace(unsigned folderMode) {
        const std::string path = m_folder.Write("old", "a longer text than the new one");
        fs::permissions(path, fs::perms(0666));
        fs::permissions(m_folder.Path("."), fs::perms(folderMode));
        const ino_t before = FileNumber(path);
        {
            const COrdinaryUser user;
            EXPECT_TRUE(CanWrite(path));
            EXPECT_EQ(WriteFile(path, "new"), CWriteResult::Written);
            EXPECT_EQ(WriteFile(path, std::string(200000, 'n')), CWriteResult::Written);
            EXPECT_EQ(WriteFile(path, "new"), CWriteResult::Written);
        }
        fs::permissions(m_folder.Path("."), fs::perms(0755));
        EXPECT_EQ(ReadAll(path), "new");
        EXPECT_EQ(FileNumber(path), before);
        EXPECT_EQ(fs::status(path).permissions(), fs::perms(0666));
        EXPECT_EQ(m_folder.Listing(), "old\n");
    }
    static ino_t FileNumber(const std::string& path) {
        struct stat status {};
        EXPECT_EQ(stat(path.c_str(), &status), 0);
        return status.st_ino;
    }
    CTempFolder m_folder;
};

// The folder was asked for its permission before: the file was refused.
TEST_F(InPlace, IsAFileInAReadOnlyFolderWritten) {
    ExpectWrittenInPlace(0555);
}

// Where everybody may create files, no user may replace another's: the exchange was refused, and the file with it.
TEST_F(InPlace, IsAFileWrittenWhoseExchangeTheSystemRefuses) {
    if (geteuid() != 0) GTEST_SKIP() << "only a superuser can leave a file to another user";
    ExpectWrittenInPlace(01777);
}

// The exchange left the other names with the old content.
TEST_F(InPlace, IsAFileOfSeveralNamesWritten) {
    const std::string path = m_folder.Write("old", "old");
    fs::create_hard_link(path, m_folder.Path("other name"));

    EXPECT_EQ(WriteFile(path, "the new text"), CWriteResult::Written);

    EXPECT_EQ(ReadAll(m_folder.Path("other name")), "the new text");
    EXPECT_EQ(fs::hard_link_count(path), 2U);
    EXPECT_EQ(m_folder.Listing(), "old\nother name\n");
}

TEST_F(InPlace, LosesNothingWhenTheNewFileDoesNotFit) {
    const std::string path = m_folder.Write("old", "the old text");
    fs::create_hard_link(path, m_folder.Path("other name"));
    CWriteTrouble trouble;
    {
        const CFileSizeLimit limit(1000);
        EXPECT_EQ(WriteFile(path, std::string(100000, 'x'), &trouble), CWriteResult::NotCompleted);
    }
    EXPECT_FALSE(trouble.isDeviceFull);
    EXPECT_EQ(ReadAll(path), "the old text");
    EXPECT_EQ(m_folder.Listing(), "old\nother name\n");
}

// The caller was told the same as about an old file that is unchanged.
TEST_F(InPlace, DamagesTheOldFileWhenTheDeviceFailsPartway) {
    const std::string path = m_folder.Write("old", "the old text");
    fs::create_hard_link(path, m_folder.Path("other name"));
    {
        const CFailingFlush failing(kUntilInPlace);
        EXPECT_EQ(WriteFile(path, "new"), CWriteResult::Damaged);
    }
    EXPECT_NE(ReadAll(path), "the old text");
    EXPECT_EQ(m_folder.Listing(), "old\nother name\n");
}

TEST_F(InPlace, KeepsTheOldFileWhenTheDeviceFailsBefore) {
    const std::string path = m_folder.Write("old", "the old text");
    fs::create_hard_link(path, m_folder.Path("other name"));
    {
        const CFailingFlush failing(0);
        EXPECT_EQ(WriteFile(path, "new"), CWriteResult::NotCompleted);
    }
    EXPECT_EQ(ReadAll(path), "the old text");
    EXPECT_EQ(m_folder.Listing(), "old\nother name\n");
}

// Pieces.

TEST(WriteFile, TakesItsBytesPieceByPiece) {
    const CTempFolder folder;
    const std::string path = folder.Write("old", "old");
    const auto make = [&path](CFileSink& sink) {
        for (int i = 0; i < 3; ++i) sink.Put("a\0b"s);
        EXPECT_EQ(sink.Size(), 9U);
        EXPECT_EQ(ReadAll(path), "old");  // until the last piece is there
    };
    EXPECT_EQ(WriteFile(path, make), CWriteResult::Written);
    EXPECT_EQ(ReadAll(path), "a\0ba\0ba\0b"s);
}

TEST(WriteFile, KeepsTheOldFileWhenItsBytesCannotBeMade) {
    const CTempFolder folder;
    const std::string path = folder.Write("old", "the old text");
    const auto make = [](CFileSink& sink) {
        sink.Put("a part");
        throw std::bad_alloc();
    };
    EXPECT_THROW(static_cast<void>(WriteFile(path, make)), std::bad_alloc);
    EXPECT_EQ(ReadAll(path), "the old text");
    EXPECT_EQ(folder.Listing(), "old\n");
}

TEST(WriteFile, TellsTheMakerThatTheRestIsLost) {
    const CTempFolder folder;
    int pieces = 0;
    const auto make = [&pieces](CFileSink& sink) {
        while (!sink.HasFailed() && pieces < 1000) {
            sink.Put(std::string(100000, 'x'));
            ++pieces;
        }
    };
    {
        const CFileSizeLimit fullDisk(1000000);
        EXPECT_EQ(WriteFile(folder.Path("new"), make), CWriteResult::NotCompleted);
    }
    EXPECT_LE(pieces, 12);
    EXPECT_EQ(folder.Listing(), "");
}

// While the bytes are being made.

TEST(ReplacingFile, IsShownWhenItIsFinished) {
    const CTempFolder folder;
    const std::string path = folder.Write("old", "old");
    fs::permissions(path, fs::perms(0600));
    CReplacingFile file(path);
    EXPECT_TRUE(file.IsOpen());
    file.Put("ne");
    file.Put("w");
    EXPECT_EQ(ReadAll(path), "old");

    EXPECT_EQ(file.Finish(), CWriteResult::Written);

    EXPECT_EQ(ReadAll(path), "new");
    EXPECT_EQ(fs::status(path).permissions(), fs::perms(0600));
    EXPECT_EQ(folder.Listing(), "old\n");
}

TEST(ReplacingFile, LeavesNothingWithoutItsEnd) {
    const CTempFolder folder;
    const std::string path = folder.Write("old", "old");
    for (const char* const name : {"old", "new"}) {
        CReplacingFile file(folder.Path(name));
        file.Put("text");
    }
    EXPECT_EQ(ReadAll(path), "old");
    EXPECT_EQ(folder.Listing(), "old\n");
}

TEST(ReplacingFile, ThatCannotBeOpenedTakesNothing) {
    const CTempFolder folder;
    CReplacingFile file(folder.Path("missing/file"));
    EXPECT_FALSE(file.IsOpen());
    file.Put("text");
    EXPECT_EQ(file.Finish(), CWriteResult::NotOpened);
    EXPECT_EQ(folder.Listing(), "");
}

// Other files of the command may need the room.
TEST(ReplacingFile, GivesItsRoomBackAsSoonAsItFails) {
    const CTempFolder folder;
    CReplacingFile file(folder.Path("new"));
    {
        const CFileSizeLimit fullDisk(1000);
        file.Put(std::string(100000, 'x'));
    }
    EXPECT_EQ(folder.Listing(), "");
    file.Put("more");
    EXPECT_EQ(file.Finish(), CWriteResult::NotCompleted);
    EXPECT_EQ(folder.Listing(), "");
}

TEST(ReplacingFile, TakesThePlaceOfWhatIsThereInTheEnd) {
    const CTempFolder folder;
    CReplacingFile file(folder.Path("a"));
    file.Put("new");
    fs::permissions(folder.Write("a", "made meanwhile"), fs::perms(0640));
    fs::create_hard_link(folder.Path("a"), folder.Path("b"));
    EXPECT_EQ(file.Finish(), CWriteResult::Written);
    EXPECT_EQ(fs::status(folder.Path("a")).permissions(), fs::perms(0640));
    EXPECT_EQ(ReadAll(folder.Path("b")), "new");
    EXPECT_EQ(folder.Listing(), "a\nb\n");
}

TEST(ReplacingFile, DoesNotTakeThePlaceOfAFolder) {
    const CTempFolder folder;
    CReplacingFile file(folder.Path("a"));
    file.Put("new");
    fs::create_directory(folder.Path("a"));
    EXPECT_EQ(file.Finish(), CWriteResult::NotOpened);
    EXPECT_TRUE(fs::is_directory(folder.Path("a")));
}

TEST(ReplacingFile, WritesIntoADeviceDirectly) {
    if (!fs::is_character_file("/dev/full")) GTEST_SKIP() << "no /dev/full here";
    CReplacingFile file("/dev/full");
    file.Put("text");
    EXPECT_EQ(file.Finish(), CWriteResult::NotCompleted);
    CReplacingFile null("/dev/null");
    null.Put("text");
    EXPECT_EQ(null.Finish(), CWriteResult::Written);
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

// What is reported.

TEST(WriteTrouble, IsAFullDeviceOnlyWhereThereIsNoRoom) {
    if (!fs::is_character_file("/dev/full")) GTEST_SKIP() << "no /dev/full here";
    CWriteTrouble trouble;
    EXPECT_EQ(WriteFile("/dev/full", "text", &trouble), CWriteResult::NotCompleted);
    EXPECT_TRUE(trouble.isDeviceFull);

    const CTempFolder folder;
    const CFileSizeLimit limit(1000);
    EXPECT_EQ(WriteFile(folder.Path("new"), std::string(100000, 'x'), &trouble), CWriteResult::NotCompleted);
    EXPECT_FALSE(trouble.isDeviceFull);
}

TEST(WriteTrouble, DecidesTheSentence) {
    EXPECT_EQ(uds_write_message::NotCompleted("f", {true}),
              "Failure to complete the file: f. The device may be full; an existing file was kept.");
    EXPECT_EQ(uds_write_message::NotCompleted("f", {false}),
              "Failure to complete the file: f. An existing file was kept.");
}

TEST(CanWrite, TouchesNothing) {
    const CTempFolder folder;
    const std::string path = folder.Write("old", "text");
    const fs::file_time_type before = fs::last_write_time(path);

    EXPECT_TRUE(CanWrite(path));
    EXPECT_TRUE(CanWrite(folder.Path("new")));

    EXPECT_EQ(ReadAll(path), "text");
    EXPECT_EQ(fs::last_write_time(path), before);
    EXPECT_EQ(folder.Listing(), "old\n");
}

}  // namespace
}  // namespace ks
