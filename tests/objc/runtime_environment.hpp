// The environment for tests of code that needs the Objective-C runtime. Each test process has a temporary root and
// Foundation's classes. Each test whose fixture derives from RuntimeTest has an autorelease pool.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>

#include "objc/autorelease_pool.hpp"

// The root of the test process: a temporary folder that is removed when the process exits.
const std::filesystem::path& testRoot();

class RuntimeTest : public testing::Test {
 private:
  objc::AutoreleasePool pool_;
};
