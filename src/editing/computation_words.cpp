#include "editing/computation_words.h"

#include "core/error_words.h"
#include "core/first_lines.h"

using namespace Qt::StringLiterals;

namespace {

/// The cards of a list under its heading, the first ones in full.
template<class Cards, class TextOf>
void Name(QStringList& lines, const QString& heading, const Cards& cards, TextOf textOf) {
    if (!cards.empty())
        lines << heading.arg(cards.size()) << FirstLines(cards, u"kartu"_s, textOf);
}

} // namespace

QString NoDataText(const modAbsen::CardNotComputed& card) {
    return u"No Data found TCID="_s + card.tcid;
}

QString ComplaintsText(const modAbsen::ComputationReport& report) {
    QStringList lines;
    Name(lines, u"%1 kartu tidak dapat dihitung:"_s, report.notComputed, [](const auto& card) {
        return card.reason ? card.tcid + u": "_s + UserText(card.reason) : NoDataText(card);
    });
    Name(lines, u"%1 kartu dihitung dengan shift yang tidak dikenal; periksa jamnya:"_s, report.unknownShifts,
         [](const auto& card) {
             return u"%1: shift %2 tidak ada di Master Shift Code"_s.arg(card.tcid, card.shiftCode);
         });
    return lines.join(u'\n');
}
