// What other applications keep on the phone, made for a test under the phone's root.
#pragma once

#include <filesystem>
#include <string>

namespace test {

// Colors of pictures, by which tests tell them apart.
enum class Color { Red, Green, Blue };

// The bytes of a small PNG.
std::string pictureBytes(Color color);
void writePicture(const std::filesystem::path& path, Color color);

void writeFile(const std::filesystem::path& path, const std::string& bytes);
std::string readFile(const std::filesystem::path& path);

// The folders of containers.
std::filesystem::path sharedContainers(const std::filesystem::path& root);
std::filesystem::path dataContainers(const std::filesystem::path& root);

inline constexpr const char* metadataName = ".com.apple.mobile_container_manager.metadata.plist";

// A property list that names a container's identifier.
std::string metadata(const std::string& identifier);

// A container of that name and identifier in one of the folders; gives its path.
std::filesystem::path makeContainer(const std::filesystem::path& containers, const std::string& name,
                                    const std::string& identifier);

}  // namespace test
