#include "cli/output/spool.h"

#include "tests/support/failing_disk.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace {

/// All the text that the spool hands over.
std::string TextOf(CSpool& spool) {
    std::string text;
    EXPECT_TRUE(spool.HandOver([&text](std::string_view piece) { text += piece; }));
    return text;
}

/// Puts `count` texts of different lengths; returns them all together.
std::string Fill(CSpool& spool, std::size_t count) {
    std::string all;
    for (std::size_t i = 0; i < count; ++i) {
        const std::string text(i * 37 % 1000, static_cast<char>('a' + i % 26));
        spool.Put(text);
        all += text;
    }
    return all;
}

TEST(Spool, HandsOverWhatWasPutInOrder) {
    CSpool spool;
    EXPECT_EQ(TextOf(spool), "");
    spool.Put("one ");
    spool.Put("");
    spool.Put("two");
    EXPECT_EQ(TextOf(spool), "one two");
}

TEST(Spool, HandsOverALongTextInPieces) {
    CSpool spool;
    const std::string all = Fill(spool, 1000);
    std::size_t longest = 0;
    std::string text;
    EXPECT_TRUE(spool.HandOver([&](std::string_view piece) {
        longest = std::max(longest, piece.size());
        text += piece;
    }));
    EXPECT_TRUE(text == all);
    EXPECT_LE(longest, 65536U);
}

TEST(Spool, KeepsInMemoryWhatTheDiskHasNoRoomFor) {
    CSpool spool;
    std::string all = Fill(spool, 10);
    {
        const CFileSizeLimit fullDisk(all.size() + 5);
        all += Fill(spool, 100);
    }
    all += Fill(spool, 10);
    EXPECT_TRUE(TextOf(spool) == all);
}

}  // namespace
