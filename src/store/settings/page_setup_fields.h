#pragma once

#include <tuple>

#include "common/record_fields.h"
#include "store/settings/page_setup.h"

namespace triaxlab {

constexpr auto fieldsOf(RecordTag<PageSetupFile> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(PageSetupFile, unused1, "", "not used"),
      TRIAXLAB_FIELD(PageSetupFile, paper, "", "paper: 0 A4, 1 A3, 2 the narrow form, 3 the wide form"),
      TRIAXLAB_FIELD(PageSetupFile, unused2, "", "not used"),
      TRIAXLAB_FIELD(PageSetupFile, rows, "", "rows of charts on a page; read as 1 to 30"),
      TRIAXLAB_FIELD(PageSetupFile, unused3, "", "not used"),
      TRIAXLAB_FIELD(PageSetupFile, columns, "", "columns of charts; read as 1 to 30"),
      TRIAXLAB_FIELD(PageSetupFile, unused4, "", "not used"),
      TRIAXLAB_FIELD(PageSetupFile, kept1, "", "kept as found"),
      TRIAXLAB_FIELD(PageSetupFile, unused5, "", "not used"),
      TRIAXLAB_FIELD(PageSetupFile, kept2, "", "kept as found"),
      TRIAXLAB_FIELD(PageSetupFile, unused6, "", "not used"),
      TRIAXLAB_FIELD(PageSetupFile, orientation, "", "1 portrait, else landscape"),
      TRIAXLAB_FIELD(PageSetupFile, unused7, "", "not used"),
      TRIAXLAB_FIELD(PageSetupFile, leftMarginCm, "cm", "left margin; read as 0.5 to 10"),
      TRIAXLAB_FIELD(PageSetupFile, unused8, "", "not used"),
      TRIAXLAB_FIELD(PageSetupFile, rightMarginCm, "cm", "right margin; read as 0.5 to 10"),
  };
}
static_assert(tiles<PageSetupFile>(83));

}  // namespace triaxlab
