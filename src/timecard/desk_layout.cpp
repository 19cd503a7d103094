#include "timecard/desk_layout.h"

#include "timecard/sheet_model.h"
#include "ui/theme.h"
#include "ui_frmMain.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;

namespace {

/// A window of fewer lines than these is low.
constexpr int LinesOfAiryDesk = 42;
constexpr int WidestName = 280;
/// What stands beside the columns: frames, margins and the scroll bar.
constexpr int Frames = 60;

/// What the user is told of the days stands beside the menu while there is no room for it in the head.
void PlaceHint(Ui::frmMain& ui, bool close) {
    ui.lblTabs->setWordWrap(!close);
    ui.menubar->setCornerWidget(close ? ui.lblTabs : nullptr);
    if (!close)
        ui.sheetRow->insertWidget(0, ui.lblTabs, 1);
    ui.lblTabs->show();
}

} // namespace

void LayDesk(Ui::frmMain& ui, QMainWindow& desk) {
    const QFontMetrics metrics = ui.MSHFlexGrid1->fontMetrics();
    const bool close = desk.height() < LinesOfAiryDesk * metrics.height();
    if (desk.property("close").toBool() == close)
        return;
    desk.setProperty("close", close);
    ui.headRows->setSpacing(close ? 2 : Theme::FieldGap);
    ui.headRows->setContentsMargins(16, 0, 16, close ? 3 : Theme::GroupGap);
    ui.body->setContentsMargins(12, close ? 4 : Theme::GroupGap, 12, 2);
    ui.body->setSpacing(close ? 4 : Theme::GroupGap);
    for (QBoxLayout* tile : {ui.tileInRows, ui.tileOutRows, ui.tileOthersRows, ui.tileAbsentRows}) {
        tile->setDirection(close ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
        tile->setSpacing(close ? Theme::FieldGap : 0);
    }
    PlaceHint(ui, close);
    SizeSheetColumns(*ui.MSHFlexGrid1, desk.width());
    QHeaderView& rows = *ui.MSHFlexGrid1->verticalHeader();
    rows.setMinimumSectionSize(1);
    rows.setDefaultSectionSize(close ? metrics.height() + 2 : Theme::RowHeight(metrics));
    for (QWidget* part : desk.findChildren<QWidget*>())
        Theme::Restyle(*part);
}

void SizeSheetColumns(DataGrid& grid, int room) {
    room -= Frames;
    const auto width = [&grid](const QString& sample) {
        return grid.horizontalHeader()->fontMetrics().horizontalAdvance(sample) + 3 * Theme::CellPadding;
    };
    const int time = width(u"Time Out"_s);
    const std::pair<int, QString> samples[] = {
        {SheetModel::Status, u"Status"_s}, {SheetModel::Dept, u"MMMM/M"_s}, {SheetModel::Nip, u"0000000"_s}};
    for (const auto& [column, sample] : samples) {
        grid.setColumnWidth(column, width(sample));
        room -= width(sample);
    }
    room -= time * (SheetModel::ColumnCount - SheetModel::TimeIn);
    const int usual = qMin(WidestName, width(u"Muhammad Ramadhan Nugroho"_s));
    grid.setColumnWidth(SheetModel::Nama, qBound(width(u"Muhammad Ra"_s), room, usual));
    grid.ShareRoom(SheetModel::TimeIn, time);
}
