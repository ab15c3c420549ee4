#pragma once

#include "sessions/dialogs/template_session.h"
#include "windows/dialogs/session_dialog.h"

class QComboBox;
class QLabel;

namespace triaxlab {

/// Hands the project in front and one of the laboratory's spreadsheet templates to the program that fills it.
class Form24 : public SessionDialog {
  Q_OBJECT

 public:
  Form24(QWidget* parent, TemplateSession& session);

 private:
  void makeButton(const char* name, std::string_view caption, int x, void (TemplateSession::*work)());
  void showState() override;

  TemplateSession& m_session;
  QComboBox* m_templates;
  QLabel* m_projectFile;
};

}  // namespace triaxlab
