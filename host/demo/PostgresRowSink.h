#pragma once

// The way by which programs that make a demo firm include it.
#include "host/database/postgres/PostgresRowSink.h"
