#pragma once

#include <QList>
#include <QStringList>

/// Cells as spreadsheets hand them to each other: cells parted by tabs, rows by line ends. A cell that holds
/// one of these or begins with a quote stands in double quotes, quotes inside it doubled.
QString TabbedText(const QList<QStringList>& rows);

/// Reads any of the usual line ends; the one after the last row ends it and begins no other. Rows may differ
/// in length.
QList<QStringList> ReadTabbedText(const QString& text);
