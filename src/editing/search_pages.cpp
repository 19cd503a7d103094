#include "editing/search_pages.h"

using namespace Qt::StringLiterals;
using enum SearchRow::Column;

namespace {
constexpr int Growth = 4;
constexpr int LargestPage = 20'000;
} // namespace

/// The order of the cards costs nothing, since it is that of their key; asking for the days' order as well
/// would make the engine read and sort the whole result for every page.
QString SearchPages::Statement(int limit) const {
    QString statement = u"Select * from qry_TimeCardAll  "_s + clause_;
    if (!lastCard_.isNull())
        statement += (clause_.isEmpty() ? u" Where "_s : u" and "_s) + u"TCID>?"_s;
    return statement + u" ORDER BY TCID LIMIT %1"_s.arg(limit);
}

std::vector<SearchRow> SearchPages::Read(Connection& connection, int limit) {
    Cursor rows =
        connection.Query(Statement(limit), lastCard_.isNull() ? QVariantList{} : QVariantList{lastCard_});
    std::vector<SearchRow> page;
    const ValueOfColumn value = [&rows](SearchRow::Column column) { return rows.Value(column - 1); };
    while (rows.Next()) {
        SearchRow& row = page.emplace_back();
        row.tcid = rows.Text(Tcid - 1);
        TakeHeader(row, value);
        TakeDay(row, value);
        TakeEmployee(row, value);
        for (QString* text : {&row.status, &row.nip, &row.nama, &row.dept, &row.divisi})
            *text = Shared(*text);
    }
    return page;
}

std::vector<SearchRow> SearchPages::Next(Connection& connection) {
    std::vector<SearchRow> page;
    for (int limit = pageSize_;; limit *= 2) {
        page = Read(connection, limit);
        if (page.size() < static_cast<size_t>(limit)) {
            atEnd_ = true;
            return page;
        }
        // The last card may have more days after the page's end: it is read again with the next page.
        const QString cut = page.back().tcid;
        while (!page.empty() && page.back().tcid == cut)
            page.pop_back();
        if (!page.empty())
            break;
    }
    lastCard_ = page.back().tcid;
    pageSize_ = qMin(pageSize_ * Growth, LargestPage);
    return page;
}

QStringList SearchPages::Tcids(Connection& connection) const {
    Cursor rows = connection.Query(u"Select TCID from qry_TimeCardAll  "_s + clause_);
    QStringList tcids;
    while (rows.Next())
        tcids << rows.Text(0);
    return tcids;
}
