#include "windows/play/statements.h"

#include <fmt/core.h>

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPixmap>
#include <QRadioButton>
#include <QScreen>
#include <QScrollBar>
#include <QTableView>
#include <QWindow>
#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>

#include "common/user_error.h"
#include "platform/files.h"
#include "platform/json_page_device.h"
#include "windows/controls/canvas_widget.h"
#include "windows/controls/layout.h"
#include "windows/controls/words.h"
#include "windows/document_frames.h"
#include "windows/first_place.h"
#include "windows/play/control_text.h"
#include "windows/play/fault_statement.h"
#include "windows/play/find_widget.h"
#include "windows/play/person.h"

namespace triaxlab {
namespace {

Target takeTarget(Arguments& arguments) { return targetOf(arguments.word("WINDOW.CONTROL")); }

void print(const std::string& line) {
  fmt::print("{}\n", line);
  std::fflush(stdout);
}

// ---- the menu

void menu(Arguments& arguments, Stage& /*stage*/) {
  const std::string name = arguments.word("a menu command");
  arguments.end();
  QAction* const action = findCommandAction(name);
  if (action == nullptr) throw ScriptError(fmt::format("there is no menu command {}", name));
  requireInFront(nullptr, "the menu");
  if (!action->isEnabled() || !action->isVisible()) throw ScriptError(fmt::format("the menu command {} is off", name));
  action->trigger();
}

// ---- mouse

/// Where events of a control go: the content of one that scrolls.
QWidget* eventWidget(QWidget* control) {
  const auto* const area = qobject_cast<QAbstractScrollArea*>(control);
  return area != nullptr ? area->viewport() : control;
}

void click(Arguments& arguments, Stage& /*stage*/) {
  QWidget* const widget = eventWidget(reachControl(takeTarget(arguments)));
  arguments.end();
  clickMouse(widget, widget->rect().center());
}

void doubleClick(Arguments& arguments, Stage& /*stage*/) {
  QWidget* const widget = eventWidget(reachControl(takeTarget(arguments)));
  arguments.end();
  doubleClickMouse(widget, widget->rect().center());
}

struct Cell {
  QTableView* grid;
  QModelIndex index;
};

/// `W.GRID ROW [COLUMN]`: without a column that of the current cell.
Cell takeCell(Arguments& arguments) {
  const Target target = takeTarget(arguments);
  auto* const grid = as<QTableView>(reachControl(target), target, "grid");
  const int row = arguments.number("the row");
  const int current = std::max(0, grid->currentIndex().column());
  const int column = arguments.isEmpty() ? current : arguments.number("the column");
  arguments.end();
  const QModelIndex index = grid->model()->index(row - 1, column);
  if (!index.isValid()) throw ScriptError(fmt::format("{} has no cell {} {}", target.spelled(), row, column));
  grid->scrollTo(index);
  return {grid, index};
}

void cell(Arguments& arguments, Stage& /*stage*/) {
  const Cell cell = takeCell(arguments);
  cell.grid->setFocus();
  cell.grid->setCurrentIndex(cell.index);
}

void doubleClickCell(Arguments& arguments, Stage& /*stage*/) {
  const Cell cell = takeCell(arguments);
  doubleClickMouse(cell.grid->viewport(), cell.grid->visualRect(cell.index).center());
}

struct CanvasPlace {
  CanvasWidget* canvas;
  QPointF place;  // pixels
};

/// `W.C X Y`, in the canvas's twips.
CanvasPlace takeCanvasPlace(Arguments& arguments) {
  const Target target = takeTarget(arguments);
  auto* const canvas = as<CanvasWidget>(reachControl(target), target, "canvas");
  const int x = arguments.number("x"), y = arguments.number("y");
  return {canvas, canvas->pixelAt(x, y)};
}

void mouse(Arguments& arguments, Stage& stage) {
  static constexpr std::array<std::pair<std::string_view, MouseMotion>, 3> kMotions{
      {{"press", MouseMotion::Press}, {"move", MouseMotion::Move}, {"release", MouseMotion::Release}}};
  const CanvasPlace at = takeCanvasPlace(arguments);
  const std::string motion = arguments.word("press, move or release");
  arguments.end();
  const auto* const found = std::ranges::find(kMotions, motion, [](const auto& row) { return row.first; });
  if (found == kMotions.end()) throw ScriptError("not press, move or release: " + motion);
  const bool drags = found->second == MouseMotion::Move && stage.leftButtonDown;
  if (found->second != MouseMotion::Move) stage.leftButtonDown = found->second == MouseMotion::Press;
  moveMouse(at.canvas, at.place, drags ? MouseMotion::Drag : found->second);
}

void wheel(Arguments& arguments, Stage& /*stage*/) {
  const CanvasPlace at = takeCanvasPlace(arguments);
  const int notches = arguments.number("the number of notches");
  const std::string modifier = arguments.isEmpty() ? "" : arguments.word("Ctrl");
  arguments.end();
  if (!modifier.empty() && modifier != "Ctrl") throw ScriptError("not Ctrl: " + modifier);
  turnWheel(at.canvas, at.place, notches, modifier.empty() ? Qt::NoModifier : Qt::ControlModifier);
}

// ---- keyboard

void key(Arguments& arguments, Stage& /*stage*/) {
  const KeyStroke stroke = keyStroke(words(arguments.word("a key")));
  arguments.end();
  pressKey(keyTarget(), stroke);
}

void focus(Arguments& arguments, Stage& /*stage*/) {
  const Target target = takeTarget(arguments);
  QWidget* const control = reachControl(target);
  arguments.end();
  if (!control->isEnabled()) throw ScriptError(fmt::format("{} is off", target.spelled()));
  control->setFocus(Qt::OtherFocusReason);
}

void type(Arguments& arguments, Stage& /*stage*/) {
  const Target target = takeTarget(arguments);
  auto* const edit = as<QLineEdit>(reachControl(target), target, "edit control");
  if (!edit->isEnabled() || edit->isReadOnly()) throw ScriptError(fmt::format("{} takes no text", target.spelled()));
  edit->setFocus(Qt::OtherFocusReason);
  typeText(edit, words(arguments.text()));
}

// ---- bars, lists, boxes

void scroll(Arguments& arguments, Stage& /*stage*/) {
  const Target target = takeTarget(arguments);
  auto* const bar = as<QScrollBar>(reachControl(target), target, "scroll bar");
  const int value = arguments.number("the value");
  arguments.end();
  if (!bar->isEnabled()) throw ScriptError(fmt::format("{} is off", target.spelled()));
  bar->setValue(value);
}

void chooseEntry(QComboBox& list, const QString& text, const Target& target) {
  const int entry = list.findText(text);
  if (entry < 0) throw ScriptError(fmt::format("{} has no entry {}", target.spelled(), utf8(text)));
  list.setCurrentIndex(entry);
  emit list.activated(entry);
}

void choose(Arguments& arguments, Stage& /*stage*/) {
  const Target target = takeTarget(arguments);
  QWidget* const control = reachControl(target);
  if (!control->isEnabled()) throw ScriptError(fmt::format("{} is off", target.spelled()));
  const QString text = words(arguments.text());
  if (auto* const list = qobject_cast<QComboBox*>(control)) return chooseEntry(*list, text, target);
  as<QRadioButton>(control, target, "list or option button")->click();
}

void check(Arguments& arguments, Stage& /*stage*/) {
  const Target target = takeTarget(arguments);
  auto* const box = as<QAbstractButton>(reachControl(target), target, "check box");
  const std::string state = arguments.word("on or off");
  arguments.end();
  if (state != "on" && state != "off") throw ScriptError("not on or off: " + state);
  if (!box->isEnabled()) throw ScriptError(fmt::format("{} is off", target.spelled()));
  if (box->isChecked() != (state == "on")) box->click();
}

// ---- answers

void reply(Arguments& arguments, Stage& stage) {
  using Reply = PlayDialogs::Reply;
  static constexpr std::array<std::pair<std::string_view, Reply>, 4> kReplies{
      {{"Yes", Reply::Yes}, {"No", Reply::No}, {"OK", Reply::OK}, {"Cancel", Reply::Cancel}}};
  const std::string answer = arguments.word("Yes, No, OK or Cancel");
  arguments.end();
  const auto* const found = std::ranges::find(kReplies, answer, [](const auto& row) { return row.first; });
  if (found == kReplies.end()) throw ScriptError("not Yes, No, OK or Cancel: " + answer);
  stage.dialogs.queueReply(found->second);
}

std::filesystem::path pathIn(const Stage& stage, const std::string& text) { return stage.folder / pathFromText(text); }

void file(Arguments& arguments, Stage& stage) {
  const std::string text = arguments.text();
  if (text.empty()) throw ScriptError("a path or cancel is missing");
  stage.dialogs.queueFile(text == "cancel" ? std::nullopt : std::optional(pathIn(stage, text)));
}

void input(Arguments& arguments, Stage& stage) {
  const std::string text = arguments.text();
  stage.dialogs.queueInput(text == "cancel" ? std::nullopt : std::optional(text));
}

/// `W.C PATH`: the file comes from another program's window.
void drop(Arguments& arguments, Stage& stage) {
  QWidget* const widget = eventWidget(reachControl(takeTarget(arguments)));
  const std::string text = arguments.text();
  if (text.empty()) throw ScriptError("a path is missing");
  dropFile(widget, words(textOfPath(pathIn(stage, text))));
}

// ---- reading

void get(Arguments& arguments, Stage& /*stage*/) {
  const Target target = takeTarget(arguments);
  QWidget* const control = findControl(target);
  if (qobject_cast<QTableView*>(control) == nullptr) {
    arguments.end();
    return print(fmt::format("{}={}", target.spelled(), onOneLine(utf8(controlText(control)))));
  }
  const int row = arguments.number("the row"), column = arguments.number("the column");
  arguments.end();
  print(fmt::format("{}={}", target.spelled(), onOneLine(utf8(cellText(control, row, column)))));
}

void state(Arguments& arguments, Stage& /*stage*/) {
  const std::string name = arguments.word("a control or menu command");
  arguments.end();
  const auto told = [&name](bool visible, bool enabled, bool checked) {
    const auto word = [](bool holds, std::string_view text) { return fmt::format(" {}{}", holds ? "" : "not ", text); };
    print(name + ":" + word(visible, "visible") + word(enabled, "enabled") + word(checked, "checked"));
  };
  if (const QAction* const action = name.find('.') == std::string::npos ? findCommandAction(name) : nullptr)
    return told(action->isVisible(), action->isEnabled(), action->isChecked());
  const QWidget* const control = findControl(targetOf(name));
  told(control->isVisible(), control->isEnabled(), isChecked(control));
}

void messages(Arguments& arguments, Stage& stage) {
  arguments.end();
  for (const std::string& note : stage.dialogs.takeNotes()) print(note);
}

void expect(Arguments& arguments, Stage& /*stage*/) {
  const Target target = takeTarget(arguments);
  const std::string wanted = arguments.text();
  const std::string found = utf8(controlText(findControl(target)));
  if (found != wanted && onOneLine(found) != wanted)
    throw ScriptError(fmt::format(R"({} is "{}" and not "{}")", target.spelled(), onOneLine(found), wanted));
}

// ---- pictures

void shot(Arguments& arguments, Stage& stage) {
  QWidget* const window = findControl(takeTarget(arguments));
  const std::filesystem::path path = pathIn(stage, arguments.text());
  if (!window->grab().save(words(textOfPath(path)))) throw ScriptError("can't write " + textOfPath(path));
}

void operations(Arguments& arguments, Stage& stage) {
  const Target target = takeTarget(arguments);
  const auto* const drawn = dynamic_cast<const DrawnArea*>(findControl(target));
  if (drawn == nullptr) throw ScriptError(target.spelled() + " is no canvas");
  const std::filesystem::path path = pathIn(stage, arguments.text());
  const std::unique_ptr<PageDevice> recording = makeJsonDevice(path);
  drawn->drawOn(recording->beginPage({drawn->widthTwips(), drawn->heightTwips()}));
  recording->endPage();
  recording->finish();
}

// ---- windows

/// A window whose corner or edge is taken hold of.
QWidget* takeWindow(Arguments& arguments) {
  const Target target = targetOf(arguments.word("a window"));
  QWidget* const window = findWindow(target.window);
  requireInFront(window->window(), target.window);
  return window;
}

/// A document window is the content of the frame that has the corner to click at.
QWidget* frameOf(QWidget* window) { return window->isWindow() ? window : window->parentWidget(); }

/// `W WIDTH HEIGHT`: its inner size, logical pixels.
void size(Arguments& arguments, Stage& /*stage*/) {
  QWidget* const window = takeWindow(arguments);
  const int width = arguments.number("the width"), height = arguments.number("the height");
  arguments.end();
  QWidget* const frame = frameOf(window);
  frame->resize(frame->size() - window->size() + QSize(width, height));
}

void fill(Arguments& arguments, Stage& /*stage*/) {
  QWidget* const window = takeWindow(arguments);
  arguments.end();
  if (auto* const frame = qobject_cast<QMdiSubWindow*>(frameOf(window))) return fitFrame(*frame);
  const QRect screen = window->screen()->availableGeometry();
  window->setGeometry(firstPlace(screen, screen.size(), window->windowHandle()->frameMargins()));
}

void close(Arguments& arguments, Stage& /*stage*/) {
  QWidget* const window = takeWindow(arguments);
  arguments.end();
  frameOf(window)->close();
}

struct Statement {
  std::string_view name;
  void (*run)(Arguments&, Stage&);
};

constexpr auto kStatements = std::to_array<Statement>({
    {"menu", menu},
    {"click", click},
    {"doubleclick", doubleClick},
    {"cell", cell},
    {"dblcell", doubleClickCell},
    {"key", key},
    {"focus", focus},
    {"wheel", wheel},
    {"type", type},
    {"scroll", scroll},
    {"choose", choose},
    {"check", check},
    {"mouse", mouse},
    {"reply", reply},
    {"file", file},
    {"input", input},
    {"drop", drop},
    {"get", get},
    {"state", state},
    {"messages", messages},
    {"expect", expect},
    {"shot", shot},
    {"ops", operations},
    {"size", size},
    {"fill", fill},
    {"close", close},
#ifdef TRIAXLAB_FAULTS
    {"fault", fault},
#endif
});

}  // namespace

void runStatement(const ScriptLine& line, Stage& stage) {
  const auto* const statement = std::ranges::find(kStatements, line.name, &Statement::name);
  if (statement == kStatements.end()) throw ScriptError("there is no statement " + line.name);
  Arguments arguments(line.rest);
  try {
    statement->run(arguments, stage);
  } catch (const UserError& error) {
    throw ScriptError(error.what());
  }
}

}  // namespace triaxlab
