#include "support/Wine.h"

#include "platform/SharedLibrary.h"

namespace quillon::test {

bool RunsUnderWine() {
  return SharedLibrary::Find("ntdll.dll").Symbol("wine_get_version") != nullptr;
}

}  // namespace quillon::test
