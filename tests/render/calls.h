#pragma once

// Comparing the order and arguments of recorded GPU calls.

#include <gtest/gtest.h>

#include <vector>

#include "platform/headless/headless.h"

struct expected_call {
    gpu_op op;
    std::vector<i64> numbers = {};
    std::vector<f32> reals = {};  // none: not compared
};

// Whether the calls recorded last are exactly these.
testing::AssertionResult last_calls_are(const std::vector<expected_call>& expected);
