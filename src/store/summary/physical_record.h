#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <tuple>
#include <type_traits>

#include "common/fixed_text.h"
#include "common/little.h"
#include "common/record_fields.h"

namespace triaxlab {

// ZMSJ\<projectNo>.dat, the file of the tool for physical tests: a head, then one record a sample. Of both, only what
// is read here is known.

struct PhysicalHead {                       // offset
  std::array<std::byte, 49> unread0{};      //     0
  Little<std::int16_t> recordCount;         //    49
  std::array<std::byte, 22648> unread51{};  //    51
};                                          // 22699

struct PhysicalRecord {                     // offset
  std::array<std::byte, 4> unread0{};       //    0
  FixedText<15> sampleNo;                   //    4
  std::array<std::byte, 15> unread19{};     //   19
  FixedText<15> samplingDepth;              //   34
  std::array<std::byte, 140> unread49{};    //   49
  FixedText<5> waterContent;                //  189
  FixedText<7> density;                     //  194
  std::array<std::byte, 28> unread201{};    //  201
  FixedText<7> specificGravity;             //  229
  std::array<std::byte, 7> unread236{};     //  236
  FixedText<7> voidRatio;                   //  243
  FixedText<7> liquidLimit;                 //  250
  FixedText<7> plasticLimit;                //  257
  FixedText<7> plasticityIndex;             //  264
  FixedText<7> liquidityIndex;              //  271
  std::array<std::byte, 1592> unread278{};  //  278
  FixedText<16> remark;                     // 1870
  std::array<std::byte, 118> unread1886{};  // 1886
};                                          // 2004

constexpr auto fieldsOf(RecordTag<PhysicalHead> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(PhysicalHead, unread0, "", "not read"),
      TRIAXLAB_FIELD(PhysicalHead, recordCount, "", "number of records; a negative one counts as 0"),
      TRIAXLAB_FIELD(PhysicalHead, unread51, "", "not read"),
  };
}
static_assert(tiles<PhysicalHead>(22699));

constexpr auto fieldsOf(RecordTag<PhysicalRecord> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(PhysicalRecord, unread0, "", "not read"),
      TRIAXLAB_FIELD(PhysicalRecord, sampleNo, "", "sample number, compared without the blanks around it"),
      TRIAXLAB_FIELD(PhysicalRecord, unread19, "", "not read"),
      TRIAXLAB_FIELD(PhysicalRecord, samplingDepth, "", "取土深度, sampling depth"),
      TRIAXLAB_FIELD(PhysicalRecord, unread49, "", "not read"),
      TRIAXLAB_FIELD(PhysicalRecord, waterContent, "", "天然含水率, natural water content"),
      TRIAXLAB_FIELD(PhysicalRecord, density, "", "天然密度, natural density"),
      TRIAXLAB_FIELD(PhysicalRecord, unread201, "", "not read"),
      TRIAXLAB_FIELD(PhysicalRecord, specificGravity, "", "比重, specific gravity"),
      TRIAXLAB_FIELD(PhysicalRecord, unread236, "", "not read"),
      TRIAXLAB_FIELD(PhysicalRecord, voidRatio, "", "天然孔隙比, natural void ratio"),
      TRIAXLAB_FIELD(PhysicalRecord, liquidLimit, "", "流限, liquid limit"),
      TRIAXLAB_FIELD(PhysicalRecord, plasticLimit, "", "塑限, plastic limit"),
      TRIAXLAB_FIELD(PhysicalRecord, plasticityIndex, "", "塑性指数, plasticity index"),
      TRIAXLAB_FIELD(PhysicalRecord, liquidityIndex, "", "液性指数, liquidity index"),
      TRIAXLAB_FIELD(PhysicalRecord, unread278, "", "not read"),
      TRIAXLAB_FIELD(PhysicalRecord, remark, "", "备注, remark"),
      TRIAXLAB_FIELD(PhysicalRecord, unread1886, "", "not read"),
  };
}
static_assert(tiles<PhysicalRecord>(2004));

}  // namespace triaxlab
