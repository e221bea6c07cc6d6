// Controls a live phone in another process.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <nlohmann/json.hpp>
#include <string>

namespace test {

// Returns whether the condition becomes true within the time.
bool eventually(const std::function<bool()>& condition, std::chrono::seconds limit = std::chrono::seconds(30));

// Executes a command of the phone on this root and returns the answer. Waits until the phone accepts commands. Throws
// std::runtime_error if it does not answer.
nlohmann::json tell(const std::filesystem::path& root, const nlohmann::json& command);

// Returns whether a view of the phone on this root has this text.
bool showsText(const std::filesystem::path& root, const std::string& text);

}  // namespace test
