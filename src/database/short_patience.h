#pragma once

#include "database/connection.h"

/// Lets statements wait less for other programs' locks, for as long as the object lives.
class ShortPatience {
public:
    ShortPatience(Connection& connection, std::chrono::milliseconds patience) : connection_(connection) {
        connection_.SetPatience(patience);
    }
    ~ShortPatience() { connection_.RestorePatience(); }
    ShortPatience(const ShortPatience&) = delete;
    ShortPatience& operator=(const ShortPatience&) = delete;

private:
    Connection& connection_;
};
