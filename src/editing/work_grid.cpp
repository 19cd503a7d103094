#include "editing/work_grid.h"

#include "cards/sheet_identifier.h"

#include <map>

using namespace Qt::StringLiterals;

namespace {

constexpr int DaysOfAMonth = 31;
constexpr int FirstDayColumn = 3;
constexpr int KeyWidth = 8;
constexpr int NameWidth = 20;
constexpr int LeastDayWidth = 3;

/// The day that a card stands for; the one it was filed under when its identifier names none.
std::optional<Day> SheetDayOf(const FoundDay& row) {
    const std::optional<Day> day = DayOfIdentifier(row.header.tcid);
    return day || !row.day ? day : std::optional(row.day->tanggal);
}

int DayOfMonth(Day day) {
    return static_cast<int>(static_cast<unsigned>(std::chrono::year_month_day{day}.day()));
}

/// "Mar-2006"
QString ShownMonth(Day day) {
    return ShownDay(day).sliced(3);
}

/// Hands out each card once, with its day, also when it has several rows: they stand together, and the status
/// is the card's. False when it was stopped.
template<class Take>
bool ForEachCard(const std::vector<FoundDay>& rows, const Progress& progress, Take take) {
    for (size_t i = 0; i < rows.size(); ++i) {
        if (!ShouldContinue(progress, static_cast<qsizetype>(i), std::ssize(rows)))
            return false;
        if (i > 0 && rows[i].header.tcid == rows[i - 1].header.tcid)
            continue;
        if (const auto day = SheetDayOf(rows[i]))
            take(rows[i], *day);
    }
    return true;
}

/// The tables one after the other, an empty line between them; nothing when it was stopped.
template<class Pages, class LinesOf>
QStringList AllPages(const Pages& pages, const Progress& progress, LinesOf linesOf) {
    const auto count = static_cast<qsizetype>(pages.size());
    qsizetype done = 0;
    QStringList lines;
    for (const auto& [key, page] : pages) {
        if (progress && !progress(done++, count))
            return {};
        if (!lines.isEmpty())
            lines << QString();
        lines << linesOf(key, page);
    }
    return lines;
}

} // namespace

WorkGrid::WorkGrid(const QString& keyHeading, const QString& nameHeading) {
    QStringList headers{keyHeading, nameHeading};
    for (int day = 1; day <= DaysOfAMonth; ++day)
        headers << QString::number(day);
    modGeneral::SetupGrid(grdTemp, headers);
}

void WorkGrid::PlaceInWorkGrid(const QString& key, const QString& name, int day, const QString& value) {
    auto row = rowOfKey_.constFind(key);
    if (row == rowOfKey_.cend()) {
        const QString serialNo = QString::number(grdTemp.rowCount() + 1);
        row = rowOfKey_.insert(key, grdTemp.AddRow({serialNo, key, name}));
    }
    const int column = FirstDayColumn + day - 1;
    const QString present = grdTemp.Text(*row, column);
    grdTemp.SetText(*row, column, present.isEmpty() ? value : present + u'/' + value);
}

int WorkGrid::WidthOf(int column, int least) const {
    int width = least;
    for (int row = 0; row < grdTemp.rowCount(); ++row)
        width = qMax(width, modGeneral::CharactersIn(grdTemp.Text(row, column)));
    return width;
}

/// No code and no number is cut: a cut one might be taken for another.
QStringList WorkGrid::Lines(const QStringList& pageHeading) const {
    int dayWidth = LeastDayWidth;
    for (int column = FirstDayColumn; column < grdTemp.columnCount(); ++column)
        dayWidth = WidthOf(column, dayWidth);
    const int serialNoWidth = modGeneral::CharactersIn(grdTemp.headerData(0, Qt::Horizontal).toString());
    modGeneral::ColumnWidths widths{WidthOf(0, serialNoWidth), WidthOf(1, KeyWidth), NameWidth};
    widths.resize(static_cast<size_t>(grdTemp.columnCount()), dayWidth);
    return modGeneral::GridToTextTable(grdTemp, widths, pageHeading);
}

QStringList SheetPrint(const std::vector<FoundDay>& rows, const QString& printedAt,
                       const Progress& progress) {
    std::map<QString, WorkGrid> sheets;
    const bool whole = ForEachCard(rows, progress, [&sheets](const FoundDay& row, Day day) {
        WorkGrid& grid = sheets.try_emplace(MonthPartOf(day), u"NIK"_s, u"Nama"_s).first->second;
        grid.PlaceInWorkGrid(row.header.nip, row.nama, DayOfMonth(day), row.header.status);
    });
    if (!whole)
        return {};
    return AllPages(sheets, progress, [&printedAt](const QString& sheet, const WorkGrid& grid) {
        return grid.Lines({u"DATA ABSENSI PER LEMBAR"_s, u"Lembar: "_s + sheet, printedAt});
    });
}

QStringList EmployeePrint(const std::vector<FoundDay>& rows, const QString& printedAt,
                          const Progress& progress) {
    struct Page {
        QString nama;
        WorkGrid grid{u"Lembar"_s, u"Bulan"_s};
    };
    std::map<QString, Page> employees;
    const bool whole = ForEachCard(rows, progress, [&employees](const FoundDay& row, Day day) {
        Page& page = employees[row.header.nip];
        page.nama = row.nama;
        page.grid.PlaceInWorkGrid(MonthPartOf(day), ShownMonth(day), DayOfMonth(day), row.header.status);
    });
    if (!whole)
        return {};
    return AllPages(employees, progress, [&printedAt](const QString& nip, const Page& page) {
        const QString employee = u"NIK: %1  %2"_s.arg(nip, page.nama);
        return page.grid.Lines({u"DATA ABSENSI PER KARYAWAN"_s, modGeneral::OneLine(employee), printedAt});
    });
}
