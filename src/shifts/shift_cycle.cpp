#include "shifts/shift_cycle.h"

#include "core/status_codes.h"
#include "database/database_error.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

constexpr int BadCycleNumber = 14;

[[noreturn]] void Refuse(const QString& why) {
    throw ProgramError(BadCycleNumber, why);
}

/// A word's code, empty where it is that of the word before, and how many days it stays.
struct Word {
    QString code;
    int days = 1;
};

Word ReadWord(const QString& word, qsizetype place, const KnownShifts& shifts) {
    static const QRegularExpression repeated(u"^(.*)[xX×*](\\d+)$"_s);
    if (word.contains(u'\''))
        Refuse(u"Siklus, tempat ke-%1: kode \"%2\" mengandung tanda kutip ('). Ketik kode lain."_s.arg(place)
                   .arg(word));
    const QString code = shifts.CodeTyped(word);
    const auto match = repeated.match(word);
    if (shifts.Has(code) || !match.hasMatch())
        return {code};
    bool isNumber = false;
    const int days = match.captured(2).toInt(&isNumber);
    if (!isNumber || days < 1 || days > LongestCycle)
        Refuse(u"Siklus, tempat ke-%1: \"%2\" harus mengulang 1 sampai %3 hari."_s.arg(place).arg(word).arg(
            LongestCycle));
    return {match.captured(1).isEmpty() ? QString() : shifts.CodeTyped(match.captured(1)), days};
}

} // namespace

const QString& ShiftCycle::On(qsizetype day) const {
    const qsizetype length = codes.size();
    return codes.at((day % length + length) % length);
}

QStringList ShiftCycle::Unlisted(const KnownShifts& shifts) const {
    QStringList unlisted;
    for (const QString& code : codes) {
        if (!shifts.Has(code) && code != ShiftCode::DayOff && !unlisted.contains(code))
            unlisted << code;
    }
    return unlisted;
}

ShiftCycle ReadShiftCycle(const QString& typed, const KnownShifts& shifts) {
    static const QRegularExpression between(u"[\\s,;]+"_s);
    ShiftCycle cycle;
    qsizetype place = 0;
    bool repeats = true; // whether the code before has its number of days already
    for (const QString& text : typed.split(between, Qt::SkipEmptyParts)) {
        const Word word = ReadWord(text, ++place, shifts);
        const bool again = word.code.isEmpty();
        if (again && repeats)
            Refuse(u"Siklus, tempat ke-%1: tidak ada kode yang diulang oleh \"%2\". Ketik kodenya dulu, "
                   "misalnya PAGI %2."_s.arg(place)
                       .arg(text));
        repeats = again || word.days > 1;
        cycle.codes << QStringList(word.days - (again ? 1 : 0), again ? cycle.codes.last() : word.code);
        if (cycle.codes.size() > LongestCycle)
            Refuse(
                u"Siklus, tempat ke-%1: lebih dari %2 hari. Ketik siklus yang lebih pendek."_s.arg(place).arg(
                    LongestCycle));
    }
    if (cycle.codes.isEmpty())
        Refuse(u"Siklus masih kosong: ketik satu kode untuk setiap hari, misalnya P P P P P P O."_s);
    return cycle;
}
