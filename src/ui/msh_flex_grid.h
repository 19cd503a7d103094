#pragma once

#include <QTableView>

/// The program's grid: rows to look at and walk through by keys, one selected at a time. What a double-click
/// does, Enter does too.
class MSHFlexGrid : public QTableView {
    Q_OBJECT
public:
    explicit MSHFlexGrid(QWidget* parent = nullptr);

    /// The role under which the model tells a row's status code; cells of the status column are painted in
    /// its colours.
    void PaintStatus(int column, int role);

    /// What the grid says in its middle while it has no rows.
    void SetEmptyText(const QString& text);

    /// Gives a column the room that the others leave, but never less than it needs.
    void StretchColumn(int column, int leastWidth);

Q_SIGNALS:
    /// A mouse button went down on a column's header.
    void HeaderPressed(int column);
    /// A row was chosen by double-click or Enter.
    void RowChosen(int row);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void FitStretchedColumn();

    int stretchedColumn_ = -1;
    int leastWidth_ = 0;
    QString emptyText_;
};
