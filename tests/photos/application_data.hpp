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

// Creates the folders of the path if they are missing. Throws std::runtime_error if the file cannot be written.
void writeFile(const std::filesystem::path& path, const std::string& bytes);
// Returns the bytes of the file. Empty if the file cannot be read.
std::string readFile(const std::filesystem::path& path);

// The folders in which the platform creates the containers of applications: shared containers and data containers.
std::filesystem::path sharedContainers(const std::filesystem::path& root);
std::filesystem::path dataContainers(const std::filesystem::path& root);

inline constexpr const char* metadataName = ".com.apple.mobile_container_manager.metadata.plist";

// Returns the property list with the identifier of a container. The platform stores it in the container under the name
// metadataName.
std::string metadata(const std::string& identifier);

// Creates a container with a metadata file in the folder `containers`. Returns the container's path.
std::filesystem::path makeContainer(const std::filesystem::path& containers, const std::string& name,
                                    const std::string& identifier);

}  // namespace test
