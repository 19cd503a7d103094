#include "company/code_table.h"

#include "cards/card_store.h"
#include "core/query_values.h"
#include "core/status_codes.h"
#include "database/statement.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int RefusedNumber = 90032;

struct TableOfKind {
    QStringView name; ///< on screens
    QStringView table;
    QStringView code;
    QStringView text;
    QStringView order;
    QStringView employeeColumn; ///< empty for codes that stand on cards
};
constexpr TableOfKind Tables[] = {
    {u"Departemen", u"Departments", u"DeptCode", u"DeptName", u"DeptCode", u"Dept"},
    {u"Divisi", u"Division", u"DivKode", u"DivName", u"DivKode", u"Divisi"},
    {u"Status absensi", u"[Employee Status]", u"Status", u"Description", u"ID, Status", {}},
    {u"Tipe absen", u"AbsenTipe", u"Kode", u"Keterangan", u"Kode", {}},
};

const TableOfKind& TableOf(CodeKind kind) {
    return Tables[static_cast<size_t>(kind)];
}

/// The statuses that the program itself writes or computes by.
constexpr QStringView OwnStatuses[] = {CardStatus::In, CardStatus::Out, CardStatus::OutShort,
                                       CardStatus::LeftEarly, CardStatus::Absent};

} // namespace

QString CodeKindName(CodeKind kind) {
    return TableOf(kind).name.toString();
}

std::vector<CodeName> CodeTable::ReadAll() const {
    const TableOfKind& table = TableOf(kind_);
    return connection_
        .Query(u"select %1, %2 from %3 order by %4"_s.arg(table.code, table.text, table.table, table.order))
        .All([](const Cursor& row) {
            return CodeName{row.Text(0), row.Text(1)};
        });
}

int CodeTable::UseOf(const QString& code) const {
    const QStringView column = TableOf(kind_).employeeColumn;
    if (column.isEmpty())
        return CardStore(connection_).CountCardsOfStatus(code);
    Cursor rows = connection_.Query(u"select count(1) from Employee where %1=?"_s.arg(column), {code});
    return rows.Next() ? static_cast<int>(rows.Value(0).Number()) : 0;
}

QString CodeTable::UseText(int rows) const {
    return (TableOf(kind_).employeeColumn.isEmpty() ? u"%1 kartu absen"_s : u"%1 karyawan"_s).arg(rows);
}

void CodeTable::Add(const std::vector<CodeName>& codes) const {
    const TableOfKind& table = TableOf(kind_);
    connection_.InTransaction([&] {
        QList<QVariantList> rows;
        for (const auto& [code, name] : codes) {
            CheckNew(code);
            rows << QVariantList{code, name};
        }
        connection_.ExecuteMany(
            u"insert into %1 (%2, %3) values (?,?)"_s.arg(table.table, table.code, table.text), rows);
        if (kind_ != CodeKind::Status)
            return;
        for (QVariantList& row : rows)
            row.removeLast();
        connection_.ExecuteMany(u"update [Employee Status] set ID=1+(select coalesce(max(ID),0) from "
                                "[Employee Status]) where Status=?"_s,
                                rows);
    });
}

void CodeTable::ChangeName(const CodeName& shown, const QString& name) const {
    const TableOfKind& table = TableOf(kind_);
    const int changed = connection_.Execute(
        u"update %1 set %2=? where %3=? and coalesce(%2,'')=?"_s.arg(table.table, table.text, table.code),
        {name, shown.code, shown.name.isNull() ? u""_s : shown.name});
    if (changed == 0)
        throw ConflictError(table.name.toString());
}

void CodeTable::Rename(const QString& code, const QString& to, CarryAlong carry) const {
    connection_.InTransaction([&] {
        CheckNotOwn(code);
        CheckNew(to, code);
        const TableOfKind& table = TableOf(kind_);
        if (connection_.Execute(u"update %1 set %2=? where %2=?"_s.arg(table.table, table.code), {to, code})
            == 0)
            throw ConflictError(table.name.toString());
        if (carry == CarryAlong::Yes)
            RenameUses(code, to);
    });
}

void CodeTable::RenameUses(const QString& code, const QString& to) const {
    const TableOfKind& table = TableOf(kind_);
    if (!table.employeeColumn.isEmpty()) {
        connection_.Execute(u"update Employee set %1=? where %1=?"_s.arg(table.employeeColumn), {to, code});
        return;
    }
    CardStore(connection_).RenameStatus(code, to);
    const TableOfKind& other = TableOf(kind_ == CodeKind::Status ? CodeKind::AbsenceType : CodeKind::Status);
    connection_.Execute(u"update %1 set %2=? where %2=? and not exists (select %2 from %1 where %2=?)"_s.arg(
                            other.table, other.code),
                        {to, code, to});
}

void CodeTable::Remove(const QString& code) const {
    CheckNotOwn(code);
    const TableOfKind& table = TableOf(kind_);
    if (connection_.Execute(u"delete from %1 where %2=?"_s.arg(table.table, table.code), {code}) == 0)
        throw ConflictError(table.name.toString());
}

void CodeTable::CheckNew(const QString& code, const QString& instead) const {
    if (code.isEmpty() || code != code.trimmed())
        throw ProgramError(RefusedNumber, u"Kode harus diisi."_s);
    Quoted(code); // a code that no statement can name would never be found again
    for (const CodeName& known : ReadAll()) {
        if (known.code != instead && known.code.compare(code, Qt::CaseInsensitive) == 0)
            throw ProgramError(RefusedNumber, u"Kode %1 sudah ada sebagai %2 (%3). Pilih kode lain."_s.arg(
                                                  code, known.code, known.name));
    }
}

void CodeTable::CheckNotOwn(const QString& code) const {
    if (kind_ == CodeKind::Status && std::ranges::count(OwnStatuses, code) > 0)
        throw ProgramError(RefusedNumber, u"Status %1 dipakai oleh program sendiri, jadi kodenya tidak dapat "
                                          "diganti atau dihapus. Keterangannya boleh diubah."_s.arg(code));
}
