#include "company/employee_import.h"

using namespace Qt::StringLiterals;

namespace {

using enum ImportProblem;

/// "%1" is the field, "%2" the value, "%3" the detail.
struct Words {
    ImportProblem problem;
    QStringView english;
    QStringView user;
};

constexpr Words AllWords[] = {
    {NoNumberColumn, u"no column is NIP", u"tidak ada kolom NIK"},
    {TwoColumns, u"two columns are %1", u"ada dua kolom %1"},
    {MoreCells, u"more cells than headings, from \"%2\" on",
     u"isinya lebih banyak dari judul kolom, mulai \"%2\""},
    {NoNumber, u"NIP is empty", u"NIK kosong"},
    {BadNumber, u"NIP \"%2\" holds a sign that a number must not hold",
     u"NIK \"%2\" berisi tanda yang tidak boleh dipakai"},
    {Twice, u"NIP \"%2\" stands on line %3 already", u"NIK \"%2\" sudah ada di baris %3"},
    {OtherCase, u"NIP \"%2\" differs from the employee \"%3\" in letter case only",
     u"NIK \"%2\" hanya berbeda huruf besar/kecil dari karyawan \"%3\""},
    {LostZeros, u"NIP \"%2\" differs from the employee \"%3\" in zeros in front only",
     u"NIK \"%2\" hanya berbeda nol di depan dari karyawan \"%3\"; nol itu hilang bila kolomnya bukan teks"},
    {NotANumber, u"%1 \"%2\" is not a number", u"%1 \"%2\" bukan angka"},
    {NumberInDoubt, u"%1 \"%2\" can be read in two ways: say how the file writes numbers",
     u"%1 \"%2\" dapat dibaca dengan dua cara: pilih cara menulis angka"},
    {BelowZero, u"%1 \"%2\" is below zero", u"%1 \"%2\" kurang dari nol"},
    {TooLarge, u"%1 \"%2\" is too large", u"%1 \"%2\" terlalu besar"},
    {NotADate, u"%1 \"%2\" is not a date", u"%1 \"%2\" bukan tanggal"},
    {DateInDoubt, u"%1 \"%2\" can be read in two ways: say how the file writes dates",
     u"%1 \"%2\" dapat dibaca dengan dua cara: pilih cara menulis tanggal"},
    {BadType, u"EmpType \"%2\" is neither HRN nor BLN", u"EmpType \"%2\" bukan HRN atau BLN"},
    {UnknownDept, u"unknown department \"%2\"", u"departemen \"%2\" tidak ada"},
    {UnknownDivisi, u"unknown division \"%2\"", u"divisi \"%2\" tidak ada"},
    {BadCode, u"%1 \"%2\" holds a sign that a code must not hold",
     u"%1 \"%2\" berisi tanda yang tidak boleh dipakai"},
    {LeftBeforeComing, u"Keluar \"%2\" is before Masuk", u"Keluar \"%2\" mendahului Masuk"},
    {LaterPay,
     u"pay of \"%2\": other pay is set from %3 on already; the change must count from that day or later",
     u"gaji \"%2\": gaji lain sudah ditetapkan mulai %3; perubahan ini harus berlaku mulai hari itu atau "
     u"sesudahnya"},
};

consteval bool EveryProblemHasItsWords() {
    int next = 0;
    for (const Words& words : AllWords) {
        if (static_cast<int>(words.problem) != next++)
            return false;
    }
    return next == static_cast<int>(LaterPay) + 1;
}
static_assert(EveryProblemHasItsWords());

QString Filled(QStringView text, const ImportFinding& finding, const QString& field) {
    const QStringList values{field, finding.value, finding.detail};
    const QList<QStringView> pieces = text.split(u'%');
    QString filled = pieces.front().toString();
    for (const QStringView piece : pieces.sliced(1))
        filled.append(values[piece.front().digitValue() - 1]).append(piece.sliced(1));
    return filled;
}

} // namespace

QString EnglishText(const ImportFinding& finding) {
    return u"line %1: "_s.arg(finding.line)
           + Filled(AllWords[static_cast<size_t>(finding.problem)].english, finding,
                    EmployeeFieldName(finding.field));
}

QString UserText(const ImportFinding& finding) {
    const QString field = finding.field == EmployeeField::Nip ? u"NIK"_s : EmployeeFieldName(finding.field);
    return u"Baris %1: "_s.arg(finding.line)
           + Filled(AllWords[static_cast<size_t>(finding.problem)].user, finding, field) + u'.';
}
