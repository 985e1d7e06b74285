#include "files/points.h"

#include <gmock/gmock.h>

namespace ks {
namespace {

TEST(MakePointList, KeepsOrderAndCoordinates) {
    const CPointList points = MakePointList({{1.0, 2.0}, {3.0, 4.0}, {5.0, 6.0}});

    ASSERT_EQ(points.size(), 2U);
    EXPECT_EQ(points[1]->x, 2.0);
    EXPECT_EQ(points[1]->y, 4.0);
    EXPECT_EQ(points[1]->z, 6.0);
}

TEST(MakePointList, TakesAMissingZColumnAsZeros) {
    EXPECT_EQ(MakePointList({{1.0}, {2.0}, {}})[0]->z, 0.0);
}

TEST(MakePointList, PutsAllPointsIntoOneBlock) {
    const CPointList points = MakePointList({{1.0, 2.0}, {3.0, 4.0}, {}});

    EXPECT_EQ(points[1].get(), points[0].get() + 1);
}

TEST(MakePointList, OnePointKeepsTheBlockAlive) {
    boost::shared_ptr<CPoint<double>> last;
    {
        const CPointList points = MakePointList({{1.0, 2.0}, {3.0, 4.0}, {}});
        last = points[1];
    }
    EXPECT_EQ(last->y, 4.0);
}

TEST(MakeColumns, GivesBackWhatMadeTheList) {
    const CPointColumns columns = MakeColumns(MakePointList({{1.0, 2.0}, {3.0, 4.0}, {5.0, 6.0}}));

    EXPECT_THAT(columns.x, testing::ElementsAre(1.0, 2.0));
    EXPECT_THAT(columns.y, testing::ElementsAre(3.0, 4.0));
    EXPECT_THAT(columns.z, testing::ElementsAre(5.0, 6.0));
}

TEST(MakeColumns, OfNothingIsEmpty) {
    EXPECT_EQ(MakeColumns({}).Count(), 0U);
}

}  // namespace
}  // namespace ks
