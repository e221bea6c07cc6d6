#include "simulator/drawing/font_library.hpp"

#include <cairo.h>
#include <fontconfig/fontconfig.h>
#include <pango/pangocairo.h>
#include <pango/pangofc-fontmap.h>

#include <algorithm>
#include <array>
#include <cctype>

namespace drawing {
namespace {

// The configuration of fontconfig. The included file scales the emoji font, whose glyphs have one fixed size. Only the
// listed fonts are accepted, because other installed fonts would change the rendering.
constexpr const char* configuration = R"(<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "urn:fontconfig:fonts.dtd">
<fontconfig>
  <dir>/usr/share/fonts</dir>
  <cachedir>/var/cache/fontconfig</cachedir>
  <cachedir prefix="xdg">fontconfig</cachedir>
  <include ignore_missing="yes">/usr/share/fontconfig/conf.avail/10-scale-bitmap-fonts.conf</include>
  <selectfont>
    <acceptfont>
      <glob>*/Inter*</glob>
      <glob>*/NotoColorEmoji*</glob>
      <glob>*/NotoSans*</glob>
    </acceptfont>
    <rejectfont><glob>*.*</glob></rejectfont>
  </selectfont>
  <alias binding="same">
    <family>emoji</family>
    <prefer><family>Noto Color Emoji</family></prefer>
  </alias>
  <match target="font">
    <edit name="hinting" mode="assign"><bool>false</bool></edit>
    <edit name="autohint" mode="assign"><bool>false</bool></edit>
    <edit name="hintstyle" mode="assign"><const>hintnone</const></edit>
    <edit name="rgba" mode="assign"><const>none</const></edit>
  </match>
</fontconfig>
)";

constexpr double pointsPerInch = 72;
constexpr std::size_t maxLanguageLength = 35;

// Creates the font map, which is never destroyed. Call this once.
PangoFontMap* makeFontMap() {
  FcConfig* fonts = FcConfigCreate();
  FcConfigParseAndLoadFromMemory(fonts, reinterpret_cast<const FcChar8*>(configuration), FcTrue);
  FcConfigBuildFonts(fonts);
  // Without a current configuration, pango would also load the user's font settings.
  FcConfigSetCurrent(fonts);
  PangoFontMap* map = pango_cairo_font_map_new_for_font_type(CAIRO_FONT_TYPE_FT);
  pango_fc_font_map_set_config(PANGO_FC_FONT_MAP(map), fonts);
  FcConfigDestroy(fonts);
  pango_cairo_font_map_set_resolution(PANGO_CAIRO_FONT_MAP(map), pointsPerInch);
  return map;
}

PangoFontMap* fontMap() {
  static PangoFontMap* const map = makeFontMap();
  return map;
}

const cairo_font_options_t* fontOptions() {
  static const cairo_font_options_t* const options = [] {
    cairo_font_options_t* made = cairo_font_options_create();
    cairo_font_options_set_antialias(made, CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(made, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(made, CAIRO_HINT_METRICS_OFF);
    return made;
  }();
  return options;
}

// Converts a locale to a language tag in lower case, with hyphens.
std::string languageTag(const std::string& locale) {
  std::string tag = locale.substr(0, std::min(locale.find_first_of("@."), maxLanguageLength));
  std::transform(tag.begin(), tag.end(), tag.begin(), [](unsigned char character) {
    return character == '_' ? '-' : static_cast<char>(std::tolower(character));
  });
  return tag.empty() ? "en" : tag;
}

struct IdeographFamily {
  const char* language;
  const char* subtag;
  const char* family;
};
// The family of ideographs for each language. The first row that matches is used. The last row matches every language.
constexpr std::array<IdeographFamily, 7> ideographFamilies{{
    {"ja", "", "Noto Sans CJK JP"},
    {"ko", "", "Noto Sans CJK KR"},
    {"zh", "-hk", "Noto Sans CJK HK"},
    {"zh", "-mo", "Noto Sans CJK HK"},
    {"zh", "-tw", "Noto Sans CJK TC"},
    {"zh", "-hant", "Noto Sans CJK TC"},
    {"", "", "Noto Sans CJK SC"},
}};

const char* ideographFamily(const std::string& tag) {
  const std::string language = tag.substr(0, tag.find('-'));
  const auto matches = [&](const IdeographFamily& row) {
    return (*row.language == 0 || language == row.language) && tag.find(row.subtag) != std::string::npos;
  };
  return std::find_if(ideographFamilies.begin(), ideographFamilies.end(), matches)->family;
}

}  // namespace

TextContextHandle makeTextContext(const std::string& language, BaseDirection direction) {
  TextContextHandle context(pango_font_map_create_context(fontMap()));
  pango_cairo_context_set_font_options(context.get(), fontOptions());
  pango_context_set_round_glyph_positions(context.get(), FALSE);
  pango_context_set_language(context.get(), pango_language_from_string(languageTag(language).c_str()));
  pango_context_set_base_dir(context.get(),
                             direction == BaseDirection::RightToLeft ? PANGO_DIRECTION_RTL : PANGO_DIRECTION_LTR);
  return context;
}

DescriptionHandle describeFont(const Font& font, const std::string& language) {
  const std::string families = font.family + "," + systemFontFamily + ",Noto Sans,Noto Sans Arabic,Noto Sans Hebrew," +
                               ideographFamily(languageTag(language)) + ",Noto Color Emoji";
  DescriptionHandle description(pango_font_description_new());
  pango_font_description_set_family(description.get(), families.c_str());
  pango_font_description_set_absolute_size(description.get(), effectiveSize(font) * PANGO_SCALE);
  pango_font_description_set_weight(description.get(),
                                    font.weight == Weight::Bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
  return description;
}

}  // namespace drawing
