#pragma once

#include <string>
#include <string_view>

#include "sessions/dialogs/manual.h"

class QTextDocument;

namespace triaxlab {

/// Where pages and pictures of the manual lie inside the program.
inline constexpr const char* kManualFolder = "qrc:/manual/";

/// The manual that the program carries.
Manual readManual();

/// Gives a document that was read from Markdown its form: a line of its own height, headings, tables with rules,
/// pictures no wider than `width`. Sizes follow the document's own type.
void typeset(QTextDocument& document, int width);
/// Makes pictures that are wider than this as wide, and gives others their own size.
void fitPictures(QTextDocument& document, int width);

}  // namespace triaxlab
