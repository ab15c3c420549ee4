#include "windows/dialogs/template_window.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <functional>

#include "windows/controls/layout.h"
#include "windows/controls/words.h"

namespace triaxlab {
namespace {

constexpr Place kWindow{0, 0, 6900, 3000};
constexpr Place kPrompt{300, 200, 6300, 300}, kTemplates{300, 540, 6300, 360};
/// Of three lines, which a long path takes.
constexpr Place kProjectFile{300, 1080, 6300, 840};
constexpr int kPrintX = 1200, kToFileX = 3900;
constexpr int kButtonY = 2220, kButtonWidth = 1800, kButtonHeight = 450;

}  // namespace

Form24::Form24(QWidget* parent, TemplateSession& session)
    : SessionDialog(parent),
      m_session(session),
      m_templates(put(new QComboBox(this), "Combo1", kTemplates)),
      m_projectFile(put(new QLabel(this), "Label2", kProjectFile)) {
  setObjectName("Form24");
  setWindowTitle(words(TemplateSession::kCaption));
  setFixedSize(rectangle(kWindow).size());
  auto* const prompt = put(new QLabel(words(TemplateSession::kPrompt), this), "Label1", kPrompt);
  prompt->setBuddy(m_templates);
  m_projectFile->setTextFormat(Qt::PlainText);
  m_projectFile->setWordWrap(true);
  m_projectFile->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  for (const std::string& name : m_session.templates()) m_templates->addItem(words(name));
  connect(m_templates, &QComboBox::currentIndexChanged, this,
          [this](int index) { act([&] { m_session.choose(static_cast<std::size_t>(index)); }); });
  makeButton("Command1", TemplateSession::kPrint, kPrintX, &TemplateSession::print);
  makeButton("Command2", TemplateSession::kToFile, kToFileX, &TemplateSession::writeToFile);
  refresh();
}

void Form24::makeButton(const char* name, std::string_view caption, int x, void (TemplateSession::*work)()) {
  auto* const button = put(new QPushButton(words(caption), this), name, {x, kButtonY, kButtonWidth, kButtonHeight});
  connect(button, &QPushButton::clicked, this, [this, work] { act([this, work] { std::invoke(work, m_session); }); });
}

void Form24::showState() {
  m_templates->setCurrentIndex(m_session.templates().empty() ? -1 : static_cast<int>(m_session.currentTemplate()));
  m_projectFile->setText(words(m_session.projectFile()));
}

}  // namespace triaxlab
