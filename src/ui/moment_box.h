#pragma once

#include "ui/date_box.h"

/// A box for a moment: a date and a time, either of which may be typed alone. Seconds are not shown: those
/// that were set are kept as long as hour and minute stay, a typed hour or minute has none.
class MomentBox : public DateBox {
    Q_OBJECT
public:
    explicit MomentBox(QWidget* parent = nullptr);

protected:
    std::optional<WallTime> Read(const QString& typed) const override;
    QString Shown(WallTime value) const override;
    void SelectPart() override;
    std::optional<WallTime> Stepped(int by) const override;
};
