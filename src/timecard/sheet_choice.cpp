#include "timecard/sheet_choice.h"

#include "cards/sheet_identifier.h"

namespace {
constexpr int LastDayOfAnyMonth = 31;
}

void SheetChoice::SetSheet(Day today, const QString& sheet) {
    sheet_ = sheet;
    wasOfItsDay_ = sheet == SheetIdentifierOf(today);
    if (!sheet.contains(u'-'))
        dayText_ = TrailingDay(sheet);
}

void SheetChoice::Compose(Day today, const QString& day, const QString& extension) {
    const QString typed = day.trimmed();
    if (typed.isEmpty()) {
        dayText_ = DayPartOf(sheet_);
        return;
    }
    dayText_ = TwoDigitDay(typed);
    SetSheet(today, ComposeSheetIdentifier(MonthPartOf(today), typed, extension));
}

bool SheetChoice::NeedsSupervisor(Day today, const QString& day) const {
    return !unlocked_ && day != DayPartOf(SheetIdentifierOf(today));
}

bool SheetChoice::IsOfDay(Day today, const QString& day) const {
    return sheet_.startsWith(MonthPartOf(today) + day);
}

bool SheetChoice::IsOfToday(Day today) const {
    return sheet_.startsWith(SheetIdentifierOf(today));
}

bool SheetChoice::IsLeftOver(Day today) const {
    return wasOfItsDay_ && sheet_ != SheetIdentifierOf(today);
}

int SheetChoice::MarkedDay(Day today) const {
    return sheet_.startsWith(MonthPartOf(today)) ? DayPartOf(sheet_).toInt() : 0;
}

std::optional<QString> SheetChoice::Step(const QString& day, int days) {
    const int next = day.toInt() + days;
    if (next < 1 || next > LastDayOfAnyMonth)
        return std::nullopt;
    return TwoDigitDay(QString::number(next));
}
