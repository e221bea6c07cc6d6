#include "simulator/runner/demonstration_data.hpp"

#include <filesystem>
#include <fstream>
#include <iterator>

#include "simulator/base/installation.hpp"
#include "simulator/base/iso_time.hpp"
#include "simulator/foundation/plugin.hpp"
#include "simulator/foundation/root.hpp"
#include "simulator/messages/chat_store.hpp"
#include "simulator/process/root_setup.hpp"
#include "simulator/runner/command_handlers.hpp"
#include "simulator/runner/web_server_plugin.hpp"

namespace runner {

namespace {

namespace fs = std::filesystem;

constexpr const char* profilePage = "ada_maps";
constexpr const char* endpointsFile = "endpoints.plist";
// The web services whose addresses are replaced. The names are those in endpoints.plist of the asset bundle.
constexpr const char* services[] = {"twitterPages", "twitterImages", "slackAvatars", "discordAvatars", "facebookGraph"};

std::string serve(const fs::path& folder) {
  const auto start =
      reinterpret_cast<decltype(&brim_serve_folder)>(foundation::pluginFunction("web_server.so", "brim_serve_folder"));
  const int port = start == nullptr ? 0 : start(folder.c_str());
  if (port == 0) throw CommandError("the web server of the demonstration did not start");
  return "http://127.0.0.1:" + std::to_string(port);
}

void write(const fs::path& file, const std::string& text) {
  std::ofstream stream(file);
  stream << text;
  stream.close();
  if (!stream) throw fs::filesystem_error("cannot write", file, std::make_error_code(std::errc::io_error));
}

// Inserts the server's address into the page, because the page must contain the absolute address of the picture.
void insertAddress(const fs::path& page, const std::string& address) {
  constexpr std::string_view placeholder = "@ADDRESS@";
  std::ifstream stream(page);
  std::string text(std::istreambuf_iterator<char>(stream), {});
  for (std::size_t found = text.find(placeholder); found != std::string::npos; found = text.find(placeholder))
    text.replace(found, placeholder.size(), address);
  write(page, text);
}

std::string endpoints(const std::string& address) {
  std::string text = "{\n";
  for (const char* service : services)
    text.append("  ").append(service).append(" = \"").append(address).append("\";\n");
  return text + "}\n";
}

std::string& installedAddress() {
  static auto& address = *new std::string;
  return address;
}

}  // namespace

std::string installDemonstrationData() try {
  const fs::path source = base::installation().demonstration;
  const fs::path folder = foundation::root() / "demonstration";
  std::string address = serve(folder / "web");
  fs::remove_all(folder);
  fs::create_directories(folder);
  constexpr auto replacing = fs::copy_options::recursive | fs::copy_options::overwrite_existing;
  fs::copy(source / "root", foundation::root(), replacing);
  fs::copy(source / "web", folder / "web", replacing);
  insertAddress(folder / "web" / profilePage, address);
  write(folder / endpointsFile, endpoints(address));
  process::linkEndpoints(folder / endpointsFile);
  installedAddress() = address;
  return address;
} catch (const fs::filesystem_error& error) {
  throw CommandError(error.path1().string() + ": " + error.code().message());
}

const std::string& demonstrationAddress() { return installedAddress(); }

void storeConversation(const Json& notification) {
  const std::string title = notification["title"];
  const std::string thread = notification["thread"];
  messages::ChatStore(foundation::root())
      .addTo("iMessage;-;" + thread, title,
             {messages::Direction::Received, notification["message"], 0, base::systemUnixTime(), false});
}

}  // namespace runner
