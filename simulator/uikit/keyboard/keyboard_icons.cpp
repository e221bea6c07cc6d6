#include "simulator/uikit/keyboard/keyboard_icons.hpp"

#include <cairo.h>

#include <algorithm>
#include <numbers>
#include <span>

namespace uikit {

namespace {

constexpr double fullTurn = 2 * std::numbers::pi;
constexpr double lineWidth = 1.5;
constexpr double widestIcon = 24;  // the backspace icon with its outline

void outline(cairo_t* context, std::span<const drawing::Point> corners) {
  for (const drawing::Point& corner : corners) cairo_line_to(context, corner.x, corner.y);
  cairo_close_path(context);
}

void drawShift(cairo_t* context, Shift shift) {
  constexpr drawing::Point arrow[] = {{0, -8.5}, {9, 0.5}, {4.5, 0.5}, {4.5, 7.5}, {-4.5, 7.5}, {-4.5, 0.5}, {-9, 0.5}};
  outline(context, arrow);
  if (shift == Shift::On) cairo_fill_preserve(context);
  cairo_stroke(context);
}

void drawBackspace(cairo_t* context) {
  constexpr drawing::Point shape[] = {{-4.5, -7.5}, {11, -7.5}, {11, 7.5}, {-4.5, 7.5}, {-11.5, 0}};
  outline(context, shape);
  constexpr double arm = 3;
  constexpr double center = 3;
  cairo_move_to(context, center - arm, -arm);
  cairo_line_to(context, center + arm, arm);
  cairo_move_to(context, center - arm, arm);
  cairo_line_to(context, center + arm, -arm);
  cairo_stroke(context);
}

void drawEllipse(cairo_t* context, double halfWidth, double halfHeight) {
  cairo_save(context);
  cairo_scale(context, halfWidth, halfHeight);
  cairo_new_sub_path(context);
  cairo_arc(context, 0, 0, 1, 0, fullTurn);
  cairo_restore(context);
}

void drawGlobe(cairo_t* context) {
  constexpr double radius = 10;
  drawEllipse(context, radius, radius);
  drawEllipse(context, radius / 2.2, radius);
  cairo_move_to(context, 0, -radius);
  cairo_line_to(context, 0, radius);
  for (const auto& [y, half] : {std::pair{-4.5, 8.9}, {0.0, 10.0}, {4.5, 8.9}}) {
    cairo_move_to(context, -half, y);
    cairo_line_to(context, half, y);
  }
  cairo_stroke(context);
}

void drawMicrophone(cairo_t* context) {
  cairo_new_sub_path(context);
  cairo_arc(context, 0, -6, 3.6, fullTurn / 2, fullTurn);
  cairo_arc(context, 0, 1, 3.6, 0, fullTurn / 2);
  cairo_close_path(context);
  cairo_fill(context);
  cairo_new_sub_path(context);
  cairo_arc(context, 0, 1, 6.6, 0, fullTurn / 2);
  cairo_move_to(context, 0, 7.6);
  cairo_line_to(context, 0, 11);
  cairo_move_to(context, -4, 11);
  cairo_line_to(context, 4, 11);
  cairo_stroke(context);
}

void drawSmiley(cairo_t* context) {
  drawEllipse(context, 10, 10);
  cairo_stroke(context);
  for (const double eye : {-3.6, 3.6}) {
    cairo_arc(context, eye, -2.6, 1.3, 0, fullTurn);
    cairo_fill(context);
  }
  cairo_arc(context, 0, 1, 5.4, fullTurn * 0.04, fullTurn * 0.46);
  cairo_stroke(context);
}

}  // namespace

void drawKeyIcon(drawing::Canvas& canvas, KeyRole role, Shift shift, const drawing::Rectangle& area,
                 const drawing::Color& color) {
  constexpr double margin = 1;
  const double scale = std::min(1.0, (area.width - 2 * margin) / widestIcon);
  cairo_t* context = canvas.context();
  cairo_save(context);
  cairo_translate(context, area.x + area.width / 2, area.y + area.height / 2);
  cairo_scale(context, scale, scale);
  cairo_set_source_rgba(context, color.red, color.green, color.blue, color.alpha);
  cairo_set_line_width(context, lineWidth);
  cairo_set_line_join(context, CAIRO_LINE_JOIN_ROUND);
  cairo_set_line_cap(context, CAIRO_LINE_CAP_ROUND);
  cairo_new_path(context);
  switch (role) {
    case KeyRole::Shift:
      drawShift(context, shift);
      break;
    case KeyRole::Backspace:
      drawBackspace(context);
      break;
    case KeyRole::Globe:
      drawGlobe(context);
      break;
    case KeyRole::Microphone:
      drawMicrophone(context);
      break;
    case KeyRole::Emoji:
      drawSmiley(context);
      break;
    default:
      break;
  }
  cairo_restore(context);
}

}  // namespace uikit
