#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace triaxlab {

// The engine's texts are UTF-8; the toolkit's are UTF-16.

inline QString words(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}
inline std::string utf8(const QString& words) { return words.toStdString(); }

/// Name of a control of a control array: `Text7(0)`.
inline QString arrayName(const char* name, int index) { return QString("%1(%2)").arg(name).arg(index); }

}  // namespace triaxlab
