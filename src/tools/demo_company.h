#pragma once

#include "database/connection.h"

#include <QString>

#include <functional>

/// What the demo company is to be like.
struct DemoOptions {
    int employees = 42;
    /// Months of attendance, ending with the day `until`.
    int months = 3;
    Day until{};
};

struct DemoSummary {
    Day firstDay{};
    qint64 cards = 0;
    qint64 sheets = 0;
};

/// Told the share of the work that is done, in percent, every now and then.
using DemoProgress = std::function<void(int percent)>;

/// Fills an empty database with the demo company: one transaction. The same options give the same rows.
/// Throws DatabaseError; nothing is written then.
DemoSummary FillDemoCompany(Connection& connection, const DemoOptions& options,
                            const DemoProgress& progress = {});

/// Makes the database file of a demo company and the folder "photos" beside it; photos that stand there
/// already stay as they are. Throws ProgramError when the file exists or something cannot be written; neither
/// file nor photos are left behind then.
DemoSummary MakeDemoCompany(const QString& path, const DemoOptions& options,
                            const DemoProgress& progress = {});
