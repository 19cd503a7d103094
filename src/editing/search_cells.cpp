#include "editing/search_cells.h"

#include "cards/card_store.h"
#include "compute/money.h"
#include "core/error_words.h"
#include "database/database_error.h"
#include "editing/employee_status.h"

#include <algorithm>
#include <set>

using namespace Qt::StringLiterals;
using enum SearchRow::Column;

namespace {

/// The cells of one row.
struct RowChange {
    FoundDay shown;
    int row = -1; ///< -1 when it is not shown any more
    bool takesBack = false;
    std::vector<CellChange> cells = {};
    FoundDay now = {};
};

class SearchCells {
public:
    SearchCells(Connection& connection, SearchModel& rows, const std::vector<CellChange>& changes)
        : connection_(connection), rows_(rows) {
        for (const CellChange& change : changes)
            Add(change);
    }

    CellsOutcome Write() {
        for (RowChange& row : changes_)
            Check(row);
        if (!outcome_.refused.empty())
            return outcome_;
        QStringList tcids;
        for (const RowChange& row : changes_)
            tcids << row.shown.header.tcid;
        CardStore(connection_).ChangeAll(tcids, [this](QHash<QString, TimeCard>& cards) {
            outcome_ = {};
            QHash<QString, TimeCard> changed = cards;
            for (RowChange& row : changes_)
                WriteInto(changed[row.shown.header.tcid], row);
            if (outcome_.refused.empty())
                cards = changed;
        });
        if (outcome_.refused.empty())
            ShowWritten();
        else
            ShowConflicts();
        return outcome_;
    }

private:
    void Add(const CellChange& change) {
        const int row = rows_.RowOfKey(change.rowKey);
        auto known = places_.constFind(change.rowKey);
        if (known == places_.cend()) {
            known = places_.insert(change.rowKey, changes_.size());
            FoundDay shown;
            if (row >= 0) {
                shown = rows_.FetchedRows()[static_cast<size_t>(row)];
            } else {
                shown.header.tcid = change.rowKey.section(u' ', 0, -2);
                if (const auto day = ReadStored(change.rowKey.section(u' ', -1)))
                    shown.day = CardDay{DayOf(*day)};
            }
            changes_.push_back({std::move(shown), row, change.expected.has_value()});
        }
        changes_[*known].cells.push_back(change);
    }

    void Refuse(const CellChange& change, const QString& reason) {
        outcome_.refused.push_back({change, QString(reason).replace(u'\n', u' ')});
    }

    /// What can be told before anything is read. What once stood there may come back whatever it is.
    void Check(RowChange& row) {
        for (CellChange& change : row.cells) {
            if (!IsWrittenColumn(change.column))
                Refuse(change, WhyNotWritten(change.column));
            else if (row.row >= 0 && rows_.IsEdited(row.row))
                Refuse(change, u"baris ini memuat isian yang belum disimpan (Ctrl+S)."_s);
            else if (!row.takesBack)
                CheckTyped(change);
        }
    }

    void CheckTyped(CellChange& change) {
        const QString typed = change.text.trimmed();
        if (change.column == Status) {
            const auto listed = typed.contains(u'\'') ? std::nullopt : ListedStatus(connection_, typed);
            change.text = listed.value_or(typed);
            if (!listed)
                Refuse(change, u"kode %1 tidak ada dalam daftar status."_s.arg(typed));
        } else if (change.column >= NormalHours) {
            const QStringView unread = UnreadPart(typed);
            if (std::ranges::any_of(unread, [](QChar c) { return c.isDigit(); }))
                Refuse(change,
                       u"%1 bukan angka. Tulis pecahan dengan titik, dan ribuan tanpa tanda."_s.arg(typed));
        }
    }

    void WriteInto(TimeCard& card, RowChange& row) {
        const std::optional<CardDay>& day = row.shown.day;
        FoundDay base = row.takesBack ? AsFound(card, day) : row.shown;
        QStringList elements = SearchRowElements(base);
        for (const CellChange& change : row.cells) {
            QString& element = elements[change.column - 1];
            if (row.takesBack && (!card.header || !base.day || element != *change.expected))
                Refuse(change, u"sekarang berisi \"%1\"."_s.arg(element));
            element = row.takesBack ? change.text : EnteredText(elements, change.column, change.text);
        }
        try {
            const QString& nip = elements[Nip - 1];
            if (nip != base.header.nip)
                RequireEmployee(connection_, nip);
            const QStringList reversed = row.takesBack ? QStringList() : ReversedTimes(base, elements);
            if (!reversed.isEmpty())
                Refuse(row.cells.front(), reversed.join(u' '));
            WriteRow(card, base, elements, row.takesBack ? EmptyElements::Clear : EmptyElements::LeaveStored);
        } catch (const ConflictError& error) {
            conflicts_.insert(row.row);
            Refuse(row.cells.front(), UserText(error));
        } catch (const DatabaseError&) {
            throw;
        } catch (const ProgramError& error) {
            Refuse(row.cells.front(), UserText(error));
        }
        const auto written = DayOfRow(elements);
        row.now = AsFound(card, written ? CardDay{*written} : CardDay{});
        row.shown = std::move(base);
    }

    void ShowWritten() {
        for (RowChange& row : changes_) {
            const auto takeBack = TakeBackOf(row.shown, row.now);
            outcome_.takeBack.insert(outcome_.takeBack.end(), takeBack.cbegin(), takeBack.cend());
            if (row.row < 0)
                continue;
            const FoundDay& before = rows_.FetchedRows()[static_cast<size_t>(row.row)];
            const bool sameEmployee = before.header.nip == row.now.header.nip;
            row.now.nama = before.nama;
            row.now.dept = before.dept;
            row.now.divisi = before.divisi;
            rows_.ShowRow(row.row, row.now);
            if (!sameEmployee)
                rows_.LoadRow(row.row);
        }
    }

    /// What another desk stored is seen beside the message that says so.
    void ShowConflicts() {
        for (const int row : conflicts_) {
            if (row >= 0)
                rows_.LoadRow(row);
        }
    }

    Connection& connection_;
    SearchModel& rows_;
    std::vector<RowChange> changes_;
    QHash<QString, size_t> places_; ///< in changes_, by the row's key
    std::set<int> conflicts_;
    CellsOutcome outcome_;
};

} // namespace

CellsOutcome WriteSearchCells(Connection& connection, SearchModel& rows,
                              const std::vector<CellChange>& changes) {
    return SearchCells(connection, rows, changes).Write();
}
