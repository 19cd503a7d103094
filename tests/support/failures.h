#pragma once

#include "database/database_error.h"

#include <QString>

/// What a DatabaseError that the action throws says; "" when the action goes through.
template<class Action>
QString FailureOf(Action&& action) {
    try {
        std::forward<Action>(action)();
    } catch (const DatabaseError& error) {
        return error.Description();
    }
    return {};
}
