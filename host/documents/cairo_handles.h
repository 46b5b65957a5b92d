#pragma once

#include <cairo.h>
#include <pango/pangocairo.h>

#include <memory>

namespace autonotify::host {

struct CairoRelease {
  void operator()(cairo_t* pen) const { cairo_destroy(pen); }
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
  void operator()(cairo_font_options_t* options) const { cairo_font_options_destroy(options); }
};
struct PangoRelease {
  void operator()(PangoContext* context) const { g_object_unref(context); }
  void operator()(PangoLayout* layout) const { g_object_unref(layout); }
  void operator()(PangoLayoutIter* lines) const { pango_layout_iter_free(lines); }
  void operator()(PangoFontDescription* font) const { pango_font_description_free(font); }
  void operator()(PangoTabArray* tabs) const { pango_tab_array_free(tabs); }
  void operator()(char* text) const { g_free(text); }
};

template <class Object>
using CairoHandle = std::unique_ptr<Object, CairoRelease>;
template <class Object>
using PangoHandle = std::unique_ptr<Object, PangoRelease>;

}  // namespace autonotify::host
