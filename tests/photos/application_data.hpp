// Creates the files of other applications below the root of a simulated phone, and pictures that tests can distinguish
// by their color.
#pragma once

#include <filesystem>
#include <string>

namespace test {

enum class Color { Red, Green, Blue };

// The bytes of a small PNG in one color.
std::string pictureBytes(Color color);
void writePicture(const std::filesystem::path& path, Color color);

// Creates the folders of the path if they are missing. Throws if the file cannot be written.
void writeFile(const std::filesystem::path& path, const std::string& bytes);
// Empty if the file cannot be read.
std::string readFile(const std::filesystem::path& path);

// The folders in which the platform creates the containers of applications.
std::filesystem::path sharedContainers(const std::filesystem::path& root);
std::filesystem::path dataContainers(const std::filesystem::path& root);

inline constexpr const char* metadataName = ".com.apple.mobile_container_manager.metadata.plist";

// The property list with a container's identifier, which the platform stores in the container as metadataName.
std::string metadata(const std::string& identifier);

// Creates a container with a metadata file. Returns its path.
std::filesystem::path makeContainer(const std::filesystem::path& containers, const std::string& name,
                                    const std::string& identifier);

}  // namespace test
