#include "database/schema.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

constexpr int SchemaNumber = 90003;

[[noreturn]] void Refuse(ErrorKind kind, const QString& description, const QStringList& details) {
    throw DatabaseError(kind, SchemaNumber, description, details);
}

const EngineSchema& SchemaOf(const Connection& connection) {
    return connection.UsedEngine().Schema();
}

void RefuseMissing(const QSet<QString>& expected, const QSet<QString>& found) {
    QStringList missing = (expected - found).values();
    missing.sort();
    if (!missing.isEmpty())
        Refuse(ErrorKind::Incomplete, u"the database lacks %1"_s.arg(missing.first()), {missing.first()});
}

} // namespace

QString TableDescription::ColumnList() const {
    QStringList names;
    for (const ColumnDescription& column : columns)
        names << u'[' + column.name + u']';
    return names.join(u',');
}

std::vector<TableDescription> TablesOf(Connection& connection) {
    return SchemaOf(connection).Describe(connection);
}

int SchemaVersion(Connection& connection) {
    const std::optional<int> version = SchemaOf(connection).VersionOf(connection);
    if (!version) {
        const QString file = QDir::toNativeSeparators(connection.FileName());
        Refuse(ErrorKind::Foreign, u"%1 is empty or not a database of this program"_s.arg(file), {file});
    }
    return *version;
}

int NewestSchemaVersion(const Connection& connection) {
    return SchemaOf(connection).Steps().back().version;
}

void RunSchemaSteps(Connection& connection, std::span<const SchemaStep> steps) {
    const EngineSchema& schema = SchemaOf(connection);
    for (const SchemaStep& step : steps) {
        connection.InTransaction([&] {
            // Read inside: another desk may have taken this step a moment ago.
            if (schema.VersionOf(connection).value_or(0) >= step.version)
                return;
            for (const QString& statement : step.statements)
                connection.ExecuteNative(statement);
            schema.SetVersion(connection, step.version);
        });
    }
}

void PrepareSchema(Connection& connection, std::span<const SchemaStep> steps) {
    const EngineSchema& schema = SchemaOf(connection);
    const int newest = steps.back().version;
    const int version = SchemaVersion(connection);
    if (version > newest) {
        const QStringList versions{QString::number(version), QString::number(newest)};
        Refuse(ErrorKind::Newer,
               u"the database is of version %1; the newest known is %2"_s.arg(versions[0], versions[1]),
               versions);
    }
    if (version < newest) {
        schema.CopyAside(connection, version);
        RunSchemaSteps(connection, steps);
    }

    // Tables first: an engine may be unable even to describe a view that stands on a missing one.
    const SchemaNames expected = schema.NamesAfter(steps);
    RefuseMissing(expected.tables, schema.TablesIn(connection));
    RefuseMissing(expected.views, schema.ViewsIn(connection));
}

void PrepareSchema(Connection& connection) {
    PrepareSchema(connection, SchemaOf(connection).Steps());
}
