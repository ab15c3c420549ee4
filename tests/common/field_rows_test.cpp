#include "common/field_rows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace triaxlab {

struct Point {
  Little<float> x;
  Little<float> y;
};
constexpr auto fieldsOf(RecordTag<Point> /*record*/) {
  return std::tuple{TRIAXLAB_FIELD(Point, x, "cm", "to the right"), TRIAXLAB_FIELD(Point, y, "", "upward")};
}
static_assert(tiles<Point>(8));

struct Drawing {
  FixedText<7> name;
  std::uint8_t colour = 0;
  Point corner;
  std::array<Point, 2> others;
  std::array<std::array<Little<std::int16_t>, 3>, 4> heights;
  Little<std::uint64_t> stamp;
};
constexpr auto fieldsOf(RecordTag<Drawing> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(Drawing, name, "", "what it is called"),
      TRIAXLAB_FIELD(Drawing, colour, "", "0 to 15"),
      TRIAXLAB_FIELD(Drawing, corner, "", ""),
      TRIAXLAB_FIELD(Drawing, others, "", ""),
      TRIAXLAB_FIELD(Drawing, heights, "m", "of the ground"),
      TRIAXLAB_FIELD(Drawing, stamp, "", ""),
  };
}
static_assert(tiles<Drawing>(64) && !tiles<Drawing>(63));

/// Its table forgets a member.
struct Forgetful {
  FixedText<3> told;
  FixedText<2> forgotten;
};
constexpr auto fieldsOf(RecordTag<Forgetful> /*record*/) { return std::tuple{TRIAXLAB_FIELD(Forgetful, told, "", "")}; }
static_assert(!tiles<Forgetful>(5) && !tiles<Forgetful>(3));

/// Its table has the members in another order.
struct Turned {
  FixedText<2> first;
  FixedText<2> second;
};
constexpr auto fieldsOf(RecordTag<Turned> /*record*/) {
  return std::tuple{TRIAXLAB_FIELD(Turned, second, "", ""), TRIAXLAB_FIELD(Turned, first, "", "")};
}
static_assert(!tiles<Turned>(4));

namespace {

using ::testing::ElementsAre;

std::vector<std::string> linesOf(const FieldRows& rows) {
  std::vector<std::string> lines;
  for (const FieldRow& row : rows)
    lines.push_back(
        fmt::format("{} {} {}: {}; {}; {}", row.offset, row.size, row.name, row.type, row.unit, row.content));
  return lines;
}

TEST(FieldRows, MembersStandWhereTheCompilerPutThem) {
  // 7 + 1 + 8 + 2 * 8 + 4 * 3 * 2 + 8 = 64 bytes.
  EXPECT_THAT(linesOf(fieldRows<Drawing>()),
              ElementsAre("0 7 name: text 7; ; what it is called", "7 1 colour: byte; ; 0 to 15",
                          "8 4 x: float32; cm; to the right", "12 4 y: float32; ; upward",
                          "16 4 others[0].x: float32; cm; to the right", "20 4 others[0].y: float32; ; upward",
                          "24 4 others[1].x: float32; cm; to the right", "28 4 others[1].y: float32; ; upward",
                          "32 24 heights: 4 × 3 × int16; m; of the ground", "56 8 stamp: uint64; ; "));
  EXPECT_TRUE(tile(fieldRows<Drawing>(), 64));
}

TEST(FieldRows, AForgottenMemberLeavesAHole) {
  EXPECT_FALSE(tile(fieldRows<Forgetful>(), sizeof(Forgetful)));
  EXPECT_TRUE(tile(fieldRows<Forgetful>(), 3));
}

TEST(FieldRows, AnotherOrderDoesNotTile) { EXPECT_FALSE(tile(fieldRows<Turned>(), sizeof(Turned))); }

TEST(RecordFields, AVisitorGetsNamesAndMembersInOrder) {
  Drawing drawing;
  SetText(drawing.name, "plan");
  std::vector<std::string_view> names;
  std::string text;
  visitFields<Drawing>([&](const auto& field) {
    names.push_back(field.name);
    if constexpr (std::is_same_v<typename std::decay_t<decltype(field)>::Value, FixedText<7>>)
      text = (drawing.*field.member).view();
  });
  EXPECT_THAT(names, ElementsAre("name", "colour", "corner", "others", "heights", "stamp"));
  EXPECT_EQ(text, "plan   ");
}

}  // namespace
}  // namespace triaxlab
