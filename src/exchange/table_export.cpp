#include "exchange/table_export.h"

#include "cards/employee_pay.h"
#include "core/typed_date.h"
#include "database/database_error.h"
#include "exchange/number_form.h"
#include "exchange/row_writer.h"

#include <QLocale>
#include <QMetaType>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int ExportNumber = 90022;

TableDescription TableNamed(Connection& connection, const QString& name) {
    QStringList names;
    for (TableDescription& table : TablesOf(connection)) {
        names << table.name;
        if (table.name.compare(name, Qt::CaseInsensitive) != 0)
            continue;
        std::erase_if(table.columns, [&table](const ColumnDescription& column) {
            return table.name == u"User"_s && column.name == u"Password"_s;
        });
        return table;
    }
    throw ProgramError(ErrorKind::NoSuchTable, ExportNumber,
                       u"the database has no table \"%1\"; it has %2"_s.arg(name, names.join(u", ")), {name});
}

bool IsPay(const ColumnDescription& column) {
    return QStringList{u"EmpType"_s, u"GP"_s, u"RateOT"_s, u"TMakan"_s}.contains(column.name);
}

/// Employees by the pay that is in force on the day bound to "?".
QString EmployeeStatement(TableDescription& table) {
    const auto pay = std::ranges::stable_partition(table.columns, std::not_fn(IsPay));
    QStringList columns;
    std::for_each(table.columns.begin(), pay.begin(),
                  [&](const ColumnDescription& column) { columns << u"e."_s + column.name; });
    // In the order of the columns of PayInForce.
    const std::array<QString, 4> order{u"EmpType"_s, u"GP"_s, u"RateOT"_s, u"TMakan"_s};
    std::ranges::sort(pay, {}, [&](const ColumnDescription& column) {
        return std::ranges::find(order, column.name) - order.begin();
    });
    return u"select %1, %2 from Employee e %3 order by e.NIP"_s.arg(
        columns.join(u", "), PayInForce::Columns(), PayInForce::Join(u"?"_s));
}

QString PlainStatement(const TableDescription& table) {
    QStringList keys;
    for (const ColumnDescription& column : table.columns) {
        if (column.isKey)
            keys << u'[' + column.name + u']';
    }
    return u"select %1 from [%2] order by %3"_s.arg(table.ColumnList(), table.name, keys.join(u','));
}

} // namespace

std::optional<QString> NumberText(const FieldValue& value) {
    switch (value.Stored().typeId()) {
    case QMetaType::Int:
    case QMetaType::LongLong:
        return value.Text();
    case QMetaType::Double:
        if (!std::isfinite(value.Number()))
            return std::nullopt;
        return QString::number(value.Number(), 'f', QLocale::FloatingPointShortest);
    default:
        return std::nullopt;
    }
}

bool ExportTable(const QString& path, const std::vector<ExportColumn>& columns, const ExportRows& rows) {
    const bool isWorkbook = path.endsWith(u".xlsx"_s, Qt::CaseInsensitive);
    const std::unique_ptr<RowWriter> writer =
        isWorkbook ? MakeXlsxWriter(path, columns) : MakeCsvWriter(path, columns);
    if (!rows([&writer](const ExportRow& row) { writer->Write(row); }))
        return false;
    writer->Commit();
    return true;
}

FieldValue ShownValue(const QString& text, ColumnKind kind) {
    if (text.isEmpty())
        return {};
    switch (kind) {
    case ColumnKind::Number:
        // Numbers are shown with a point, and commas between the thousands.
        if (const std::optional<QString> number = ReadNumber(text, NumberForm::PointDecimals))
            return FieldValue(number->toDouble());
        break;
    case ColumnKind::Date:
        if (const std::optional<Day> day = ReadTypedDate(text, DayZero, DayZero))
            return FieldValue(*day);
        break;
    case ColumnKind::Moment:
        if (const std::optional<TypedTime> time = ReadTypedTime(text))
            return FieldValue(time->On(DayZero));
        break;
    case ColumnKind::Flag:
    case ColumnKind::Text:
        break;
    }
    return FieldValue(text);
}

bool ExportDatabaseTable(Connection& connection, const QString& name, const QString& path, Day today,
                         const Progress& progress) {
    TableDescription table = TableNamed(connection, name);
    const bool isEmployee = table.name == u"Employee"_s;
    const QString statement = isEmployee ? EmployeeStatement(table) : PlainStatement(table);
    std::vector<ExportColumn> columns;
    for (const ColumnDescription& column : table.columns)
        columns.push_back({column.name, column.kind});
    return ExportTable(path, columns, [&](const auto& sink) {
        Cursor rows =
            connection.Query(statement, isEmployee ? QVariantList{StoredDay(today)} : QVariantList{});
        ExportRow row(columns.size());
        for (qsizetype done = 1; rows.Next(); ++done) {
            for (size_t i = 0; i < row.size(); ++i)
                row[i] = rows.Value(static_cast<int>(i));
            sink(row);
            if (!ShouldContinue(progress, done, 0))
                return false;
        }
        return true;
    });
}
