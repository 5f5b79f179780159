#include "desktop/OtherInstance.h"

#include <gmock/gmock.h>

#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "platform/PathStyle.h"
#include "platform/Program.h"
#include "platform/desktop/SingleInstance.h"

namespace quillon::test {
namespace {

std::string OwnPath() {
  return ProgramFolder() + ProgramBaseName() + (SystemPathStyle() == PathStyle::kWindows ? ".exe" : "");
}

void BeOtherInstance(const std::string& title, const std::string& windowClass) {
  const std::unique_ptr<SingleInstance> instance = MakeSingleInstance(title, windowClass);
  std::cout << (instance->IsFirst() ? kFirst : kLater);
  if (!instance->IsFirst()) instance->BringFirstForward();
}

}  // namespace

ProcessResult RunOtherInstance(const std::string& title, const std::string& windowClass) {
  return RunProcess(OwnPath(), {kOtherInstanceOption, title, windowClass});
}

}  // namespace quillon::test

int main(int argc, char** argv) {
  const std::vector<std::string> arguments = quillon::ProgramArguments(argc, argv);
  if (arguments.size() == 3 && arguments[0] == quillon::test::kOtherInstanceOption) {
    quillon::test::BeOtherInstance(arguments[1], arguments[2]);
    return 0;
  }
  testing::InitGoogleMock(&argc, argv);
  return RUN_ALL_TESTS();
}
