#include "host/exchange/EntryReader.h"

#include "host/exchange/CalendarReader.h"
#include "host/exchange/CardReader.h"
#include "host/exchange/CsvReader.h"
#include "platform/text.h"

namespace autonotify::host {
namespace {

bool beginsWith(const TextFile& file, std::string_view word) {
  const std::string_view text = file.ahead();
  const std::size_t start = std::min(text.find_first_not_of(" \t\r\n"), text.size());
  return equalIgnoreCase(text.substr(start, word.size()), word);
}

}  // namespace

std::unique_ptr<EntryReader> openEntryReader(const std::string& path, DateTime today) {
  TextFile file(path);
  if (beginsWith(file, "BEGIN:VCALENDAR"))
    return std::make_unique<CalendarReader>(std::move(file), today);
  if (beginsWith(file, "BEGIN:VCARD")) return std::make_unique<CardReader>(std::move(file));
  return std::make_unique<CsvReader>(std::move(file));
}

}  // namespace autonotify::host
