// Properties inside of a test: one with parameters, for example, where RC_GTEST_PROP cannot help.
#pragma once

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <string>
#include <utility>

// Tries the property on many cases; the test fails where it does not hold. rc::check itself only returns that as a
// result, which a test that calls it may drop.
template <class Property>
void ExpectHolds(const std::string& description, Property&& property) {
  EXPECT_TRUE(rc::check(description, std::forward<Property>(property))) << description;
}
