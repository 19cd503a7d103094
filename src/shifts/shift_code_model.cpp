#include "shifts/shift_code_model.h"

#include "cards/card_store.h"
#include "core/cell_look.h"
#include "core/error_words.h"
#include "core/query_values.h"
#include "core/typed_date.h"
#include "database/database_error.h"
#include "database/statement.h"
#include "shifts/shift_time.h"

#include <QMap>
#include <QScopeGuard>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

constexpr int BadValueNumber = 13;
constexpr int NotReadNumber = 91;
constexpr std::chrono::days OneDay{1};

/// The columns are headed as the fields that they show.
constexpr QStringView Titles[] = {u"Code", u"TimeIn", u"TimeOut"};

/// Where a shift that starts and ends at these times of day ends. An end at the very start is no night: that
/// is how a day off is written, which has no hours.
WallTime EndOfShift(const std::optional<TypedTime>& start, const TypedTime& end) {
    const bool nextDay = end.nextDay || (start && end.timeOfDay < start->timeOfDay);
    return TimeOnDay(nextDay ? DayZero + OneDay : DayZero, end.timeOfDay);
}

/// Ends a transaction in which not all could be written.
struct Refused {};

[[noreturn]] void RefuseTime(int column, const QString& text) {
    throw ProgramError(
        BadValueNumber,
        u"%1: \"%2\" bukan jam. Ketik jam sebagai hh:mm, misalnya 07:30."_s.arg(Titles[column], text));
}

} // namespace

ShiftCodeModel::ShiftCodeModel(QObject* parent)
    : TableModel({{Titles[Code].toString()}, {Titles[TimeIn].toString()}, {Titles[TimeOut].toString()}},
                 parent) {}

void ShiftCodeModel::Refresh(Connection& connection) {
    connection_ = &connection;
    auto read = Read();
    beginResetModel();
    rstShift_ = std::move(read);
    EndEdit();
    endResetModel();
}

std::unique_ptr<Recordset> ShiftCodeModel::Read() const {
    return std::make_unique<Recordset>(*connection_, u"select Code,TimeIn,TimeOut from Shift"_s + order_);
}

void ShiftCodeModel::sort(int column, Qt::SortOrder order) {
    order_.clear();
    if (column >= 0)
        order_ = u" order by "_s + Titles[column].toString()
                 + (order == Qt::DescendingOrder ? u" desc"_s : QString());
    if (connection_)
        Refresh(*connection_);
}

bool ShiftCodeModel::IsBlankInEdit() const {
    return isNew_
           && std::ranges::all_of(typed_, [](const QString& text) { return text.trimmed().isEmpty(); });
}

std::optional<QString> ShiftCodeModel::RenamedFrom() const {
    if (rowInEdit_ < 0 || isNew_ || typed_[Code].trimmed() == StoredText(rowInEdit_, Code))
        return std::nullopt;
    return StoredText(rowInEdit_, Code);
}

int ShiftCodeModel::RowOf(const QString& code) const {
    for (int row = 0; row < rowCount(); ++row) {
        if (CodeAt(row) == code)
            return row;
    }
    return -1;
}

int ShiftCodeModel::AddRow() {
    if (!rstShift_)
        throw ProgramError(NotReadNumber, u"Kode shift belum terbaca. Tutup jendela ini, lalu buka lagi."_s);
    const int row = rowCount();
    beginInsertRows({}, row, row);
    rstShift_->AddNew();
    StartEdit(row, true);
    endInsertRows();
    return row;
}

std::vector<CellChange> ShiftCodeModel::UpdateRow() {
    if (rowInEdit_ < 0)
        return {};
    if (IsBlankInEdit()) {
        CancelRow();
        return {};
    }
    CheckTyped();
    const std::array<QString, ColumnCount> before = StoredTexts(rowInEdit_);
    SetTyped();
    try {
        rstShift_->Update();
    } catch (const ConflictError&) {
        Refresh(*connection_);
        throw;
    }
    const int row = rowInEdit_;
    const bool isNew = isNew_;
    EndEdit();
    NotifyRow(row);
    return isNew ? std::vector<CellChange>() : TakeBackOf(row, before);
}

std::vector<CellChange> ShiftCodeModel::TakeBackOf(int row,
                                                   const std::array<QString, ColumnCount>& before) const {
    std::vector<CellChange> changes;
    for (int column = 0; column < ColumnCount; ++column) {
        const QString& text = before[static_cast<size_t>(column)];
        if (const QString now = StoredText(row, column); now != text)
            changes.push_back({CodeAt(row), column, text, now});
    }
    return changes;
}

