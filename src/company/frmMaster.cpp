#include "company/frmMaster.h"

#include "company/code_model.h"
#include "company/frmImpor.h"
#include "company/frmPassword.h"
#include "company/user_model.h"
#include "ui/busy_pointer.h"
#include "ui/cell_editor.h"
#include "ui/data_grid.h"
#include "ui/typing.h"
#include "ui/window_place.h"
#include "ui_frmMaster.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize FirstSize(1366, 740);
constexpr int RefreshMilliseconds = 5000;

} // namespace

frmMaster::frmMaster(Program& program, const b_form_skin::Backgrounds& skin, QWidget* parent,
                     MasterFiles files)
    : QDialog(parent), program_(program), files_(std::move(files)),
      employees_(new EmployeeModel(program.clock, this)), ui_(std::make_unique<Ui::frmMaster>()) {
    ui_->setupUi(this);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    b_form_skin::SkinWindow(*this, skin.Picture(modAbsen::Background::Big));
    ui_->frmKaryawan->Use(program_, [this] { return files_.photo(this); });
    kinds_.reserve(6);
    AddKind(u"Karyawan"_s, "grdKaryawan", employees_);
    const std::pair<CodeKind, const char*> codes[] = {{CodeKind::Department, "grdDepartemen"},
                                                      {CodeKind::Division, "grdDivisi"},
                                                      {CodeKind::Status, "grdStatus"},
                                                      {CodeKind::AbsenceType, "grdTipe"}};
    for (const auto& [kind, gridName] : codes)
        AddKind(CodeKindName(kind), gridName, new CodeModel(kind, this));
    AddKind(u"Pengguna"_s, "grdPengguna", new UserModel(this));
    ConnectControls();
    RestorePlace(*this, FirstSize);
}

frmMaster::~frmMaster() = default;

void frmMaster::AddKind(const QString& name, const char* gridName, MasterModel* model) {
    auto* rows = new QSortFilterProxyModel(this);
    rows->setSourceModel(model);
    rows->setFilterKeyColumn(-1);
    rows->setFilterCaseSensitivity(Qt::CaseInsensitive);
    auto* grid = new DataGrid(ui_->stkGrids);
    grid->setObjectName(QString::fromLatin1(gridName));
    grid->setAccessibleName(name);
    grid->setModel(rows);
    grid->SetEmptyText(u"Belum ada %1. Tekan Tambah (Alt+T)."_s.arg(name.toLower()));
    ui_->stkGrids->addWidget(grid);
    Kind& kind = kinds_.emplace_back(Kind{{model, rows, grid}});
    ui_->lstKinds->addItem(u"%1  %2"_s.arg(kinds_.size()).arg(name));
    if (model != employees_)
        MakeEditor(kind);
    const QFontMetrics metrics = grid->fontMetrics();
    for (int column = 0; column < model->columnCount(); ++column)
        grid->setColumnWidth(column, metrics.horizontalAdvance(u"00-MMM-0000"_s));
    grid->StretchColumn(MasterModel::Key + 1, metrics.horizontalAdvance(u"Muhammad Ramadhan MMM"_s));
    connect(grid->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &frmMaster::Grid_RowChanged);
    const auto key = [this, grid](Qt::Key pressed, void (frmMaster::*handler)()) {
        auto* shortcut = new QShortcut(pressed, grid, nullptr, nullptr, Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, handler);
    };
    key(Qt::Key_Insert, &frmMaster::cmdTambah_Click);
    if (!kind.editor)
        key(Qt::Key_Delete, &frmMaster::cmdHapus_Click);
}

void frmMaster::MakeEditor(Kind& kind) {
    Kind* of = &kind; // room for all kinds was made before the first
    CellEditing editing;
    editing.fixedColumns = 0;
    editing.mayEdit = [of](const QModelIndex& cell) {
        return of->model->MayEdit(of->RowOf(cell), cell.column());
    };
    editing.mayEnter = [this, of](const QModelIndex& cell, const QString& text) {
        return cell.column() != MasterModel::Key || MayChangeKey(*of->model, of->RowOf(cell), text.trimmed());
    };
    editing.saveCell = [this, of](const QModelIndex& cell, const QString& text) {
        SaveCell(*of, cell, text);
        return true;
    };
    editing.gridEnterKey = [of](const QModelIndex&) { of->editor->OpenOnCurrentCell(); };
    editing.gridDoubleClick = editing.gridEnterKey;
    editing.gridDeleteKey = [this](const QModelIndex&) { cmdHapus_Click(); };
    kind.editor = new CellEditor(program_, static_cast<DataGrid&>(*kind.grid), std::move(editing));
}

