#include "tests/photos/application_data.hpp"

#include <fstream>
#include <iterator>
#include <stdexcept>

#include "simulator/drawing/canvas.hpp"
#include "simulator/drawing/image.hpp"

namespace test {

namespace fs = std::filesystem;

std::string pictureBytes(Color color) {
  drawing::Canvas canvas({4, 4}, 1);
  canvas.clear(
      {color == Color::Red ? 1.0 : 0.0, color == Color::Green ? 1.0 : 0.0, color == Color::Blue ? 1.0 : 0.0, 1});
  const std::vector<std::byte> bytes = drawing::encodePng(*canvas.snapshot());
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

void writePicture(const fs::path& path, Color color) { writeFile(path, pictureBytes(color)); }

void writeFile(const fs::path& path, const std::string& bytes) {
  fs::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary);
  file << bytes;
  if (!file.flush()) throw std::runtime_error("cannot write " + path.string());
}

std::string readFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

fs::path sharedContainers(const fs::path& root) { return root / "var/mobile/Containers/Shared/AppGroup"; }
fs::path dataContainers(const fs::path& root) { return root / "var/mobile/Containers/Data/Application"; }

std::string metadata(const std::string& identifier) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>"
         "<key>MCMMetadataContentClass</key><integer>2</integer><key>MCMMetadataIdentifier</key><string>" +
         identifier + "</string></dict></plist>\n";
}

fs::path makeContainer(const fs::path& containers, const std::string& name, const std::string& identifier) {
  writeFile(containers / name / metadataName, metadata(identifier));
  return containers / name;
}

}  // namespace test
