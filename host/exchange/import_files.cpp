#include "host/exchange/import_files.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <map>
#include <unordered_map>

#include "host/database/dialect/DatabaseError.h"
#include "host/desk/claims.h"
#include "host/desk/databases.h"
#include "host/exchange/EntryBook.h"
#include "host/exchange/EntryReader.h"
#include "host/exchange/FirmIndex.h"
#include "platform/text.h"

namespace autonotify::host {
namespace {

/// Counts keys where no row is written.
class DrySink : public RowSink {
 public:
  void begin() override {}
  void commit() override {}
  Id insertRow(std::string_view, std::span<const Field>) override { return ++lastKey_; }
  void updateRow(std::string_view, Id, std::span<const Field>) override {}

 private:
  Id lastKey_ = 1 << 30;  // no one has such a key yet
};

/// A file whose headings have been read.
struct OpenFile {
  std::unique_ptr<EntryReader> reader;
  std::vector<std::string> headings;
  const EntryKind* kind = nullptr;
  /// By position; null for one that is not read.
  std::vector<const EntryColumn*> columns;
};

std::string mapped(const ImportOptions& options, const std::string& heading) {
  for (const auto& [from, to] : options.headings)
    if (foldHeading(from) == foldHeading(heading)) return to;
  return heading;
}

/// The columns that no entry goes without and the file has not.
std::string missingIn(const EntryKind& kind, const std::vector<const EntryColumn*>& columns) {
  std::string names;
  for (const EntryColumn& column : kind.columns)
    if (column.isRequired && std::ranges::find(columns, &column) == columns.end())
      (names += names.empty() ? "" : ", ") += column.heading;
  return names;
}

/// The headings that stand for no column.
std::vector<std::string> unreadOf(const OpenFile& file) {
  std::vector<std::string> unread;
  for (std::size_t i = 0; i < file.headings.size(); ++i)
    if (!file.columns[i] && !file.headings[i].empty()) unread.push_back(file.headings[i]);
  return unread;
}

std::string notKnownIn(const OpenFile& file) {
  std::string names;
  for (const std::string& heading : unreadOf(file))
    names += (names.empty() ? "; not known are: \"" : ", \"") + shortened(heading, 60) + '"';
  return names;
}

const EntryKind* kindByName(const OpenFile& file) {
  const std::string name = lowerCase(std::filesystem::path(file.reader->path()).stem().string());
  for (const EntryKind& kind : entryKinds())
    if (name.find(kind.name) != name.npos) return &kind;
  return nullptr;
}

/// The kind of which the most headings are known; none when two have as many.
const EntryKind* kindByHeadings(const OpenFile& file) {
  const EntryKind* best = nullptr;
  std::ptrdiff_t most = 0;
  for (const EntryKind& kind : entryKinds()) {
    const auto columns = findEntryColumns(kind, file.headings);
    if (!missingIn(kind, columns).empty()) continue;
    const auto known = std::ranges::count_if(columns, [](const auto* column) { return column; });
    if (known == most) best = nullptr;
    if (known > most) best = &kind;
    most = std::max(most, known);
  }
  return best;
}

const EntryKind* kindIn(const OpenFile& file, const ImportOptions& options) {
  const EntryKind* ofForm = findEntryKind(file.reader->kind());
  if (ofForm && options.kind && options.kind != ofForm)
    throw FileFault(file.reader->path() + " holds " + std::string(ofForm->name) + ", not " +
                    std::string(options.kind->name));
  if (ofForm || options.kind) return ofForm ? ofForm : options.kind;
  const EntryKind* named = kindByName(file);
  return named ? named : kindByHeadings(file);
}

void chooseKind(OpenFile& file, const ImportOptions& options) {
  const std::string& path = file.reader->path();
  file.kind = kindIn(file, options);
  if (!file.kind) throw KindUnknown(path + " does not tell what it holds");
  file.columns = findEntryColumns(*file.kind, file.headings);
  const std::string missing = missingIn(*file.kind, file.columns);
  if (!missing.empty())
    throw FileFault(path + " is read as " + std::string(file.kind->name) +
                    ", and has no column for: " + missing + notKnownIn(file));
}

OpenFile openFile(const std::string& path, const ImportOptions& options) {
  OpenFile file;
  file.reader = openEntryReader(path, options.today);
  FileRecord headings;
  if (!file.reader->next(headings)) throw FileFault(path + " is empty");
  for (const std::string& heading : headings.cells)
    file.headings.push_back(mapped(options, withoutBlanks(inOneLine(heading))));
  chooseKind(file, options);
  return file;
}

/// All but free texts.
void trimCells(const std::vector<const EntryColumn*>& columns, std::vector<std::string>& cells) {
  for (std::size_t i = 0; i < std::min(columns.size(), cells.size()); ++i)
    if (columns[i] && columns[i]->type != CellType::text) cells[i] = withoutBlanks(cells[i]);
}

/// One kind's files on their way into the firm.
class KindImport {
 public:
  KindImport(const EntryKind& kind, FirmIndex& firm, RowSink& sink, const ImportOptions& options)
      : kind_(kind),
        firm_(firm),
        sink_(sink),
        options_(options),
        book_(openBook(kind, firm, sink)) {}

