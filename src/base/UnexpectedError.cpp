#include "base/UnexpectedError.h"

#include <cxxabi.h>

#include <cstdlib>
#include <exception>
#include <memory>
#include <new>
#include <typeinfo>

namespace quillon {
namespace {

std::string ReadableName(const std::type_info& type) {
  int status = 0;
  const std::unique_ptr<char, decltype(&std::free)> name(abi::__cxa_demangle(type.name(), nullptr, nullptr, &status),
                                                         &std::free);
  return name ? name.get() : type.name();
}

}  // namespace

std::string DescribeException() {
  try {
    throw;
  } catch (const std::bad_alloc&) {
    return "メモリが足りません";
  } catch (const std::exception& error) {
    return *error.what() != '\0' ? error.what() : ReadableName(typeid(error));
  } catch (...) {
    return ReadableName(*abi::__cxa_current_exception_type());
  }
}

std::string UnexpectedErrorText() {
  return std::string(kUnexpectedError) + "\r\n" + DescribeException();
}

}  // namespace quillon
