// Creates the pango objects that describe the fonts for drawing text. The selection of fonts is fixed. It does not
// depend on the user's font settings or on other installed fonts. Used by one thread at a time.
#pragma once

#include <pango/pango.h>

#include <memory>
#include <string>

#include "simulator/drawing/font.hpp"
#include "simulator/drawing/text_layout.hpp"

namespace drawing {

struct PangoDeleter {
  void operator()(PangoContext* context) const { g_object_unref(context); }
  void operator()(PangoLayout* layout) const { g_object_unref(layout); }
  void operator()(PangoFontDescription* description) const { pango_font_description_free(description); }
  void operator()(PangoAttrList* attributes) const { pango_attr_list_unref(attributes); }
};
using TextContextHandle = std::unique_ptr<PangoContext, PangoDeleter>;
using LayoutHandle = std::unique_ptr<PangoLayout, PangoDeleter>;
using DescriptionHandle = std::unique_ptr<PangoFontDescription, PangoDeleter>;
using AttributesHandle = std::unique_ptr<PangoAttrList, PangoDeleter>;

// Creates a context whose unit is a point. Glyphs are neither hinted nor aligned to whole pixels. `language` is a
// locale such as "ja_JP".
TextContextHandle makeTextContext(const std::string& language, BaseDirection direction);

// Returns a description of the font and of the fallback fonts for characters that it lacks. If several languages share
// a script, the fallback font for `language` comes first.
DescriptionHandle describeFont(const Font& font, const std::string& language);

}  // namespace drawing
