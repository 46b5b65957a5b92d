#pragma once

// Everything that a database must do, for each engine's own test file to instantiate.
#include "tests/database/conformance_random_walk.h"
#include "tests/database/conformance_rows.h"
#include "tests/database/conformance_scripts.h"
#include "tests/database/conformance_statements.h"
