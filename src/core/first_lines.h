#pragma once

#include <QStringList>

#include <ranges>

/// A message of more lines would not be read.
inline constexpr qsizetype MostLinesOfMessage = 15;

/// A line of text for each of the first ones, and one that says how many are left: "... dan 3 kartu lagi."
template<class Items, class TextOf>
QStringList FirstLines(const Items& items, const QString& noun, TextOf textOf) {
    QStringList lines;
    for (const auto& item : items | std::views::take(MostLinesOfMessage))
        lines << textOf(item);
    if (const qsizetype left = std::ssize(items) - MostLinesOfMessage; left > 0)
        lines << QStringLiteral("... dan %1 %2 lagi.").arg(left).arg(noun);
    return lines;
}