CellsOutcome ShiftCodeModel::WriteCells(const std::vector<CellChange>& changes) {
    CellsOutcome outcome;
    const Recordset shown = *rstShift_;
    const bool takesBack =
        std::ranges::any_of(changes, [](const CellChange& change) { return change.expected.has_value(); });
    QMap<QString, std::vector<CellChange>> rows;
    for (const CellChange& change : changes)
        rows[change.rowKey].push_back(change);
    beginResetModel();
    const auto end = qScopeGuard([this] {
        EndEdit();
        endResetModel();
    });
    try {
        connection_->InTransaction([&] {
            outcome = {};
            rstShift_ = takesBack ? Read() : std::make_unique<Recordset>(shown);
            for (const std::vector<CellChange>& cells : std::as_const(rows)) {
                const int row = RowOf(cells.front().rowKey);
                const auto before = row >= 0 ? StoredTexts(row) : std::array<QString, ColumnCount>();
                const QString refusal = WriteRow(row, cells);
                for (const CellChange& cell : refusal.isEmpty() ? std::vector<CellChange>() : cells)
                    outcome.refused.push_back({cell, refusal});
                if (refusal.isEmpty())
                    std::ranges::move(TakeBackOf(row, before), std::back_inserter(outcome.takeBack));
            }
            if (!outcome.refused.empty())
                throw Refused();
        });
    } catch (const Refused&) {
        rstShift_ = std::make_unique<Recordset>(shown);
        rstShift_ = Read(); // as another desk left it
    } catch (...) {
        rstShift_ = std::make_unique<Recordset>(shown);
        throw;
    }
    return outcome;
}

QString ShiftCodeModel::WriteRow(int row, const std::vector<CellChange>& cells) {
    if (row < 0)
        return u"kode ini tidak ada lagi."_s;
    StartEdit(row, false);
    for (const auto& [key, column, text, expected] : cells) {
        if (expected && StoredText(row, column) != *expected)
            return u"sekarang berisi \"%1\"."_s.arg(StoredText(row, column));
        typed_[static_cast<size_t>(column)] = text;
        touched_[static_cast<size_t>(column)] = true;
    }
    try {
        CheckTyped();
        if (const auto old = RenamedFrom()) {
            const ShiftCodeUse use = UseOfShiftCode(*connection_, *old);
            if (use.rosterDays > 0 || use.cards > 0)
                return u"kode %1 masih dipakai jadwal atau kartu. Ubah kode itu sendiri saja."_s.arg(*old);
        }
        SetTyped();
        rstShift_->Update();
    } catch (const ProgramError& error) {
        if (error.Kind() == ErrorKind::Told || error.Kind() == ErrorKind::Conflict
            || error.Kind() == ErrorKind::Constraint)
            return UserText(error);
        throw;
    }
    EndEdit();
    return {};
}

void ShiftCodeModel::CancelRow() {
    if (rowInEdit_ < 0)
        return;
    const int row = rowInEdit_;
    const bool goesAway = isNew_;
    // Before anyone is told: who leaves a row because it goes must not find it in edit.
    EndEdit();
    if (goesAway)
        beginRemoveRows({}, row, row);
    rstShift_->MoveTo(row);
    rstShift_->CancelUpdate();
    if (goesAway)
        endRemoveRows();
    else
        NotifyRow(row);
}

void ShiftCodeModel::DeleteRow(int row) {
    rstShift_->MoveTo(row);
    try {
        auto without = std::make_unique<Recordset>(*rstShift_);
        without->Delete();
        beginRemoveRows({}, row, row);
        rstShift_ = std::move(without);
        endRemoveRows();
    } catch (const ConflictError&) {
        Refresh(*connection_);
        throw;
    }
}

/// What the database itself cannot refuse.
void ShiftCodeModel::CheckTyped() const {
    const QString code = typed_[Code].trimmed();
    if (code.isEmpty())
        throw ProgramError(BadValueNumber, u"Code harus diisi."_s);
    Quoted(code); // a code that no statement can name would never be found again
    // Codes are matched letter by letter: two that differ by case only would be taken for one by people.
    for (int row = 0; touched_[Code] && row < rowCount(); ++row) {
        if (row != rowInEdit_ && CodeAt(row).compare(code, Qt::CaseInsensitive) == 0)
            throw ProgramError(BadValueNumber,
                               u"Code \"%1\" sudah ada sebagai \"%2\". Huruf besar dan kecil "
                               "tidak membedakan kode; pilih kode lain."_s.arg(code, CodeAt(row)));
    }
    for (const Column column : {TimeIn, TimeOut}) {
        const QString& text = typed_[column];
        const auto time = ReadTypedTime(text);
        if (touched_[column] && !text.trimmed().isEmpty() && (!time || (column == TimeIn && time->nextDay)))
            RefuseTime(column, text);
    }
}

