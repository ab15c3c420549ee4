#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string_view>

#include "support/drawings.h"
#include "triaxial/charts/curve_chart.h"

namespace triaxlab::testing {

/// A reading in the texts of its fields: strain in %, stresses in kPa.
struct Reading {
  float strain;
  std::string_view q, u = {}, sigma1Eff = {}, sigma3Eff = {};
};

/// A sample and the drawing of its pages. Results of a page are set by hand, so that nothing but drawing is at work.
struct ChartTest : ::testing::Test {
  TriaxialSampleRecord sample;
  PageResults results;
  ChartOptions options;

  ChartTest() {
    sample.testMethod = kCU;
    sample.shearMode = 1;
  }

  void readings(std::size_t stage, std::string_view cellPressure, std::initializer_list<Reading> rows) {
    SetText(sample.cellPressure[stage], cellPressure);
    std::size_t row = 0;
    for (const Reading& reading : rows) {
      sample.axialStrain[row][stage] = reading.strain;
      SetText(sample.deviatorStress[row][stage], reading.q);
      SetText(sample.porePressure[row][stage], reading.u);
      SetText(sample.sigma1Eff[row][stage], reading.sigma1Eff);
      SetText(sample.sigma3Eff[row][stage], reading.sigma3Eff);
      ++row;
    }
  }

  void circle(std::size_t stage, std::string_view cellPressure, std::string_view centre, std::string_view radius) {
    SetText(sample.cellPressure[stage], cellPressure);
    SetText(sample.failureCentre[stage], centre);
    SetText(sample.failureRadius[stage], radius);
  }
  void effectiveCircle(std::size_t stage, std::string_view centre, std::string_view radius) {
    SetText(sample.failureCentreEff[stage], centre);
    SetText(sample.failureRadiusEff[stage], radius);
  }

  Drawing draw(CurvePage page) const {
    RecordingSurface surface;
    drawCurvePage(surface, sample, page, results, options);
    return surface.operations();
  }
};

inline DrawnPolyline curve(std::vector<TwipPoint> points, Colour colour = Colour::LightRed, int width = 1) {
  return {std::move(points), {colour, width}};
}

/// The lines that aren't part of the grid: neither grey nor across the whole plot.
inline std::vector<DrawnLine> linesOverTheGrid(const Drawing& drawing) {
  std::vector<DrawnLine> found = all<DrawnLine>(drawing);
  std::erase_if(found, [](const DrawnLine& line) { return line.stroke.colour == Colour::Grey; });
  return found;
}

}  // namespace triaxlab::testing
