#pragma once

#include <cstddef>
#include <functional>

/// What ForEachInOrder does with the item of each number. All but `work` run on the calling thread, in ascending order.
struct CItemWork {
    std::function<void(std::size_t)> announce;  ///< before `finish` of the same item and after that of the one before
    std::function<void(std::size_t)> work;      ///< on any thread, while other items are worked on
    std::function<void(std::size_t)> finish;    ///< after `work` of the same item has ended
};

/// Works on the items 0 ... `count` - 1, on up to `jobs` threads at a time. With one job, or one item, everything runs
/// on the calling thread, item by item. What the caller sees is the same with any number of jobs, as long as `work`
/// on one item does not change what it reads on another.
/// @throws what any of the functions throws, of `work` that of the first such item; items after it may have been worked
///         on, but none is announced or finished. No thread is left running.
void ForEachInOrder(std::size_t count, unsigned jobs, const CItemWork& item);
