#include "cli/output/notes.h"

#include <gmock/gmock.h>

namespace {

TEST(NoteLines, GiveOneLinePerNote) {
    EXPECT_EQ(NoteLines({}, "  "), "");
    EXPECT_EQ(NoteLines({{NoteKind::Resampled, "One."}, {NoteKind::CutByPage, "Two."}}, "  "),
              "  note: One.\n  note: Two.\n");
}

TEST(NoteLines, LeaveOutWhatIsAComplaint) {
    EXPECT_EQ(NoteLines({{NoteKind::NoCommonTime, "One."}, {NoteKind::AverageIsFirst, "Two."}}, ""), "note: Two.\n");
}

}  // namespace
