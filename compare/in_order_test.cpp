#include "compare/in_order.h"

#include <gmock/gmock.h>

#include <atomic>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

using testing::Each;
using testing::ElementsAre;

class AnyNumberOfJobs : public testing::TestWithParam<unsigned> {};

TEST_P(AnyNumberOfJobs, AnnouncesAndFinishesOneItemAfterTheOtherHere) {
    const std::thread::id here = std::this_thread::get_id();
    std::vector<std::string> calls;
    std::vector<int> worked(4, 0);
    const auto call = [&](const char* name) {
        return [&calls, name, here](std::size_t i) {
            EXPECT_EQ(std::this_thread::get_id(), here);
            calls.push_back(name + std::to_string(i));
        };
    };
    ForEachInOrder(4, GetParam(), {call("announce "), [&](std::size_t i) { ++worked[i]; }, call("finish ")});
    EXPECT_THAT(calls, ElementsAre("announce 0", "finish 0", "announce 1", "finish 1", "announce 2", "finish 2",
                                   "announce 3", "finish 3"));
    EXPECT_THAT(worked, Each(1));
}

TEST_P(AnyNumberOfJobs, FinishesAnItemOnlyAfterItsWork) {
    std::vector<std::atomic<int>> worked(200);
    int finished = 0;
    ForEachInOrder(
        200, GetParam(),
        {[](std::size_t) {}, [&](std::size_t i) { worked[i] = 1; }, [&](std::size_t i) { finished += worked[i]; }});
    EXPECT_EQ(finished, 200);
}

TEST_P(AnyNumberOfJobs, ThrowsWhatTheFirstFailedWorkThrew) {
    std::vector<std::size_t> finished;
    const auto fail = [](std::size_t i) {
        if (i >= 2) throw std::runtime_error("item " + std::to_string(i));
    };
    try {
        ForEachInOrder(9, GetParam(), {[](std::size_t) {}, fail, [&](std::size_t i) { finished.push_back(i); }});
        FAIL() << "nothing was thrown";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "item 2");
    }
    EXPECT_THAT(finished, ElementsAre(0, 1));
}

TEST_P(AnyNumberOfJobs, StopsWhereTheCallerThrows) {
    std::atomic<int> worked = 0;
    const auto finish = [](std::size_t i) {
        if (i == 1) throw std::runtime_error("stop");
    };
    EXPECT_THROW(ForEachInOrder(1000000, GetParam(), {[](std::size_t) {}, [&](std::size_t) { ++worked; }, finish}),
                 std::runtime_error);
    EXPECT_GE(worked, 2);
}

TEST_P(AnyNumberOfJobs, DoesNothingWithoutItems) {
    const auto fail = [](std::size_t) { FAIL(); };
    ForEachInOrder(0, GetParam(), {fail, fail, fail});
}

INSTANTIATE_TEST_SUITE_P(Jobs, AnyNumberOfJobs, testing::Values(0U, 1U, 2U, 7U));

TEST(TwoJobs, WorksOnSeveralItemsAtATime) {
    // Each of the two waits for the other: with one thread the test would never end.
    std::atomic<int> begun = 0;
    const auto meet = [&](std::size_t) {
        ++begun;
        while (begun < 2) std::this_thread::yield();
    };
    ForEachInOrder(2, 2, {[](std::size_t) {}, meet, [](std::size_t) {}});
    EXPECT_EQ(begun, 2);
}

}  // namespace
