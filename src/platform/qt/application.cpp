#include "platform/qt/application.h"

#include <QFont>
#include <QGuiApplication>
#include <QLoggingCategory>
#include <array>
#include <clocale>

#include "platform/font_substitutes.h"

namespace triaxlab {
namespace {

void substituteFonts() {
  for (const char* const font : {kSong, kSongRotated, kArialNarrow})
    for (const char* const substitute : substitutesOf(font))
      QFont::insertSubstitution(QString::fromUtf8(font), substitute);
}

/// The toolkit's remarks about desktops and runtime folders are not for a technician's terminal; the environment
/// variable QT_LOGGING_RULES brings them back.
void silenceToolkit() { QLoggingCategory::setFilterRules("*.warning=false\n*.debug=false"); }

}  // namespace

void prepareApplication() {
  silenceToolkit();
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && qEnvironmentVariableIsEmpty("DISPLAY") &&
      qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  substituteFonts();
}

void restoreNumberLocale() { std::setlocale(LC_NUMERIC, "C"); }

PaintingApplication::PaintingApplication() {
  if (QCoreApplication::instance() != nullptr) return;
  silenceToolkit();
  substituteFonts();
  static auto name = std::to_array("triaxlab");
  static auto option = std::to_array("-platform");
  static auto platform = std::to_array("offscreen");
  m_arguments = {name.data(), option.data(), platform.data(), nullptr};
  m_argumentCount = 3;
  m_application = std::make_unique<QGuiApplication>(m_argumentCount, m_arguments.data());
  restoreNumberLocale();
}

PaintingApplication::~PaintingApplication() = default;

}  // namespace triaxlab
