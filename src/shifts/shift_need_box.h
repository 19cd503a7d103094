#pragma once

#include "core/program.h"
#include "shifts/shift_need_model.h"

#include <QDialog>

#include <memory>

class CellEditor;

namespace Ui {
class ShiftNeedBox;
}

/// How many employees each shift needs on each weekday, typed into a grid. Every changed cell is written at
/// once.
class ShiftNeedBox : public QDialog {
    Q_OBJECT
public:
    ShiftNeedBox(Program& program, QWidget* parent);
    ~ShiftNeedBox() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    Program& program_;
    ShiftNeedModel needs_;
    std::unique_ptr<Ui::ShiftNeedBox> ui_;
    CellEditor* editor_ = nullptr;
};
