#include "simulator/plugins/phone_display/phone_drawing.hpp"

#include <numbers>

#include "simulator/drawing/cairo_handles.hpp"
#include "simulator/drawing/corner_path.hpp"

namespace phone_display {

namespace {

constexpr drawing::Color backgroundTop = {0.165, 0.172, 0.192, 1};
constexpr drawing::Color backgroundBottom = {0.082, 0.086, 0.098, 1};
constexpr drawing::Color bezel = {0.012, 0.012, 0.016, 1};
constexpr drawing::Color metalLight = {0.50, 0.51, 0.54, 1};
constexpr drawing::Color metalDark = {0.20, 0.205, 0.22, 1};
constexpr double rimWidth = 3;

void setColor(cairo_t* context, const drawing::Color& color) {
  cairo_set_source_rgba(context, color.red, color.green, color.blue, color.alpha);
}

void addStop(cairo_pattern_t* pattern, double offset, const drawing::Color& color) {
  cairo_pattern_add_color_stop_rgba(pattern, offset, color.red, color.green, color.blue, color.alpha);
}

drawing::Rectangle outset(const drawing::Rectangle& rectangle, double margin) {
  return {rectangle.x - margin, rectangle.y - margin, rectangle.width + 2 * margin, rectangle.height + 2 * margin};
}

void fill(cairo_t* context, const drawing::Rectangle& rectangle, double radius, const drawing::Color& color) {
  drawing::addRoundedRectangle(context, rectangle, {radius, drawing::CornerCurve::Continuous});
  setColor(context, color);
  cairo_fill(context);
}

// Draws the shadow as a stack of translucent shapes.
void drawShadow(cairo_t* context, const drawing::Rectangle& body, double radius) {
  constexpr int layers = 12;
  constexpr double spread = 1.8;
  constexpr double drop = 6;
  for (int layer = layers; layer > 0; --layer) {
    drawing::Rectangle shadow = outset(body, layer * spread - drop);
    shadow.y += drop;
    fill(context, shadow, radius + layer * spread, {0, 0, 0, 0.035});
  }
}

void drawSideButtons(cairo_t* context, const drawing::Rectangle& body) {
  constexpr double width = 6;
  constexpr double visible = 2.5;
  constexpr SideButton muteSwitch = {108, 28};
  for (const SideButton& button : {muteSwitch, volumeUpButton, volumeDownButton})
    fill(context, {body.x - visible, body.y + button.top, width, button.height}, 2, metalDark);
  fill(context, {body.x + body.width - width + visible, body.y + sideButton.top, width, sideButton.height}, 2,
       metalDark);
}

void drawRim(cairo_t* context, const drawing::Rectangle& body, double radius) {
  const drawing::PatternHandle metal(cairo_pattern_create_linear(body.x, body.y, body.x + body.width, body.y));
  addStop(metal.get(), 0, metalDark);
  addStop(metal.get(), 0.012, metalLight);
  addStop(metal.get(), 0.03, metalDark);
  addStop(metal.get(), 0.97, metalDark);
  addStop(metal.get(), 0.988, metalLight);
  addStop(metal.get(), 1, metalDark);
  drawing::addRoundedRectangle(context, body, {radius, drawing::CornerCurve::Continuous});
  cairo_set_source(context, metal.get());
  cairo_fill(context);
  fill(context, outset(body, -rimWidth), radius - rimWidth, bezel);
}

void drawHomeButton(cairo_t* context, const drawing::Rectangle& body, double bezelHeight) {
  constexpr double ringWidth = 2;
  const double x = body.x + body.width / 2;
  const double y = body.y + body.height - bezelHeight / 2;
  cairo_new_path(context);
  cairo_arc(context, x, y, homeButtonDiameter / 2 - ringWidth / 2, 0, 2 * std::numbers::pi);
  cairo_set_line_width(context, ringWidth);
  setColor(context, metalDark);
  cairo_stroke(context);
}

void drawSpeaker(cairo_t* context, const drawing::Rectangle& body, double bezelHeight) {
  constexpr double width = 58;
  constexpr double height = 6;
  fill(context, {body.x + (body.width - width) / 2, body.y + (bezelHeight - height) / 2, width, height}, height / 2,
       {0.13, 0.135, 0.145, 1});
}

drawing::Rectangle bodyAround(const base::DeviceProfile& device, const PhoneBody& body) {
  return {-body.sideBezel, -body.endBezel, device.screen.width + 2 * body.sideBezel,
          device.screen.height + 2 * body.endBezel};
}

// Makes a unit of the context equal to a point of the phone's screen.
void usePoints(cairo_t* context, const WindowLayout& layout) {
  cairo_translate(context, layout.screen.x, layout.screen.y);
  cairo_scale(context, layout.scale, layout.scale);
}

}  // namespace

void drawBackground(cairo_t* context, const WindowLayout& layout) {
  const drawing::PatternHandle gradient(cairo_pattern_create_linear(0, 0, 0, layout.height));
  addStop(gradient.get(), 0, backgroundTop);
  addStop(gradient.get(), 1, backgroundBottom);
  cairo_set_source(context, gradient.get());
  cairo_paint(context);
}

void drawBody(cairo_t* context, const base::DeviceProfile& device, const WindowLayout& layout) {
  const PhoneBody shape = bodyOf(device);
  const drawing::Rectangle body = bodyAround(device, shape);
  cairo_save(context);
  usePoints(context, layout);
  drawShadow(context, body, shape.radius);
  drawSideButtons(context, body);
  drawRim(context, body, shape.radius);
  if (shape.hasHomeButton) {
    drawHomeButton(context, body, shape.endBezel);
    drawSpeaker(context, body, shape.endBezel);
  }
  cairo_restore(context);
}

void drawScreen(cairo_t* context, const base::DeviceProfile& device, const WindowLayout& layout,
                cairo_surface_t* picture) {
  const drawing::PixelRectangle& screen = layout.screen;
  cairo_save(context);
  cairo_rectangle(context, screen.x, screen.y, screen.width, screen.height);
  cairo_clip(context);
  cairo_set_source_surface(context, picture, screen.x, screen.y);
  cairo_pattern_set_filter(cairo_get_source(context), CAIRO_FILTER_NEAREST);
  cairo_paint(context);
  const double radius = bodyOf(device).screenRadius;
  if (radius > 0) {
    // The picture has square corners, which the bezel covers.
    const drawing::Rectangle area = {1.0 * screen.x, 1.0 * screen.y, 1.0 * screen.width, 1.0 * screen.height};
    cairo_rectangle(context, area.x, area.y, area.width, area.height);
    drawing::addRoundedRectangle(context, area, {radius * layout.scale, drawing::CornerCurve::Continuous});
    cairo_set_fill_rule(context, CAIRO_FILL_RULE_EVEN_ODD);
    setColor(context, bezel);
    cairo_fill(context);
  }
  cairo_restore(context);
}

void drawIcon(cairo_t* context, double side) {
  constexpr double designSide = 64;
  constexpr drawing::Rectangle body = {15, 2, 34, 60};
  constexpr double radius = 8;
  constexpr drawing::Color top = {0.37, 0.66, 0.98, 1};
  constexpr drawing::Color bottom = {0.94, 0.47, 0.60, 1};
  cairo_save(context);
  cairo_scale(context, side / designSide, side / designSide);
  fill(context, body, radius, metalLight);
  fill(context, outset(body, -1), radius - 1, bezel);
  const drawing::PatternHandle wallpaper(cairo_pattern_create_linear(0, body.y, 0, body.y + body.height));
  addStop(wallpaper.get(), 0, top);
  addStop(wallpaper.get(), 1, bottom);
  drawing::addRoundedRectangle(context, outset(body, -3), {radius - 3, drawing::CornerCurve::Continuous});
  cairo_set_source(context, wallpaper.get());
  cairo_fill(context);
  fill(context, {20, 9, 24, 11}, 4, {1, 1, 1, 0.95});
  fill(context, {22.5, 12, 5, 5}, 2.5, top);
  fill(context, {30, 12.5, 11, 1.6}, 0.8, metalDark);
  fill(context, {30, 15.9, 8, 1.6}, 0.8, metalLight);
  cairo_restore(context);
}

}  // namespace phone_display
