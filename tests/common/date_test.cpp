#include "common/date.h"

#include <gtest/gtest.h>

#include <optional>
#include <string_view>

namespace triaxlab {
namespace {

TEST(Date, IsWrittenWithSlashes) {
  EXPECT_EQ(slashed({2024, 6, 1}), "2024/06/01");
  EXPECT_EQ(slashed({1999, 12, 31}), "1999/12/31");
  EXPECT_EQ(slashed({87, 1, 2}), "0087/01/02");
}

TEST(Date, IsReadFromItsIsoForm) {
  EXPECT_EQ(parseIsoDate("2024-06-01"), (Date{2024, 6, 1}));
  EXPECT_EQ(parseIsoDate("2024-02-29"), (Date{2024, 2, 29}));
  EXPECT_EQ(parseIsoDate("2000-02-29"), (Date{2000, 2, 29}));
}

TEST(Date, WhatIsNoDayIsRefused) {
  for (const std::string_view text :
       {"", "2024-06", "2024-6-1", "2024/06/01", "2023-02-29", "1900-02-29", "2024-04-31", "2024-13-01", "2024-00-10",
        "2024-01-00", "2024-01-32", " 2024-01-01", "2024-01-01 ", "20x4-01-01", "2024--1-01", "2024-+1-01",
        "-024-01-01", "2024-01- 1", "2024-01-1x"})
    EXPECT_EQ(parseIsoDate(text), std::nullopt) << text;
}

TEST(Date, TodayIsADayOfTheCalendar) {
  const Date today = systemToday();
  std::string text = slashed(today);
  text[4] = text[7] = '-';
  EXPECT_EQ(parseIsoDate(text), today);
  EXPECT_GE(today.year, 2024);
}

}  // namespace
}  // namespace triaxlab
