#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/multimedia/CommandDevice.h"
#include "platform/multimedia/linux/CommandString.h"

namespace quillon {
namespace {

ParsedCommand Parse(std::string_view text) {
  const ParseOutcome outcome = ParseCommand(text);
  EXPECT_EQ(outcome.error, 0) << text;
  return outcome.command;
}

TEST(CommandString, VerbsAndAliasesAreTakenInAnyLetterCase) {
  const std::vector<std::pair<std::string_view, Verb>> rows = {
      {"Play MCI", Verb::kPlay},  {"pause mci", Verb::kPause},   {"RESUME Mci", Verb::kResume},
      {"Stop  MCI", Verb::kStop}, {" Close MCI ", Verb::kClose},
  };
  for (const auto& [text, verb] : rows) {
    const ParsedCommand command = Parse(text);
    EXPECT_EQ(command.verb, verb) << text;
    EXPECT_EQ(command.alias, "mci") << text;
  }
}

TEST(CommandString, APathInQuotesIsKeptByteForByte) {
  const std::vector<std::string> paths = {"/a b/c  d.mp3", "/歌/１.mp3", "/\xff\xfe\x81.mp3", "/alias x/open.MP3"};
  for (const std::string& path : paths) {
    const ParsedCommand command = Parse("Open \"" + path + "\" alias MCI");
    EXPECT_EQ(command.verb, Verb::kOpen);
    EXPECT_EQ(command.path, path);
    EXPECT_EQ(command.alias, "mci");
  }
}

TEST(CommandString, APathEndsAtTheLastQuote) {
  const std::vector<std::string> paths = {
      R"(/a" alias B.mp3)", R"(/a"b"c.mp3)", R"(/".mp3)", R"(/a.mp3")", R"(")", R"( " )", R"(/a"" type b" alias c)",
  };
  for (const std::string& path : paths) {
    for (const char* const rest : {" alias MCI", "alias MCI", " type MPEGVideo alias mci  "}) {
      const ParsedCommand command = Parse("Open \"" + path + "\"" + rest);
      EXPECT_EQ(command.path, path);
      EXPECT_EQ(command.alias, "mci") << path;
    }
  }
}

TEST(CommandString, OpenTakesATypeAndTheFileAsItsOwnAlias) {
  EXPECT_EQ(Parse("open \"/a.MPG\" type MPEGVideo alias Song").alias, "song");
  EXPECT_EQ(Parse("open \"/a.MPG\" TYPE mpegvideo").alias, "/a.mpg");
  EXPECT_EQ(Parse("open /a.mpg").path, "/a.mpg");
}

TEST(CommandString, PlacesAreReadAsTheyStand) {
  EXPECT_EQ(Parse("seek X to 1500").milliseconds, 1500);
  EXPECT_EQ(Parse("seek X to -1").milliseconds, -1);
  EXPECT_EQ(Parse("seek X to Start").target, SeekTarget::kStart);
  EXPECT_EQ(Parse("seek X to END").target, SeekTarget::kEnd);
  EXPECT_EQ(Parse("play X from 20").milliseconds, 20);
  EXPECT_EQ(Parse("play X").milliseconds, std::nullopt);
}

TEST(CommandString, StatusItems) {
  EXPECT_EQ(Parse("status X mode").status, StatusItem::kMode);
  EXPECT_EQ(Parse("status X Position").status, StatusItem::kPosition);
  EXPECT_EQ(Parse("status X length").status, StatusItem::kLength);
  EXPECT_EQ(Parse("status X ready").status, StatusItem::kReady);
  EXPECT_EQ(Parse("status X time format").status, StatusItem::kTimeFormat);
}

TEST(CommandString, WindowAndPicture) {
  EXPECT_EQ(Parse("window X handle 4294967297").window, 4294967297U);
  EXPECT_EQ(Parse("where X source").area, PictureArea::kSource);
  EXPECT_EQ(Parse("where X destination").area, PictureArea::kDestination);
  EXPECT_EQ(Parse("put X destination").rectangle, std::nullopt);
  const PictureRectangle rectangle = {-1, 2, 300, 200};
  EXPECT_EQ(Parse("put X destination at -1 2 300 200").rectangle, rectangle);
}

TEST(CommandString, WhatIsWrongHasItsNumber) {
  const std::vector<std::pair<std::string_view, int>> rows = {
      {"", command_error::kMissingCommand},
      {"   ", command_error::kMissingCommand},
      {"rewind X", command_error::kUnknownCommand},
      {"play", command_error::kMissingDevice},
      {" open ", command_error::kMissingDevice},
      {"Status\t", command_error::kMissingDevice},
      {"foo", command_error::kMissingDevice},
      {"play \"\"", command_error::kMissingDevice},
      {"open \"\" alias X", command_error::kMissingDevice},
      {"open \"/a.mp3", command_error::kNoClosingQuote},
      {"open \"", command_error::kNoClosingQuote},
      {"open \"/a.mp3 alias X", command_error::kNoClosingQuote},
      {"play \"X", command_error::kNoClosingQuote},
      {"status X \"mode", command_error::kNoClosingQuote},
      {"open /a.mp3 alias \"X", command_error::kNoClosingQuote},
      {"play X backwards", command_error::kUnknownKeyword},
      {"play X from", command_error::kMissingParameter},
      {"play X from here", command_error::kBadNumber},
      {"play X from 1 2", command_error::kUnknownKeyword},
      {"seek X", command_error::kMissingParameter},
      {"seek X to", command_error::kMissingParameter},
      {"seek X to 12x", command_error::kBadNumber},
      {"seek X to 99999999999", command_error::kBadNumber},
      {"status X", command_error::kMissingParameter},
      {"status X colour", command_error::kUnknownKeyword},
      {"status X time", command_error::kMissingParameter},
      {"set X time format frames", command_error::kUnknownKeyword},
      {"set X time", command_error::kMissingParameter},
      {"where X", command_error::kMissingParameter},
      {"where X video", command_error::kUnknownKeyword},
      {"window X handle", command_error::kMissingParameter},
      {"window X handle main", command_error::kBadNumber},
      {"window X handle -1", command_error::kBadNumber},
      {"put X destination at 0 0 5", command_error::kMissingParameter},
      {"put X source", command_error::kUnknownKeyword},
      {"close X now", command_error::kUnknownKeyword},
      {"open \"/a.mp3\" as X", command_error::kUnknownKeyword},
      {"open \"/a.mp3\" alias", command_error::kMissingParameter},
  };
  for (const auto& [text, error] : rows) EXPECT_EQ(ParseCommand(text).error, error) << text;
}

}  // namespace
}  // namespace quillon
