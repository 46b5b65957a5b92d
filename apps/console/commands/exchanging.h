#pragma once

#include "Command.h"

namespace autonotify::console {

void describeImport(CLI::App& command, Arguments& arguments);
/// Brings a firm's own data in from files of separated values.
Reply runImport(const GlobalOptions& options, const Arguments& arguments);

/// The options of every command that reads files.
void addImportOptions(CLI::App& command, Arguments& arguments);
/// Brings the files in and tells what came of each record. Throws Refusal for a file that cannot be
/// read.
Reply importInto(host::RecordsetDatabase& database, const std::vector<std::string>& files,
                 const host::ImportOptions& options);

void describeExport(CLI::App& command, Arguments& arguments);
/// Writes what the firm has as import reads it.
Reply runExport(const GlobalOptions& options, const Arguments& arguments);

}  // namespace autonotify::console
