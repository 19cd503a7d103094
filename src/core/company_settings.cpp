#include "core/company_settings.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace {

const QString Name = u"Perusahaan"_s;
const QString NameHeadsReports = u"PerusahaanDiLaporan"_s;
const QString SaveWithoutPassword = u"SimpanTanpaPassword"_s;
const QString WorkDays = u"HariKerja"_s;

QString Stored(bool flag) {
    return flag ? u"1"_s : u"0"_s;
}

} // namespace

CompanySettings ReadCompanySettings(Connection& connection) {
    QHash<QString, QString> stored;
    Cursor rows = connection.Query(u"select Name, Value from Setting"_s);
    while (rows.Next())
        stored.insert(rows.Text(0), rows.Text(1));
    const CompanySettings usual;
    const auto flag = [&](const QString& name, bool otherwise) {
        return stored.contains(name) ? stored[name] == Stored(true) : otherwise;
    };
    const int days = stored.value(WorkDays).toInt();
    return {stored.value(Name), flag(NameHeadsReports, usual.nameHeadsReports),
            flag(SaveWithoutPassword, usual.saveWithoutPassword), days > 0 ? days : usual.workDays};
}

void WriteCompanySettings(Connection& connection, const CompanySettings& settings) {
    const QList<QVariantList> rows{{Name, settings.name},
                                   {NameHeadsReports, Stored(settings.nameHeadsReports)},
                                   {SaveWithoutPassword, Stored(settings.saveWithoutPassword)},
                                   {WorkDays, QString::number(settings.workDays)}};
    QList<QVariantList> names;
    for (const QVariantList& row : rows)
        names << row.first(1);
    connection.InTransaction([&] {
        connection.ExecuteMany(u"delete from Setting where Name=?"_s, names);
        connection.ExecuteMany(u"insert into Setting (Name, Value) values (?,?)"_s, rows);
    });
}

QString ReportHead(Connection& connection) {
    const CompanySettings settings = ReadCompanySettings(connection);
    return settings.nameHeadsReports && !settings.name.isEmpty() ? settings.name : QString();
}
