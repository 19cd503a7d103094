#include "core/status_codes.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

constexpr std::pair<QStringView, CellLook> Looks[] = {
    {CardStatus::In, CellLook::GreenChip},         {CardStatus::Out, CellLook::SlateChip},
    {CardStatus::OutShort, CellLook::SlateChip},   {CardStatus::OnBreak, CellLook::AmberChip},
    {CardStatus::LeftEarly, CellLook::OrangeChip}, {CardStatus::OnDuty, CellLook::VioletChip},
    {CardStatus::Excused, CellLook::TealChip},     {CardStatus::Sick, CellLook::RedChip},
    {CardStatus::OnLeave, CellLook::BlueChip},     {CardStatus::Holiday, CellLook::PlumChip},
    {CardStatus::Absent, CellLook::Quiet},
};

} // namespace

CellLook LookOfStatus(QStringView status) {
    const auto* found = std::ranges::find(Looks, status, &std::pair<QStringView, CellLook>::first);
    return found == std::end(Looks) ? CellLook::Plain : found->second;
}
