#include "simulator/uikit/description/text_description.hpp"

#include <nlohmann/json.hpp>

namespace uikit {

namespace {

const char* nameOf(drawing::Weight weight) { return weight == drawing::Weight::Bold ? "bold" : "regular"; }

}  // namespace

nlohmann::ordered_json describeFont(const drawing::Font& font) {
  return {{"family", font.family}, {"size", font.size}, {"weight", nameOf(font.weight)}};
}

nlohmann::ordered_json describeRuns(const std::vector<drawing::Run>& runs) {
  auto described = nlohmann::ordered_json::array();
  for (const drawing::Run& run : runs)
    described.push_back(
        {{"text", run.text}, {"font", run.font.family}, {"size", run.font.size}, {"weight", nameOf(run.font.weight)}});
  return described;
}

const char* nameOf(NSTextAlignment alignment) {
  switch (alignment) {
    case NSTextAlignment::Left:
      return "left";
    case NSTextAlignment::Center:
      return "center";
    case NSTextAlignment::Right:
      return "right";
    case NSTextAlignment::Justified:
      return "justified";
    case NSTextAlignment::Natural:
      break;
  }
  return "natural";
}

}  // namespace uikit
