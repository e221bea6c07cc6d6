#include "simulator/plugins/web_page/composer_data.hpp"

#include "simulator/springboard/services/applications.hpp"

namespace web_page {

namespace {

using phone_display::ComposerFields;
using phone_display::Json;
using phone_display::Preset;

Json presetJson(const Preset& preset) {
  const ComposerFields fields = phone_display::fieldsOf(preset.steps.front().command);
  return {{"name", preset.name},       {"application", fields.application},
          {"title", fields.title},     {"subtitle", fields.subtitle},
          {"text", fields.text},       {"actions", fields.actions},
          {"picture", fields.picture}, {"persistent", fields.persistence == phone_display::Persistence::Persistent}};
}

}  // namespace

const std::vector<Preset>& composerPresets() {
  static const std::vector<Preset>& all = *new std::vector<Preset>(phone_display::presets());
  return all;
}

std::string composerJson() {
  Json applications = Json::array();
  for (const std::string& identifier : springboard::installedApplications())
    applications.push_back({{"identifier", identifier}, {"name", springboard::nameOf(identifier)}});
  Json presets = Json::array();
  for (const Preset& preset : composerPresets()) presets.push_back(presetJson(preset));
  return Json({{"applications", applications}, {"presets", presets}})
      .dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace web_page
