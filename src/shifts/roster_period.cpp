#include "shifts/roster_period.h"

#include "database/database_error.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

RosterPeriod ReadPeriod(const QString& period) {
    const bool sixDigits =
        period.size() == 6 && std::ranges::all_of(period, [](QChar c) { return c >= u'0' && c <= u'9'; });
    if (sixDigits) {
        RosterPeriod read{period.first(4), period.last(2),
                          std::chrono::year{period.first(4).toInt()}
                              / std::chrono::month{period.last(2).toUInt()}};
        if (read.value.ok())
            return read;
    }
    throw StatementError(
        u"Periode \"%1\" ditolak: ketik tahun dan bulan (01 sampai 12) dalam enam angka, misalnya "
        "202611."_s.arg(period));
}

QString PeriodOf(std::chrono::year_month month) {
    return u"%1%2"_s.arg(static_cast<int>(month.year()), 4, 10, QChar(u'0'))
        .arg(static_cast<unsigned>(month.month()), 2, 10, QChar(u'0'));
}

std::chrono::year_month MonthOf(Day day) {
    const std::chrono::year_month_day date{day};
    return date.year() / date.month();
}

QString MonthName(std::chrono::year_month month) {
    static const QStringList names{u"Januari"_s,   u"Februari"_s, u"Maret"_s,    u"April"_s,
                                   u"Mei"_s,       u"Juni"_s,     u"Juli"_s,     u"Agustus"_s,
                                   u"September"_s, u"Oktober"_s,  u"November"_s, u"Desember"_s};
    return u"%1 %2"_s.arg(names.at(static_cast<int>(static_cast<unsigned>(month.month())) - 1))
        .arg(static_cast<int>(month.year()));
}
