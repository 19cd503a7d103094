#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

/// A table of a foreign database.
struct SourceTable {
    QString name;
    QStringList columns;
    std::vector<bool> untold = {}; ///< which columns hold values that are not told: pictures and the like
    bool isLinked = false;         ///< its rows stand in another file
};

/// A database that is read as texts: numbers in digits, with a point before the decimals; moments as
/// "yyyy-mm-dd hh:mm:ss"; flags as "0" and "1"; null as a null text.
class TableSource {
public:
    virtual ~TableSource() = default;

    virtual std::vector<SourceTable> Tables() = 0;

    /// Takes a row of the table at that place among those asked for; false ends the reading.
    using RowSink = std::function<bool(size_t table, const QStringList& values)>;
    /// Hands on the rows of these tables, table by table; false when the sink ended it.
    virtual bool ReadRows(const std::vector<SourceTable>& tables, const RowSink& sink) = 0;
};