  ImportedFile import(OpenFile& file, const ImportListener& listener) {
    ImportedFile result{file.reader->path(), &kind_, {}, unreadOf(file)};
    FileRecord record;
    while (file.reader->next(record)) {
      ImportedRecord told{result.path, record.line, RecordFate::refused, {}, {}};
      trimCells(file.columns, record.cells);
      const Entry entry(file.columns, record.cells);
      told.subject = subjectOf(entry);
      try {
        if (!record.fault.empty()) throw EntryRefused(record.fault);
        take(entry, told);
      } catch (const EntryRefused& refusal) {
        told.words = inOneLine(refusal.what());
      }
      ++result.counts.at(static_cast<std::size_t>(told.fate));
      listener(told);
    }
    std::ranges::copy(file.reader->leftOut(), std::back_inserter(result.unread));
    return result;
  }

 private:
  /// What it has first, as its kind orders the columns.
  std::string subjectOf(const Entry& entry) const {
    std::string subject;
    std::size_t parts = 0;
    for (const EntryColumn& column : kind_.columns) {
      const std::string& cell = entry.cell(column.heading);
      if (cell.empty() || parts == 2) continue;
      subject += (parts++ == 0 ? "" : ", ") + shortened(cell, 60);
    }
    return subject;
  }

  void take(const Entry& entry, ImportedRecord& told) {
    Fields own;
    Fields more;
    read(entry, own, more);
    book_->complete(entry, own);
    const Id id = book_->find(entry, own);
    book_->completeRow(id, own);
    if (const auto former = seen_.find(id); id >= 0 && former != seen_.end())
      throw EntryRefused("it is the same as in line " + std::to_string(former->second));
    told.fate = id < 0 ? RecordFate::added : RecordFate::same;
    id < 0 ? add(entry, own, more, told) : change(id, entry, own, more, told);
  }

  void read(const Entry& entry, Fields& own, Fields& more) const {
    for (const EntryColumn& column : kind_.columns)
      if (column.isRequired && entry.cell(column.heading).empty())
        throw EntryRefused(std::string(column.heading) + " is empty");
    entry.forEach([&](const EntryColumn& column, const std::string& cell) {
      if (column.place.empty()) return;
      const bool isOwn = column.place.find('.') == column.place.npos;
      (isOwn ? own : more).push_back({column.place, readCell(column, cell, options_.dates)});
    });
  }

  void add(const Entry& entry, const Fields& own, const Fields& more, ImportedRecord& told) {
    const Id id = sink_.insertRow(kind_.table, own);
    book_->added(id, entry, own, more);
    seen_.emplace(id, told.line);
  }

