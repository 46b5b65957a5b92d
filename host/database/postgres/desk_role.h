#pragma once

#include <string>

#include "host/database/postgres/PostgresConnection.h"

namespace autonotify::host {

/// Statements that make a role with the least rights that a desk needs on the database of this
/// connection: it reads all tables and writes what notifications, their settings and a company's
/// default contact are kept in. To be run by the database's owner.
std::string deskRoleStatements(PostgresConnection& connection, const std::string& role);

}  // namespace autonotify::host
