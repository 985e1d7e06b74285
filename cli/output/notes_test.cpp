#include "cli/output/notes.h"

#include "compare/note.h"

#include <gmock/gmock.h>

namespace {

TEST(NoteLines, GiveOneLinePerNote) {
    EXPECT_EQ(NoteLines({}, "  "), "");
    EXPECT_EQ(NoteLines({{CNoteKind::Resampled, "One."}, {CNoteKind::CutByPage, "Two."}}, "  "),
              "  note: One.\n  note: Two.\n");
}

TEST(NoteLines, LeaveOutWhatIsAComplaint) {
    EXPECT_EQ(NoteLines({{CNoteKind::NoCommonTime, "One."}, {CNoteKind::AverageIsFirst, "Two."}}, ""), "note: Two.\n");
}

}  // namespace
