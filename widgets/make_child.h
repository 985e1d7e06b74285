#pragma once

#include <memory>
#include <utility>

/// An object that its last argument, its parent, owns.
template <class Object, class... Arguments>
Object* MakeChild(Arguments&&... arguments) {
    return std::make_unique<Object>(std::forward<Arguments>(arguments)...).release();
}
