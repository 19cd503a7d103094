#pragma once

#include "ui/date_box.h"

#include <functional>

/// A box for a moment: a date and a time, either of which may be typed alone. Seconds are not shown: those
/// that were set are kept as long as hour and minute stay, a typed hour or minute has none.
class MomentBox : public DateBox {
    Q_OBJECT
public:
    explicit MomentBox(QWidget* parent = nullptr);

    /// A time that is typed without another day and would be before this moment, if there is one, is of a day
    /// on which it is not.
    void ReadAfter(std::function<std::optional<WallTime>()> arrival) { arrival_ = std::move(arrival); }

protected:
    std::optional<WallTime> Read(const QString& typed) const override;
    QString Shown(WallTime value) const override;
    void SelectPart() override;
    std::optional<WallTime> Stepped(int by) const override;

private:
    std::optional<WallTime> ReadAsShown(const QString& typed) const;

    std::function<std::optional<WallTime>()> arrival_;
};
