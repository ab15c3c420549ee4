#pragma once

#include <cairo.h>
#include <fontconfig/fontconfig.h>

#include <memory>

namespace triaxlab {

/// Gives an object of a C library back by that library's own function.
template <auto GiveBack>
struct GivenBack {
  template <class Object>
  void operator()(Object* object) const {
    GiveBack(object);
  }
};

using CairoSurfaceHandle = std::unique_ptr<cairo_surface_t, GivenBack<cairo_surface_destroy>>;
using CairoContext = std::unique_ptr<cairo_t, GivenBack<cairo_destroy>>;
using CairoFace = std::unique_ptr<cairo_font_face_t, GivenBack<cairo_font_face_destroy>>;
using CairoScaledFont = std::unique_ptr<cairo_scaled_font_t, GivenBack<cairo_scaled_font_destroy>>;
using FontPattern = std::unique_ptr<FcPattern, GivenBack<FcPatternDestroy>>;
using FontSet = std::unique_ptr<FcFontSet, GivenBack<FcFontSetDestroy>>;

}  // namespace triaxlab
