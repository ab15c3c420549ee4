#include "platform/cairo/font_faces.h"

#include <cairo-ft.h>

#include <algorithm>
#include <span>

#include "common/user_error.h"
#include "platform/chinese_font.h"
#include "platform/font_substitutes.h"

namespace triaxlab {
namespace {

const FcChar8* bytesOf(const char* text) { return reinterpret_cast<const FcChar8*>(text); }

FontPattern patternOf(const std::string& name, bool bold) {
  FontPattern pattern(FcPatternCreate());
  FcPatternAddString(pattern.get(), FC_FAMILY, bytesOf(name.c_str()));
  for (const char* const substitute : substitutesOf(name))
    FcPatternAddString(pattern.get(), FC_FAMILY, bytesOf(substitute));
  FcPatternAddInteger(pattern.get(), FC_WEIGHT, bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
  FcPatternAddBool(pattern.get(), FC_OUTLINE, FcTrue);
  FcConfigSubstitute(nullptr, pattern.get(), FcMatchPattern);
  FcDefaultSubstitute(pattern.get());
  return pattern;
}

/// Those that add no signs to the ones before them are left out.
FontSet fontsFor(FcPattern& pattern) {
  FcResult result{};
  return FontSet(FcFontSort(nullptr, &pattern, FcTrue, nullptr, &result));
}

std::span<FcPattern*> fontsOf(const FontSet& set) {
  if (set == nullptr) return {};
  return {set->fonts, static_cast<std::size_t>(set->nfont)};
}

bool hasSign(const FcPattern* font, char32_t sign) {
  FcCharSet* signs = nullptr;
  return FcPatternGetCharSet(font, FC_CHARSET, 0, &signs) == FcResultMatch && FcCharSetHasChar(signs, sign) == FcTrue;
}

/// The sign that a text begins with and how many bytes it has; of a byte that begins none, that byte.
std::pair<char32_t, std::size_t> firstSign(std::string_view utf8) {
  FcChar32 sign = 0;
  const int length = FcUtf8ToUcs4(reinterpret_cast<const FcChar8*>(utf8.data()), &sign, static_cast<int>(utf8.size()));
  if (length <= 0) return {U'?', 1};
  return {sign, static_cast<std::size_t>(length)};
}

}  // namespace

std::vector<FaceRun> FontFaces::runsOf(std::string_view utf8, const Font& font) {
  Family& family = familyOf(font);
  std::vector<FaceRun> runs;
  std::size_t begin = 0;
  for (std::size_t at = 0; at < utf8.size();) {
    const auto [sign, length] = firstSign(utf8.substr(at));
    cairo_font_face_t* const face = faceAt(family, placeOf(family, sign));
    if (runs.empty() || runs.back().face != face) {
      runs.push_back({face, {}});
      begin = at;
    }
    at += length;
    runs.back().text = utf8.substr(begin, at - begin);
  }
  return runs;
}

FontFaces::Family& FontFaces::familyOf(const Font& font) {
  const auto [place, isNew] = m_families.try_emplace({font.name, font.bold});
  Family& family = place->second;
  if (isNew) {
    family.asked = patternOf(font.name, font.bold);
    family.fonts = fontsFor(*family.asked);
    family.faces.resize(fontsOf(family.fonts).size());
  }
  return family;
}

std::size_t FontFaces::placeOf(Family& family, char32_t sign) {
  const auto [known, isNew] = family.places.try_emplace(sign, 0);
  if (!isNew) return known->second;
  const auto fonts = fontsOf(family.fonts);
  for (std::size_t place = 0; place < fonts.size(); ++place)
    if (hasSign(fonts[place], sign)) return known->second = place;
  return 0;
}

cairo_font_face_t* FontFaces::faceAt(Family& family, std::size_t place) {
  CairoFace& face = family.faces.at(place);
  if (face == nullptr) {
    const FontPattern prepared(FcFontRenderPrepare(nullptr, family.asked.get(), fontsOf(family.fonts)[place]));
    face.reset(cairo_ft_font_face_create_for_pattern(prepared.get()));
  }
  return face.get();
}

void requireChineseFont() {
  static const bool hasChinese = [] {
    const FontPattern pattern = patternOf(kSong, false);
    const FontSet fonts = fontsFor(*pattern);
    return std::ranges::any_of(fontsOf(fonts), [](const FcPattern* font) { return hasSign(font, U'验'); });
  }();
  if (!hasChinese)
    throw UserError(
        "这台计算机没有中文字体，页面上的汉字会成为方框，没有输出。请安装一种中文字体（如文鼎明体 AR PL UMing，"
        "软件包 fonts-arphic-uming），然后重新启动本程序。");
}

}  // namespace triaxlab
