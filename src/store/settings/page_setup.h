#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "common/little.h"
#include "store/workspace.h"

namespace triaxlab {

/// Codes of the paper of chart sheets.
enum class SheetPaper : std::uint8_t {
  A4 = 0,          // A4纸
  A3 = 1,          // A3纸
  NarrowForm = 2,  // 窄行打印纸
  WideForm = 3,    // 宽行打印纸
};

/// zmsz.sys, the page setup of the chart sheets: a sparse file of the application folder.
struct PageSetupFile {               // position
  std::array<std::byte, 9> unused1;  //  1
  Little<std::uint8_t> paper;        // 10  SheetPaper
  std::array<std::byte, 9> unused2;  // 11
  Little<std::uint8_t> rows;         // 20  of charts on a page
  std::array<std::byte, 9> unused3;  // 21
  Little<std::uint8_t> columns;      // 30
  std::array<std::byte, 9> unused4;  // 31
  Little<std::uint8_t> kept1;        // 40  not shown anywhere
  std::array<std::byte, 9> unused5;  // 41
  Little<std::uint8_t> kept2;        // 50  not shown anywhere
  std::array<std::byte, 9> unused6;  // 51
  Little<std::uint8_t> orientation;  // 60  1 portrait, 0 landscape
  std::array<std::byte, 9> unused7;  // 61
  Little<float> leftMarginCm;        // 70
  std::array<std::byte, 6> unused8;  // 74
  Little<float> rightMarginCm;       // 80
};                                   // 84

/// The page setup as dialogs and jobs use it. Reading limits rows and columns to 1..30 and margins to 0.5..10; what was
/// typed is stored as typed.
struct PageSetup {
  /// As stored; other codes than those of SheetPaper occur.
  std::uint8_t paperCode = 0;
  std::int16_t rows = 1;
  std::int16_t columns = 1;
  bool portrait = false;
  float leftMarginCm = 0.5F;
  float rightMarginCm = 0.5F;
  bool operator==(const PageSetup&) const = default;

  /// What a job prints on: an unknown code is A4.
  SheetPaper paperOfJob() const { return paperOr(SheetPaper::A4); }
  /// What the dialog selects: an unknown code is A3.
  SheetPaper paperOfDialog() const { return paperOr(SheetPaper::A3); }

 private:
  SheetPaper paperOr(SheetPaper other) const {
    return paperCode <= static_cast<std::uint8_t>(SheetPaper::WideForm) ? static_cast<SheetPaper>(paperCode) : other;
  }
};

/// From zmsz.sys; bytes that it doesn't have are 0, so without the file the pages are A4 landscape with one chart.
/// UserError when the file can't be read.
PageSetup readPageSetup(const Workspace& workspace);

/// Into zmsz.sys, which is made when it is missing. The limits of reading don't apply; a number of rows or columns that
/// is no byte leaves the stored one, and what the page setup doesn't have stays as it is. UserError when the file can't
/// be written.
void writePageSetup(const Workspace& workspace, const PageSetup& setup);

}  // namespace triaxlab
