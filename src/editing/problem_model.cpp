#include "editing/problem_model.h"

#include "core/status_codes.h"
#include "core/typed_date.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// A time of the next day has its sign, one of another day says which.
QString TimeCell(const std::optional<WallTime>& time, Day day) {
    if (!time)
        return {};
    const auto later = DayOf(*time) - day;
    const QString text = ShownMinute(*time);
    if (later == std::chrono::days{1})
        return text + NextDaySign.toString();
    return later == std::chrono::days{0} ? text : text + u' ' + ShownDay(DayOf(*time)).first(6);
}

} // namespace

ProblemModel::ProblemModel(QObject* parent)
    : TableModel({{u"Tanggal"_s},
                  {u"NIK"_s},
                  {u"Nama"_s},
                  {u"Dept"_s},
                  {u"Masalah"_s},
                  {u"Masuk"_s, Qt::AlignRight},
                  {u"Keluar"_s, Qt::AlignRight},
                  {u"Status"_s},
                  {u"Shift"_s},
                  {u"Usul"_s}},
                 parent) {}

void ProblemModel::SetProblems(std::vector<CardProblem> problems) {
    problems_ = std::move(problems);
    Select();
}

void ProblemModel::ShowKind(std::optional<ProblemKind> kind) {
    kind_ = kind;
    Select();
}

void ProblemModel::Select() {
    beginResetModel();
    shown_.clear();
    for (size_t i = 0; i < problems_.size(); ++i) {
        if (!kind_ || problems_[i].kind == *kind_)
            shown_.push_back(i);
    }
    endResetModel();
}

QString ProblemModel::CountText() const {
    const auto waiting = std::ranges::count(problems_, ProblemKind::NotComputed, &CardProblem::kind);
    const QString wanting = u"%1 kartu bermasalah"_s.arg(std::ssize(problems_) - waiting);
    return waiting > 0 ? wanting + u", %1 menunggu dihitung"_s.arg(waiting) : wanting;
}

QString ProblemModel::RowKey(int row) const {
    const CardProblem& problem = At(row);
    return u"%1 %2 %3"_s.arg(StoredDay(problem.day), problem.nip).arg(static_cast<int>(problem.kind));
}

CellLook ProblemModel::LookOf(int row, int column) const {
    return column == Status ? LookOfStatus(At(row).status) : CellLook::Plain;
}

QString ProblemModel::Text(int row, int column) const {
    const CardProblem& problem = At(row);
    switch (column) {
    case Tanggal:
        return ShownDay(problem.day);
    case Nip:
        return problem.nip;
    case Nama:
        return problem.nama;
    case Dept:
        return problem.dept;
    case Masalah:
        return KindText(problem.kind);
    case Masuk:
        return TimeCell(problem.timeIn, problem.day);
    case Keluar:
        return TimeCell(problem.timeOut, problem.day);
    case Status:
        return problem.status;
    case Shift:
        return problem.shift;
    case Usul:
        return problem.ProposalText();
    default:
        return {};
    }
}