void frmMaster::ConnectControls() {
    connect(ui_->lstKinds, &QListWidget::currentRowChanged, this, &frmMaster::ShowKind);
    connect(ui_->txtFilter, &QLineEdit::textChanged, this, [this](const QString& text) {
        Shown().shown->setFilterFixedString(text);
        ShowCount();
    });
    connect(ui_->cmdTambah, &QPushButton::clicked, this, &frmMaster::cmdTambah_Click);
    connect(ui_->cmdHapus, &QPushButton::clicked, this, &frmMaster::cmdHapus_Click);
    connect(ui_->cmdPassword, &QPushButton::clicked, this, &frmMaster::cmdPassword_Click);
    connect(ui_->cmdImpor, &QPushButton::clicked, this, &frmMaster::cmdImpor_Click);
    connect(ui_->cmdEkspor, &QPushButton::clicked, this, &frmMaster::cmdEkspor_Click);
    connect(ui_->cmdKeluar, &QPushButton::clicked, this, &QWidget::close);
    connect(ui_->frmKaryawan, &EmployeeForm::Saved, this, &frmMaster::Employee_Saved);
    connect(ui_->frmKaryawan, &EmployeeForm::Left, this, &frmMaster::Employee_Left);
    connect(static_cast<DataGrid*>(kinds_.front().grid), &DataGrid::RowChosen, this,
            [this] { ui_->frmKaryawan->FocusFirst(); });
    for (int index = 0; index < ui_->lstKinds->count(); ++index) {
        auto* shortcut = new QShortcut(Qt::ALT | static_cast<Qt::Key>(Qt::Key_1 + index), this);
        connect(shortcut, &QShortcut::activated, this, [this, index] {
            ui_->lstKinds->setCurrentRow(index);
            Shown().grid->setFocus();
        });
    }
    auto* find = new QShortcut(QKeySequence::Find, this);
    connect(find, &QShortcut::activated, ui_->txtFilter, qOverload<>(&QWidget::setFocus));
    Timer1.setInterval(RefreshMilliseconds);
    connect(&Timer1, &QTimer::timeout, this, &frmMaster::Timer1_Timer);
}

void frmMaster::Form_Load() {
    ui_->lstKinds->setCurrentRow(0);
    EnterKind(0);
    Shown().grid->setFocus();
    Timer1.start();
}

void frmMaster::ShowKind(int index) {
    const int before = ui_->stkGrids->currentIndex();
    if (index < 0 || index == before)
        return;
    if (ShowsEmployees() && !ui_->frmKaryawan->MayLeave())
        ui_->lstKinds->setCurrentRow(before);
    else
        EnterKind(index);
}

void frmMaster::EnterKind(int index) {
    ui_->txtFilter->clear();
    Shown().model->DropNew();
    ui_->stkGrids->setCurrentIndex(index);
    ui_->frmKaryawan->setVisible(ShowsEmployees());
    ui_->cmdImpor->setVisible(ShowsEmployees());
    ui_->cmdPassword->setVisible(ShowsEmployees() || ShowsUsers());
    RefreshShown({});
}

void frmMaster::RefreshShown(const QString& key) {
    Trapped(program_, u"frmMaster.Refresh"_s, [&] {
        const BusyPointer busy;
        read_ = program_.Db().Changes();
        Shown().Refresh(program_.Db(), key);
        if (ShowsEmployees()) {
            ui_->frmKaryawan->OfferCodes();
            formOf_.clear();
            ShowEmployee();
        }
    });
    ShowCount();
}

void frmMaster::Timer1_Timer() {
    if (!isVisible() || IsBusy())
        return;
    bool changed = false;
    Trapped(program_, u"frmMaster.Timer1_Timer"_s, [&] { changed = program_.Db().Changes() != read_; });
    if (changed)
        RefreshShown(Shown().CurrentKey());
}

/// Whether something is being typed that a refresh would take away.
bool frmMaster::IsBusy() {
    const QWidget* over = QApplication::activeModalWidget();
    const bool inEditor = Shown().editor && qobject_cast<QLineEdit*>(focusWidget())
                          && Shown().grid->isAncestorOf(focusWidget());
    return (over && over != this) || inEditor || Shown().model->HasNew()
           || (ShowsEmployees() && (ui_->frmKaryawan->IsChanged() || ui_->frmKaryawan->IsNew()));
}

