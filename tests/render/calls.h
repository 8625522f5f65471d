#pragma once

// Comparing the order and arguments of recorded GPU calls.

#include <gtest/gtest.h>

#include <string>

// Whether the calls recorded last are these, written as "texture_unit 0; texture_bind 1 7": the
// operation, its whole numbers, its reals (those of matrices left out) and a uniform's name.
testing::AssertionResult last_calls_are(const std::string& expected);
