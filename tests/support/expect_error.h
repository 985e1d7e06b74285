#pragma once

#include "files/error.h"

#include <gtest/gtest.h>

#include <string>

/// The text of the CError that `call` throws; a call that throws nothing fails the test, any other exception passes
/// through to the test runner, which fails it.
template <class Call>
std::string ErrorOf(Call call) {
    try {
        call();
    } catch (const ks::CError& error) {
        return error.what();
    }
    ADD_FAILURE() << "nothing was thrown";
    return {};
}
