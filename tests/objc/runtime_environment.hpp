// A test process: a root of its own, Foundation's classes, and a pool around every test.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>

#include "objc/autorelease_pool.hpp"

// The process's root, a temporary folder that is removed at the end.
const std::filesystem::path& testRoot();

class RuntimeTest : public testing::Test {
 private:
  objc::AutoreleasePool poolOfTest;
};
