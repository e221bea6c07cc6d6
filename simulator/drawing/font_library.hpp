// The fonts text is drawn with: a private selection, the same on every machine that has the font packages, whatever the
// user's own font settings say.
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
using ContextForText = std::unique_ptr<PangoContext, PangoDeleter>;
using LayoutHandle = std::unique_ptr<PangoLayout, PangoDeleter>;
using DescriptionHandle = std::unique_ptr<PangoFontDescription, PangoDeleter>;
using AttributesHandle = std::unique_ptr<PangoAttrList, PangoDeleter>;

// One point is one unit, glyphs are neither hinted nor moved to whole pixels.
ContextForText makeTextContext(const std::string& language, BaseDirection direction);

// The font followed by those that stand in for characters it lacks, the language's own first where scripts are shared.
DescriptionHandle describeFont(const Font& font, const std::string& language);

}  // namespace drawing
