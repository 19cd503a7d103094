#pragma once

#include "database/connection.h"

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

/// Runs an action in a transaction that is taken back.
template<class Action>
void TakenBack(Connection& connection, Action&& action) {
    struct Stop {};
    try {
        connection.InTransaction([&] {
            action();
            throw Stop();
        });
    } catch (const Stop&) {
    }
}
