#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "platform/dialogs.h"
#include "sessions/triaxial/curve_phase.h"
#include "sessions/triaxial/envelope_phase.h"
#include "sessions/triaxial/path_phase.h"

namespace triaxlab {

/// The texts of the controls that a phase shows.
namespace intervention_captions {
inline constexpr const char* kMousePlace = "鼠标点坐标：";
inline constexpr const char* kFactor = "所有数据乘以值：";
inline constexpr const char* kSummand = "  所有数据加值：";
inline constexpr const char* kApply = "确 定";
inline constexpr const char *kTotal = "干预1", *kEffective = "干预2";
}  // namespace intervention_captions

/// Which phase of 干预 runs; at most one.
enum class Phase : std::uint8_t {
  None,
  Curve,     // page 1
  Envelope,  // pages 2 and 3
  Path,      // page 4
};

inline constexpr std::size_t kKeyHelpLines = 3;

/// What the controls of the phase that runs show, UTF-8.
struct InterventionState {
  Phase phase = Phase::None;
  bool running() const { return phase != Phase::None; }

  // The curve phase
  std::string mousePlace;  // in values of the axes
  PerStage<bool> stageEnabled{};
  std::size_t selectedStage = 0;
  std::string factor, summand;

  // The envelope phase
  bool envelopeChoice = false;   // there is an effective envelope, too
  bool effectiveChosen = false;  // it is the one that is moved
  std::string cohesionStep;

  std::string subject;                             // which sample, and on the stress-strain page which stage
  std::array<std::string, kKeyHelpLines> keyHelp;  // what the keys do
};

/// 干预: the phase that runs with its working copy. A key, button or mouse of another phase does nothing.
class Intervention {
 public:
  Phase phase() const { return static_cast<Phase>(m_phase.index()); }
  bool running() const { return phase() != Phase::None; }
  /// Counts the changes of the picture; it never falls.
  std::uint64_t pictureNumber() const { return m_pictureNumber; }

  /// Whether a page of the sample can be corrected by hand.
  static bool isPossible(const TriaxialSampleRecord& sample, CurvePage page);
  /// Begins the phase of a page that has been shown with these results. Pre: it is possible and none runs.
  void enter(const TriaxialSampleRecord& sample, CurvePage page, const PageResults& results);
  /// Makes the work the sample's, or takes it back. Pre: a phase runs; end() is to follow.
  void accept(TriaxialSampleRecord& record, NumberFormat cohesionFormat) const;
  void drop(TriaxialSampleRecord& record) const;
  void end();
  /// The step of C is as at the start again, too.
  void reset();

  void key(ArrowKey key);
  void undo();
  void redo();

  // The curve phase
  void selectStage(std::size_t stage);
  static constexpr std::size_t kNumberWidth = 10;  // bytes that factor and summand take
  void typeFactor(std::string_view utf8);
  void typeSummand(std::string_view utf8);
  void multiply(Dialogs& dialogs);
  void add(Dialogs& dialogs);
  void mouseAt(Point place, bool buttonDown);  // place in twips of the canvas
  void mouseReleased();
  /// A save may have changed the order of the sample's specimens.
  void rearrange(const TriaxialSampleRecord& saved);

  // The envelope phase
  void chooseEffective(bool effective);
  /// Asks for the step of C. What reads as 0 leaves it.
  void askCohesionStep(Dialogs& dialogs);

  /// `sample` is the one that the phase works on.
  InterventionState state(const TriaxialSampleRecord& sample, std::string_view sampleNoLabel) const;
  /// How the page is drawn while the phase runs.
  void show(ChartOptions& options, PageResults& results) const;

 private:
  template <class Step>
  void step(const Step& step);
  template <class OnePhase, class Step>
  void stepOf(const Step& step);

  float m_cohesionStep = 1;                                                    // kPa
  std::variant<std::monostate, CurvePhase, EnvelopePhase, PathPhase> m_phase;  // in the order of Phase
  std::uint64_t m_pictureNumber = 0;
};

}  // namespace triaxlab
