#pragma once

#include <cstdint>
#include <string>

#include "contract/enumerations.h"
#include "host/database/RowSink.h"
#include "platform/DateTime.h"

namespace autonotify::host {

struct DemoOptions {
  int companies = 200;  ///< business clients
  int contacts = 300;   ///< personal clients
  int staff = 15;       ///< at least 1
  /// Sent and cancelled notifications of years past, beyond those of the entries at hand.
  int pastNotifications = 0;
  std::uint64_t seed = 1;
  countryCode country = countryCanada;
  /// Without effect in the United States.
  provinceCode province = provinceOntario;
  /// Every date of the firm is told from this day. The same options give the same rows.
  DateTime today = DateTime::of(2026, 4, 15);
};

/// Fills an empty database, made by schemaStatements, with an invented firm: staff, clients, three
/// years of scheduled tasks around `today` with templates, documents and notifications in every
/// state and channel, a diary, and all that seedEssentials gives. Begins and commits one
/// transaction. People, addresses and numbers are fictitious: telephone numbers 555-01xx, mail
/// domains under `.example`, tax and social numbers that begin with zeros.
///
/// Keys of schedule entries and tasks are given, not generated.
void makeDemoFirm(RowSink& sink, const DemoOptions& options);

/// What an empty firm needs before its first client.
struct FirmSetup {
  std::string firmName;
  std::string userName;  ///< the first user, with full rights
  countryCode country = countryCanada;
  provinceCode province = provinceOntario;
};

/// Fills an empty database, made by schemaStatements: the firm and its first user, the address
/// book's categories, the labels of custom fields, the holidays, and the kinds of task of every
/// family, among them the fallback, each with a letter. Begins and commits one transaction.
void seedEssentials(RowSink& sink, const FirmSetup& setup);

}  // namespace autonotify::host
