#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/Parts.h"
#include "fuzz/Require.h"
#include "fuzz/ScratchFile.h"
#include "settings/Settings.h"

using namespace quillon;
using test::Require;

namespace {

IniFile Loaded(const std::string& path) {
  IniFile file(path);
  Require(file.Load());
  return file;
}

// Settings that were read are written so that they are read the same again.
void CheckOptions(const test::ScratchFile& scratch, WindowGeometry geometry) {
  IniFile file = Loaded(scratch.Path());
  const Result<OptionValues, SettingsError> options = ReadOptionValues(file);
  if (!options) {
    Require(!options.Failure().section.empty() && !options.Failure().key.empty());
    return;
  }
  WriteOptionValues(file, *options, geometry);
  Require(file.Save());
  const std::string once = scratch.Bytes();
  IniFile again = Loaded(scratch.Path());
  const Result<OptionValues, SettingsError> same = ReadOptionValues(again);
  Require(same.Ok());
  WriteOptionValues(again, *same, geometry);
  Require(again.Save());
  Require(scratch.Bytes() == once);
}

// A value that is written is read again, and no other line changes.
void CheckSections(const std::string& path, const std::string& name, const std::string& value) {
  IniFile file = Loaded(path);
  for (const IniFile::Section& section : file.Sections()) {
    if (const auto rules = ReadRules(section.content, section.name)) WriteRules(file, section.name, *rules);
  }
  const std::size_t count = file.Sections().size();
  file.RemoveSection(name);
  Require(file.Sections().size() <= count);
  file.WriteString("Sec", "Key", value);
  const std::string kept = file.ReadString("Sec", "Key", "fallback");
  file.WriteString("Sec", "Key", kept);
  Require(file.ReadString("Sec", "Key", "fallback") == kept);
}

}  // namespace

// The input: a byte for the window's place, the name of a section, a value, and the file's content.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const test::ScratchFile scratch(".ini");
  test::Parts parts(data, size);
  const WindowGeometry geometry = parts.Byte() % 2 == 0 ? WindowGeometry::kWrite : WindowGeometry::kKeep;
  const std::string name = parts.Text();
  const std::string value = parts.Text();
  scratch.Write(parts.Rest());
  CheckSections(scratch.Path(), name, value);
  CheckOptions(scratch, geometry);
  return 0;
}