void frmMaster::Grid_RowChanged() {
    // Not from within the grid's own move.
    QMetaObject::invokeMethod(
        this,
        [this] {
            MasterModel& model = *Shown().model;
            if (model.HasNew() && !model.IsNew(Shown().CurrentRow()))
                model.DropNew();
            if (ShowsEmployees())
                ShowEmployee();
        },
        Qt::QueuedConnection);
}

void frmMaster::ShowEmployee() {
    const QString key = Shown().CurrentKey();
    if (key == formOf_ && !key.isEmpty())
        return;
    if (!formOf_.isEmpty() && !ui_->frmKaryawan->MayLeave()) {
        Shown().GoTo(employees_->RowOf(formOf_), 0);
        return;
    }
    formOf_ = key;
    const int row = Shown().CurrentRow();
    if (row < 0)
        return ui_->frmKaryawan->ShowNobody();
    ui_->frmKaryawan->ShowEmployee(employees_->At(row), employees_->PayAt(row),
                                   employees_->PayToCome(program_.Db(), row));
}

void frmMaster::cmdTambah_Click() {
    Kind& kind = Shown();
    ui_->txtFilter->clear();
    if (!kind.editor) {
        if (ui_->frmKaryawan->MayLeave())
            ui_->frmKaryawan->ShowNew();
        return;
    }
    kind.grid->setFocus();
    kind.GoTo(kind.model->AddRow(), MasterModel::Key);
    kind.editor->OpenOnCurrentCell();
}

void frmMaster::cmdHapus_Click() {
    const int row = Shown().CurrentRow();
    if (row < 0)
        return;
    if (Shown().model->IsNew(row))
        return Shown().model->DropNew();
    if (ShowsEmployees())
        return RemoveEmployee(row);
    Trapped(program_, u"frmMaster.cmdHapus_Click"_s, [&] {
        const QString key = Shown().CurrentKey();
        const QString use = Shown().model->UseOf(row);
        const QString question = use.isEmpty() ? u"Hapus %1?"_s.arg(key)
                                               : u"%1 masih dipakai %2. Baris-baris itu tidak ikut dihapus.\n"
                                                 "Hapus juga?"_s.arg(key, use);
        if (program_.dialogs.Ask(question, Dialogs::Answer::No) != Dialogs::Answer::Yes)
            return;
        Shown().model->Remove(row);
        Tell(u"%1 dihapus."_s.arg(key));
    });
}

void frmMaster::RemoveEmployee(int row) {
    Trapped(program_, u"frmMaster.RemoveEmployee"_s, [&] {
        const Employee& employee = employees_->At(row);
        const QString who = employee.nip + u" "_s + employee.nama;
        if (HasCards(program_.Db(), employee.nip)) {
            if (program_.dialogs.Ask(u"%1 sudah punya kartu absen, jadi datanya tidak dapat dihapus.\nIsi "
                                     "tanggal Keluar, supaya tidak muncul lagi di lembar, jadwal dan "
                                     "daftar?"_s.arg(who))
                == Dialogs::Answer::Yes)
                ui_->frmKaryawan->ProposeLeaving();
            return;
        }
        if (program_.dialogs.Ask(u"Hapus karyawan %1 dengan password dan jadwalnya?"_s.arg(who),
                                 Dialogs::Answer::No)
            != Dialogs::Answer::Yes)
            return;
        formOf_.clear();
        employees_->Remove(row);
        RefreshShown({});
        Tell(u"Karyawan %1 dihapus."_s.arg(who));
    });
}

void frmMaster::cmdPassword_Click() {
    if (ShowsEmployees() && ui_->frmKaryawan->IsChanged() && !ui_->frmKaryawan->Save())
        return;
    const QString key = Shown().CurrentKey();
    if (key.isEmpty())
        return;
    frmPassword ask(program_.dialogs, key, this);
    const bool answered = ask.exec() == QDialog::Accepted;
    activateWindow(); // not every window manager gives the focus back
    if (!answered)
        return;
    Trapped(program_, u"frmMaster.cmdPassword_Click"_s, [&] {
        const BusyPointer busy;
        const Users users(program_.Db());
        users.Write(*users.Hash({{key, ask.Password()}}));
        RefreshShown(key);
        Tell(u"Password %1 disimpan."_s.arg(key));
    });
    Shown().grid->setFocus();
}

