#include "shifts/known_shifts.h"

#include "core/code_lists.h"
#include "core/status_codes.h"
#include "database/database_error.h"
#include "shifts/shift_time.h"

using namespace Qt::StringLiterals;

namespace {
constexpr int BadCodeNumber = 13;
} // namespace

void KnownShifts::Read(Connection& connection) {
    QStringList codes;
    QHash<QString, QString> hours;
    for (const auto& [code, start, end] : CodeLists::Shifts(connection)) {
        codes << code;
        hours[code] = start && end && *start != *end ? u"%1 - %2"_s.arg(ShownShiftTime(*start, DayOf(*start)),
                                                                        ShownShiftTime(*end, DayOf(*start)))
                                                     : QString();
    }
    codes_ = std::move(codes);
    hours_ = std::move(hours);
}

QString KnownShifts::CodeTyped(const QString& typed) const {
    const QString code = typed.trimmed();
    if (code.contains(u'\''))
        throw ProgramError(BadCodeNumber,
                           u"Kode shift \"%1\" tidak disimpan: tanda kutip (') tidak boleh ada dalam kode. "
                           "Ketik kode lain, atau pilih dengan F9."_s.arg(code));
    if (Has(code))
        return code;
    for (const QString& known : codes_) {
        if (known.compare(code, Qt::CaseInsensitive) == 0)
            return known;
    }
    for (const QStringView known : {ShiftCode::Default, ShiftCode::DayOff}) {
        if (known.compare(code, Qt::CaseInsensitive) == 0)
            return known.toString();
    }
    return code;
}
