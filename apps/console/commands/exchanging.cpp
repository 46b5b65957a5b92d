#include "commands/exchanging.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "ProgressLine.h"
#include "commands/arguments.h"
#include "host/desk/databases.h"
#include "host/exchange/export_entries.h"
#include "host/exchange/import_files.h"
#include "host/services/NewFile.h"
#include "host/services/clocks.h"

namespace autonotify::console {
namespace {

constexpr std::array<const char*, host::recordFateCount> fateWords{"new", "changed", "the same",
                                                                   "refused"};

std::string kindNames() {
  std::string names;
  for (const host::EntryKind& kind : host::entryKinds())
    (names += names.empty() ? "" : ", ") += kind.name;
  return names;
}

CLI::Option* addEntryKind(CLI::App& command, const std::string& name, const std::string& help,
                          const host::EntryKind*& target) {
  CLI::Option* option = addReader(
      command, name, "KIND", help + kindNames(), [&target, name](const std::string& text) {
        target = host::findEntryKind(text);
        if (!target)
          throw CLI::ValidationError(name, fmt::format("\"{}\" is none of: {}", text, kindNames()));
      });
  setKnownValues(*option, replaceAll(kindNames(), ",", ""));
  return option;
}

struct DateOrderWord {
  std::string word;
  host::DateOrder order;
};
const std::array<DateOrderWord, 2> dateOrderWords{DateOrderWord{"mdy", host::DateOrder::monthFirst},
                                                  DateOrderWord{"dmy", host::DateOrder::dayFirst}};

void addHeading(Arguments& arguments, const std::string& text) {
  const std::size_t sign = text.rfind('=');
  if (sign == text.npos || sign == 0 || sign + 1 == text.size())
    throw CLI::ValidationError("--map", fmt::format("\"{}\" is not HEADING=COLUMN", text));
  arguments.importing.headings.emplace_back(text.substr(0, sign), text.substr(sign + 1));
}

/// --map, once for each heading.
void addHeadings(CLI::App& command, Arguments& arguments) {
  const auto read = [&arguments](const std::vector<std::string>& texts) {
    for (const std::string& text : texts) addHeading(arguments, text);
  };
  command
      .add_option_function<std::vector<std::string>>("--map", read,
                                                     "what one of their headings stands for")
      ->type_name("HEADING=COLUMN")
      ->allow_extra_args(false);
}

std::unique_ptr<host::RecordsetDatabase> open(const GlobalOptions& options) {
  try {
    return host::openDatabase(options.database);
  } catch (const host::DatabaseError& error) {
    const bool isMissing = error.number() == host::database_error::missing;
    throw databaseRefusal(options.database, error, isMissing ? "; hvnotify init makes one" : "");
  }
}

/// Runs `act` on the open database; its failures are told as the program tells them.
template <class Act>
auto withDatabase(const GlobalOptions& options, Act&& act) {
  const auto database = open(options);
  try {
    return act(*database);
  } catch (const host::DatabaseError& error) {
    throw databaseRefusal(options.database, error);
  }
}

/// No more are told of one run, whatever its files hold: they are counted.
constexpr std::size_t mostRecords = 10000;
constexpr std::size_t mostHeadings = 20;

/// Tells each record as it is read.
class ImportReport {
 public:
  ImportReport(Reply& reply, bool isDryRun) : reply_(reply), isDryRun_(isDryRun) {
    reply.data = {{"stored", false}, {"files", Json::array()}, {"records", Json::array()}};
  }

  void tell(const host::ImportedRecord& record) {
    if (++count_ % 1000 == 0) line_.show(fmt::format("{}: {} records", record.file, count_));
    const bool isRefused = record.fate == host::RecordFate::refused;
    if (!isRefused && (!isDryRun_ || record.fate == host::RecordFate::same)) return;
    if (++told_ <= mostRecords)
      show(record, isRefused);
    else
      ++(isRefused ? refusedBesides_ : takenBesides_);
  }

  void end(const host::ImportResult& result) {
    if (takenBesides_ > 0) reply_.text += fmt::format("and {} more\n", takenBesides_);
    if (refusedBesides_ > 0) reply_.refuse(fmt::format("{} more are refused", refusedBesides_));
    for (const host::ImportedFile& file : result.files) addFile(file);
    reply_.data["stored"] = result.isStored;
    if (isDryRun_)
      reply_.text += "A dry run: nothing was stored.\n";
    else if (!result.isStored)
      reply_.text +=
          "Nothing was stored. Correct what is refused (clients, staff and export kinds name what "
          "the firm has), or leave it out by --skip-refused.\n";
  }

 private:
  void show(const host::ImportedRecord& record, bool isRefused) {
    const char* fate = fateWords.at(static_cast<std::size_t>(record.fate));
    const std::string words =
        fmt::format("{}, line {}: {}, {}{}{}", record.file, record.line, record.subject, fate,
                    record.words.empty() ? "" : ": ", record.words);
    isRefused ? reply_.refuse(words) : void(reply_.text += words + '\n');
    if (!isDryRun_) return;
    reply_.data["records"].push_back({{"file", record.file},
                                      {"line", record.line},
                                      {"subject", record.subject},
                                      {"fate", fate},
                                      {"words", record.words}});
  }

