#include "host/desk/work/print_worklist.h"

#include <fmt/format.h>

#include "host/desk/day_text.h"
#include "host/desk/rows/channel_names.h"
#include "host/desk/rows/item_names.h"
#include "host/desk/work/due_list.h"
#include "host/documents/PdfFile.h"
#include "host/documents/Worklist.h"
#include "host/words/Words.h"
#include "platform/rich_text.h"

namespace autonotify::host {
namespace {

struct WorklistTitle {
  int channels;
  const char* words;
};
constexpr WorklistTitle worklistTitles[] = {{nt_Letter, Words::later("Letters to be sent by %1")},
                                            {nt_Fax, Words::later("Faxes to be sent by %1")},
                                            {nt_Phone, Words::later("Calls to be made by %1")}};

/// "Calls to be made by 2026-04-15"
std::string titleOf(int channels, DateTime day) {
  const char* words = Words::later("Letters, faxes and calls by %1");
  for (const WorklistTitle& title : worklistTitles)
    if (title.channels == channels) words = title.words;
  return Words::tr(words, {dayText(day)});
}

Worklist::Cells cellsOf(Desk& desk, const Notification& row, const std::string& item) {
  const bool isCall = row.channel == nt_Phone;
  const std::string to = row.channel == nt_Letter ? "" : row.fields[Notification::phoneTo];
  const std::string times = isCall ? row.fields[Notification::phoneTimes] : "";
  return {dayText(row.date),
          Words::tr(channelName(row.channel).c_str()),
          clientName(desk, row),
          item,
          to,
          addressOf(row),
          times};
}

void fill(Desk& desk, Worklist& list, const ReadableRows<Notification>& due,
          UnreadableRows& unreadable) {
  const auto batch = lookupBatchFor(desk, due.rows.size());
  auto items = readItems(desk, due.rows, unreadable);
  for (const Notification& row : due.rows) {
    const std::string words = row.channel == nt_Phone ? plainTextOf(row.memo) : "";
    unreadable.orName([&] { list.add(cellsOf(desk, row, items[row.id].name), words); });
  }
}

Refused refusedWorklist(const std::string& pdf, const std::string& why) {
  return {Refused::Why::failed, pdf, why};
}

}  // namespace

PrintedWorklist showWorklist(Desk& desk, const WorklistWish& wish) {
  const DateTime day = wish.until.value_or(desk.today());
  const ReadableRows<Notification> due = readWholeDue(desk, wish.channels, day);
  PrintedWorklist shown;
  shown.unreadable.name(due.unreadable);
  Worklist list(desk.formHost(), titleOf(wish.channels, day));
  fill(desk, list, due, shown.unreadable);
  shown.entries = list.entries();
  if (shown.entries > 0) list.showModal(nullptr);
  return shown;
}

Outcome<PrintedWorklist> printWorklist(Desk& desk, const WorklistWish& wish,
                                       const std::string& pdf) {
  PrintingFormHost* const printer = desk.printer();
  if (!printer) return refusedWorklist(pdf, "lists are shown here");
  PrintedWorklist printed = showWorklist(desk, wish);
  if (printed.entries == 0) return printed;
  try {
    PdfFile file(pdf);
    printed.pages = file.add(printer->takePrinted().back(), {});
    if (!file.publish()) return refusedWorklist(pdf, "there is a file of this name already");
  } catch (const PlatformError& fault) {
    return refusedWorklist(pdf, firstLine(fault.description()));
  }
  return printed;
}

}  // namespace autonotify::host
