#include "ui/data_grid.h"
#include "ui/frozen_columns.h"

#include <QHeaderView>
#include <QSettings>

using namespace Qt::StringLiterals;

namespace {

const QString Widths = u"widths"_s;
const QString Order = u"order"_s;
const QString SortedBy = u"sortedBy"_s;
const QString Descending = u"descending"_s;

} // namespace

QTableView& DataGrid::ViewOf(int column) {
    return isColumnHidden(column) && frozen_ ? static_cast<QTableView&>(*frozen_) : *this;
}

const QTableView& DataGrid::ViewOf(int column) const {
    return const_cast<DataGrid*>(this)->ViewOf(column);
}

/// Widths are kept in the height of a letter: they follow the font.
void DataGrid::SaveColumns(QSettings& settings) const {
    const QHeaderView& header = *horizontalHeader();
    QVariantList widths;
    QVariantList order;
    for (int column = 0; column < header.count(); ++column) {
        widths << 1.0 * ViewOf(column).columnWidth(column) / fontMetrics().height();
        order << header.logicalIndex(column);
    }
    settings.setValue(Widths, widths);
    settings.setValue(Order, order);
    settings.setValue(SortedBy, header.isSortIndicatorShown() ? header.sortIndicatorSection() : -1);
    settings.setValue(Descending, header.sortIndicatorOrder() == Qt::DescendingOrder);
}

/// Columns of an earlier program are no columns of this grid.
void DataGrid::RestoreColumns(QSettings& settings) {
    QHeaderView& header = *horizontalHeader();
    const QVariantList widths = settings.value(Widths).toList();
    const QVariantList order = settings.value(Order).toList();
    if (widths.size() != header.count() || order.size() != header.count())
        return;
    for (int column = 0; column < header.count(); ++column) {
        const int width = qRound(widths[column].toDouble() * fontMetrics().height());
        if (width > 0 && !SharesRoom(column) && column != stretchedColumn_)
            ViewOf(column).setColumnWidth(column, width);
    }
    for (int place = 0; place < header.count(); ++place) {
        if (const int from = header.visualIndex(order[place].toInt()); from >= 0)
            header.moveSection(from, place);
    }
    FitColumns();
    if (const int column = settings.value(SortedBy).toInt(); header.isSortIndicatorShown() && column >= 0) {
        const bool descending = settings.value(Descending).toBool();
        header.setSortIndicator(column, descending ? Qt::DescendingOrder : Qt::AscendingOrder);
    }
}
