#include "ui/moment_box.h"

#include "core/typed_date.h"

using namespace Qt::StringLiterals;

namespace {

/// Where the time begins in what is shown.
constexpr int TimeStart = 12;

} // namespace

MomentBox::MomentBox(QWidget* parent) : DateBox(u"00-MMM-0000 00:00"_s, parent) {
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setToolTip(
        u"Ketik jamnya, misalnya 17:30 atau 1730; bila harinya lain, hari lebih dulu: 31/1/2026 17:30, +1 "
        "6:00."_s);
}

std::optional<WallTime> MomentBox::Read(const QString& typed) const {
    const auto read = ReadAsShown(typed);
    if (!read || !arrival_ || DayOf(*read) != DayOf(Value()))
        return read;
    return TypedTime{TimeOfDay(*read)}.On(DayOf(*read), arrival_());
}

std::optional<WallTime> MomentBox::ReadAsShown(const QString& typed) const {
    const auto read = ReadTypedMoment(typed, Value(), Today());
    if (!read)
        return read;
    const Seconds time = TimeOfDay(*read);
    const Seconds set = TimeOfDay(LastSet());
    return TimeOnDay(DayOf(*read), time == std::chrono::floor<std::chrono::minutes>(set) ? set : time);
}

QString MomentBox::Shown(WallTime value) const {
    return ShownDay(DayOf(value)) + u' ' + ShownMinute(value);
}

void MomentBox::SelectPart() {
    setSelection(TimeStart, static_cast<int>(text().size()) - TimeStart);
}

std::optional<WallTime> MomentBox::Stepped(int by) const {
    return cursorPosition() < TimeStart ? DateBox::Stepped(by)
                                        : ReadAsShown(Shown(Value() + std::chrono::hours{by}));
}
