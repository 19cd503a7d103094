#pragma once

#include "database/database_error.h"

#include <QString>

#include <exception>

/// What the user is told of a failure: what happened, to what, and what to do.
QString UserText(const DatabaseFailure& failure);
/// The same of an error; of several failures, of the first. An error of the language's own is told as it is.
QString UserText(const std::exception& error);
/// The same of an error that was kept.
QString UserText(const std::exception_ptr& error);
