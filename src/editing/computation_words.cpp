#include "editing/computation_words.h"

#include "core/error_words.h"

using namespace Qt::StringLiterals;

QString NoDataText(const modAbsen::CardNotComputed& card) {
    return u"No Data found TCID="_s + card.tcid;
}

QString NotComputedText(const modAbsen::ComputationReport& report) {
    constexpr size_t MostNamed = 15;
    QStringList lines{u"%1 kartu tidak dapat dihitung:"_s.arg(report.notComputed.size())};
    for (size_t i = 0; i < std::min(MostNamed, report.notComputed.size()); ++i) {
        const modAbsen::CardNotComputed& card = report.notComputed[i];
        lines << (card.reason ? card.tcid + u": "_s + UserText(*card.reason) : NoDataText(card));
    }
    if (report.notComputed.size() > MostNamed)
        lines << u"... dan %1 kartu lagi."_s.arg(report.notComputed.size() - MostNamed);
    return lines.join(u'\n');
}