void frmMaster::cmdImpor_Click() {
    if (!ui_->frmKaryawan->MayLeave())
        return;
    Trapped(program_, u"frmMaster.cmdImpor_Click"_s, [this] {
        const QString file = files_.import(this);
        const bool taken =
            !file.isEmpty() && frmImpor(program_, ReadEmployeeFile(file), this).exec() == QDialog::Accepted;
        activateWindow();
        if (!taken)
            return;
        RefreshShown(Shown().CurrentKey());
        Tell(u"Karyawan dari %1 disimpan."_s.arg(file));
    });
}

/// What is shown, in its order.
void frmMaster::cmdEkspor_Click() {
    Trapped(program_, u"frmMaster.cmdEkspor_Click"_s, [this] {
        const QString file = files_.exportTo(this);
        if (file.isEmpty())
            return;
        const BusyPointer busy;
        const int rows = Shown().Export(file);
        Tell(u"%1 baris ditulis ke %2."_s.arg(QString::number(rows), file));
    });
}

bool frmMaster::MayChangeKey(const MasterModel& model, int row, const QString& text) {
    carry_ = CarryAlong::No;
    const QString use = model.IsNew(row) ? QString() : model.UseOf(row);
    if (use.isEmpty())
        return true;
    const auto answer = program_.dialogs.Ask(
        u"Kode %1 masih dipakai %2.\nGanti juga di sana menjadi %3?"_s.arg(model.KeyAt(row), use, text));
    carry_ = answer == Dialogs::Answer::Yes ? CarryAlong::Yes : CarryAlong::No;
    return answer != Dialogs::Answer::Cancel;
}

void frmMaster::SaveCell(Kind& kind, const QModelIndex& cell, const QString& text) {
    const QModelIndex source = kind.shown->mapToSource(cell);
    const bool isNew = kind.model->IsNew(source.row());
    kind.model->Save(source.row(), source.column(), text, carry_);
    Tell(u"%1 disimpan."_s.arg(kind.model->KeyAt(source.row())));
    if (!isNew)
        return;
    // A new row goes on to what the key stands for, once the editor has left its cell.
    int column = MasterModel::Key + 1;
    while (column < kind.model->columnCount() - 1 && !kind.model->MayEdit(source.row(), column))
        ++column;
    const QPersistentModelIndex next = source.siblingAtColumn(column);
    QMetaObject::invokeMethod(
        this,
        [this, of = &kind, next] {
            of->GoTo(next.row(), next.column());
            of->editor->OpenOnCurrentCell();
        },
        Qt::QueuedConnection);
}

void frmMaster::Employee_Saved(const QString& nip) {
    formOf_ = nip;
    RefreshShown(nip);
    Tell(u"Karyawan %1 disimpan."_s.arg(nip));
    Shown().grid->setFocus();
}

void frmMaster::Employee_Left() {
    if (!ui_->frmKaryawan->MayLeave())
        return;
    formOf_.clear();
    ShowEmployee();
    Shown().grid->setFocus();
}

void frmMaster::ShowCount() {
    const Kind& kind = Shown();
    Tell(u"%1 dari %2 baris"_s.arg(kind.shown->rowCount()).arg(kind.model->rowCount()));
}

void frmMaster::Tell(const QString& text) {
    ui_->lblStatus->setText(text);
}

frmMaster::Kind& frmMaster::Shown() {
    return kinds_[static_cast<size_t>(std::max(0, ui_->stkGrids->currentIndex()))];
}

bool frmMaster::ShowsEmployees() {
    return !Shown().editor;
}

bool frmMaster::ShowsUsers() {
    return ui_->stkGrids->currentIndex() == static_cast<int>(kinds_.size()) - 1;
}

void frmMaster::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!event->spontaneous())
        Form_Load();
}

void frmMaster::keyPressEvent(QKeyEvent* event) {
    if (auto* button = IsEnter(event->key()) ? qobject_cast<QPushButton*>(focusWidget()) : nullptr)
        button->click();
    else if (IsEnter(event->key()) && (focusWidget() == ui_->txtFilter || focusWidget() == ui_->lstKinds))
        Shown().grid->setFocus();
    else if (event->key() == Qt::Key_Down && focusWidget() == ui_->txtFilter)
        Shown().grid->setFocus();
    else if (event->key() != Qt::Key_Escape)
        QDialog::keyPressEvent(event);
    else if (Shown().model->HasNew())
        Shown().model->DropNew();
    else
        close();
}

void frmMaster::closeEvent(QCloseEvent* event) {
    if (ShowsEmployees() && !ui_->frmKaryawan->MayLeave()) {
        event->ignore();
        return;
    }
    Timer1.stop();
    SavePlace(*this);
    QDialog::closeEvent(event);
}
