#include "shifts/shift_need_box.h"

#include "ui/cell_editor.h"
#include "ui/data_grid.h"
#include "ui/grid_blocks.h"
#include "ui/theme.h"
#include "ui_shift_need_box.h"

#include <QHeaderView>
#include <QKeyEvent>

using namespace Qt::StringLiterals;

ShiftNeedBox::ShiftNeedBox(Program& program, QWidget* parent)
    : QDialog(parent), program_(program), ui_(std::make_unique<Ui::ShiftNeedBox>()) {
    ui_->setupUi(this);
    DataGrid& grid = *ui_->grdNeeds;
    grid.setModel(&needs_);
    grid.SetEmptyText(u"Belum ada kode shift. Tambahkan dulu di Master Shift Code."_s);
    CellEditing editing;
    editing.fixedColumns = ShiftNeedModel::Monday;
    editing.nameColumns = {ShiftNeedModel::Code};
    editing.emptiesCells = true;
    editing.enterGoes = CellEditing::EnterGoes::Right;
    editing.mayEnter = [](const QModelIndex&, const QString& text) {
        ShiftNeedModel::NumberTyped(text);
        return true;
    };
    editing.writeCells = [this](const std::vector<CellChange>& changes) {
        return needs_.WriteCells(program_.Db(), changes);
    };
    editing.gridEnterKey = [this](const QModelIndex&) { editor_->OpenOnCurrentCell(); };
    editing.gridDoubleClick = editing.gridEnterKey;
    editing.gridDeleteKey = [this](const QModelIndex& cell) {
        editor_->Blocks().Write({{needs_.RowKey(cell.row()), cell.column(), u""_s}}, u"Kosongkan"_s);
    };
    editing.tell = [this](const QString& text) { ui_->lblStatus->setText(text); };
    editor_ = new CellEditor(program_, grid, std::move(editing));
    connect(ui_->cmdKeluar, &QPushButton::clicked, this, &QWidget::close);
    Trapped(program_, u"ShiftNeedBox.Form_Load"_s, [this] { needs_.Load(program_.Db()); });
    grid.setCurrentIndex(needs_.index(0, ShiftNeedModel::Monday));
    grid.setFocus();
    const int width = grid.horizontalHeader()->length() + 2 * Theme::CellPadding + 40;
    resize(qMax(width, sizeHint().width()), sizeHint().height());
}

ShiftNeedBox::~ShiftNeedBox() = default;

void ShiftNeedBox::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QDialog::keyPressEvent(event);
}