/// A time that was typed places both: whether the end is of the next day depends on both.
void ShiftCodeModel::SetTyped() {
    rstShift_->MoveTo(rowInEdit_);
    if (touched_[Code])
        rstShift_->Set(u"Code"_s, typed_[Code].trimmed());
    if (!touched_[TimeIn] && !touched_[TimeOut])
        return;
    const auto start = ReadTypedTime(typed_[TimeIn]);
    const auto end = ReadTypedTime(typed_[TimeOut]);
    rstShift_->Set(u"TimeIn"_s, start ? FieldValue(TimeOnDay(DayZero, start->timeOfDay)) : FieldValue());
    rstShift_->Set(u"TimeOut"_s, end ? FieldValue(EndOfShift(start, *end)) : FieldValue());
}

void ShiftCodeModel::StartEdit(int row, bool isNew) {
    rowInEdit_ = row;
    isNew_ = isNew;
    touched_ = {};
    for (int column = 0; column < ColumnCount; ++column)
        typed_[static_cast<size_t>(column)] = isNew ? QString() : StoredText(row, column);
}

void ShiftCodeModel::EndEdit() {
    rowInEdit_ = -1;
    isNew_ = false;
    typed_ = {};
    touched_ = {};
}

/// Both times as they will be read again once they are written.
void ShiftCodeModel::ShowNextDay() {
    const auto start = ReadTypedTime(typed_[TimeIn]);
    const auto end = ReadTypedTime(typed_[TimeOut]);
    if (start && !start->nextDay)
        typed_[TimeIn] = ShownShiftTime(TimeOnDay(DayZero, start->timeOfDay), DayZero);
    if (end)
        typed_[TimeOut] = ShownShiftTime(EndOfShift(start, *end), DayZero);
}

QString ShiftCodeModel::Text(int row, int column) const {
    return row == rowInEdit_ ? typed_[static_cast<size_t>(column)] : StoredText(row, column);
}

QString ShiftCodeModel::StoredText(int row, int column) const {
    rstShift_->MoveTo(row);
    const FieldValue value = rstShift_->Field(Titles[column].toString());
    const std::optional<WallTime> time = column == Code ? std::nullopt : value.Time();
    if (!time)
        return value.Text();
    const auto start = rstShift_->Field(u"TimeIn"_s).Time();
    return ShownShiftTime(*time, start ? DayOf(*start) : DayZero);
}

std::array<QString, ShiftCodeModel::ColumnCount> ShiftCodeModel::StoredTexts(int row) const {
    return {StoredText(row, Code), StoredText(row, TimeIn), StoredText(row, TimeOut)};
}

CellLook ShiftCodeModel::LookOf(int row, int /*column*/) const {
    return row == rowInEdit_ ? CellLook::Doubtful : CellLook::Plain;
}

Qt::ItemFlags ShiftCodeModel::flags(const QModelIndex& index) const {
    return QAbstractTableModel::flags(index) | (index.isValid() ? Qt::ItemIsEditable : Qt::NoItemFlags);
}

bool ShiftCodeModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid() || role != Qt::EditRole || (rowInEdit_ >= 0 && rowInEdit_ != index.row()))
        return false;
    const int column = index.column();
    const QString text = value.toString();
    if (text == Text(index.row(), column))
        return true;
    if (rowInEdit_ < 0)
        StartEdit(index.row(), false);
    typed_[static_cast<size_t>(column)] = text;
    touched_[static_cast<size_t>(column)] = true;
    if (column == TimeIn) // the end is placed anew after the start that it had until now
        typed_[TimeOut] = typed_[TimeOut].section(u" ("_s, 0, 0);
    if (column != Code)
        ShowNextDay();
    NotifyRow(index.row());
    return true;
}

ShiftCodeUse UseOfShiftCode(Connection& connection, const QString& code) {
    ShiftCodeUse use;
    modGeneral::QueryValues(
        connection, u"select count(1) from ShiftEmployee where ShiftCode="_s + Quoted(code), use.rosterDays);
    // The computation writes codes in upper case, however the table spells them.
    use.cards = CardStore(connection).CountDaysOfShift({code, code.toUpper()});
    return use;
}
