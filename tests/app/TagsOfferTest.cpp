#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/ApplicationFixture.h"
#include "support/SongBuilders.h"

namespace quillon {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::vector<std::string> BarEvents(const test::ApplicationFixture& fixture) {
  return fixture.Log().StartingWith("tags bar");
}

OptionValues WithMoreTags() {
  OptionValues options = test::ApplicationFixture::Options();
  options.extra.readMoreTags = true;
  return options;
}

struct Fixture : test::ApplicationFixture {
  using ApplicationFixture::ApplicationFixture;

  std::string WriteSong(const std::string& name, const std::string& title) {
    return folder.Write(name, test::FlacFile({{"TITLE", title}, {"ARTIST", "歌手"}}));
  }
};

TEST(TagsOffer, IsMadeAfterALoadThatMeetsSuchFiles) {
  Fixture fixture;
  fixture.WriteSong("a.flac", "朝");
  fixture.WriteSong("b.flac", "昼");
  fixture.folder.Write("c.txt", "");
  fixture.app.LoadPaths({fixture.folder.Path()});
  EXPECT_THAT(BarEvents(fixture), ElementsAre("tags bar: 新しい形式のタグを持つファイルが 2 個あります"));
  EXPECT_EQ(fixture.app.List().Row(1).title, "---") << "nothing is read before the user has agreed";
}

TEST(TagsOffer, IsNotMadeWithoutSuchFilesNorWithTheOptionOn) {
  Fixture off;
  off.Load({"a.mid", "b.txt", "c.wav"});
  off.app.LoadPaths({off.folder.Path()});
  EXPECT_THAT(BarEvents(off), IsEmpty());

  Fixture on(WithMoreTags());
  on.WriteSong("a.flac", "朝");
  on.app.LoadPaths({on.folder.Path()});
  EXPECT_THAT(BarEvents(on), IsEmpty());
  EXPECT_EQ(on.app.List().Row(1).title, "朝");
}

TEST(TagsOffer, CountsOnWhileItIsShown) {
  Fixture fixture;
  fixture.app.LoadPaths({fixture.WriteSong("a.flac", "朝")});
  fixture.app.LoadPaths({fixture.WriteSong("b.flac", "昼")});
  EXPECT_THAT(BarEvents(fixture), ElementsAre("tags bar: 新しい形式のタグを持つファイルが 1 個あります",
                                              "tags bar: 新しい形式のタグを持つファイルが 2 個あります"));
}

TEST(TagsOffer, ReadsTheRowsWithoutATitleAndKeepsWhatWasEdited) {
  Fixture fixture;
  fixture.app.LoadPaths({fixture.WriteSong("a.flac", "朝"), fixture.WriteSong("b.flac", "昼")});
  fixture.app.List().SetRenameName(1, "typed");
  fixture.app.List().SetChecked(2, true);
  fixture.Select({2});
  fixture.ports.log.Clear();
  fixture.app.AcceptTagsOffer();
  const FileList& list = fixture.app.List();
  EXPECT_TRUE(fixture.app.Options().extra.readMoreTags);
  EXPECT_EQ(list.Row(1).title, "朝");
  EXPECT_EQ(list.Row(1).renameName, "typed");
  EXPECT_FALSE(list.Row(1).checked);
  EXPECT_EQ(list.Row(2).title, "昼");
  EXPECT_EQ(list.Row(2).artist, "歌手");
  EXPECT_EQ(list.Row(2).renameName, "b");
  EXPECT_TRUE(list.Row(2).checked);
  EXPECT_EQ(list.SelectedIndex(), 2);
  EXPECT_THAT(BarEvents(fixture), ElementsAre("tags bar hidden"));
  EXPECT_EQ(fixture.information.title, "昼") << "the shown row is shown again";
}

TEST(TagsOffer, IsAcceptedByTheOptionsDialog) {
  Fixture fixture;
  fixture.app.LoadPaths({fixture.WriteSong("a.flac", "朝")});
  fixture.main.optionDialog = [&](OptionForm& form) {
    fixture.ports.boxes.Answer(false);
    form.Click("chkReadMoreTags", true, [] {});
    form.cmdOK();
  };
  fixture.app.Execute(Command::mnuOption);
  EXPECT_EQ(fixture.app.List().Row(1).title, "朝");
  EXPECT_EQ(BarEvents(fixture).back(), "tags bar hidden");
}

TEST(TagsOffer, IsMadeOncePerStart) {
  Fixture fixture;
  fixture.app.LoadPaths({fixture.WriteSong("a.flac", "朝")});
  fixture.app.DeclineTagsOffer();
  EXPECT_FALSE(fixture.app.Options().extra.readMoreTags);
  fixture.ports.log.Clear();
  fixture.app.LoadPaths({fixture.WriteSong("b.flac", "昼")});
  EXPECT_THAT(BarEvents(fixture), IsEmpty());
}

TEST(TagsOffer, DisappearsWithTheLastRow) {
  Fixture fixture;
  fixture.app.LoadPaths({fixture.WriteSong("a.flac", "朝")});
  fixture.Select({1});
  fixture.ports.log.Clear();
  fixture.app.Execute(Command::mnuThisListDel);
  EXPECT_THAT(BarEvents(fixture), ElementsAre("tags bar hidden"));
}

TEST(TagsOffer, EndsReadingWhenTheWindowIsToClose) {
  Fixture fixture;
  fixture.app.LoadPaths({fixture.WriteSong("a.flac", "朝"), fixture.WriteSong("b.flac", "昼")});
  fixture.ports.pending.At(2, [&] { fixture.app.CancelLoad(); });
  fixture.app.AcceptTagsOffer();
  EXPECT_EQ(fixture.app.List().Row(2).title, "---");
}

}  // namespace
}  // namespace quillon
