#pragma once

#include <string>

#include "host/database/postgres/PostgresConnection.h"

namespace autonotify::host {

/// Statements that make a role with the least rights that a desk needs on the database of this
/// connection: it reads all tables and writes what notifications, their settings and a company's
/// default contact are kept in. One transaction, to be run by the database's owner.
/// Throws DatabaseError: alreadyExists for the name of a role that is there, the owner's among
/// them, and for one that the server gives a meaning of its own, such as "public".
std::string deskRoleStatements(PostgresConnection& connection, const std::string& role);

}  // namespace autonotify::host
