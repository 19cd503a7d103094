#include "company/employee_file.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

/// The headings of a field: small letters and digits, what else stands in a heading left out. The first one
/// is the field's own name.
struct Headings {
    EmployeeField field;
    QStringView name;
    QStringView others;
};

constexpr Headings AllHeadings[] = {
    {EmployeeField::Nip, u"NIP", u"nik nonip nonik nomor noinduk nomorinduk nokaryawan nomorkaryawan"},
    {EmployeeField::Nama, u"Nama", u"name namakaryawan namalengkap"},
    {EmployeeField::Dept, u"Dept", u"departemen department kodedept kodedepartemen deptcode"},
    {EmployeeField::Divisi, u"Divisi", u"division kodedivisi divkode"},
    {EmployeeField::PathImage, u"PathImage", u"foto photo"},
    {EmployeeField::EmpType, u"EmpType", u"tipe tipekaryawan tipegaji jenisgaji"},
    {EmployeeField::GP, u"GP", u"gaji gajipokok upah upahpokok"},
    {EmployeeField::RateOT, u"RateOT", u"ratelembur tariflembur upahlembur lembur"},
    {EmployeeField::TMakan, u"TMakan", u"uangmakan tunjanganmakan"},
    {EmployeeField::Sc, u"sc", u""},
    {EmployeeField::Masuk, u"Masuk", u"tglmasuk tanggalmasuk mulaikerja"},
    {EmployeeField::Keluar, u"Keluar", u"tglkeluar tanggalkeluar berhenti"},
    {EmployeeField::IdMesin, u"IdMesin", u"nomesin nomormesin idabsen"},
    {EmployeeField::Password, u"Password", u"sandi katasandi"},
};
static_assert(std::size(AllHeadings) == EmployeeFieldCount - 1);

EmployeeField FieldOf(const QString& heading) {
    QString plain;
    for (const QChar c : heading.toLower()) {
        if (c.isLetterOrNumber())
            plain += c;
    }
    for (const auto& [field, name, others] : AllHeadings) {
        if (name.compare(plain, Qt::CaseInsensitive) == 0
            || others.tokenize(u' ').toContainer().contains(plain))
            return field;
    }
    return EmployeeField::None;
}

} // namespace

QString EmployeeFieldName(EmployeeField field) {
    const auto found = std::ranges::find(AllHeadings, field, &Headings::field);
    return found == std::end(AllHeadings) ? QString() : found->name.toString();
}

EmployeeFile ReadEmployeeFile(const QString& path) {
    EmployeeFile file{path, {}, {}, {}};
    bool headed = false;
    file.form = ReadCsv(path, [&](const CsvRow& row) {
        if (headed)
            file.rows.push_back(row);
        else
            file.headings = row.cells;
        headed = true;
        return true;
    });
    return file;
}

std::vector<EmployeeField> MatchHeadings(const QStringList& headings) {
    std::vector<EmployeeField> fields;
    std::ranges::transform(headings, std::back_inserter(fields), FieldOf);
    return fields;
}
