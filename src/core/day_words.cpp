#include "core/day_words.h"

using namespace Qt::StringLiterals;

QString DayInWords(Day day) {
    static const QStringList days{u"Senin"_s, u"Selasa"_s, u"Rabu"_s,  u"Kamis"_s,
                                  u"Jumat"_s, u"Sabtu"_s,  u"Minggu"_s};
    static const QStringList months{u"Januari"_s,   u"Februari"_s, u"Maret"_s,    u"April"_s,
                                    u"Mei"_s,       u"Juni"_s,     u"Juli"_s,     u"Agustus"_s,
                                    u"September"_s, u"Oktober"_s,  u"November"_s, u"Desember"_s};
    const QDate date = ToQDate(day);
    return u"%1, %2 %3 %4"_s.arg(days[date.dayOfWeek() - 1])
        .arg(date.day())
        .arg(months[date.month() - 1])
        .arg(date.year());
}
