#include "files/path_text.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace ks {
namespace {

struct Row {
    std::string name, path, folder, file;
};
std::ostream& operator<<(std::ostream& out, const Row& row) {
    return out << row.name;
}

class PathParts : public testing::TestWithParam<Row> {};

TEST_P(PathParts, AreFolderAndName) {
    EXPECT_EQ(FolderOf(GetParam().path), GetParam().folder);
    EXPECT_EQ(FileNameOf(GetParam().path), GetParam().file);
}

INSTANTIATE_TEST_SUITE_P(
    Paths, PathParts,
    testing::Values(Row{"Empty", "", "", ""}, Row{"NameAlone", "a.uds", "", "a.uds"},
                    Row{"Slash", "runs/a.uds", "runs/", "a.uds"}, Row{"Backslash", "runs\\a.uds", "runs\\", "a.uds"},
                    Row{"Mixed", "C:\\runs/x\\y/a.uds", "C:\\runs/x\\y/", "a.uds"},
                    Row{"BackslashLast", "/runs/x\\a.uds", "/runs/x\\", "a.uds"},
                    Row{"DriveAlone", "C:a.uds", "C:", "a.uds"}, Row{"LowerCaseDrive", "q:a.uds", "q:", "a.uds"},
                    Row{"DriveAndNothing", "C:", "C:", ""}, Row{"NoDrive", "1:a.uds", "", "1:a.uds"},
                    Row{"ColonInTheName", "runs/a:b.uds", "runs/", "a:b.uds"},
                    Row{"DriveLikeName", "runs/C:b.uds", "runs/", "C:b.uds"}, Row{"Root", "/", "/", ""},
                    Row{"EndsInSeparator", "runs/", "runs/", ""}, Row{"TwoCharacters", "ab", "", "ab"},
                    Row{"ColonAlone", ":", "", ":"}),
    [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace ks
