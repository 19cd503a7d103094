#pragma once

#include <QFrame>

#include <vector>

class DataGrid;
class QLabel;
class QLineEdit;

/// A line over the foot of a grid: the cursor walks to the row that is named there while it is typed. Enter
/// and the arrows go on to the next one, Esc goes back to the grid.
class FindLine : public QFrame {
    Q_OBJECT
public:
    /// Rows are found by what these columns show.
    FindLine(DataGrid& grid, std::vector<int> columns);

    void Open();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// Walks to the first row from this one on, then from the other end; says when there is none.
    void Walk(int from, int step);
    /// Fetches the rows that the model has not read yet until one is found.
    int FindFurther(int from);
    bool KeyDown(int key, bool shift);
    void Place();

    DataGrid& grid_;
    const std::vector<int> columns_;
    QLineEdit* txtFind_;
    QLabel* lblFound_;
    int startRow_ = 0;
};
