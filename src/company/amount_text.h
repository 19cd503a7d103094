#pragma once

#include <QString>

#include <optional>

/// An amount as a person types it: "150000", "150.000", "150,000", "1.250,50" or "1,250.50". A single point
/// or comma before exactly three digits groups them: "1.500" is one thousand five hundred. Nothing where the
/// text is none of these, or where it is below nothing.
std::optional<double> ReadAmount(const QString& text);

/// "1,250.5", the way the United States' regional settings write it; "" for none.
QString ShownAmount(const std::optional<double>& amount);
