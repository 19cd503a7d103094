#include "exchange/exact_sum.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

constexpr int GroupDigits = 9;
constexpr qint64 GroupSize = 1'000'000'000;

/// The digits as a number; those that lack behind them are zeros.
qint64 NumberOf(QStringView digits, qsizetype length) {
    qint64 number = 0;
    for (qsizetype i = 0; i < length; ++i)
        number = number * 10 + (i < digits.size() ? digits[i].unicode() - u'0' : 0);
    return number;
}

/// Leaves from 0 to GroupSize - 1 in every group but the highest, whose sign is that of the whole.
void Carry(std::map<int, qint64>& groups) {
    for (auto at = groups.begin(); at != groups.end(); ++at) {
        const qint64 carry = at->second / GroupSize - (at->second % GroupSize < 0 ? 1 : 0);
        if (carry == 0 || (carry == -1 && std::next(at) == groups.end()))
            continue;
        at->second -= carry * GroupSize;
        groups[at->first + 1] += carry;
    }
}

} // namespace

void ExactSum::Add(QStringView digits) {
    const bool negative = digits.startsWith(u'-');
    if (negative)
        digits = digits.sliced(1);
    const qsizetype point = digits.indexOf(u'.');
    QStringView whole = point < 0 ? digits : digits.first(point);
    QStringView decimals = point < 0 ? QStringView() : digits.sliced(point + 1);
    const qint64 sign = negative ? -1 : 1;
    for (int group = 0; !whole.isEmpty(); ++group) {
        const QStringView last = whole.last(std::min<qsizetype>(GroupDigits, whole.size()));
        groups_[group] += sign * NumberOf(last, last.size());
        whole.chop(last.size());
    }
    for (int group = -1; !decimals.isEmpty(); --group) {
        const QStringView first = decimals.first(std::min<qsizetype>(GroupDigits, decimals.size()));
        groups_[group] += sign * NumberOf(first, GroupDigits);
        decimals = decimals.sliced(first.size());
    }
}

QString ExactSum::Text() const {
    std::map<int, qint64> groups = groups_;
    groups.try_emplace(0, 0);
    Carry(groups);
    const bool negative = groups.rbegin()->second < 0;
    if (negative) {
        for (auto& [place, group] : groups)
            group = -group;
        Carry(groups);
    }
    QString text;
    for (int place = groups.rbegin()->first; place >= groups.begin()->first; --place) {
        text += place == -1 ? u"."_s : QString();
        text += QString::number(groups[place]).rightJustified(GroupDigits, u'0');
    }
    while (text.contains(u'.') && (text.endsWith(u'0') || text.endsWith(u'.')))
        text.chop(1);
    while (text.size() > 1 && text.startsWith(u'0') && text[1] != u'.')
        text.remove(0, 1);
    return negative ? u'-' + text : text;
}
