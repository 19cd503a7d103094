#pragma once

#include "core/error_words.h"
#include "database/connection.h"

#include <QString>

/// What the user is told of a DatabaseError that the action throws; "" when the action goes through.
template<class Action>
QString FailureOf(Action&& action) {
    try {
        std::forward<Action>(action)();
    } catch (const DatabaseError& error) {
        return UserText(error);
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
