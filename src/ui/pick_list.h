#pragma once

#include "core/program.h"

#include <QFrame>
#include <QPointer>
#include <QVariantMap>

#include <functional>

class DataGrid;
class QLabel;
class QLineEdit;
class QSortFilterProxyModel;

namespace modGeneral {
class TextGrid;
}

/// A list of the rows of one query, from which the user picks one. It opens under its field, takes typing
/// into the filter at once, walks with the arrows, takes with Enter and leaves with Esc. A list that opened
/// by itself has no row chosen until the user walks to one or filters: one Enter too many takes nothing.
class PickList : public QFrame {
    Q_OBJECT
public:
    explicit PickList(Program& program, QWidget* parent);

    /// The connection that the query is meant for: the text of the shared connection. With any other the list
    /// shows a failure and nothing is selected.
    QString ConnectionString;
    /// The query whose rows are listed; its column names are the field names of the result.
    QString SqlText;
    /// Why the list opened by itself; empty where the user asked for it.
    QString Reason;

    /// Shows the list next to the anchor, or at a place on the screen when both numbers are 0 or more.
    void ShowList(QWidget* anchor, double left, double top);

    /// True when the user closed the list by choosing a row.
    bool ItemSelected() const { return itemSelected_; }

Q_SIGNALS:
    /// The list was closed. The values are the chosen row's, by column name; empty when none was chosen.
    void LOV_AfterListClose(QWidget* control, const QVariantMap& values);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void Fill();
    void Place(double left, double top);
    void ApplyFilter(const QString& text);
    void ChooseFirst(bool chosen);
    void Choose(int row);
    bool HandleFilterKey(int key);

    Program& program_;
    modGeneral::TextGrid* rows_;
    QSortFilterProxyModel* filtered_;
    QLineEdit* filter_;
    DataGrid* grid_;
    QLabel* reason_;
    QLabel* hint_;
    QPointer<QWidget> anchor_;
    QVariantMap values_;
    bool itemSelected_ = false;
    bool closeTold_ = true;
};

/// Lists the rows of a query under a field and hands over the one that the user chooses, by column name. The
/// list is gone when it was closed. The reason is that of a list that opens by itself.
void OpenPickList(Program& program, QWidget& field, const QString& query,
                  std::function<void(const QVariantMap& chosen)> choose, const QString& reason = {});
