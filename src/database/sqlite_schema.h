#pragma once

#include "database/schema.h"

/// The schema in SQLite's words. A copy of a database of version 1 stands beside it as "DATA.mdb.v1".
class SqliteSchema : public EngineSchema {
public:
    std::span<const SchemaStep> Steps() const override;
    std::optional<int> VersionOf(Connection& connection) const override;
    void SetVersion(Connection& connection, int version) const override;
    void CopyAside(Connection& connection, int version) const override;
    QSet<QString> TablesIn(Connection& connection) const override;
    QSet<QString> ViewsIn(Connection& connection) const override;
    std::vector<TableDescription> Describe(Connection& connection) const override;
    SchemaNames NamesAfter(std::span<const SchemaStep> steps) const override;
};
