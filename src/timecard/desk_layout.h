#pragma once

class DataGrid;
class QMainWindow;

namespace Ui {
class frmMain;
}

/// Lays the desk's parts out in the room that its window has: closer where the window is low against the size
/// of the type, so that a queue finds itself on the sheet on a small screen and in large type, too.
void LayDesk(Ui::frmMain& ui, QMainWindow& desk);

/// Gives the sheet's columns their widths in a window of that width: the times share what the others leave,
/// the names give way to them.
void SizeSheetColumns(DataGrid& grid, int room);
