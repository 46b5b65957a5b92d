#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace autonotify {

/// Numbers of the errors that the component itself raises.
namespace error_number {
inline constexpr int invalidProcedureCall = 5;
inline constexpr int overflow = 6;
inline constexpr int subscriptOutOfRange = 9;
inline constexpr int divisionByZero = 11;
inline constexpr int typeMismatch = 13;
inline constexpr int objectNotSet = 91;
inline constexpr int invalidUseOfNull = 94;
inline constexpr int cannotCreateObject = 429;
}  // namespace error_number

/// The one failure that a person may be asked about: a number, a description and a source.
///
/// Host services throw it for every failed operation; the component throws it for failed
/// conversions and missing references. Procedures catch this type alone: programming faults and
/// exhausted memory pass through every frame.
///
/// The class is header-only, so that a host needs no library of the component to throw it; the
/// handlers match it by name across the shared library's border.
class PlatformError : public std::runtime_error {
 public:
  PlatformError(int number, const std::string& description, std::string source = {})
      : std::runtime_error(description), number_(number), source_(std::move(source)) {}

  int number() const noexcept { return number_; }
  std::string description() const { return what(); }
  /// Where the failure arose, such as the name of an object; may be empty.
  const std::string& source() const noexcept { return source_; }

 private:
  int number_;
  std::string source_;
};

}  // namespace autonotify
