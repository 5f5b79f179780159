#include <gtest/gtest.h>

#include <numeric>

#include "filelist/ColumnWidths.h"

namespace quillon {
namespace {

using Widths = ColumnWidths::Widths;

constexpr Widths kUsual = {120, 120, 120, 44, 60, 153};
constexpr int kNeed = 617;

int Sum(const Widths& widths) {
  return std::accumulate(widths.begin(), widths.end(), 0);
}

ColumnWidths Started(const Widths& widths, int room) {
  ColumnWidths columns(widths, kUsual);
  columns.SetStartRoom(room);
  return columns;
}

TEST(ColumnWidths, AreTheFirstOnesAtTheFirstSize) {
  for (const int room : {500, 616, 617, 618, 900}) EXPECT_EQ(Started(kUsual, room).For(room), kUsual) << room;
}

TEST(ColumnWidths, OnlyThreeColumnsGrowInProportion) {
  const Widths wide = Started(kUsual, kNeed).For(kNeed + 393);
  EXPECT_EQ(wide, (Widths{240, 240, 120, 44, 60, 306}));
}

TEST(ColumnWidths, FillTheRoomExactlyAtEverySize) {
  for (int room = kNeed; room < 2000; ++room) ASSERT_EQ(Sum(Started(kUsual, kNeed).For(room)), room);
}

TEST(ColumnWidths, GrowOnlyWhenAllOfThemFit) {
  const ColumnWidths columns = Started(kUsual, 580);
  EXPECT_EQ(columns.For(kNeed), kUsual);
  EXPECT_EQ(Sum(columns.For(kNeed + 1)), kNeed + 1);
}

TEST(ColumnWidths, LeaveUnusedWhatWasUnused) {
  const ColumnWidths columns = Started(kUsual, kNeed + 300);
  EXPECT_EQ(Sum(columns.For(kNeed + 400)), kNeed + 100);
  EXPECT_EQ(columns.For(kNeed + 200), kUsual);
}

TEST(ColumnWidths, GiveTheWidthBackDownToTheFirstOnes) {
  ColumnWidths columns = Started(kUsual, kNeed);
  columns.SetShown(columns.For(1000));
  columns.Observe(columns.For(1000));
  EXPECT_EQ(columns.For(kNeed), kUsual);
  EXPECT_EQ(columns.For(300), kUsual);
}

TEST(ColumnWidths, WhatFilledTheWindowAtFirstShrinksToTheUsualWidths) {
  const Widths wide = Started(kUsual, kNeed).For(1000);
  const ColumnWidths columns = Started(wide, 1000);
  EXPECT_EQ(columns.For(1000), wide);
  EXPECT_EQ(Sum(columns.For(800)), 800);
  EXPECT_EQ(columns.For(kNeed), kUsual);
  EXPECT_EQ(columns.For(300), kUsual);
  EXPECT_EQ(Sum(columns.For(1200)), 1200);
}

TEST(ColumnWidths, OfAWindowTooNarrowForThemDoNotShrink) {
  const Widths chosen = {400, 300, 120, 44, 60, 153};
  EXPECT_EQ(Started(chosen, 1000).For(900), chosen);
}

TEST(ColumnWidths, BelowTheUsualOnesStay) {
  const Widths chosen = {50, 50, 50, 44, 60, 346};
  const ColumnWidths columns = Started(chosen, Sum(chosen));
  EXPECT_EQ(columns.For(300), (Widths{50, 50, 50, 44, 60, 153}));
}

TEST(ColumnWidths, ADraggedColumnStaysAndTheOthersShareTheRest) {
  ColumnWidths columns = Started(kUsual, kNeed);
  Widths shown = columns.For(1010);
  columns.SetShown(shown);
  columns.Observe(shown);  // as it was: nobody has dragged
  shown[0] = 100;
  columns.Observe(shown);
  const Widths wider = columns.For(1100);
  EXPECT_EQ(wider[0], 100);
  EXPECT_EQ(Sum(wider), 1100);
  EXPECT_EQ(wider[2], 120);
  EXPECT_EQ(columns.For(300)[0], 100) << "narrower";
  EXPECT_EQ(columns.For(300)[1], 120);
}

TEST(ColumnWidths, ADraggedColumnThatNeverGrowsStaysToo) {
  ColumnWidths columns = Started(kUsual, kNeed);
  Widths shown = kUsual;
  shown[2] = 200;
  columns.Observe(shown);
  EXPECT_EQ(columns.For(kNeed + 80), shown) << "the room is just enough";
  EXPECT_EQ(Sum(columns.For(1000)), 1000);
  EXPECT_EQ(columns.For(1000)[2], 200);
}

TEST(ColumnWidths, NothingGrowsWhenAllThreeWereDragged) {
  ColumnWidths columns = Started(kUsual, kNeed);
  const Widths shown = {121, 122, 120, 44, 60, 154};
  columns.Observe(shown);
  EXPECT_EQ(columns.For(2000), shown);
  EXPECT_EQ(columns.For(200), shown);
}

TEST(ColumnWidths, ComeBackTheSameAfterARestart) {
  for (int room = 560; room < 1400; room += 7) {
    const Widths once = Started(kUsual, 600).For(room);
    EXPECT_EQ(Started(once, room).For(room), once) << room;
  }
}

}  // namespace
}  // namespace quillon
