#include "database/schema.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

constexpr int SchemaNumber = 90003;

[[noreturn]] void Refuse(const QString& description) {
    throw DatabaseError({SchemaNumber, u"Time Attendance"_s, description});
}

const EngineSchema& SchemaOf(const Connection& connection) {
    return connection.UsedEngine().Schema();
}

void RefuseMissing(const QSet<QString>& expected, const QSet<QString>& found) {
    QStringList missing = (expected - found).values();
    missing.sort();
    if (!missing.isEmpty())
        Refuse(u"Database tidak lengkap, tidak ditemukan: %1.\nPulihkan database dari cadangan."_s.arg(
            missing.first()));
}

} // namespace

int SchemaVersion(Connection& connection) {
    const std::optional<int> version = SchemaOf(connection).VersionOf(connection);
    if (!version)
        Refuse(
            u"File ini bukan database absensi (atau masih kosong): %1\nPeriksa nama file atau pulihkan dari "
            "cadangan."_s.arg(QDir::toNativeSeparators(connection.FileName())));
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
    if (version > newest)
        Refuse(u"Database ini dibuat oleh program yang lebih baru (versi %1; program ini mengenal sampai "
               u"versi %2). "
               "Pasang program yang terbaru."_s.arg(version)
                   .arg(newest));
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