  void addFile(const host::ImportedFile& file) {
    std::string counts;
    Json data{{"file", file.path}, {"kind", file.kind->name}};
    for (std::size_t i = 0; i < fateWords.size(); ++i) {
      counts += fmt::format("{}{} {}", i == 0 ? "" : ", ", file.counts[i], fateWords[i]);
      data[fateWords[i]] = file.counts[i];
    }
    data["unread"] = file.unread;
    reply_.data["files"].push_back(data);
    reply_.text +=
        fmt::format("{}, {}: {}{}\n", file.path, file.kind->name, counts, unreadText(file.unread));
  }

  static std::string unreadText(const std::vector<std::string>& headings) {
    std::string text;
    const std::size_t count = std::min(headings.size(), mostHeadings);
    for (std::size_t i = 0; i < count; ++i)
      text += fmt::format("{}\"{}\"", i == 0 ? "; not read: " : ", ", headings[i]);
    const std::size_t more = headings.size() - count;
    return more > 0 ? text + fmt::format(" and {} more", more) : text;
  }

  Reply& reply_;
  bool isDryRun_;
  std::size_t count_ = 0;
  std::size_t told_ = 0;
  std::size_t refusedBesides_ = 0;
  std::size_t takenBesides_ = 0;
  ProgressLine line_;
};

Reply emptyFile(const host::EntryKind& kind) {
  Reply reply;
  reply.document = host::headingLine(kind);
  reply.data = Json::array();
  for (const host::EntryColumn& column : kind.columns) reply.data.push_back(column.heading);
  return reply;
}

void writeFile(const std::string& path, const std::string& text) {
  try {
    host::NewFile file(path);
    file.write(text);
    if (!file.publish()) throw Refusal(path + " exists already and stays as it is");
  } catch (const PlatformError& error) {
    throw Refusal(host::firstLine(error.description()));
  }
}

}  // namespace

void addImportOptions(CLI::App& command, Arguments& arguments) {
  arguments.importing.dates = host::dateOrderOfLocale();
  addChoice(command, "--dates", "ORDER", dateOrderWords,
            ": how dates are written (default: as the locale has it)",
            [&arguments](const DateOrderWord& row) { arguments.importing.dates = row.order; });
  command.add_flag("--dry-run", arguments.importing.isDryRun, "tell what would be stored");
  command.add_flag("--skip-refused", arguments.importing.skipRefused,
                   "store the rest when some records are refused");
}

Reply importInto(host::RecordsetDatabase& database, const std::vector<std::string>& files,
                 const host::ImportOptions& options) try {
  Reply reply;
  ImportReport report(reply, options.isDryRun);
  report.end(host::importFiles(database, files, options,
                               [&](const host::ImportedRecord& record) { report.tell(record); }));
  return reply;
} catch (const host::KindUnknown& fault) {
  throw Refusal(fmt::format("{}; give --kind, one of: {}", fault.what(), kindNames()));
} catch (const host::FileFault& fault) {
  throw Refusal(fault.what());
}

void describeImport(CLI::App& command, Arguments& arguments) {
  command
      .add_option("FILE", arguments.files,
                  "files of separated values, as spreadsheets save them; calendars (iCalendar) for "
                  "holidays, address books (vCard) for contacts")
      ->type_name("FILE");
  addEntryKind(command, "--kind", "what the files hold, where names and headings do not tell: ",
               arguments.importing.kind);
  addHeadings(command, arguments);
  addImportOptions(command, arguments);
  addEntryKind(command, "--template",
               "print an empty file with all headings: ", arguments.entryKind);
}

Reply runImport(const GlobalOptions& options, const Arguments& arguments) {
  if (arguments.entryKind) return emptyFile(*arguments.entryKind);
  if (arguments.files.empty())
    throw Refusal("name a FILE, or --template KIND (see: hvnotify import --help)", exitUsage);
  host::ImportOptions importing = arguments.importing;
  importing.today = options.today ? *options.today : host::SystemClock().today();
  return withDatabase(options, [&](host::RecordsetDatabase& database) {
    return importInto(database, arguments.files, importing);
  });
}

void describeExport(CLI::App& command, Arguments& arguments) {
  addEntryKind(command, "KIND", "what to write: ", arguments.entryKind)->required();
  addText(command, "--to", "FILE", "a new file (default: standard output)", arguments.file);
}

Reply runExport(const GlobalOptions& options, const Arguments& arguments) {
  std::string text;
  const std::size_t count = withDatabase(options, [&](host::RecordsetDatabase& database) {
    return host::exportEntries(database, *arguments.entryKind,
                               [&](const std::string& line) { text += line; });
  });
  Reply reply;
  reply.data = {{"kind", arguments.entryKind->name}, {"entries", count}};
  if (arguments.file.empty()) {
    reply.document = std::move(text);
    return reply;
  }
  writeFile(arguments.file, text);
  reply.data["file"] = arguments.file;
  reply.text =
      fmt::format("Wrote {} {} to {}.\n", count, arguments.entryKind->name, arguments.file);
  return reply;
}

}  // namespace autonotify::console
