#pragma once

#include <array>
#include <memory>

class QGuiApplication;

namespace triaxlab {

/// What must stand before a QApplication is made: the fonts that take the place of those of the texts and, where there
/// is no display, the platform that needs none (Qt would abort otherwise).
void prepareApplication();

/// The constructor of an application object takes the C locale from the environment; numbers are written with a point.
void restoreNumberLocale();

/// The application object that fonts and painters need, for a program that has none; where there is one it does
/// nothing.
class PaintingApplication {
 public:
  PaintingApplication();
  PaintingApplication(const PaintingApplication&) = delete;
  PaintingApplication& operator=(const PaintingApplication&) = delete;
  ~PaintingApplication();

 private:
  // The toolkit keeps references to both and takes out what it understands.
  int m_argumentCount = 0;
  std::array<char*, 4> m_arguments{};
  std::unique_ptr<QGuiApplication> m_application;
};

}  // namespace triaxlab