  void change(Id id, const Entry& entry, const Fields& own, const Fields& more,
              ImportedRecord& told) {
    write(std::string(kind_.table), id, own, told);
    std::map<std::string, Fields> tables;
    for (const Field& field : more) {
      const std::size_t point = field.column.find('.');
      tables[std::string(field.column.substr(0, point))].push_back(
          {field.column.substr(point + 1), field.value});
    }
    for (const auto& [table, fields] : tables) write(table, book_->keyIn(table, id), fields, told);
    const std::string words = book_->changed(id, entry, own);
    if (!words.empty()) tell(told, words);
    seen_.emplace(id, told.line);
  }

  /// Those that differ from what the row holds.
  void write(const std::string& table, Id key, const Fields& fields, ImportedRecord& told) {
    Fields differing;
    for (const Field& field : fields) {
      const Value* held = firm_.rows().find(table, key, field.column);
      if (!held || *held == field.value) continue;
      differing.push_back(field);
      tell(told, headingOf(table, field.column) + ": \"" + shown(*held) + "\" becomes \"" +
                     shown(field.value) + '"');
    }
    firm_.rows().release(table, key);
    sink_.updateRow(table, key, differing);
  }

  static void tell(ImportedRecord& told, const std::string& words) {
    told.fate = RecordFate::changed;
    told.words += (told.words.empty() ? "" : "; ") + words;
  }

  static std::string shown(const Value& value) { return shortened(textOf(value), 40); }

  std::string headingOf(const std::string& table, std::string_view column) const {
    for (const EntryColumn& each : kind_.columns)
      if (each.place == column || each.place == table + '.' + std::string(column))
        return std::string(each.heading);
    return std::string(column);
  }

  const EntryKind& kind_;
  FirmIndex& firm_;
  RowSink& sink_;
  const ImportOptions& options_;
  std::unique_ptr<EntryBook> book_;
  /// The line of each row that was in a file of this run.
  std::unordered_map<Id, std::size_t> seen_;
};

bool isAnyRefused(const ImportResult& result) {
  constexpr auto refused = static_cast<std::size_t>(RecordFate::refused);
  return std::ranges::any_of(result.files,
                             [](const ImportedFile& file) { return file.counts[refused] > 0; });
}

std::unique_ptr<Claim> claimImport(Claims& claims) {
  std::unique_ptr<Claim> claim = claims.take(WorkItem::dataImport, wholeFirm);
  if (!claim)
    throw DatabaseError(database_error::locked, "Another import is under way; try again later");
  return claim;
}

}  // namespace

ImportResult importFiles(RecordsetDatabase& database, const std::vector<std::string>& paths,
                         const ImportOptions& options, const ImportListener& listener) {
  std::vector<OpenFile> files;
  files.reserve(paths.size());
  for (const std::string& path : paths) files.push_back(openFile(path, options));
  std::ranges::stable_sort(files, {}, &OpenFile::kind);
  const std::unique_ptr<Claims> claims = options.isDryRun ? nullptr : claimsOf(database);
  const std::unique_ptr<Claim> claim = claims ? claimImport(*claims) : nullptr;
  const std::unique_ptr<RowSink> sink =
      options.isDryRun ? std::make_unique<DrySink>() : sinkInto(database);
  sink->begin();
  FirmIndex firm(database);
  HeldRowsSink heldSink(*sink, firm.rows());
  ImportResult result;
  std::map<const EntryKind*, KindImport> imports;
  for (OpenFile& file : files) {
    heldSink.flush();
    KindImport& import =
        imports.try_emplace(file.kind, *file.kind, firm, heldSink, options).first->second;
    result.files.push_back(import.import(file, listener));
  }
  result.isStored = !options.isDryRun && (options.skipRefused || !isAnyRefused(result));
  if (result.isStored) sink->commit();
  return result;
}

}  // namespace autonotify::host
