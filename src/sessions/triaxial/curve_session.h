#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "charts/axes.h"
#include "platform/dialogs.h"
#include "platform/drawing_surface.h"
#include "sessions/document_fields.h"
#include "sessions/sample_list.h"
#include "sessions/sample_texts.h"
#include "sessions/triaxial/intervention.h"
#include "sessions/triaxial/page_steps.h"
#include "sessions/triaxial/result_table.h"
#include "sessions/triaxial/sample_fields.h"
#include "sessions/typing.h"
#include "store/workspace.h"
#include "triaxial/curve_page.h"

namespace triaxlab {

/// The fixed captions of the window; those that settings change are in the state.
namespace curve_captions {
inline constexpr const char* kTitle = "三轴试验曲线";
using sample_captions::kDensity;
using sample_captions::kSoilName;
inline constexpr const char* kStageNumber = "围压级号";                                      // head of the stages
inline constexpr const char* kStagePressure = "围   压";                                     // over the pressures
inline constexpr const char* kFailurePoint = "峰值点";                                       // over the strain limits
inline constexpr std::array<const char*, kStages> kStageRows{"一", "二", "三", "四", "五"};  // one a stage
inline constexpr const char* kApplyLimits = "确定";                                          // applies them
inline constexpr const char* kConsolidationTable = "固结表";                                 // opens the table
inline constexpr const char* kControlledDocNo = "受控文件号：";
inline constexpr std::array<const char*, 3> kDateParts{"年", "月", "日"};                       // of processing
inline constexpr std::array<const char*, kStages> kStageColumns{"P1", "P2", "P3", "P4", "P5"};  // table head
}  // namespace curve_captions

/// Lines of the list below its heads.
inline constexpr int kCurveListLines = 20;

/// The two fields that are read only and take keys.
enum class MethodField : std::uint8_t { ShearMode, TestMethod };
/// A key on one of them: End turns `uuAdjustFlag` over, a digit is the new value.
enum class MethodKey : std::uint8_t { End = 0, One = 1, Two = 2, Three = 3 };

/// A menu entry as the window in front sets it.
struct MenuEntryState {
  bool enabled = true;
  bool checked = false;
};

/// A box that is laid over a cell of the list or of the table while the person types there.
struct OpenCellState {
  bool visible = false;
  /// The cell under it. While the box isn't there the cell that it would open on; -1: none.
  int cell = 0;
  std::string text;
};

/// One line of the list; line 0 has the heads.
struct ListLine {
  std::string number, project, sample;
  bool operator==(const ListLine&) const = default;
};

/// A value behind its label, UTF-8.
struct LabelledText {
  std::string label, text;
};

/// Everything that the curve window shows besides the canvas, UTF-8. Returned whole, so the window has one place where
/// it becomes widgets. What is being typed in holds what was taken of the typing, all else the record's text.
struct CurveState {
  // The list
  std::array<ListLine, kCurveListLines + 1> list;
  int listTop = 0, listScrollMax = 0;  // from 0
  int selectedLine = 1;                // 1 to kCurveListLines
  OpenCellState listCell;

  // The sample on display
  std::string soilName, density;
  std::string shearMode, testMethod;  // read only, but keys act on them
  std::string borehole, samplingDepth, samplingSpot;
  std::array<std::string, 3> locationLabels;
  PerStage<std::string> cellPressure;
  PerStage<std::string> strainLimit;
  bool strainLimitsVisible = false;  // with what applies them
  bool strainLimitsEnabled = true;
  std::string envelopeNote;  // whether the envelope was set by hand
  bool envelopeNoteVisible = false;
  bool consolidationTableVisible = true, consolidationTableEnabled = true;

  // The table
  std::array<std::string, kTableColumns> columnHeads;  // second line; the first has kStageColumns
  std::array<std::string, kTableCells> tableCells;
  int tableTop = 0, tableScrollMax = 0;  // from 0
  OpenCellState resultCell;

  // The document
  std::string projectName, secondTitleLine;
  std::array<std::string, 3> processingDate;  // year, month, day
  std::string controlledDocNo;
  bool controlledDocNoVisible = false;
  std::string factor, summand;  // of the curve phase

  std::array<std::string, 2> statusPanels;  // the second and the third
  MenuEntryState ratioEnvelope, differenceEnvelope;
  std::uint8_t currentCurvePage = 1;
  std::uint8_t currentTablePage = 3;

  /// While a phase runs its controls lie over the list, and neither page, sample nor method can be changed.
  InterventionState intervention;
  std::vector<LabelledText> physicalValues;  // 物理指标; empty unless a phase runs and the laboratory wants them shown

  /// What stands in an input.
  const std::string& text(Input input) const;
};

/// What stands behind the curve window: which sample, which pages, what a key does to the record. One method for each
/// thing that a person does; after each the window shows `state()` and, when `pictureNumber()` has changed, the canvas.
/// Works on the rows of the workspace in place; a new table in the workspace is shown by `load()`.
class CurveSession {
 public:
  /// The workspace outlives the session. Loads it.
  explicit CurveSession(Workspace& workspace);

