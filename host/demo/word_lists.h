#pragma once

#include <span>
#include <string_view>

/// The words that people, companies and streets of the demo firm are made of.
namespace autonotify::host::demo {

struct FirstName {
  std::string_view text;
  bool woman;
  bool french;
};

std::span<const FirstName> firstNames();
/// Each begins with an ASCII letter; most are empty.
std::span<const std::string_view> middleNames();
std::span<const std::string_view> lastNames(bool french);
std::span<const std::string_view> streetNames(bool french);

struct Industry {
  std::string_view name;
  std::string_view trade;  ///< the word that stands in a company's name
};
std::span<const Industry> industries();
/// "Maple Ridge" and its like, in front of the trade.
std::span<const std::string_view> placeWords();
std::span<const std::string_view> companyEndings();
/// Names with quotes, apostrophes, number signs and accents, which go wrong first.
std::span<const std::string_view> awkwardCompanyNames();

std::span<const std::string_view> jobTitles();
std::span<const std::string_view> maritalStatuses();

struct Software {
  std::string_view name;
  std::string_view version;
  std::string_view fileEnding;
};
std::span<const Software> softwarePackages();

struct Meeting {
  std::string_view subject;
  int minutes;
};
std::span<const Meeting> meetings();
std::span<const std::string_view> timeEntrySubjects();
std::span<const std::string_view> clientNotes();

}  // namespace autonotify::host::demo
