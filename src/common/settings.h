#pragma once

#include <array>
#include <string>

#include "common/text_number.h"

namespace triaxlab {

/// The checked entries of the settings menu and the print choices, bytes of the binary settings file.
struct Toggles {
  bool dotMatrixPrinter = false;      // 198
  bool showPhysicalIndices = false;   // 1765   WXCS
  bool printEffectiveCircles = true;  // 1800, stored inverted
  bool printTotalCircles = true;      // 1801, stored inverted
  bool printDensity = false;          // 3010   MIDU
  bool printSamplingSpot = false;     // 3011   DYQYDD
  bool sixteenUnconfined = false;     // 27000  WCX16
  bool omitProjectName = false;       // 27001  PGCMC
  bool mergePressures = false;        // 27002  SAMETY
  bool english = false;               // 27003  SENGLISH
};

/// The laboratory's habits, from its hand-edited text files. Texts are UTF-8.
struct LaboratoryHabits {
  bool wideProjectNo = false;                // [工程编号大于20字节]
  bool unconfinedHeightChange = false;       // [无侧限打印高度变化值]
  bool methodAndDepthOnEverySample = false;  // [三轴每个土样都打印试验方法和取土深度]
  bool autoAdjustRawData = false;            // [三轴应力差人工干预后自动调整原始数据]
  bool trialPitNumber = false;               // [三轴打印探井号]
  bool strainAtHalfPeak = false;             // [三轴无侧限显示50%峰值应变值]
  bool printBoreholeNumber = false;          // [三轴打印钻孔编号]
  bool omitTestMethod = false;               // [三轴成果输出不打印试验方法]
  bool omitPageDateTable = false;            // [不打印页码/日期/数据表]
  bool omitTriaxialTestDate = false;         // [三轴不打印试验日期]
  bool omitRingCoefficient = false;          // [无侧限不打印钢环系数]
  bool omitK0TestDate = false;               // [K0不打印试验日期]
  bool omitTK0TestDate = false;              // [TK0不打印试验日期]
  bool omitUnconfinedTestDate = false;       // [无侧限不打印试验日期]
  bool compactEnvelope = false;              // [三轴曲线输出Fliove格式]
  bool winTriaxialByProject = false;         // [按工程编号打开win三轴]
  bool take50Points = false;                 // [三轴试验取50点]
  bool controlledDocNo = false;              // [三轴含受控文件号]
  std::string formNumber;                    // [三轴表格编号]
  int unconfinedLargestStrain = 22;          // [无侧限最大应变], %
  std::string pageLabel = "第      页";      // [第页]
  int cohesionDecimals = 0;                  // [三轴C]
  int sensitivityDecimals = 2;               // [无侧限灵敏度]
  std::string methodSuffix;                  // [三轴试验方法后加]
  std::string projectNoLabel = "工程编号";   // [工程编号]
  std::string sampleNoLabel = "土样编号";    // [土样编号] of sz.ini
  std::string boreholeLabel;                 // [钻孔号] of sz.ini; empty: the usual labels

  NumberFormat cohesionFormat() const { return static_cast<NumberFormat>(cohesionDecimals); }
  NumberFormat sensitivityFormat() const { return static_cast<NumberFormat>(sensitivityDecimals); }
};

/// Report labels in English, from esz.ini.
struct EnglishLabels {
  std::string resultCurve = "Curve of triaxial test results";
  std::string multiStageUU = "Multiple-stage unconsolidated-undrained triaxial test of one sample";
  std::string testCU = "Consolidated undrained triaxial test";
  std::string testUU = "Unconsolidated-undrained triaxial test";
  std::string projectNo = "Project No.";
  std::string projectName = "Project";
  std::string sampleNo = "No. of soil sample";
  std::string boreholeNo = "Borehole No.";
  std::string testDate = "Date of test";
  std::string samplingDepth = "Sampling depth";
  std::string samplingSpot = "Sampling spot";
  std::string stressStrainCurve = "Curve of principal stress difference and axial stress-strain";
  std::string stressDifferenceEnvelope = "Strength envelope of stress difference";
  std::string testedBy = "Tested by:";
  std::string checkedBy = "Checked by:";
  std::string reportDate = "Report date:";
  std::string apparatusNo = "Apparatus No.";
};

/// Texts and margins of the result chart, from szshezhi.txt.
struct ChartLayout {
  /// Slots 1 to 20; [0] is not used.
  std::array<std::string, 21> slot;
  double topMarginTwips = 900, bottomMarginTwips = 900;
};

/// Everything that is read from the settings files.
struct Settings {
  Toggles toggles;
  LaboratoryHabits habits;
  EnglishLabels english;
  ChartLayout chart;

  /// Width of the lines of printed pages, 1/600 inch.
  int lineWeight() const { return toggles.dotMatrixPrinter ? 2 : 4; }
};

}  // namespace triaxlab
