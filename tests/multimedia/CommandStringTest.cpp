#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/multimedia/CommandString.h"
#include "support/Replies.h"

namespace quillon {
namespace {

ParsedCommand Parse(std::string_view text) {
  const ParseOutcome outcome = ParseCommand(text);
  EXPECT_TRUE(outcome.status.Ok()) << text;
  return outcome.command;
}

TEST(CommandString, VerbsAndAliasesIgnoreLetterCase) {
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
      const ParsedCommand command = ParseCommand("Open \"" + path + "\"" + rest, PathStyle::kLinux).command;
      EXPECT_EQ(command.path, path);
      EXPECT_EQ(command.alias, "mci") << path;
    }
  }
}

TEST(CommandString, OpenTakesATypeAndTheFileAsItsOwnAlias) {
  EXPECT_EQ(Parse("open \"/a.MPG\" type MPEGVideo alias Song").alias, "song");
  EXPECT_EQ(Parse("open \"/a.MPG\" TYPE mpegvideo").alias, "/a.mpg");
  EXPECT_EQ(Parse("open /a.mpg").path, "/a.mpg");
  EXPECT_TRUE(Parse("open a.mpg alias X type MPEGVideo").typed);
  EXPECT_TRUE(ParseCommand("open a.mpg shareable type MPEGVideo").command.typed);
  EXPECT_FALSE(Parse("open a.mpg alias X").typed);
  EXPECT_FALSE(Parse("open type alias type").typed);
}

TEST(CommandString, APathOfWindowsEndsAtTheNextQuote) {
  const ParsedCommand command = ParseCommand(R"(open "C:\a b.wav" alias "x y")", PathStyle::kWindows).command;
  EXPECT_EQ(command.path, R"(C:\a b.wav)");
  EXPECT_EQ(command.alias, "x y");
}

TEST(CommandString, PositionsAreParsed) {
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
  const std::vector<std::pair<std::string_view, MediaError>> rows = {
      {"", MediaError::kMissingCommand},
      {"   ", MediaError::kMissingCommand},
      {"rewind X", MediaError::kUnknownCommand},
      {"play", MediaError::kMissingDevice},
      {" open ", MediaError::kMissingDevice},
      {"Status\t", MediaError::kMissingDevice},
      {"foo", MediaError::kMissingDevice},
      {"play \"\"", MediaError::kMissingDevice},
      {"open \"\" alias X", MediaError::kMissingDevice},
      {"open \"/a.mp3", MediaError::kNoClosingQuote},
      {"open \"", MediaError::kNoClosingQuote},
      {"open \"/a.mp3 alias X", MediaError::kNoClosingQuote},
      {"play \"X", MediaError::kNoClosingQuote},
      {"status X \"mode", MediaError::kNoClosingQuote},
      {"open /a.mp3 alias \"X", MediaError::kNoClosingQuote},
      {"play X backwards", MediaError::kUnknownKeyword},
      {"play X from", MediaError::kMissingParameter},
      {"play X from here", MediaError::kBadNumber},
      {"play X from 1 2", MediaError::kUnknownKeyword},
      {"seek X", MediaError::kMissingParameter},
      {"seek X to", MediaError::kMissingParameter},
      {"seek X to 12x", MediaError::kBadNumber},
      {"seek X to 99999999999", MediaError::kBadNumber},
      {"status X", MediaError::kMissingParameter},
      {"status X colour", MediaError::kUnknownKeyword},
      {"status X time", MediaError::kMissingParameter},
      {"set X time format frames", MediaError::kUnknownKeyword},
      {"set X time", MediaError::kMissingParameter},
      {"where X", MediaError::kMissingParameter},
      {"where X video", MediaError::kUnknownKeyword},
      {"window X handle", MediaError::kMissingParameter},
      {"window X handle main", MediaError::kBadNumber},
      {"window X handle -1", MediaError::kBadNumber},
      {"put X destination at 0 0 5", MediaError::kMissingParameter},
      {"put X source", MediaError::kUnknownKeyword},
      {"close X now", MediaError::kUnknownKeyword},
      {"open \"/a.mp3\" as X", MediaError::kUnknownKeyword},
      {"open \"/a.mp3\" alias", MediaError::kMissingParameter},
      {"open \"/a.mp3\" as X alias", MediaError::kUnknownKeyword},
  };
  for (const auto& [text, error] : rows) EXPECT_EQ(ParseCommand(text).status, error) << text;
}

}  // namespace
}  // namespace quillon
