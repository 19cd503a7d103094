#include "editing/grid_row.h"

#include "compute/money.h"
#include "database/database_error.h"
#include "database/recordset.h"
#include "database/statement.h"
#include "timecard/sheet_identifier.h"

using namespace Qt::StringLiterals;
using enum SearchRow::Column;

namespace {

constexpr qsizetype TooFewElements = 6;
constexpr int NoTimeNumber = 13;
constexpr int UnknownEmployeeNumber = 3201;

ValueOfColumn ValuesOf(const Cursor& rows) {
    return [&rows](SearchRow::Column column) { return rows.Value(rows.ColumnOf(SearchColumnName(column))); };
}

ValueOfColumn ValuesOf(const Recordset& recordset) {
    return [&recordset](SearchRow::Column column) { return recordset.Field(SearchColumnName(column)); };
}

FieldValue NoValue(SearchRow::Column) {
    return {};
}

/// Name, department and division of the row's employee; false when there is no such employee.
bool ReadEmployee(Connection& connection, SearchRow& row) {
    Cursor rows = connection.Query(u"select Nama, Dept, Divisi from Employee where NIP="_s + Quoted(row.nip));
    const bool found = rows.Next();
    TakeEmployee(row, found ? ValuesOf(rows) : NoValue);
    return found;
}

/// The stored card and day that a row of the grid shows.
class StoredRow {
public:
    StoredRow(Connection& connection, const SearchRow& shown)
        : shown_(shown),
          header_(connection, u"select * from TimeCardHeader Where TCID="_s + Quoted(shown.tcid)),
          day_(connection, u"select * from TimeCardDetail Where TCID="_s + Quoted(shown.tcid)) {
        // A card may have several days, of which the row shows one.
        while (!day_.AtEnd() && shown.tanggal && day_.Field(u"Tanggal"_s).Time() != shown.tanggal)
            day_.MoveNext();
    }

    /// A header that is gone is written anew, whole: there is nothing of it that could be lost.
    void RequireUnchanged() const {
        SearchRow stored = shown_;
        if (!header_.AtEnd())
            TakeHeader(stored, ValuesOf(header_));
        TakeDay(stored, day_.AtEnd() ? NoValue : ValuesOf(day_));
        if (stored != shown_)
            throw ConflictError(u"TimeCardDetail"_s);
    }

    void Write(const QStringList& elements) {
        elements_ = elements;
        WriteHeader();
        WriteDay();
    }

private:
    const QString& Element(SearchRow::Column column) const { return elements_[column - 1]; }

    bool IsTyped(SearchRow::Column column) const { return Element(column) != SearchCellText(shown_, column); }

    void WriteHeader() {
        if (header_.AtEnd())
            header_.AddNew();
        header_.Set(u"TCID"_s, shown_.tcid);
        header_.Set(u"NIP"_s, Element(Nip));
        for (const SearchRow::Column column : {NormalHours, OtHours, NormalAmount, OtAmount}) {
            const QString field = SearchColumnName(column);
            if (IsTyped(column) || header_.Field(field).IsNull())
                header_.Set(field, Money::FromText(Element(column)).Field());
        }
        for (const SearchRow::Column column : {Status, Keterangan}) {
            const QString field = SearchColumnName(column);
            if (!Element(column).isEmpty() || !header_.Field(field).IsNull())
                header_.Set(field, Element(column));
        }
        header_.Update();
    }

    void WriteDay() {
        if (day_.AtEnd())
            day_.AddNew();
        const Day day = TypedDay();
        day_.Set(u"TCID"_s, shown_.tcid);
        day_.Set(u"Tanggal"_s, day);
        for (const SearchRow::Column column : {TimeIn, TimeOut, TimeInOt, TimeOutOt}) {
            if (!Element(column).isEmpty() && IsTyped(column))
                day_.Set(SearchColumnName(column), TypedTime(column, day));
        }
        day_.Set(u"BeriUangMakan"_s, Element(BeriUangMakan) == u"True"_s);
        day_.Update();
    }

    Day TypedDay() const {
        // A row whose day was deleted shows none: the card's identifier tells it.
        const std::optional<Day> day =
            Element(Tanggal).isEmpty() ? DayOfIdentifier(shown_.tcid) : ReadDayCell(Element(Tanggal));
        if (!day)
            throw ProgramError(
                NoTimeNumber,
                u"Tanggal \"%1\" tidak dapat dibaca. Tulis seperti 22-Nov-2026 atau 2026-11-22.\n"
                "Baris belum disimpan."_s.arg(Element(Tanggal)));
        return *day;
    }

    WallTime TypedTime(SearchRow::Column column, Day day) const {
        const std::optional<WallTime> time = ReadTimeCell(Element(column), day);
        if (!time)
            throw ProgramError(
                NoTimeNumber,
                u"%1: \"%2\" bukan jam. Tulis seperti 07:45, atau dengan tanggal seperti "
                "22-Nov-2026 07:45.\nBaris belum disimpan."_s.arg(SearchColumnName(column), Element(column)));
        return *time;
    }

    const SearchRow& shown_;
    Recordset header_;
    Recordset day_;
    QStringList elements_;
};

void RequireEmployee(Connection& connection, const QString& nip) {
    SearchRow row;
    row.nip = nip;
    if (!ReadEmployee(connection, row))
        throw ProgramError(UnknownEmployeeNumber,
                           u"NIP \"%1\" tidak ada dalam data karyawan.\nBaris belum disimpan."_s.arg(nip));
}

} // namespace

bool LoadRowFromDb(Connection& connection, SearchRow& row) {
    SearchRow read;
    read.tcid = row.tcid;
    Cursor days = connection.Query(u"sp_TimeCardDetail "_s + Quoted(row.tcid));
    while (days.Next()) {
        SearchRow day;
        TakeDay(day, ValuesOf(days));
        if (!read.tanggal || day.tanggal == row.tanggal)
            TakeDay(read, ValuesOf(days));
    }
    Cursor header = connection.Query(u"sp_sel_TimeCard "_s + Quoted(row.tcid));
    if (!header.Next())
        return false;
    TakeHeader(read, ValuesOf(header));
    ReadEmployee(connection, read);
    row = read;
    return true;
}

bool SaveGridRow(Connection& connection, const SearchRow& shown, const QStringList& elements) {
    if (elements.size() <= TooFewElements)
        return false;
    Transaction transaction(connection);
    StoredRow stored(connection, shown);
    stored.RequireUnchanged();
    RequireEmployee(connection, elements[Nip - 1]);
    stored.Write(elements);
    transaction.Commit();
    return true;
}

void DeleteRowsDay(Connection& connection, const SearchRow& shown) {
    if (shown.tcid.isEmpty() || !shown.tanggal)
        return;
    Transaction transaction(connection);
    StoredRow(connection, shown).RequireUnchanged();
    connection.Execute(u"Delete from [TimeCardDetail] where TCID="_s + Quoted(shown.tcid) + u" and Tanggal="_s
                       + Quoted(StoredDay(*shown.tanggal)));
    transaction.Commit();
}