  /// Shows the table of the workspace as a window just opened: first sample, first page, scroll bars at 0, no unsaved
  /// change. Locations are already read and the opening pass has run. A table without a sample is ready for typing:
  /// the project cell of its first row is open.
  void load();

  CurveState state() const;
  /// Draws the page on display on a canvas of 7050 x 4700 twips, as it was when it was last shown: an edit of the
  /// record alone doesn't change the picture.
  void draw(DrawingSurface& surface) const;
  /// What stays at the edges of a magnified picture of the page.
  void drawEdges(DrawingSurface& surface, const ChartView& view) const;
  /// The values at a place of the canvas (twips) with their units, UTF-8. Empty beside the plot, and while a phase
  /// runs, which has a readout of its own.
  std::string readout(Point place) const;
  /// Counts the showings of a page and the changes of a phase; a canvas that has drawn this number is up to date.
  std::uint64_t pictureNumber() const { return m_pictureNumber + m_intervention.pictureNumber(); }
  /// Row of the sample tables that is on display, 0 to 1000.
  std::size_t sampleRow() const { return m_list.row(); }

  // The list
  /// A click on a cell: it is opened. The two heads do nothing.
  void selectListCell(int cell);
  /// The chosen line stays, so another sample comes on display.
  void scrollList(int top);
  /// A key in the open cell. True when it was one that leaves the cell; otherwise it belongs to the text.
  bool keyInList(CellKey key, CursorPlace cursor);

  // Pages
  /// 1 to 6. The two envelope pages take the menu's check from each other.
  void showPage(int page);
  void previousPage();
  void nextPage();
  void previousTablePage();
  void nextTablePage();
  void scrollTable(int top);
  /// A click on a cell: a value of the results page that may be edited is opened, any other cell closes it.
  void selectTableCell(int cell);
  /// A key in the open value. True when it was one that leaves the cell; otherwise it belongs to the text.
  bool keyInTable(CellKey key, CursorPlace cursor);

  // Typing
  /// The input now holds this text (UTF-8). What GBK doesn't have and control characters are not taken, nor what is
  /// beyond the field's width; the state tells what was taken. Every change goes into the record at once.
  void edit(Input input, std::string_view utf8);
  /// Bytes of GBK that the input takes.
  std::size_t width(Input input) const;
  /// The typing is at an end: the input shows the stored text again.
  void finishTyping() { m_typing.finish(); }
  /// False when the key means nothing there.
  bool keyOnMethod(MethodField field, MethodKey key);
  /// applies them: stores the five strain limits and draws the page anew.
  void applyStrainLimits();

  /// The page of the table as a spreadsheet takes it: two lines of heads, then all rows down to the last with a value,
  /// cells parted by tabs; UTF-8.
  std::string tableText() const { return m_table.wholePage(record()); }

  // 干预
  bool canIntervene() const { return Intervention::isPossible(record(), m_page); }
  /// Begins the phase of the page on display. Until it is left, nothing but the phase and the fields of the sample
  /// takes what a person does.
  void enterIntervention();
  /// Asks whether the work is to be kept, and goes on after either answer. Nothing when no phase runs.
  void leaveIntervention(Dialogs& dialogs);
  /// The phase that runs, for its own keys, buttons and mouse.
  Intervention& intervention() { return m_intervention; }
  const Intervention& intervention() const { return m_intervention; }
  /// What was set by hand for the sample is forgotten and fitted anew.
  void reprocess();

  // Unsaved changes
  bool isChanged() const { return m_changed; }
  /// A change that another window made to the same sample.
  void markChanged() { m_changed = true; }
  /// A save went well. It may have put the specimens of a sample in another order, so the sample is shown anew; a phase
  /// that runs goes on.
  void markSaved();

 private:
  TriaxialSampleRecord& record() const;
  ChartOptions chartOptions() const;
  /// Nothing for the result cell while it is closed.
  std::optional<EditableField> fieldOf(Input input) const;

  void showSample();
  void enterPage(CurvePage page);
  void takePicture();
  void setTablePage(TablePage page);

  std::string inputText(Input input) const;
  void fillList(CurveState& state) const;
  void fillFields(CurveState& state) const;
  void fillTable(CurveState& state) const;
  void readPhysicalValues();

  Workspace& m_workspace;
  DocumentFields m_document;
  SampleList m_list{{.lines = kCurveListLines, .headLines = 1}};
  bool m_listCellOpen = false;
  CurvePage m_page = CurvePage::StressStrain;
  FailureMode m_checkedMode = FailureMode::PeakStress;  // the menu entry that has the check
  ResultTable m_table;
  PerStage<std::string> m_strainLimitTexts;
  Typing<Input> m_typing;
  bool m_changed = false;
  Intervention m_intervention;
  std::vector<LabelledText> m_physicalValues;  // of the sample whose phase runs
  bool m_envelopeJustAccepted = false;         // until an envelope page has been drawn

  TriaxialSampleRecord m_drawn;  // the sample as it was when the page was last shown
  PageResults m_results;
  std::uint64_t m_pictureNumber = 0;
};

}  // namespace triaxlab
