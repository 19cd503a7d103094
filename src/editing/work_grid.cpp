#include "editing/work_grid.h"

#include "timecard/sheet_identifier.h"

#include <map>

using namespace Qt::StringLiterals;

namespace {

constexpr int DaysOfAMonth = 31;
constexpr int FirstDayColumn = 3;
constexpr int KeyWidth = 8;
constexpr int NameWidth = 20;
constexpr int LeastDayWidth = 3;

/// The day that a card stands for; the one it was filed under when its identifier names none.
std::optional<Day> SheetDayOf(const SearchRow& row) {
    const std::optional<Day> day = DayOfIdentifier(row.tcid);
    return day ? day : row.tanggal;
}

int DayOfMonth(Day day) {
    return static_cast<int>(static_cast<unsigned>(std::chrono::year_month_day{day}.day()));
}

/// "Mar-2006"
QString ShownMonth(Day day) {
    return ShownDay(day).sliced(3);
}

/// Adds a table behind the others, an empty line between them.
void AppendPage(QStringList& lines, const QStringList& page) {
    if (!lines.isEmpty())
        lines << QString();
    lines << page;
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

/// No code is cut: a cut one might be taken for another.
QStringList WorkGrid::Lines(const QStringList& pageHeading) const {
    qsizetype dayWidth = LeastDayWidth;
    for (int row = 0; row < grdTemp.rowCount(); ++row) {
        for (int column = FirstDayColumn; column < grdTemp.columnCount(); ++column)
            dayWidth = qMax(dayWidth, grdTemp.Text(row, column).size());
    }
    const auto serialNoWidth =
        qMax(grdTemp.Headers().first().size(), QString::number(grdTemp.rowCount()).size());
    modGeneral::ColumnWidths widths{static_cast<int>(serialNoWidth), KeyWidth, NameWidth};
    widths.resize(static_cast<size_t>(grdTemp.columnCount()), static_cast<int>(dayWidth));
    return modGeneral::GridToTextTable(grdTemp, widths, pageHeading);
}

QStringList SheetPrint(const std::vector<SearchRow>& rows, const QString& printedAt) {
    std::map<QString, WorkGrid> sheets;
    for (const SearchRow& row : rows) {
        if (const auto day = SheetDayOf(row)) {
            WorkGrid& grid = sheets.try_emplace(MonthPartOf(*day), u"NIK"_s, u"Nama"_s).first->second;
            grid.PlaceInWorkGrid(row.nip, row.nama, DayOfMonth(*day), row.status);
        }
    }
    QStringList lines;
    for (const auto& [sheet, grid] : sheets)
        AppendPage(lines, grid.Lines({u"DATA ABSENSI PER LEMBAR"_s, u"Lembar: "_s + sheet, printedAt}));
    return lines;
}

QStringList EmployeePrint(const std::vector<SearchRow>& rows, const QString& printedAt) {
    struct Page {
        QString nama;
        WorkGrid grid{u"Lembar"_s, u"Bulan"_s};
    };
    std::map<QString, Page> employees;
    for (const SearchRow& row : rows) {
        if (const auto day = SheetDayOf(row)) {
            Page& page = employees[row.nip];
            page.nama = row.nama;
            page.grid.PlaceInWorkGrid(MonthPartOf(*day), ShownMonth(*day), DayOfMonth(*day), row.status);
        }
    }
    QStringList lines;
    for (const auto& [nip, page] : employees)
        AppendPage(lines, page.grid.Lines({u"DATA ABSENSI PER KARYAWAN"_s,
                                           u"NIK: %1  %2"_s.arg(nip, page.nama), printedAt}));
    return lines;
}
