#include "commands/founding.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <filesystem>
#include <random>

#include "commands/arguments.h"
#include "host/database/dialect/DatabaseError.h"
#include "host/database/sqlite/SqliteDatabase.h"
#include "host/demo/DemoFirm.h"
#include "host/demo/SqliteRowSink.h"
#include "host/services/clocks.h"
#include "places.h"

namespace autonotify::console {
namespace {

namespace fs = std::filesystem;

/// Shares of business and personal clients in the demo firm.
constexpr int companiesOfTen = 4;

std::string newIdentity() {
  std::random_device device;
  return fmt::format("{:08x}{:08x}{:08x}{:08x}", device(), device(), device(), device());
}

host::DemoOptions demoOptions(const Arguments& arguments, const Place& place, DateTime today) {
  host::DemoOptions demo;
  demo.companies = arguments.clients * companiesOfTen / 10;
  demo.contacts = arguments.clients - demo.companies;
  demo.seed = arguments.seed;
  demo.country = place.country;
  demo.province = place.province;
  demo.today = today;
  return demo;
}

Place placeOf(const Arguments& arguments) {
  Place place;
  place.country = *findCountry(arguments.country);
  if (!arguments.province.empty()) place.province = *findProvince(arguments.province);
  return place;
}

void fill(host::SqliteDatabase& database, const GlobalOptions& options,
          const Arguments& arguments) {
  host::SqliteRowSink sink(database.connection());
  const Place place = placeOf(arguments);
  if (arguments.demo) {
    host::SystemClock clock;
    const DateTime today = options.today ? options.today->dateOnly() : clock.today();
    host::makeDemoFirm(sink, demoOptions(arguments, place, today));
  } else {
    host::seedEssentials(sink,
                         {arguments.firmName, arguments.userName, place.country, place.province});
  }
  sink.insert("DatabaseIdentity", {{"UniqueText", newIdentity()}});
}

/// A file beside the wanted one, until everything is in it.
class Draft {
 public:
  explicit Draft(const fs::path& target) : target_(target), path_(target.string() + ".new") {
    remove();
  }
  ~Draft() { remove(); }
  Draft(const Draft&) = delete;
  Draft& operator=(const Draft&) = delete;

  const fs::path& path() const { return path_; }
  /// Gives the file its name, which must still be free.
  void finish() const {
    std::error_code error;
    fs::create_hard_link(path_, target_, error);
    if (error) {
      throw Refusal(fmt::format("cannot make {}: {}", target_.string(), error.message()),
                    exitDatabase);
    }
  }

 private:
  void remove() const {
    std::error_code ignored;
    for (const char* ending : {"", "-wal", "-shm"}) fs::remove(path_.string() + ending, ignored);
  }

  fs::path target_;
  fs::path path_;
};

CLI::Validator named(const char* what, bool (*isKnown)(const std::string&)) {
  return CLI::Validator(
      [what, isKnown](std::string& text) {
        return isKnown(text) ? std::string{} : fmt::format("\"{}\" is no {}", text, what);
      },
      "");
}

}  // namespace

void describeInit(CLI::App& command, Arguments& arguments) {
  auto* demo = command.add_flag("--demo", arguments.demo, "fill it with an invented firm");
  command.add_option("--clients", arguments.clients, "clients of the invented firm")
      ->needs(demo)
      ->check(CLI::Range(1, 100000));
  command.add_option("--seed", arguments.seed, "another seed, another firm")->needs(demo);
  command.add_option("--country", arguments.country, "ca or us")
      ->check(named("country: ca or us",
                    [](const std::string& text) { return findCountry(text).has_value(); }));
  command.add_option("--province", arguments.province, "such as ON or QC")
      ->check(named("province",
                    [](const std::string& text) { return findProvince(text).has_value(); }));
  command.add_option("--firm", arguments.firmName, "the firm's name")->excludes(demo);
  command.add_option("--first-user", arguments.userName, "who works first")->excludes(demo);
}

Reply runInit(const GlobalOptions& options, const Arguments& arguments) {
  const fs::path target = options.database;
  if (fs::exists(fs::symlink_status(target))) {
    throw Refusal(fmt::format("{} exists already and stays as it is", target.string()));
  }
  const Draft draft(target);
  try {
    const auto database = host::createSqlite(draft.path());
    fill(*database, options, arguments);
    database->close();
  } catch (const host::DatabaseError& error) {
    throw Refusal(error.description(), exitDatabase);
  }
  draft.finish();
  Reply reply;
  reply.text =
      fmt::format("Made {}{}.\n", target.string(),
                  arguments.demo ? fmt::format(" with {} clients", arguments.clients) : "");
  reply.data = {{"database", target.string()}, {"demo", arguments.demo}};
  return reply;
}

}  // namespace autonotify::console
