#include "windows/dialogs/overwrite_window.h"

#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QWheelEvent>

#include "windows/controls/click_label.h"
#include "windows/controls/layout.h"
#include "windows/controls/words.h"

namespace triaxlab {
namespace {

constexpr Place kWindow{0, 0, 6200, 6750};
constexpr int kTop = 150, kPitch = 300;
constexpr int kNumberX = 200, kSampleX = 900, kAnswerX = 2900;
constexpr int kNumberWidth = 700, kSampleWidth = 2000, kAnswerWidth = 1200;
constexpr Place kScroll{4130, kTop + kPitch, 255, kPitch* OverwriteSession::kVisibleRows};
constexpr int kButtonX = 4700, kButtonWidth = 1300, kButtonHeight = 400;

constexpr Place linePlace(int line, int x, int width) { return {x, kTop + kPitch * line, width, kPitch}; }

}  // namespace

Form10::Form10(QWidget* parent, OverwriteSession& session)
    : QDialog(parent), m_session(session), m_scroll(put(new QScrollBar(this), "VScroll1", kScroll)) {
  setObjectName("Form10");
  setWindowTitle(words(OverwriteSession::kCaption));
  setFixedSize(rectangle(kWindow).size());
  makeLines();
  makeButtons();
  m_scroll->setPageStep(OverwriteSession::kVisibleRows);
  m_scroll->setRange(0, m_session.largestScroll());
  connect(m_scroll, &QScrollBar::valueChanged, this, [this](int value) {
    m_session.setScroll(value);
    refresh();
  });
  refresh();
}

void Form10::makeLines() {
  const std::vector<std::string> headings = m_session.headings();
  put(new ClickLabel(this, words(headings.at(0)), ClickLabel::Look::Head), "Label3",
      linePlace(0, kNumberX, kNumberWidth));
  put(new ClickLabel(this, words(headings.at(1)), ClickLabel::Look::Head), "Label4",
      linePlace(0, kSampleX, kSampleWidth));
  for (int i = 0; i < OverwriteSession::kVisibleRows; ++i) {
    const auto label = [&](const char* name, int x, int width) {
      auto* const made =
          put(new ClickLabel(this, {}, ClickLabel::Look::Cell), arrayName(name, i), linePlace(i + 1, x, width));
      connect(made, &ClickLabel::clicked, this, [this, i] {
        m_session.flip(i);
        refresh();
      });
      return made;
    };
    m_lines.at(static_cast<std::size_t>(i)) = {label("Label5", kNumberX, kNumberWidth),
                                               label("Label1", kSampleX, kSampleWidth),
                                               label("Label2", kAnswerX, kAnswerWidth)};
  }
}

void Form10::makeButtons() {
  const auto button = [this](const char* name, std::string_view caption, int y) {
    return put(new QPushButton(words(caption), this), name, {kButtonX, y, kButtonWidth, kButtonHeight});
  };
  QPushButton* const overwrite = button("Command1", OverwriteSession::kOverwriteAll, 450);
  QPushButton* const keep = button("Command2", OverwriteSession::kKeepAll, 1050);
  QPushButton* const accept = button("Command3", OverwriteSession::kAccept, 1950);
  accept->setDefault(true);
  accept->setFocus();
  // Enter ends the dialog whichever button was pressed last.
  for (QPushButton* const all : {overwrite, keep}) all->setAutoDefault(false);
  connect(overwrite, &QPushButton::clicked, this, [this] {
    m_session.overwriteAll();
    refresh();
  });
  connect(keep, &QPushButton::clicked, this, [this] {
    m_session.keepAll();
    refresh();
  });
  connect(accept, &QPushButton::clicked, this, &QDialog::accept);
}

void Form10::refresh() {
  for (int i = 0; i < OverwriteSession::kVisibleRows; ++i) {
    const OverwriteSession::Line texts = m_session.line(i);
    const Line& line = m_lines.at(static_cast<std::size_t>(i));
    line.number->setText(words(texts.number));
    line.sampleNo->setText(words(texts.sampleNo));
    line.answer->setText(words(texts.answer));
    line.answer->setFocusPolicy(texts.answer.empty() ? Qt::NoFocus : Qt::TabFocus);
  }
  const QSignalBlocker blocked(m_scroll);
  m_scroll->setValue(m_session.scroll());
}

void Form10::wheelEvent(QWheelEvent* event) { m_scroll->event(event); }

}  // namespace triaxlab
