#pragma once

#include "database/DatabaseClass.h"

/// The open gateway, or one without a session, whose every operation fails, while there is none. Ask anew for
/// each call: a box that an operation shows lets the host close the database.
DatabaseClass& Gateway();
