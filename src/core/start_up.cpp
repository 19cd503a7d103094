#include "core/start_up.h"

#include "core/settings.h"
#include "core/supervisor_check.h"
#include "database/file_lookup.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

void LoadPictures(const ProgramFolder& folder, modAbsen::StartScreen& screen) {
    using modAbsen::Background;
    static constexpr std::pair<Background, QStringView> pictures[] = {
        {Background::Big, u"\\images\\back_big.gif"},
        {Background::Small, u"\\images\\back_litle.gif"},
        {Background::Middle, u"\\images\\back_midle.gif"},
        {Background::Plain, u"\\images\\back.gif"},
    };
    for (const auto& [which, name] : pictures) {
        const QString file = folder.Existing(name);
        screen.LoadPicture(which, file.isEmpty() ? ToLocalPath(folder.Joined(name)) : file);
    }
}

} // namespace

bool modAbsen::InitApplication(Program& program, StartScreen& screen,
                               const std::function<QString()>& userCountry, const SetUpCompany& setUp) {
    bool ready = false;
    Trapped(program, u"InitApplication"_s, [&] {
        screen.SetHourglass(true);
        const auto arrow = qScopeGuard([&screen] { screen.SetHourglass(false); });
        LoadPictures(program.folder, screen);
        const bool anyCountry =
            b_global::ReadSetting(program.folder, u"regional"_s).compare(u"any", Qt::CaseInsensitive) == 0;
        if (!anyCountry && !b_WinControlPanel::IsRegionalSettingUS(userCountry())) {
            program.dialogs.Warn(u"Regional setting harus English (United Stated)\n"
                                 "Tolong buka Control Panel window."_s);
            return;
        }
        const auto found = [&] {
            screen.SetHourglass(false);
            const bool goOn = setUp();
            screen.SetHourglass(true);
            return goOn;
        };
        if (setUp && b_global::DatabaseFile(program.folder).isEmpty() && !found())
            return;
        ready = b_global::OpenConnection(program.database, program.folder, program.dialogs);
        if (ready && setUp && !modGeneral::AnySupervisor(program.Db()))
            ready = found();
    });
    return ready;
}
