#include "cli/output/outputs.h"

#include "cli/output/console.h"
#include "cli/output/spool.h"
#include "tests/support/failing_flush.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

std::string TextOf(std::FILE* file) {
    std::string text(1000, '\0');
    std::rewind(file);
    text.resize(std::fread(text.data(), 1, text.size(), file));
    return text;
}

class Outputs : public testing::Test {
protected:
    CTempFolder folder;
    std::unique_ptr<std::FILE, CloseFile> out{std::tmpfile()}, err{std::tmpfile()};
    CConsole console{out.get(), err.get()};
    COutputs outputs{console};
};

TEST_F(Outputs, PutPiecesTogether) {
    const std::vector<std::string> pieces{"one ", "two"};
    outputs.WritePieces("The text", folder.Path("a"), pieces);
    outputs.WritePieces("The text", "-", pieces);
    outputs.WritePieces("The text", folder.Path("b"), [&](const TextSink& put) {
        for (const std::string& piece : pieces) put(piece);
    });
    outputs.Finish();
    EXPECT_EQ(ReadAll(folder.Path("a")), "one two");
    EXPECT_EQ(ReadAll(folder.Path("b")), "one two");
    EXPECT_EQ(TextOf(out.get()), "one two");
    EXPECT_FALSE(outputs.HasFailed());
}

TEST_F(Outputs, SayThatThereIsNotEnoughMemory) {
    const std::string old = folder.Write("old", "old");
    outputs.Write("The text", old, []() -> std::string { throw std::bad_alloc(); });
    EXPECT_EQ(TextOf(err.get()),
              "quorvel-cli: The text could not be written; there is not enough memory: " + old + "\n");
    EXPECT_TRUE(outputs.HasFailed());
    EXPECT_EQ(ReadAll(old), "old");
}

TEST_F(Outputs, TryWorkThatNeedsMemory) {
    EXPECT_TRUE(outputs.Attempt("No.", [] {}));
    EXPECT_FALSE(outputs.HasFailed());
    EXPECT_FALSE(outputs.Attempt("No memory.", [] { throw std::length_error("vector::reserve"); }));
    EXPECT_TRUE(outputs.HasFailed());
    EXPECT_EQ(TextOf(err.get()), "quorvel-cli: No memory.\n");
    EXPECT_THROW(outputs.Attempt("No.", [] { throw std::runtime_error("other"); }), std::runtime_error);
}

// The sentence was that of an old file that is unchanged.
TEST_F(Outputs, SayThatTheExistingFileIsDamaged) {
    const std::string old = folder.Write("old", "old");
    std::filesystem::create_hard_link(old, folder.Path("other name"));
    {
        const CFailingFlush failing(kUntilInPlace);
        outputs.Write("The text", old, "new");
    }
    EXPECT_EQ(TextOf(err.get()),
              "quorvel-cli: The text could not be written in full, and the existing file is damaged: " + old + "\n");
    EXPECT_TRUE(outputs.HasFailed());
}

}  // namespace
